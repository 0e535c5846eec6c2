// Conversions to a sub-type: every one goes through the source's own form, so that nothing is lost on the way
// (Currency to Long without a double, text to Currency by its digits).
#include "platform/Conversion.h"

#include <cmath>
#include <limits>

#include "platform/ConversionParts.h"
#include "platform/Failure.h"
#include "platform/FailureNumbers.h"
#include "platform/Object.h"

namespace quillon::conversion {
namespace {

[[noreturn]] void RaiseMismatch() {
    throw Failure(numbers::TypeMismatch);
}
[[noreturn]] void RaiseOverflow() {
    throw Failure(numbers::Overflow);
}

bool SameWord(std::string_view text, std::string_view lower) {
    return text.size() == lower.size() &&
           std::equal(text.begin(), text.end(), lower.begin(),
                      [](char a, char b) { return (a >= 'A' && a <= 'Z' ? a | 0x20 : a) == b; });
}

std::optional<bool> BooleanWord(std::string_view text) {
    if (SameWord(text, "true") || SameWord(text, "#true#"))
        return true;
    if (SameWord(text, "false") || SameWord(text, "#false#"))
        return false;
    return std::nullopt;
}

ParsedNumber NumberIn(std::string_view text) {
    auto number = ReadNumber(text);
    if (!number)
        RaiseMismatch();
    return *number;
}

double DoubleFromText(std::string_view text) {
    // Plain digits are what scripts convert most.
    if (!text.empty() && text.size() < 16) {
        std::int64_t whole = 0;
        bool plain = true;
        for (const char c : text) {
            plain = plain && c >= '0' && c <= '9';
            whole = whole * 10 + (c - '0');
        }
        if (plain)
            return static_cast<double>(whole);
    }
    return DoubleOf(NumberIn(text));
}

// The nearest whole ten-thousandth turned into a whole number, half to even, without leaving integers.
std::int64_t WholeOf(CurrencyValue value) {
    std::int64_t whole = value.tenThousandths / 10000;
    const std::int64_t rest = std::abs(value.tenThousandths % 10000);
    if (rest > 5000 || (rest == 5000 && whole % 2 != 0))
        whole += value.tenThousandths < 0 ? -1 : 1;
    return whole;
}

template <class T>
T InRange(double value) {
    const double rounded = RoundHalfEven(value);
    if (!(rounded >= std::numeric_limits<T>::min() && rounded <= std::numeric_limits<T>::max()))
        RaiseOverflow();
    return static_cast<T>(rounded);
}

// &HFFFF read as an Integer is -1, as a Long 65535: the bits fill the sub-type that is asked for.
template <class T>
T FromText(const std::string& text) {
    if (const auto number = ReadNumber(text); number && number->based) {
        using Bits = std::make_unsigned_t<T>;
        if (number->bits > std::numeric_limits<Bits>::max())
            RaiseOverflow();
        return static_cast<T>(static_cast<Bits>(number->bits));
    }
    return InRange<T>(DoubleFromText(text));
}

template <class T>
T ToWhole(const Value& value) {
    if (const auto* text = value.If<std::string>())
        return FromText<T>(*text);
    if (const auto* currency = value.If<CurrencyValue>()) {
        const std::int64_t whole = WholeOf(*currency);
        if (whole < std::numeric_limits<T>::min() || whole > std::numeric_limits<T>::max())
            RaiseOverflow();
        return static_cast<T>(whole);
    }
    return InRange<T>(ToDouble(value));
}

} // namespace

Value DefaultValueOf(const Value& object) {
    const ObjectRef& reference = object.As<ObjectRef>();
    if (!reference)
        throw Failure(numbers::ObjectNotSet);
    Value value = reference->Invoke(DefaultMemberId, InvokeKind::Get, {});
    // A default member that gives an object stands for that object's default in turn; one that gives itself
    // would do so for ever.
    constexpr int deepest = 32;
    for (int depth = 0; value.IsObject(); ++depth) {
        const ObjectRef next = value.As<ObjectRef>();
        if (!next)
            throw Failure(numbers::ObjectNotSet);
        if (depth == deepest)
            throw Failure(numbers::MemberNotSupported);
        value = next->Invoke(DefaultMemberId, InvokeKind::Get, {});
    }
    return value;
}

double RoundHalfEven(double value) noexcept {
    return std::nearbyint(value);
}

CurrencyValue CurrencyOf(double value) {
    const double scaled = RoundHalfEven(value * 10000);
    constexpr double limit = 9223372036854775808.0; // two to the 63rd
    if (!(scaled >= -limit && scaled < limit))
        RaiseOverflow();
    return CurrencyValue{static_cast<std::int64_t>(scaled)};
}

double ToDouble(const Value& value) {
    switch (value.Type()) {
    case ValueType::Empty: return 0;
    case ValueType::Null: throw Failure(numbers::InvalidUseOfNull);
    case ValueType::Boolean: return value.As<bool>() ? -1 : 0;
    case ValueType::Byte: return value.As<std::uint8_t>();
    case ValueType::Integer: return value.As<std::int16_t>();
    case ValueType::Long: return value.As<std::int32_t>();
    case ValueType::Single: return value.As<float>();
    case ValueType::Double: return value.As<double>();
    case ValueType::Currency: return static_cast<double>(value.As<CurrencyValue>().tenThousandths) / 10000;
    case ValueType::Date: return value.As<DateValue>().days;
    case ValueType::Decimal: return DoubleFromText(value.As<DecimalValue>().digits);
    case ValueType::String: return DoubleFromText(value.As<std::string>());
    case ValueType::Object: return ToDouble(DefaultValueOf(value));
    case ValueType::Error:
    case ValueType::Array: break;
    }
    RaiseMismatch();
}

bool ToBoolean(const Value& value) {
    if (const auto* text = value.If<std::string>()) {
        if (const auto word = BooleanWord(*text))
            return *word;
    }
    return ToDouble(value) != 0;
}

std::uint8_t ToByte(const Value& value) {
    // True has all bits set in every whole sub-type.
    if (const auto* boolean = value.If<bool>())
        return *boolean ? 255 : 0;
    return ToWhole<std::uint8_t>(value);
}

std::int16_t ToInteger(const Value& value) {
    return ToWhole<std::int16_t>(value);
}

std::int32_t ToLong(const Value& value) {
    if (const auto* whole = value.If<std::int32_t>())
        return *whole;
    return ToWhole<std::int32_t>(value);
}

float ToSingle(const Value& value) {
    const double wide = ToDouble(value);
    if (std::fabs(wide) > static_cast<double>(std::numeric_limits<float>::max()))
        RaiseOverflow();
    return static_cast<float>(wide);
}

CurrencyValue ToCurrency(const Value& value) {
    if (const auto* currency = value.If<CurrencyValue>())
        return *currency;
    if (const auto* decimal = value.If<DecimalValue>())
        return CurrencyOf(NumberIn(decimal->digits));
    if (const auto* text = value.If<std::string>())
        return CurrencyOf(NumberIn(*text));
    return value.IsObject() ? ToCurrency(DefaultValueOf(value)) : CurrencyOf(ToDouble(value));
}

DateValue ToDate(const Value& value) {
    if (const auto* date = value.If<DateValue>())
        return *date;
    if (const auto* text = value.If<std::string>()) {
        if (const auto date = ParseDate(*text))
            return *date;
    }
    if (value.IsObject())
        return ToDate(DefaultValueOf(value));
    const double days = ToDouble(value);
    if (!(days > EarliestDay - 1 && days < LatestDay + 1))
        RaiseOverflow();
    return DateValue{days};
}

std::string ToText(const Value& value) {
    switch (value.Type()) {
    case ValueType::Empty: return {};
    case ValueType::Null: throw Failure(numbers::InvalidUseOfNull);
    case ValueType::Boolean: return TextOf(value.As<bool>());
    case ValueType::Byte: return std::to_string(value.As<std::uint8_t>());
    case ValueType::Integer: return std::to_string(value.As<std::int16_t>());
    case ValueType::Long: return std::to_string(value.As<std::int32_t>());
    case ValueType::Single: return TextOf(value.As<float>());
    case ValueType::Double: return TextOf(value.As<double>());
    case ValueType::Currency: return TextOf(value.As<CurrencyValue>());
    case ValueType::Date: return TextOf(value.As<DateValue>());
    case ValueType::Decimal: return value.As<DecimalValue>().digits;
    case ValueType::String: return value.As<std::string>();
    case ValueType::Object: return ToText(DefaultValueOf(value));
    case ValueType::Error:
    case ValueType::Array: break;
    }
    RaiseMismatch();
}

} // namespace quillon::conversion
