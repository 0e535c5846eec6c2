#include "practice/values/Decimal.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace quillon::practice {

namespace {

constexpr int maxDigits = 38;

UInt128 Magnitude(Int128 value) {
    return value < 0 ? UInt128(0) - static_cast<UInt128>(value) : static_cast<UInt128>(value);
}

bool FitsDigits(UInt128 magnitude) {
    return magnitude < static_cast<UInt128>(PowerOfTen(maxDigits));
}

std::optional<Int128> Signed(UInt128 magnitude, bool negative) {
    if (!FitsDigits(magnitude))
        return {};
    const auto value = static_cast<Int128>(magnitude);
    return negative ? -value : value;
}

// 256 bits in two halves, for products and scaled dividends that do not fit 128.
struct Wide {
    UInt128 high = 0;
    UInt128 low = 0;
};

Wide MultiplyWide(UInt128 left, UInt128 right) {
    constexpr UInt128 mask = ~std::uint64_t(0);
    const UInt128 l0 = left & mask, l1 = left >> 64, r0 = right & mask, r1 = right >> 64;
    const UInt128 low = l0 * r0;
    const UInt128 middle1 = l1 * r0 + (low >> 64);
    const UInt128 middle2 = l0 * r1 + (middle1 & mask);
    return {l1 * r1 + (middle1 >> 64) + (middle2 >> 64), (middle2 << 64) | (low & mask)};
}

// Long division bit by bit; `value` becomes the quotient. The divisor is below 2^127.
UInt128 DivideWide(Wide& value, UInt128 divisor) {
    if (value.high == 0) {
        const UInt128 remainder = value.low % divisor;
        value.low /= divisor;
        return remainder;
    }
    UInt128 remainder = 0;
    Wide quotient;
    for (int bit = 255; bit >= 0; --bit) {
        const UInt128 next = bit >= 128 ? (value.high >> (bit - 128)) & 1 : (value.low >> bit) & 1;
        remainder = (remainder << 1) | next;
        if (remainder >= divisor) {
            remainder -= divisor;
            (bit >= 128 ? quotient.high : quotient.low) |= UInt128(1) << (bit % 128);
        }
    }
    value = quotient;
    return remainder;
}

// Divides by a power of ten, rounding half away from zero or cutting.
void ScaleDown(Wide& value, int digits, bool truncate) {
    while (digits > 0) {
        const int step = std::min(digits, 37);
        const UInt128 divisor = static_cast<UInt128>(PowerOfTen(step));
        const UInt128 remainder = DivideWide(value, divisor);
        digits -= step;
        if (digits == 0 && !truncate && remainder * 2 >= divisor && ++value.low == 0)
            ++value.high;
    }
}

// Makes both scales equal, the larger one; nothing when that leaves 38 digits.
bool Align(Decimal& left, Decimal& right) {
    const int scale = std::max(left.scale, right.scale);
    const auto l = Rescale(left, scale);
    const auto r = Rescale(right, scale);
    if (!l || !r)
        return false;
    left = *l;
    right = *r;
    return true;
}

std::string_view Trim(std::string_view text) {
    const auto isBlank = [](char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; };
    while (!text.empty() && isBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

} // namespace

Int128 PowerOfTen(int exponent) {
    static const std::array<Int128, 39> powers = [] {
        std::array<Int128, 39> table{};
        table[0] = 1;
        for (std::size_t index = 1; index < table.size(); ++index)
            table[index] = table[index - 1] * 10;
        return table;
    }();
    return powers[static_cast<std::size_t>(exponent)];
}

int DigitCount(Int128 value) {
    const UInt128 magnitude = Magnitude(value);
    int digits = 1;
    while (digits < 39 && magnitude >= static_cast<UInt128>(PowerOfTen(digits)) && digits < 38)
        ++digits;
    return magnitude >= static_cast<UInt128>(PowerOfTen(38)) ? 39 : digits;
}

int Decimal::Compare(const Decimal& left, const Decimal& right) {
    if (left.scale == right.scale)
        return left.unscaled < right.unscaled ? -1 : left.unscaled > right.unscaled;
    if ((left.unscaled < 0) != (right.unscaled < 0))
        return left.unscaled < right.unscaled ? -1 : 1;
    const int scale = std::max(left.scale, right.scale);
    const Wide l =
        MultiplyWide(Magnitude(left.unscaled), static_cast<UInt128>(PowerOfTen(scale - left.scale)));
    const Wide r =
        MultiplyWide(Magnitude(right.unscaled), static_cast<UInt128>(PowerOfTen(scale - right.scale)));
    const int order = l.high != r.high ? (l.high < r.high ? -1 : 1)
                      : l.low != r.low ? (l.low < r.low ? -1 : 1)
                                       : 0;
    return left.unscaled < 0 ? -order : order;
}

std::optional<Decimal> Rescale(const Decimal& value, int scale, bool truncate) {
    const bool negative = value.unscaled < 0;
    Wide wide{0, Magnitude(value.unscaled)};
    if (scale >= value.scale)
        wide = MultiplyWide(wide.low, static_cast<UInt128>(PowerOfTen(scale - value.scale)));
    else
        ScaleDown(wide, value.scale - scale, truncate);
    const auto unscaled = wide.high != 0 ? std::nullopt : Signed(wide.low, negative);
    if (!unscaled)
        return {};
    return Decimal{*unscaled, scale};
}

std::optional<Decimal> Add(const Decimal& left, const Decimal& right) {
    Decimal l = left, r = right;
    if (!Align(l, r))
        return {};
    Int128 sum = 0; // two numbers of 38 digits overflow 128 bits
    if (__builtin_add_overflow(l.unscaled, r.unscaled, &sum))
        return {};
    if (!FitsDigits(Magnitude(sum)))
        return {};
    return Decimal{sum, l.scale};
}

std::optional<Decimal> Subtract(const Decimal& left, const Decimal& right) {
    return Add(left, Decimal{-right.unscaled, right.scale});
}

std::optional<Decimal> Multiply(const Decimal& left, const Decimal& right, int scale) {
    const bool negative = (left.unscaled < 0) != (right.unscaled < 0);
    Wide product = MultiplyWide(Magnitude(left.unscaled), Magnitude(right.unscaled));
    const int exact = left.scale + right.scale;
    if (scale < exact) {
        ScaleDown(product, exact - scale, false);
    } else if (scale > exact) {
        if (product.high != 0)
            return {};
        product = MultiplyWide(product.low, static_cast<UInt128>(PowerOfTen(scale - exact)));
    }
    const auto unscaled = product.high != 0 ? std::nullopt : Signed(product.low, negative);
    if (!unscaled)
        return {};
    return Decimal{*unscaled, scale};
}

std::optional<Decimal> Divide(const Decimal& left, const Decimal& right, int scale) {
    const bool negative = (left.unscaled < 0) != (right.unscaled < 0);
    const int shift = scale - left.scale + right.scale;
    Wide dividend{0, Magnitude(left.unscaled)};
    UInt128 divisor = Magnitude(right.unscaled);
    if (shift >= 0 && shift <= maxDigits) {
        dividend = MultiplyWide(dividend.low, static_cast<UInt128>(PowerOfTen(shift)));
    } else if (shift > maxDigits) {
        dividend = MultiplyWide(dividend.low, static_cast<UInt128>(PowerOfTen(maxDigits)));
        if (dividend.high != 0)
            return {};
        dividend = MultiplyWide(dividend.low, static_cast<UInt128>(PowerOfTen(shift - maxDigits)));
    } else {
        ScaleDown(dividend, -shift, true);
    }
    DivideWide(dividend, divisor);
    const auto unscaled = dividend.high != 0 ? std::nullopt : Signed(dividend.low, negative);
    if (!unscaled)
        return {};
    return Decimal{*unscaled, scale};
}

std::optional<Decimal> Modulo(const Decimal& left, const Decimal& right) {
    Decimal l = left, r = right;
    if (!Align(l, r))
        return {};
    return Decimal{l.unscaled % r.unscaled, l.scale};
}

std::string FormatDecimal(const Decimal& value) {
    std::string digits;
    UInt128 magnitude = Magnitude(value.unscaled);
    do {
        digits.push_back(static_cast<char>('0' + static_cast<int>(magnitude % 10)));
        magnitude /= 10;
    } while (magnitude != 0);
    while (static_cast<int>(digits.size()) <= value.scale)
        digits.push_back('0');
    if (value.scale > 0)
        digits.insert(static_cast<std::size_t>(value.scale), 1, '.');
    if (value.unscaled < 0)
        digits.push_back('-');
    std::reverse(digits.begin(), digits.end());
    return digits;
}

std::optional<Decimal> ParseDecimal(std::string_view text) {
    text = Trim(text);
    bool negative = false;
    if (!text.empty() && (text.front() == '-' || text.front() == '+')) {
        negative = text.front() == '-';
        text.remove_prefix(1);
        text = Trim(text);
    }
    UInt128 magnitude = 0;
    int scale = 0, digits = 0;
    bool pointSeen = false, roundUp = false, cutting = false;
    for (const char c : text) {
        if (c == '.' && !pointSeen) {
            pointSeen = true;
            continue;
        }
        if (c < '0' || c > '9')
            return {};
        ++digits;
        if (cutting || !FitsDigits(magnitude * 10 + static_cast<UInt128>(c - '0'))) {
            if (!pointSeen)
                return {};
            roundUp = cutting ? roundUp : c >= '5';
            cutting = true;
            continue;
        }
        magnitude = magnitude * 10 + static_cast<UInt128>(c - '0');
        scale += pointSeen;
    }
    if (digits == 0)
        return {};
    const auto unscaled = Signed(magnitude + roundUp, negative);
    if (!unscaled || scale > maxDigits)
        return {};
    return Decimal{*unscaled, scale};
}

double ToDouble(const Decimal& value) {
    return std::strtod(FormatDecimal(value).c_str(), nullptr);
}

std::optional<Decimal> FromDouble(double value, int scale) {
    if (!std::isfinite(value) || std::fabs(value) >= 1e38)
        return {};
    // Seventeen significant digits are what a double holds; further ones would be noise.
    char buffer[32];
    std::snprintf(buffer, sizeof buffer, "%.16e", value);
    std::string digits(buffer, std::strchr(buffer, 'e'));
    digits.erase(std::remove(digits.begin(), digits.end(), '.'), digits.end());
    const int decimals = 16 - std::atoi(std::strchr(buffer, 'e') + 1);
    const auto mantissa = ParseDecimal(digits);
    if (!mantissa)
        return {};
    if (decimals < 0)
        return Multiply({mantissa->unscaled, 0}, {PowerOfTen(-decimals), 0}, scale);
    if (decimals > maxDigits) {
        const auto shorter = decimals - maxDigits > 17
                                 ? std::optional<Decimal>(Decimal{0, maxDigits})
                                 : Rescale({mantissa->unscaled, decimals - maxDigits}, 0);
        return Rescale({shorter->unscaled, maxDigits}, scale);
    }
    return Rescale({mantissa->unscaled, decimals}, scale);
}

} // namespace quillon::practice
