// Not, And, Or, Xor, Eqv, Imp.

#include "platform/Failure.h"
#include "platform/FailureNumbers.h"
#include "vbscript/machine/Convert.h"
#include "vbscript/machine/Operators.h"

namespace quillon::vbscript {
namespace {

// An operand as bits, and the sub-type that the result takes at least.
struct Bits {
    std::int32_t bits = 0;
    Kind kind = Kind::Integer;
    bool isNull = false;
};

Bits BitsOf(const Variant& operand) {
    switch (operand.kind()) {
    case Kind::Object:
    case Kind::ScriptObject: return BitsOf(PlainValue(operand));
    case Kind::Null: return {0, Kind::Null, true};
    case Kind::Empty: return {};
    case Kind::Boolean:
    case Kind::Byte:
    case Kind::Integer: return {static_cast<std::int32_t>(operand.Number()), operand.kind()};
    case Kind::Text:
        if (const std::optional<bool> boolean = BooleanIn(operand.View()))
            return {*boolean ? -1 : 0, Kind::Boolean};
        [[fallthrough]];
    default: return {ToLong(operand), Kind::Long};
    }
}

Variant ResultOf(std::int32_t bits, Kind left, Kind right) {
    if (left == Kind::Boolean && right == Kind::Boolean)
        return bits != 0;
    if (left == Kind::Byte && right == Kind::Byte)
        return static_cast<std::uint8_t>(bits);
    if (left == Kind::Long || right == Kind::Long)
        return bits;
    return static_cast<std::int16_t>(bits);
}

template <class Operation>
Variant Combine(const Bits& left, const Bits& right, Operation operation) {
    if (left.isNull || right.isNull)
        return NullValue{};
    return ResultOf(operation(left.bits, right.bits), left.kind, right.kind);
}

Variant ValueOf(const Bits& bits) {
    return ResultOf(bits.bits, bits.kind, bits.kind);
}

} // namespace

Variant Not(const Variant& operand) {
    const Bits bits = BitsOf(operand);
    return bits.isNull ? Variant(NullValue{}) : ResultOf(~bits.bits, bits.kind, bits.kind);
}

// What decides the result whatever the other operand is decides it against Null too.
Variant And(const Variant& left, const Variant& right) {
    const Bits a = BitsOf(left), b = BitsOf(right);
    if (a.isNull && !b.isNull && b.bits == 0)
        return ValueOf(b);
    if (b.isNull && !a.isNull && a.bits == 0)
        return ValueOf(a);
    return Combine(a, b, [](std::int32_t x, std::int32_t y) { return x & y; });
}

Variant Or(const Variant& left, const Variant& right) {
    const Bits a = BitsOf(left), b = BitsOf(right);
    if (a.isNull && !b.isNull && b.bits != 0)
        return ValueOf(b);
    if (b.isNull && !a.isNull && a.bits != 0)
        return ValueOf(a);
    return Combine(a, b, [](std::int32_t x, std::int32_t y) { return x | y; });
}

Variant Xor(const Variant& left, const Variant& right) {
    return Combine(BitsOf(left), BitsOf(right), [](std::int32_t x, std::int32_t y) { return x ^ y; });
}

Variant Eqv(const Variant& left, const Variant& right) {
    return Combine(BitsOf(left), BitsOf(right), [](std::int32_t x, std::int32_t y) { return ~(x ^ y); });
}

Variant Imp(const Variant& left, const Variant& right) {
    const Bits a = BitsOf(left), b = BitsOf(right);
    if (a.isNull && !b.isNull && b.bits != 0)
        return ValueOf(b);
    if (b.isNull && !a.isNull && a.bits != -1)
        return ResultOf(~a.bits, a.kind, a.kind);
    return Combine(a, b, [](std::int32_t x, std::int32_t y) { return ~x | y; });
}

bool IsTrue(const Variant& condition) {
    if (condition.IsObject())
        return IsTrue(PlainValue(condition));
    return !condition.IsNull() && ToBoolean(condition);
}

} // namespace quillon::vbscript
