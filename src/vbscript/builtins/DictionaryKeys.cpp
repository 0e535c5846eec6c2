#include "vbscript/builtins/DictionaryKeys.h"

#include <bit>

#include "vbscript/builtins/Arguments.h"
#include "vbscript/machine/Work.h"

namespace quillon::vbscript {
namespace {

std::uint32_t Mixed(std::uint64_t bits) {
    bits ^= bits >> 32;
    bits *= 0x9E3779B97F4A7C15U;
    return static_cast<std::uint32_t>(bits >> 32);
}

bool IsNumber(const Variant& value) {
    return value.kind() >= Kind::Boolean && value.kind() <= Kind::Date;
}

double NumberOf(const Variant& value) {
    switch (value.kind()) {
    case Kind::Single: return static_cast<double>(value.Single());
    case Kind::Double:
    case Kind::Date: return value.Real();
    case Kind::Currency: return DoubleOf(value.Currency());
    default: return static_cast<double>(value.Number());
    }
}

std::uint32_t FoldedHash(std::u16string_view text) {
    Work::Done(text.size());
    std::uint32_t hash = 2166136261U;
    for (const char16_t c : text)
        hash = (hash ^ LowerOf(c)) * 16777619U;
    return hash;
}

} // namespace

void KeyRule::Require(const Variant& key) {
    if (!IsNumber(key) && !key.IsText() && !key.IsObject() && !key.IsEmpty() && !key.IsNull())
        RaiseInvalidCall();
}

std::uint32_t KeyRule::HashOf(const Variant& key) const {
    Require(key);
    switch (key.kind()) {
    case Kind::Empty:
    case Kind::Null: return static_cast<std::uint32_t>(key.kind());
    case Kind::Text: return Mixed(m_ignoresCase ? FoldedHash(key.View()) : key.AsText().Hash());
    case Kind::Object:
    case Kind::ScriptObject: return Mixed(reinterpret_cast<std::uintptr_t>(key.AsObject().get()));
    default: return Mixed(std::bit_cast<std::uint64_t>(NumberOf(key) + 0.0)); // -0.0 is 0.0
    }
}

bool KeyRule::AreSame(const Variant& left, const Variant& right) const {
    if (left.IsText() || right.IsText()) {
        if (left.kind() != right.kind())
            return false;
        return m_ignoresCase ? CompareIgnoringCase(left.View(), right.View()) == 0
                             : left.AsText() == right.AsText();
    }
    if (IsNumber(left) && IsNumber(right))
        return NumberOf(left) == NumberOf(right);
    if (left.IsObject() && right.IsObject())
        return left.AsObject() == right.AsObject();
    return left.kind() == right.kind() && !IsNumber(left);
}

} // namespace quillon::vbscript
