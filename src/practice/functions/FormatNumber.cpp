// The standard formats of numbers: C, D, E, F, G, N, P, R, X.
#include "practice/functions/FormatNumber.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>

namespace quillon::practice {

namespace {

struct StandardFormat {
    char letter = 'G';
    int precision = -1; // none was written
    char Upper() const { return static_cast<char>(std::toupper(static_cast<unsigned char>(letter))); }
};

std::optional<StandardFormat> StandardFormatOf(std::string_view format) {
    const auto isDigit = [](unsigned char c) { return std::isdigit(c) != 0; };
    if (format.empty())
        return StandardFormat{};
    const std::string_view digits = format.substr(1);
    if (!std::isalpha(static_cast<unsigned char>(format[0])) || digits.size() > 2 ||
        !std::all_of(digits.begin(), digits.end(), isDigit))
        return {};
    return StandardFormat{format[0], digits.empty() ? -1 : std::stoi(std::string(digits))};
}

// The magnitude with a fixed number of digits after the point, to which the number is rounded.
std::string Fixed(NumberDigits& number, int decimals, std::string_view groupSeparator,
                  const Culture& culture) {
    number.Round(number.point + decimals);
    const int whole = std::max(number.point, 1);
    std::string text;
    for (int place = 0; place < whole; ++place) {
        const int left = whole - place; // digits from here to the point
        text.push_back(number.point > 0 ? number.At(place) : '0');
        if (left > 1 && left % 3 == 1)
            text += groupSeparator;
    }
    if (decimals > 0)
        text += culture.decimalPoint;
    for (int place = number.point; place < number.point + decimals; ++place)
        text.push_back(number.At(place));
    return text;
}

std::string Signed(const NumberDigits& number, const std::string& magnitude) {
    return number.negative ? "-" + magnitude : magnitude;
}

std::string Currency(NumberDigits number, int decimals, const Culture& culture) {
    const std::string magnitude = Fixed(number, decimals, culture.groupSeparator, culture);
    std::string text;
    for (const char c : number.negative ? culture.negativeCurrency : culture.currency) {
        if (c == 'n')
            text += magnitude;
        else if (c == '$')
            text += culture.currencySymbol;
        else
            text.push_back(c);
    }
    return text;
}

std::string Scientific(NumberDigits number, int decimals, int exponentDigits, char letter,
                       const Culture& culture) {
    number.Round(decimals + 1);
    const int exponent = number.IsZero() ? 0 : number.point - 1;
    number.point = 1;
    return Signed(number, Fixed(number, decimals, "", culture)) +
           ExponentText(letter, exponent, exponentDigits, true);
}

// As many digits as there are, with an exponent where the number is very large or small.
std::string Shortest(NumberDigits number, int precision, char exponentLetter, const Culture& culture) {
    number.Round(precision);
    const int count = static_cast<int>(number.digits.size());
    if (number.point > precision || number.point < -3)
        return Scientific(number, std::max(count - 1, 0), 2, exponentLetter, culture);
    const int decimals = std::max(count - number.point, 0);
    return Signed(number, Fixed(number, number.IsZero() ? 0 : decimals, "", culture));
}

std::string PlainDecimal(const Datum& value, const Culture& culture) {
    std::string text = FormatDecimal(value.Number());
    const std::size_t point = text.find('.');
    return point == std::string::npos ? text : text.replace(point, 1, culture.decimalPoint);
}

int GeneralPrecision(const SqlType& type) {
    switch (type.id) {
    case TypeId::TinyInt: return 3;
    case TypeId::SmallInt: return 5;
    case TypeId::Int: return 10;
    case TypeId::BigInt: return 19;
    case TypeId::Real: return 7;
    case TypeId::Float: return 15;
    default: return 29;
    }
}

// What a float needs beyond the digits that it surely keeps.
NumberDigits WideDigits(const Datum& value, int wanted) {
    const bool isReal = value.Type().id == TypeId::Real;
    return DigitsOf(value, wanted > (isReal ? 7 : 15) ? (isReal ? 9 : 17) : 0);
}

std::string General(const Datum& value, const StandardFormat& format, const Culture& culture) {
    const bool isExact = value.Type().IsDecimal() || value.Type().IsMoney();
    if (isExact && format.precision < 0)
        return PlainDecimal(value, culture);
    const int precision = format.precision > 0 ? format.precision : GeneralPrecision(value.Type());
    const char exponent = format.letter == 'g' ? 'e' : 'E';
    return Shortest(WideDigits(value, precision), precision, exponent, culture);
}

// The fewest digits that read back as the same number.
std::optional<std::string> RoundTrip(const Datum& value, char letter, const Culture& culture) {
    if (!value.Type().IsFloat())
        return {};
    const bool isReal = value.Type().id == TypeId::Real;
    const int sure = isReal ? 7 : 15;
    const std::string text = Shortest(DigitsOf(value), sure, 'E', SessionCulture());
    const bool isSame = isReal ? std::strtof(text.c_str(), nullptr) == static_cast<float>(value.Float())
                               : std::strtod(text.c_str(), nullptr) == value.Float();
    const int digits = isSame ? sure : isReal ? 9 : 17;
    return Shortest(DigitsOf(value, digits), digits, letter == 'r' ? 'e' : 'E', culture);
}

std::optional<std::string> Whole(const Datum& value, int precision) {
    if (!value.Type().IsInteger())
        return {};
    const NumberDigits number = DigitsOf(value);
    const std::size_t width = static_cast<std::size_t>(std::max(precision, 1));
    const std::string zeros(width > number.digits.size() ? width - number.digits.size() : 0, '0');
    return Signed(number, zeros + number.digits);
}

std::optional<std::string> Hexadecimal(const Datum& value, const StandardFormat& format) {
    if (!value.Type().IsInteger())
        return {};
    const int bits = value.Type().StorageBytes() * 8;
    auto rest = static_cast<std::uint64_t>(value.Integer());
    if (bits < 64)
        rest &= (std::uint64_t{1} << bits) - 1;
    const char* digits = format.letter == 'x' ? "0123456789abcdef" : "0123456789ABCDEF";
    std::string text;
    for (; rest != 0 || static_cast<int>(text.size()) < std::max(format.precision, 1); rest >>= 4)
        text.insert(text.begin(), digits[rest & 15]);
    return text;
}

std::string Percent(NumberDigits number, int decimals, const Culture& culture) {
    if (!number.IsZero())
        number.point += 2;
    return Signed(number, Fixed(number, decimals, culture.groupSeparator, culture)) + " %";
}

} // namespace

std::string ExponentText(char letter, int exponent, int digits, bool plus) {
    std::string number = std::to_string(std::abs(exponent));
    if (static_cast<int>(number.size()) < digits)
        number.insert(0, static_cast<std::size_t>(digits) - number.size(), '0');
    const char* sign = exponent < 0 ? "-" : plus ? "+" : "";
    return letter + (sign + number);
}

std::optional<std::string> FormatNumber(const Datum& value, std::string_view format, const Culture& culture) {
    const auto standard = StandardFormatOf(format);
    if (!standard)
        return FormatNumberPattern(DigitsOf(value), format, culture);
    const int decimals = standard->precision < 0 ? 2 : standard->precision;
    NumberDigits number = DigitsOf(value);
    switch (standard->Upper()) {
    case 'C': return Currency(number, decimals, culture);
    case 'D': return Whole(value, standard->precision);
    case 'E': {
        const int places = standard->precision < 0 ? 6 : standard->precision;
        return Scientific(WideDigits(value, places + 1), places, 3, standard->letter, culture);
    }
    case 'F': return Signed(number, Fixed(number, decimals, "", culture));
    case 'G': return General(value, *standard, culture);
    case 'N': return Signed(number, Fixed(number, decimals, culture.groupSeparator, culture));
    case 'P': return Percent(number, decimals, culture);
    case 'R': return RoundTrip(value, standard->letter, culture);
    case 'X': return Hexadecimal(value, *standard);
    default: return {};
    }
}

} // namespace quillon::practice
