// The text forms of numbers: what & and CStr give.
#include <array>
#include <charconv>
#include <cmath>

#include "platform/Conversion.h"

namespace quillon::conversion {
namespace {

// A finite number as sign, significant digits without trailing zeros, and the power of ten of the first
// digit.
struct Digits {
    bool negative = false;
    std::array<char, 32> text{};
    int count = 0;
    int exponent = 0;
};

Digits DigitsOf(double value, int precision) {
    Digits digits;
    digits.negative = std::signbit(value);
    std::array<char, 48> buffer;
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), std::fabs(value),
                                   std::chars_format::scientific, precision - 1)
                         .ptr;
    const char* at = buffer.data();
    for (; at != end && *at != 'e'; ++at) {
        if (*at != '.')
            digits.text[static_cast<std::size_t>(digits.count++)] = *at;
    }
    const bool negativeExponent = at[1] == '-';
    std::from_chars(at + 2, end, digits.exponent);
    if (negativeExponent)
        digits.exponent = -digits.exponent;
    while (digits.count > 1 && digits.text[static_cast<std::size_t>(digits.count - 1)] == '0')
        --digits.count;
    return digits;
}

std::string ExponentForm(const Digits& digits) {
    std::string text(1, digits.text[0]);
    if (digits.count > 1)
        text.append(1, '.').append(digits.text.data() + 1, static_cast<std::size_t>(digits.count - 1));
    text += digits.exponent < 0 ? "E-" : "E+";
    const int power = std::abs(digits.exponent);
    if (power < 10)
        text += '0';
    return text += std::to_string(power);
}

std::string PlainForm(const Digits& digits) {
    const std::string_view all(digits.text.data(), static_cast<std::size_t>(digits.count));
    if (digits.exponent < 0) {
        std::string text = "0.";
        return text.append(static_cast<std::size_t>(-digits.exponent - 1), '0').append(all);
    }
    const auto whole = static_cast<std::size_t>(digits.exponent) + 1;
    std::string text(all.substr(0, whole));
    if (all.size() <= whole)
        return text.append(whole - all.size(), '0');
    return text.append(1, '.').append(all.substr(whole));
}

// The host writes a number plainly as long as neither side of the point needs more than `precision` digits.
std::string TextWith(double value, int precision) {
    if (std::isnan(value))
        return "-1.#IND";
    if (std::isinf(value))
        return value < 0 ? "-1.#INF" : "1.#INF";
    if (value == 0)
        return "0";
    const Digits digits = DigitsOf(value, precision);
    const int decimals = digits.count - 1 - digits.exponent;
    const bool plain = digits.exponent < precision && (digits.exponent >= 0 || decimals <= precision);
    const std::string text = plain ? PlainForm(digits) : ExponentForm(digits);
    return digits.negative ? "-" + text : text;
}

constexpr double LargestExactInteger = 1e15;

} // namespace

std::string TextOf(double value) {
    // Most doubles that scripts print are whole numbers; they need no digit search.
    if (std::fabs(value) < LargestExactInteger) {
        const auto whole = static_cast<std::int64_t>(value);
        if (static_cast<double>(whole) == value)
            return std::to_string(whole);
    }
    return TextWith(value, 15);
}

std::string TextOf(float value) {
    return TextWith(static_cast<double>(value), 7);
}

std::string TextOf(CurrencyValue value) {
    const bool negative = value.tenThousandths < 0;
    const auto bits = static_cast<std::uint64_t>(value.tenThousandths);
    const std::uint64_t magnitude = negative ? 0 - bits : bits;
    std::string text = negative ? "-" : "";
    text += std::to_string(magnitude / 10000);
    if (magnitude % 10000 == 0)
        return text;
    std::string decimals = std::to_string(10000 + magnitude % 10000).substr(1);
    decimals.erase(decimals.find_last_not_of('0') + 1);
    return text.append(1, '.').append(decimals);
}

std::string TextOf(bool value) {
    return value ? "True" : "False";
}

} // namespace quillon::conversion
