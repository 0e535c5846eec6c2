// Reading the arguments of an intrinsic function.
//
// An argument is given if it is in the span and not Missing; an optional one that is not takes its default.
// The documented order of complaints holds when functions convert the numeric arguments first.
#pragma once

#include <cstdint>
#include <span>

#include "platform/Failure.h"
#include "platform/FailureNumbers.h"
#include "vbscript/machine/Convert.h"
#include "vbscript/machine/Variant.h"

namespace quillon::vbscript {

using Arguments = std::span<const Variant>;

[[noreturn]] inline void RaiseInvalidCall() {
    throw Failure(numbers::InvalidCall);
}

inline bool IsGiven(Arguments arguments, std::size_t index) {
    return index < arguments.size() && !arguments[index].IsMissing();
}

inline std::int32_t LongOr(Arguments arguments, std::size_t index, std::int32_t missing) {
    return IsGiven(arguments, index) ? ToLong(arguments[index]) : missing;
}

inline bool BooleanOr(Arguments arguments, std::size_t index, bool missing) {
    return IsGiven(arguments, index) ? ToBoolean(arguments[index]) : missing;
}

inline Text TextOr(Arguments arguments, std::size_t index, Text missing) {
    return IsGiven(arguments, index) ? ToText(arguments[index]) : missing;
}

// A length or count, which may not be negative.
inline std::size_t CountOf(const Variant& argument) {
    const std::int32_t count = ToLong(argument);
    if (count < 0)
        RaiseInvalidCall();
    return static_cast<std::size_t>(count);
}

// A position counted from 1, as an offset counted from 0.
inline std::size_t OffsetOf(const Variant& argument) {
    const std::int32_t position = ToLong(argument);
    if (position < 1)
        RaiseInvalidCall();
    return static_cast<std::size_t>(position) - 1;
}

// The compare argument: vbBinaryCompare or vbTextCompare, binary if left out.
inline bool IgnoresCase(Arguments arguments, std::size_t index) {
    const std::int32_t compare = LongOr(arguments, index, 0);
    if (compare != 0 && compare != 1)
        RaiseInvalidCall();
    return compare == 1;
}

inline Variant LongResult(std::size_t value) {
    return static_cast<std::int32_t>(value);
}

} // namespace quillon::vbscript
