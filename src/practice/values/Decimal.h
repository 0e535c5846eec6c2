// Exact arithmetic on scaled integers: what decimal and money are made of. A value is `unscaled / 10^scale`.
// Every function either gives the exact or documented rounded result or reports an overflow; none wraps.
#pragma once

#include "practice/values/Int128.h"

#include <optional>
#include <string>
#include <string_view>

namespace quillon::practice {

struct Decimal {
    Int128 unscaled = 0;
    int scale = 0; // 0..38

    bool operator==(const Decimal& other) const { return Compare(*this, other) == 0; }
    static int Compare(const Decimal& left, const Decimal& right);
};

Int128 PowerOfTen(int exponent); // 0..38
int DigitCount(Int128 value);    // 1 for zero

// Changes the scale: rounds half away from zero, or cuts when `truncate`. Nothing on overflow of 38 digits.
std::optional<Decimal> Rescale(const Decimal& value, int scale, bool truncate = false);
std::optional<Decimal> Add(const Decimal& left, const Decimal& right);
std::optional<Decimal> Subtract(const Decimal& left, const Decimal& right);
// The product and quotient at the scale asked for, rounded half away from zero (products) and cut
// (quotients).
std::optional<Decimal> Multiply(const Decimal& left, const Decimal& right, int scale);
std::optional<Decimal> Divide(const Decimal& left, const Decimal& right,
                              int scale);                                 // divisor must not be zero
std::optional<Decimal> Modulo(const Decimal& left, const Decimal& right); // sign of the dividend

std::string FormatDecimal(const Decimal& value); // 0.50, -12.3
// Digits, sign, point; surrounding blanks allowed. Nothing when it is no number or has more than 38 digits
// before the point. Digits after the point beyond what fits in 38 are rounded.
std::optional<Decimal> ParseDecimal(std::string_view text);
double ToDouble(const Decimal& value);
// Rounded half away from zero to `scale`; nothing when it has more than 38 digits or is not finite.
std::optional<Decimal> FromDouble(double value, int scale);

} // namespace quillon::practice
