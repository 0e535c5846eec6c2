#include "practice/values/ConvertParts.h"
#include "practice/values/SqlError.h"
#include "practice/values/Unicode.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <limits>

namespace quillon::practice {

namespace {

struct Range {
    std::int64_t low, high;
};

Range RangeOf(TypeId id) {
    switch (id) {
    case TypeId::TinyInt: return {0, 255};
    case TypeId::SmallInt: return {-32768, 32767};
    case TypeId::Int:
        return {std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max()};
    default: return {std::numeric_limits<std::int64_t>::min(), std::numeric_limits<std::int64_t>::max()};
    }
}

std::string_view Trim(std::string_view text) {
    const auto isBlank = [](char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; };
    while (!text.empty() && isBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

bool EqualsWord(std::string_view text, std::string_view lowerWord) {
    if (text.size() != lowerWord.size())
        return false;
    for (std::size_t index = 0; index < text.size(); ++index)
        if ((text[index] | 0x20) != lowerWord[index])
            return false;
    return true;
}

bool IsSmall(TypeId id) {
    return id == TypeId::TinyInt || id == TypeId::SmallInt;
}

[[noreturn]] void FailText(const Datum& value, const SqlType& to) {
    if (to.id == TypeId::BigInt)
        throw SqlError(8114, {value.Type().Name(), to.Name()}, 5);
    throw SqlError(245, {value.Type().Name(), value.Text(), to.Name()});
}

[[noreturn]] void OverflowText(const Datum& value, const SqlType& to) {
    const std::string_view source = value.Type().Name();
    if (to.id == TypeId::BigInt)
        throw SqlError(8115, {"expression", "bigint"}, 2);
    if (to.id == TypeId::Int)
        throw SqlError(248, {source, value.Text()});
    throw SqlError(244, {source, value.Text(), to.id == TypeId::TinyInt ? "INT1" : "INT2"});
}

[[noreturn]] void OverflowInteger(Int128 number, const SqlType& from, const SqlType& to) {
    if (IsSmall(to.id) && from.IsInteger())
        throw SqlError(220, {to.Name(), FormatDecimal({number, 0})}, to.id == TypeId::TinyInt ? 2 : 1);
    const bool isNamed = IsSmall(to.id) && (from.IsDecimal() || from.IsMoney());
    throw SqlError(8115, {isNamed ? MessageName(from) : "expression", to.Name()}, 2);
}

Int128 IntegerFromText(const Datum& value, const SqlType& to) {
    std::string_view text = Trim(value.Text());
    if (to.id == TypeId::Bit && EqualsWord(text, "true"))
        return 1;
    if (to.id == TypeId::Bit && EqualsWord(text, "false"))
        return 0;
    const bool negative = !text.empty() && text.front() == '-';
    if (!text.empty() && (text.front() == '-' || text.front() == '+'))
        text = Trim(text.substr(1));
    Int128 number = 0;
    bool tooLarge = false;
    for (const char c : text) {
        if (c < '0' || c > '9')
            FailText(value, to);
        number = number * 10 + (c - '0');
        if (number > PowerOfTen(20)) {
            tooLarge = true;
            number = PowerOfTen(20);
        }
    }
    if (to.id == TypeId::Bit)
        return number != 0;
    const Range range = RangeOf(to.id);
    number = negative ? -number : number;
    if (tooLarge || number < range.low || number > range.high)
        OverflowText(value, to);
    return number;
}

[[noreturn]] void FloatOverflow(double number, const SqlType& to) {
    if (to.id == TypeId::BigInt)
        throw SqlError(8115, {"expression", to.Name()}, 2);
    throw SqlError(232, {to.Name(), std::to_string(number)}, 3);
}

Int128 IntegerFromFloat(double number, const SqlType& to) {
    const Range range = RangeOf(to.id);
    const double whole = std::trunc(number);
    // The upper limits of 64 bits are no double, so the test is against the next power of two.
    if (!(whole >= static_cast<double>(range.low) && whole < static_cast<double>(range.high) + 1.0))
        FloatOverflow(number, to);
    return static_cast<std::int64_t>(whole);
}

// The last bytes count, most significant first.
std::int64_t IntegerFromBytes(std::string_view bytes, int width) {
    if (bytes.size() > static_cast<std::size_t>(width))
        bytes.remove_prefix(bytes.size() - static_cast<std::size_t>(width));
    std::uint64_t number = 0;
    for (const char byte : bytes)
        number = (number << 8) | static_cast<unsigned char>(byte);
    switch (width) {
    case 2: return static_cast<std::int16_t>(number);
    case 4: return static_cast<std::int32_t>(number);
    default: return static_cast<std::int64_t>(number);
    }
}

// Days since 1900 with the part of the day as a fraction.
double DaysOf(const Moment& moment) {
    return static_cast<double>(moment.day - day1900) +
           static_cast<double>(DateTimeSteps(moment.ticks)) / (24.0 * 60 * 60 * 300);
}

Int128 IntegerFrom(const Datum& value, const SqlType& to) {
    const SqlType& from = value.Type();
    if (from.IsInteger())
        return value.Integer();
    if (from.IsFloat())
        return to.id == TypeId::Bit ? Int128(value.Float() != 0) : IntegerFromFloat(value.Float(), to);
    if (from.IsMoney() || from.IsDecimal()) {
        if (to.id == TypeId::Bit)
            return value.Number().unscaled != 0;
        return Rescale(value.Number(), 0, from.IsDecimal())->unscaled;
    }
    if (from.IsCharacter())
        return IntegerFromText(value, to);
    if (from.IsBinary())
        return to.id == TypeId::Bit ? Int128(IntegerFromBytes(value.Bytes(), 1) != 0)
                                    : Int128(IntegerFromBytes(value.Bytes(), to.StorageBytes()));
    if (from.id == TypeId::DateTime || from.id == TypeId::SmallDateTime)
        return to.id == TypeId::Bit
                   ? Int128(DaysOf(value.When()) != 0)
                   : Int128(static_cast<std::int64_t>(std::floor(DaysOf(value.When()) + 0.5)));
    RefuseConversion(from, to);
}

std::optional<Decimal> DecimalFromText(std::string_view text) {
    text = Trim(text);
    return text.empty() ? std::nullopt : ParseDecimal(text);
}

std::optional<Decimal> DecimalFromBytes(std::string_view bytes) {
    if (bytes.size() < 5 || static_cast<unsigned char>(bytes[1]) > 38)
        return {};
    UInt128 magnitude = 0;
    for (std::size_t index = std::min<std::size_t>(bytes.size(), 20); index > 4; --index)
        magnitude = (magnitude << 8) | static_cast<unsigned char>(bytes[index - 1]);
    if (magnitude >= static_cast<UInt128>(PowerOfTen(38)))
        return {};
    const auto unscaled = static_cast<Int128>(magnitude);
    return Decimal{bytes[3] != 0 ? unscaled : -unscaled, bytes[1]};
}

Datum CheckedDecimal(const std::optional<Decimal>& number, const SqlType& from, const SqlType& to) {
    const auto scaled = number ? Rescale(*number, to.scale) : std::nullopt;
    if (!scaled || DigitCount(scaled->unscaled) > to.precision)
        throw SqlError(8115, {MessageName(from), "numeric"}, 8);
    return Datum::Number(to, scaled->unscaled);
}

double FloatFromText(const Datum& value, const SqlType& to) {
    std::string text(Trim(value.Text()));
    if (text.empty())
        return 0;
    std::replace_if(
        text.begin(), text.end(), [](char c) { return c == 'd' || c == 'D'; }, 'e');
    for (const char c : text)
        if ((c < '0' || c > '9') && c != '.' && c != '-' && c != '+' && c != 'e' && c != 'E')
            throw SqlError(8114, {value.Type().Name(), to.Name()}, 5);
    const char* begin = text.data() + (text.front() == '+');
    double number = 0;
    const auto [end, error] = std::from_chars(begin, text.data() + text.size(), number);
    if (error == std::errc::result_out_of_range && text.find_first_of("eE") != std::string::npos &&
        text.find('-', 1) != std::string::npos)
        return 0;
    if (error == std::errc::result_out_of_range)
        throw SqlError(8115, {"expression", to.Name()}, 2);
    if (error != std::errc() || end != text.data() + text.size())
        throw SqlError(8114, {value.Type().Name(), to.Name()}, 5);
    return number;
}

Int128 MoneyFromText(const Datum& value, const SqlType& to) {
    const bool isSmall = to.id == TypeId::SmallMoney;
    std::string digits;
    bool signSeen = false;
    const std::string_view text = Trim(value.Text());
    for (std::size_t at = 0; at < text.size();) {
        const char32_t code = unicode::Next(text, at);
        if (unicode::IsCurrencySign(code) || code == ',')
            continue;
        const char c = code < 0x80 ? static_cast<char>(code) : '?';
        if (c == '-' || c == '+') {
            if (signSeen || digits.find_first_of("0123456789.") != std::string::npos)
                throw SqlError(isSmall ? 293 : 235);
            signSeen = true;
        }
        if (c != ' ' || digits.find_first_of("0123456789.") != std::string::npos)
            digits.push_back(c);
    }
    if (digits.empty() || digits == "-" || digits == "+")
        return 0;
    const auto number = ParseDecimal(digits);
    if (!number)
        throw SqlError(isSmall ? 293 : 235);
    const auto scaled = Rescale(*number, 4);
    const bool fits = scaled && scaled->unscaled >= std::numeric_limits<std::int64_t>::min() &&
                      scaled->unscaled <= std::numeric_limits<std::int64_t>::max();
    if (!fits)
        throw SqlError(isSmall ? 294 : 236);
    return scaled->unscaled;
}

// Scaled to four digits; nothing on overflow.
std::optional<Int128> MoneyFrom(const Datum& value, const SqlType& to) {
    const SqlType& from = value.Type();
    if (from.IsCharacter())
        return MoneyFromText(value, to);
    if (from.IsBinary())
        return IntegerFromBytes(value.Bytes(), to.StorageBytes());
    std::optional<Decimal> number;
    if (from.IsInteger())
        number = Rescale({value.Integer(), 0}, 4);
    else if (from.IsMoney() || from.IsDecimal())
        number = Rescale(value.Number(), 4);
    else if (from.IsFloat())
        number = FromDouble(value.Float(), 4);
    else if (from.id == TypeId::DateTime || from.id == TypeId::SmallDateTime)
        number = FromDouble(DaysOf(value.When()), 4);
    else
        RefuseConversion(from, to);
    return number ? std::optional(number->unscaled) : std::nullopt;
}

} // namespace

Datum ToIntegerType(const Datum& value, const SqlType& to) {
    const Int128 number = IntegerFrom(value, to);
    if (to.id == TypeId::Bit)
        return Datum::Bit(number != 0);
    const Range range = RangeOf(to.id);
    if (number < range.low || number > range.high)
        OverflowInteger(number, value.Type(), to);
    return Datum::Integer(to.id, static_cast<std::int64_t>(number));
}

Datum ToDecimalType(const Datum& value, const SqlType& to) {
    const SqlType& from = value.Type();
    if (from.IsInteger())
        return CheckedDecimal(Decimal{value.Integer(), 0}, from, to);
    if (from.IsMoney() || from.IsDecimal())
        return CheckedDecimal(value.Number(), from, to);
    if (from.IsFloat())
        return CheckedDecimal(FromDouble(value.Float(), to.scale), from, to);
    if (from.IsCharacter()) {
        const auto number = DecimalFromText(value.Text());
        if (!number && Trim(value.Text()).find_first_not_of("0123456789+-.") == std::string_view::npos &&
            value.Text().size() > 38)
            throw SqlError(8115, {from.Name(), "numeric"}, 6);
        if (!number)
            throw SqlError(8114, {from.Name(), "numeric"}, 5);
        return CheckedDecimal(number, from, to);
    }
    if (from.IsBinary()) {
        const auto number = DecimalFromBytes(value.Bytes());
        if (!number)
            throw SqlError(8114, {from.Name(), "numeric"}, 5);
        return CheckedDecimal(number, from, to);
    }
    if (from.id == TypeId::DateTime || from.id == TypeId::SmallDateTime)
        return CheckedDecimal(FromDouble(DaysOf(value.When()), to.scale), from, to);
    RefuseConversion(from, to);
}

Datum ToMoneyType(const Datum& value, const SqlType& to) {
    const auto number = MoneyFrom(value, to);
    const bool isSmall = to.id == TypeId::SmallMoney;
    const Range range = isSmall ? RangeOf(TypeId::Int) : RangeOf(TypeId::BigInt);
    if (!number || *number < range.low || *number > range.high) {
        if (value.Type().IsCharacter())
            throw SqlError(isSmall ? 294 : 236);
        throw SqlError(8115, {value.Type().IsInteger() ? "expression" : MessageName(value.Type()), to.Name()},
                       8);
    }
    return Datum::Money(*number, to.id);
}

Datum ToFloatType(const Datum& value, const SqlType& to) {
    const SqlType& from = value.Type();
    double number = 0;
    if (from.IsFloat())
        number = value.Float();
    else if (from.IsInteger())
        number = static_cast<double>(value.Integer());
    else if (from.IsMoney() || from.IsDecimal())
        number = ToDouble(value.Number());
    else if (from.IsCharacter())
        number = FloatFromText(value, to);
    else if (from.id == TypeId::DateTime || from.id == TypeId::SmallDateTime)
        number = DaysOf(value.When());
    else
        RefuseConversion(from, to);
    if (to.id == TypeId::Real) {
        if (std::fabs(number) > static_cast<double>(std::numeric_limits<float>::max()))
            throw SqlError(232, {"real", std::to_string(number)});
        number = static_cast<double>(static_cast<float>(number));
    }
    return Datum::Float(number, to.id);
}

} // namespace quillon::practice
