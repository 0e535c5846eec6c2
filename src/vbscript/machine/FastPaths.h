// The common cases of the hot instructions: numbers of sub-type Integer, Long and Double in plain variables.
//
// Each answers false, and has changed nothing, where the case is not one of these.
#pragma once

#include <cmath>
#include <limits>

#include "vbscript/machine/Operators.h"
#include "vbscript/machine/Variant.h"

namespace quillon::vbscript::fast {

inline bool IsWhole(const Variant& value) noexcept {
    return static_cast<std::uint64_t>(value.kind()) - static_cast<std::uint64_t>(Kind::Integer) <= 1;
}
inline bool IsDouble(const Variant& value) noexcept {
    return value.kind() == Kind::Double;
}
// May be overwritten as it stands.
inline bool IsPlain(const Variant& target) noexcept {
    return target.kind() < Kind::Reference;
}
inline double RealOf(const Variant& value) noexcept {
    return IsDouble(value) ? value.Real() : static_cast<double>(value.Number());
}

inline void SetWhole(Variant& target, std::int64_t number, Kind widest) noexcept {
    if (number == static_cast<std::int16_t>(number) && widest == Kind::Integer)
        target.SetNumber(Kind::Integer, number);
    else if (number == static_cast<std::int32_t>(number))
        target.SetNumber(Kind::Long, number);
    else
        target.SetReal(Kind::Double, static_cast<double>(number));
}

// `whole` must not overflow on two 32-bit operands.
template <class WholeOperation, class RealOperation>
inline bool Arithmetic(Variant& target, const Variant& left, const Variant& right, WholeOperation whole,
                       RealOperation real) noexcept {
    if (!IsPlain(target))
        return false;
    if (IsWhole(left) && IsWhole(right)) {
        SetWhole(target, whole(left.Number(), right.Number()), std::max(left.kind(), right.kind()));
        return true;
    }
    if ((!IsDouble(left) && !IsWhole(left)) || (!IsDouble(right) && !IsWhole(right)))
        return false;
    const double result = real(RealOf(left), RealOf(right));
    if (!(std::abs(result) <= std::numeric_limits<double>::max()))
        return false;
    target.SetReal(Kind::Double, result);
    return true;
}

inline bool Add(Variant& target, const Variant& left, const Variant& right) noexcept {
    return Arithmetic(
        target, left, right, [](std::int64_t a, std::int64_t b) { return a + b; },
        [](double a, double b) { return a + b; });
}
inline bool Subtract(Variant& target, const Variant& left, const Variant& right) noexcept {
    return Arithmetic(
        target, left, right, [](std::int64_t a, std::int64_t b) { return a - b; },
        [](double a, double b) { return a - b; });
}
inline bool Multiply(Variant& target, const Variant& left, const Variant& right) noexcept {
    return Arithmetic(
        target, left, right, [](std::int64_t a, std::int64_t b) { return a * b; },
        [](double a, double b) { return a * b; });
}
inline bool Divide(Variant& target, const Variant& left, const Variant& right) noexcept {
    if (!IsPlain(target) || (!IsDouble(left) && !IsWhole(left)) || (!IsDouble(right) && !IsWhole(right)))
        return false;
    const double divisor = RealOf(right);
    const double result = RealOf(left) / divisor;
    if (divisor == 0 || !(std::abs(result) <= std::numeric_limits<double>::max()))
        return false;
    target.SetReal(Kind::Double, result);
    return true;
}
inline bool WholeDivide(Variant& target, const Variant& left, const Variant& right) noexcept {
    if (!IsPlain(target) || !IsWhole(left) || !IsWhole(right) || right.Number() == 0)
        return false;
    SetWhole(target, left.Number() / right.Number(), std::max(left.kind(), right.kind()));
    return true;
}
inline bool Modulo(Variant& target, const Variant& left, const Variant& right) noexcept {
    if (!IsPlain(target) || !IsWhole(left) || !IsWhole(right) || right.Number() == 0)
        return false;
    SetWhole(target, left.Number() % right.Number(), std::max(left.kind(), right.kind()));
    return true;
}

// Two whole numbers, two real ones, or two texts.
template <Comparison Comparing, class Number>
inline bool HoldsFor(Number left, Number right) noexcept {
    switch (Comparing) {
    case Comparison::Equal: return left == right;
    case Comparison::NotEqual: return left != right;
    case Comparison::Less: return left < right;
    case Comparison::LessOrEqual: return left <= right;
    case Comparison::Greater: return left > right;
    default: return left >= right;
    }
}
// The case of two texts, out of the way of the numbers.
bool CompareTexts(bool& result, Comparison comparison, const Variant& left, const Variant& right);

template <Comparison Comparing>
inline bool Compare(bool& result, const Variant& left, const Variant& right) {
    if (IsWhole(left) && IsWhole(right)) {
        result = HoldsFor<Comparing>(left.Number(), right.Number());
        return true;
    }
    if ((IsDouble(left) || IsWhole(left)) && (IsDouble(right) || IsWhole(right))) {
        result = HoldsFor<Comparing>(RealOf(left), RealOf(right));
        return true;
    }
    return CompareTexts(result, Comparing, left, right);
}

// One turn of a counting loop. `again` tells whether the limit is not passed.
inline bool CountLoop(Variant& counter, const Variant& limit, const Variant& step, bool& again) noexcept {
    if (!IsWhole(counter) || !IsWhole(limit) || !IsWhole(step))
        return false;
    const std::int64_t next = counter.Number() + step.Number();
    SetWhole(counter, next, std::max(counter.kind(), step.kind()));
    again = step.Number() >= 0 ? next <= limit.Number() : next >= limit.Number();
    return true;
}

} // namespace quillon::vbscript::fast
