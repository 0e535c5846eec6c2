// The dynamic half of the operators: what they do to values.
#include "practice/values/Operators.h"

#include "practice/values/ConvertParts.h"
#include "practice/values/Growth.h"
#include "practice/values/SqlError.h"

#include <cmath>
#include <cstring>
#include <limits>

namespace quillon::practice {

namespace {

constexpr std::int64_t stepsPerDay = 24LL * 60 * 60 * 300;

[[noreturn]] void Overflow(const SqlType& result) {
    throw SqlError(8115, {"expression", result.IsDecimal() ? "numeric" : result.Name()}, 2);
}

Datum Checked(Int128 number, const SqlType& result) {
    const Datum wide = Datum::Number(DecimalType(38, 0), number);
    try {
        return Convert(wide, result);
    } catch (const SqlError&) {
        Overflow(result);
    }
}

Datum IntegerResult(BinaryOperator op, const Datum& left, const Datum& right, const SqlType& result) {
    const SqlType bigint = SimpleType(TypeId::BigInt);
    const Int128 l = Convert(left, left.Type().IsNumber() ? bigint : result).Integer();
    const Int128 r = Convert(right, right.Type().IsNumber() ? bigint : result).Integer();
    switch (op) {
    case BinaryOperator::Add: return Checked(l + r, result);
    case BinaryOperator::Subtract: return Checked(l - r, result);
    case BinaryOperator::Multiply: return Checked(l * r, result);
    case BinaryOperator::BitAnd: return Datum::Integer(result.id, static_cast<std::int64_t>(l & r));
    case BinaryOperator::BitOr: return Datum::Integer(result.id, static_cast<std::int64_t>(l | r));
    case BinaryOperator::BitXor: return Datum::Integer(result.id, static_cast<std::int64_t>(l ^ r));
    default: break;
    }
    if (r == 0)
        throw SqlError(8134);
    const Datum quotient = Checked(l / r, result); // formed for the remainder too, and may overflow there
    return op == BinaryOperator::Divide ? quotient : Checked(l % r, result);
}

Datum FloatResult(BinaryOperator op, const Datum& left, const Datum& right, const SqlType& result) {
    const SqlType wide = SimpleType(TypeId::Float);
    const double l = Convert(left, wide).Float();
    const double r = Convert(right, wide).Float();
    double number = 0;
    switch (op) {
    case BinaryOperator::Add: number = l + r; break;
    case BinaryOperator::Subtract: number = l - r; break;
    case BinaryOperator::Multiply: number = l * r; break;
    default:
        if (r == 0)
            throw SqlError(8134);
        number = l / r;
    }
    const double limit = result.id == TypeId::Real ? static_cast<double>(std::numeric_limits<float>::max())
                                                   : std::numeric_limits<double>::max();
    if (!(std::fabs(number) <= limit))
        Overflow(result);
    return Datum::Float(result.id == TypeId::Real ? static_cast<double>(static_cast<float>(number)) : number,
                        result.id);
}

// A number as it stands; anything else converted to the type of the result.
Decimal Operand(const Datum& value, const SqlType& result) {
    if (value.Type().IsInteger())
        return {value.Integer(), 0};
    if (value.Type().IsDecimal() || value.Type().IsMoney())
        return value.Number();
    return Convert(value, result).Number();
}

std::optional<Decimal> ExactOperation(BinaryOperator op, const Decimal& l, const Decimal& r, int scale) {
    switch (op) {
    case BinaryOperator::Add: return Add(l, r);
    case BinaryOperator::Subtract: return Subtract(l, r);
    case BinaryOperator::Multiply: return Multiply(l, r, scale);
    default: break;
    }
    if (r.unscaled == 0)
        throw SqlError(8134);
    return op == BinaryOperator::Divide ? Divide(l, r, scale) : Modulo(l, r);
}

Datum ExactResult(BinaryOperator op, const Datum& left, const Datum& right, const SqlType& result) {
    auto number = ExactOperation(op, Operand(left, result), Operand(right, result), result.scale);
    if (number)
        number = Rescale(*number, result.scale);
    if (!number)
        Overflow(result);
    if (result.IsDecimal()) {
        if (DigitCount(number->unscaled) > result.precision)
            Overflow(result);
        return Datum::Number(result, number->unscaled);
    }
    const bool isSmall = result.id == TypeId::SmallMoney;
    const Int128 limit = isSmall ? Int128(std::numeric_limits<std::int32_t>::max())
                                 : Int128(std::numeric_limits<std::int64_t>::max());
    if (number->unscaled > limit || number->unscaled < -limit - 1)
        Overflow(result);
    return Datum::Money(number->unscaled, result.id);
}

std::int64_t StepsSince1900(const Datum& value) {
    return (value.When().day - day1900) * stepsPerDay + DateTimeSteps(value.When().ticks);
}

Datum MomentResult(BinaryOperator op, const Datum& left, const Datum& right, const SqlType& result,
                   const ConvertOptions& options) {
    const SqlType datetime = SimpleType(TypeId::DateTime);
    const std::int64_t l = StepsSince1900(Convert(left, datetime, options));
    const std::int64_t r = StepsSince1900(Convert(right, datetime, options));
    const std::int64_t steps = op == BinaryOperator::Add ? l + r : l - r;
    const std::int64_t day = steps >= 0 ? steps / stepsPerDay : -((-steps + stepsPerDay - 1) / stepsPerDay);
    const Moment moment{static_cast<std::int32_t>(day) + day1900, TicksFromSteps(steps - day * stepsPerDay),
                        0};
    if (moment.day < day1753 || moment.day > day9999)
        throw SqlError(517, {result.Name()});
    return MakeMoment(moment, result, datetime);
}

Datum Concatenate(const Datum& left, const Datum& right, const SqlType& result) {
    RequireGrowth(result.IsBinary() ? left.Bytes().size() + right.Bytes().size()
                                    : left.Text().size() + right.Text().size());
    if (result.IsBinary())
        return Convert(Datum::Bytes(BinaryType(TypeId::VarBinary, maxLength), left.Bytes() + right.Bytes()),
                       result);
    const SqlType wide = TextType(result.IsUnicode() ? TypeId::NVarChar : TypeId::VarChar, maxLength);
    return Convert(Datum::Text(wide, left.Text() + right.Text()), result);
}

int CompareNumbers(const Datum& left, const Datum& right) {
    const SqlType& l = left.Type();
    const SqlType& r = right.Type();
    if (l.IsInteger() && r.IsInteger())
        return left.Integer() < right.Integer() ? -1 : left.Integer() > right.Integer();
    if (l.IsFloat() || r.IsFloat()) {
        const SqlType wide = SimpleType(l.IsFloat() && r.IsFloat() ? TypeId::Float
                                        : l.IsFloat()              ? l.id
                                                                   : r.id);
        const double a = Convert(left, wide).Float();
        const double b = Convert(right, wide).Float();
        return a < b ? -1 : a > b;
    }
    return Decimal::Compare(Operand(left, DecimalType(38, 4)), Operand(right, DecimalType(38, 4)));
}

int CompareGuids(const Guid& left, const Guid& right) {
    // Identifiers sort by their last group first.
    constexpr std::size_t order[16] = {10, 11, 12, 13, 14, 15, 8, 9, 6, 7, 4, 5, 0, 1, 2, 3};
    for (const std::size_t index : order)
        if (left.bytes[index] != right.bytes[index])
            return left.bytes[index] < right.bytes[index] ? -1 : 1;
    return 0;
}

int CompareBytes(const std::string& left, const std::string& right) {
    const int order = std::memcmp(left.data(), right.data(), std::min(left.size(), right.size()));
    if (order != 0)
        return order < 0 ? -1 : 1;
    return left.size() < right.size() ? -1 : left.size() > right.size();
}

int CompareSameFamily(const Datum& left, const Datum& right, const Collation* collation) {
    const SqlType& type = left.Type();
    if (type.IsCharacter() || type.id == TypeId::Xml)
        return (collation != nullptr ? collation : DefaultCollation())->Compare(left.Text(), right.Text());
    if (type.IsMoment()) {
        const std::int64_t l = left.When().TotalTicks(), r = right.When().TotalTicks();
        return l < r ? -1 : l > r;
    }
    if (type.id == TypeId::UniqueIdentifier)
        return CompareGuids(left.Identifier(), right.Identifier());
    return CompareBytes(left.Bytes(), right.Bytes());
}

} // namespace

Datum Evaluate(BinaryOperator op, const Datum& left, const Datum& right, const SqlType& result,
               const ConvertOptions& options) {
    if (left.IsNull() || right.IsNull())
        return Datum::Null(result);
    if (result.IsInteger())
        return IntegerResult(op, left, right, result);
    if (result.IsFloat())
        return FloatResult(op, left, right, result);
    if (result.IsDecimal() || result.IsMoney())
        return ExactResult(op, left, right, result);
    if (result.IsMoment())
        return MomentResult(op, left, right, result, options);
    return Concatenate(left, right, result);
}

Datum Evaluate(UnaryOperator op, const Datum& operand, const SqlType& result) {
    if (operand.IsNull())
        return Datum::Null(result);
    if (op == UnaryOperator::Plus)
        return operand;
    if (op == UnaryOperator::Minus && result.IsFloat())
        return Datum::Float(-operand.Float(), result.id);
    if (op == UnaryOperator::Minus)
        return Evaluate(BinaryOperator::Subtract, Datum::Int(0), operand, result);
    if (result.id == TypeId::Bit)
        return Datum::Bit(operand.Integer() == 0);
    const std::int64_t bits = ~operand.Integer();
    return Datum::Integer(result.id, result.id == TypeId::TinyInt ? bits & 0xFF : bits);
}

int CompareValues(const Datum& left, const Datum& right, const Collation* collation,
                  const ConvertOptions& options) {
    const SqlType& l = left.Type();
    const SqlType& r = right.Type();
    if (l.IsNumber() && r.IsNumber())
        return CompareNumbers(left, right);
    const bool sameFamily =
        (l.IsCharacter() && r.IsCharacter()) || (l.IsBinary() && r.IsBinary()) || l.id == r.id;
    if (sameFamily)
        return CompareSameFamily(left, right, collation);
    const SqlType common = CommonType(l, r);
    const Datum a = Convert(left, common, options);
    const Datum b = Convert(right, common, options);
    return common.IsNumber() ? CompareNumbers(a, b) : CompareSameFamily(a, b, collation);
}

std::optional<bool> Compare(ComparisonOperator op, const Datum& left, const Datum& right,
                            const Collation* collation, const ConvertOptions& options) {
    if (left.IsNull() || right.IsNull())
        return {};
    const int order = CompareValues(left, right, collation, options);
    switch (op) {
    case ComparisonOperator::Equal: return order == 0;
    case ComparisonOperator::NotEqual: return order != 0;
    case ComparisonOperator::Less: return order < 0;
    case ComparisonOperator::LessOrEqual: return order <= 0;
    case ComparisonOperator::Greater: return order > 0;
    default: return order >= 0;
    }
}

} // namespace quillon::practice
