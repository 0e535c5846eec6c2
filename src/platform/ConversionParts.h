// What the files of Conversion share among themselves; nobody else includes it.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/Value.h"

namespace quillon::conversion {

// A number as it stood in text, before a sub-type is chosen: digits times ten to the exponent, or, after &H
// and &O, bits.
struct ParsedNumber {
    std::string digits;
    int exponent = 0;
    bool negative = false;
    bool based = false;
    std::uint64_t bits = 0;
};

// None if the text is no number. Raises 6 for more than 64 bits after &H or &O.
std::optional<ParsedNumber> ReadNumber(std::string_view text);

// Raises 6 beyond the range of a Double.
double DoubleOf(const ParsedNumber& number);

// Half to even at the fourth decimal. Raises 6 out of range.
CurrencyValue CurrencyOf(const ParsedNumber& number);
CurrencyValue CurrencyOf(double value);

// What an object stands for in an expression. Raises 91 for Nothing, 438 without a default member.
Value DefaultValueOf(const Value& object);

} // namespace quillon::conversion
