// Conversions of script values, as CBool, CInt ... CStr make them and as operators and functions apply them
// to their operands.
//
// All of them read the default property of an object first (91 for Nothing, 438 if it has none). Null raises
// 94, an array or a text that is no number 13, a value out of range 6. Whole numbers round half to even.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "vbscript/machine/Variant.h"

namespace quillon::vbscript {

// The plain value: what an object's default property gives, everything else as it is. The result is no
// object: 438 otherwise.
Variant PlainValue(const Variant& value);

bool ToBoolean(const Variant& value);
std::uint8_t ToByte(const Variant& value);
std::int16_t ToInteger(const Variant& value);
std::int32_t ToLong(const Variant& value);
float ToSingle(const Variant& value);
double ToDouble(const Variant& value);
CurrencyValue ToCurrency(const Variant& value);
DateValue ToDate(const Variant& value);
Text ToText(const Variant& value);

// A double as a whole number, rounded half to even, within [low, high]; raises 6 beyond.
std::int64_t RoundToWhole(double value, std::int64_t low, std::int64_t high);
// A currency amount of `value`; raises 6 beyond its range.
CurrencyValue CurrencyOf(double value);
double DoubleOf(CurrencyValue value) noexcept;

// A number in a text as CDbl reads it; none if it is none.
std::optional<double> NumberIn(std::u16string_view text);
// "True", "False", and as databases write them "#TRUE#", "#FALSE#", without regard to case; none otherwise.
std::optional<bool> BooleanIn(std::u16string_view text) noexcept;

// Text comparison: by character code, or (for vbTextCompare) without regard to case. Negative, 0, positive.
int CompareBinary(std::u16string_view left, std::u16string_view right) noexcept;
int CompareIgnoringCase(std::u16string_view left, std::u16string_view right) noexcept;
// One character in the other case; characters without one stay.
char16_t UpperOf(char16_t character) noexcept;
char16_t LowerOf(char16_t character) noexcept;

} // namespace quillon::vbscript
