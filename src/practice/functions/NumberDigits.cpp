#include "practice/functions/NumberDigits.h"

#include <algorithm>
#include <charconv>
#include <cstdio>

namespace quillon::practice {

namespace {

NumberDigits DigitsOfFloat(double value, int significant) {
    char buffer[64];
    std::snprintf(buffer, sizeof buffer, "%.*e", significant - 1, value);
    const std::string text(buffer);
    const std::size_t exponent = text.find('e');
    NumberDigits number;
    number.negative = text.front() == '-';
    std::copy_if(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(exponent),
                 std::back_inserter(number.digits), [](char c) { return c >= '0' && c <= '9'; });
    number.point = std::stoi(text.substr(exponent + 1)) + 1;
    number.Round(significant);
    return number;
}

} // namespace

char NumberDigits::At(int place) const {
    return place >= 0 && place < static_cast<int>(digits.size()) ? digits[static_cast<std::size_t>(place)]
                                                                 : '0';
}

void NumberDigits::Round(int count) {
    const bool up = count >= 0 && At(count) >= '5';
    digits.resize(static_cast<std::size_t>(std::clamp(count, 0, static_cast<int>(digits.size()))));
    if (up) {
        while (!digits.empty() && digits.back() == '9')
            digits.pop_back();
        if (digits.empty()) {
            digits = "1";
            ++point;
        } else {
            ++digits.back();
        }
    }
    while (!digits.empty() && digits.back() == '0')
        digits.pop_back();
    if (digits.empty()) {
        point = 0;
        negative = false;
    }
}

NumberDigits DigitsOf(const Datum& value, int significant) {
    const SqlType& type = value.Type();
    if (type.IsFloat())
        return DigitsOfFloat(value.Float(), significant != 0          ? significant
                                            : type.id == TypeId::Real ? 7
                                                                      : 15);
    const Decimal exact = type.IsInteger() ? Decimal{value.Integer(), 0} : value.Number();
    NumberDigits number;
    number.negative = exact.unscaled < 0;
    const std::string text = FormatDecimal({exact.unscaled, 0});
    number.digits = text.substr(
        text.find_first_not_of("-0") == std::string::npos ? text.size() : text.find_first_not_of("-0"));
    number.point = number.IsZero() ? 0 : static_cast<int>(number.digits.size()) - exact.scale;
    return number;
}

} // namespace quillon::practice
