#include "vbscript/machine/Convert.h"

#include <charconv>
#include <cmath>
#include <limits>

#include "platform/Conversion.h"
#include "platform/Failure.h"
#include "platform/FailureNumbers.h"
#include "vbscript/machine/ScriptObject.h"

namespace quillon::vbscript {
namespace {

constexpr int DeepestDefaults = 16;

[[noreturn]] void Raise(std::int32_t number) {
    throw Failure(number);
}

Variant DefaultOf(const Variant& object) {
    if (object.AsObject().get() == nullptr)
        Raise(numbers::ObjectNotSet);
    const ObjectRef kept = object.AsObject();
    if (object.kind() == Kind::ScriptObject)
        return ScriptObjectIn(object)->Access(DefaultMemberId, InvokeKind::Get, {});
    return FromValue(kept->Invoke(DefaultMemberId, InvokeKind::Get, {}));
}

// A number out of anything but an object; what is none raises.
double RealOf(const Variant& value) {
    switch (value.kind()) {
    case Kind::Empty: return 0;
    case Kind::Boolean:
    case Kind::Byte:
    case Kind::Integer:
    case Kind::Long: return static_cast<double>(value.Number());
    case Kind::Single: return value.Single();
    case Kind::Double:
    case Kind::Date: return value.Real();
    case Kind::Currency: return DoubleOf(value.Currency());
    case Kind::Null: Raise(numbers::InvalidUseOfNull);
    case Kind::Text: {
        const std::optional<double> number = NumberIn(value.View());
        if (!number)
            Raise(numbers::TypeMismatch);
        return *number;
    }
    default: Raise(numbers::TypeMismatch);
    }
}

std::int64_t WholeOf(const Variant& value, std::int64_t low, std::int64_t high) {
    if (value.IsWhole()) {
        const std::int64_t number = value.Number();
        if (number < low || number > high)
            Raise(numbers::Overflow);
        return number;
    }
    if (value.IsObject())
        return WholeOf(PlainValue(value), low, high);
    if (value.kind() == Kind::Currency) {
        const std::int64_t units = value.Currency().tenThousandths;
        const std::int64_t whole = units / 10000, rest = std::abs(units % 10000);
        const bool away = rest > 5000 || (rest == 5000 && whole % 2 != 0);
        return WholeOf(Variant(static_cast<double>(whole + (away ? (units < 0 ? -1 : 1) : 0))), low, high);
    }
    return RoundToWhole(RealOf(value), low, high);
}

Text TextOfWhole(std::int64_t number) {
    char digits[24];
    const std::to_chars_result end = std::to_chars(digits, digits + sizeof digits, number);
    return Text::FromAscii({digits, end.ptr});
}

struct CaseRange {
    char16_t first, last; // of the upper-case characters
    char16_t distance;    // to the lower-case ones; 1: pairs, upper-case ones at every second place
};
constexpr CaseRange CaseRanges[] = {
    {u'A', u'Z', 32},     {0x00C0, 0x00D6, 32}, {0x00D8, 0x00DE, 32}, {0x0100, 0x012E, 1},
    {0x0132, 0x0136, 1},  {0x0139, 0x0147, 1},  {0x014A, 0x0176, 1},  {0x0179, 0x017D, 1},
    {0x0391, 0x03A1, 32}, {0x03A3, 0x03AB, 32}, {0x0400, 0x040F, 80}, {0x0410, 0x042F, 32},
    {0x0460, 0x0480, 1},  {0x048A, 0x04BE, 1},  {0x04D0, 0x052E, 1},  {0x0531, 0x0556, 48},
    {0x1E00, 0x1E94, 1},  {0x1EA0, 0x1EFE, 1},  {0x24B6, 0x24CF, 26}, {0xFF21, 0xFF3A, 32},
};

} // namespace

char16_t LowerOf(char16_t character) noexcept {
    if (character < 0x80)
        return character >= u'A' && character <= u'Z' ? static_cast<char16_t>(character + 32) : character;
    for (const CaseRange& range : CaseRanges)
        if (character >= range.first && character <= range.last &&
            (range.distance != 1 || (character - range.first) % 2 == 0))
            return static_cast<char16_t>(character + range.distance);
    return character == 0x0178 ? char16_t{0x00FF} : character;
}

char16_t UpperOf(char16_t character) noexcept {
    if (character < 0x80)
        return character >= u'a' && character <= u'z' ? static_cast<char16_t>(character - 32) : character;
    for (const CaseRange& range : CaseRanges) {
        const int upper = character - range.distance;
        if (upper >= range.first && upper <= range.last &&
            (range.distance != 1 || (upper - range.first) % 2 == 0))
            return static_cast<char16_t>(upper);
    }
    return character == 0x00FF ? char16_t{0x0178} : character;
}

int CompareBinary(std::u16string_view left, std::u16string_view right) noexcept {
    return left.compare(right);
}

int CompareIgnoringCase(std::u16string_view left, std::u16string_view right) noexcept {
    const std::size_t common = std::min(left.size(), right.size());
    for (std::size_t at = 0; at < common; ++at) {
        const char16_t a = LowerOf(left[at]), b = LowerOf(right[at]);
        if (a != b)
            return a < b ? -1 : 1;
    }
    return left.size() < right.size() ? -1 : left.size() > right.size() ? 1 : 0;
}

Variant PlainValue(const Variant& value) {
    if (!value.IsObject())
        return value;
    Variant plain = value;
    for (int depth = 0; plain.IsObject(); ++depth) {
        if (depth == DeepestDefaults)
            Raise(numbers::MemberNotSupported);
        plain = DefaultOf(plain);
    }
    return plain;
}

std::int64_t RoundToWhole(double value, std::int64_t low, std::int64_t high) {
    const double whole = conversion::RoundHalfEven(value);
    if (!(whole >= static_cast<double>(low) && whole <= static_cast<double>(high)))
        Raise(numbers::Overflow);
    return static_cast<std::int64_t>(whole);
}

double DoubleOf(CurrencyValue value) noexcept {
    return static_cast<double>(value.tenThousandths) / 10000.0;
}

CurrencyValue CurrencyOf(double value) {
    const double scaled = conversion::RoundHalfEven(value * 10000.0);
    if (!(std::abs(scaled) < 9223372036854775807.0))
        Raise(numbers::Overflow);
    return {static_cast<std::int64_t>(scaled)};
}

std::optional<double> NumberIn(std::u16string_view text) {
    if (!text.empty() && text.size() <= 9 &&
        std::ranges::all_of(text, [](char16_t c) { return c >= u'0' && c <= u'9'; })) {
        std::int32_t number = 0;
        for (const char16_t digit : text)
            number = number * 10 + (digit - u'0');
        return number;
    }
    return conversion::ParseNumber(ToUtf8(text));
}

std::optional<bool> BooleanIn(std::u16string_view text) noexcept {
    if (CompareIgnoringCase(text, u"true") == 0 || CompareIgnoringCase(text, u"#true#") == 0)
        return true;
    if (CompareIgnoringCase(text, u"false") == 0 || CompareIgnoringCase(text, u"#false#") == 0)
        return false;
    return std::nullopt;
}

bool ToBoolean(const Variant& value) {
    if (value.IsWhole())
        return value.Number() != 0;
    if (value.IsObject())
        return ToBoolean(PlainValue(value));
    if (value.kind() == Kind::Text) {
        if (const std::optional<bool> boolean = BooleanIn(value.View()))
            return *boolean;
    }
    return RealOf(value) != 0;
}

std::uint8_t ToByte(const Variant& value) {
    return static_cast<std::uint8_t>(WholeOf(value, 0, 255));
}

std::int16_t ToInteger(const Variant& value) {
    return static_cast<std::int16_t>(WholeOf(value, INT16_MIN, INT16_MAX));
}

std::int32_t ToLong(const Variant& value) {
    return static_cast<std::int32_t>(WholeOf(value, INT32_MIN, INT32_MAX));
}

float ToSingle(const Variant& value) {
    const double real = ToDouble(value);
    if (std::abs(real) > static_cast<double>(std::numeric_limits<float>::max()))
        Raise(numbers::Overflow);
    return static_cast<float>(real);
}

double ToDouble(const Variant& value) {
    return value.IsObject() ? RealOf(PlainValue(value)) : RealOf(value);
}

CurrencyValue ToCurrency(const Variant& value) {
    if (value.kind() == Kind::Currency)
        return value.Currency();
    if (value.kind() == Kind::Text)
        return conversion::ToCurrency(Value(value.AsText().ToUtf8()));
    return CurrencyOf(ToDouble(value));
}

DateValue ToDate(const Variant& value) {
    if (value.kind() == Kind::Date)
        return value.Date();
    if (value.IsObject())
        return ToDate(PlainValue(value));
    if (value.kind() == Kind::Text)
        return conversion::ToDate(Value(value.AsText().ToUtf8()));
    return conversion::ToDate(Value(RealOf(value)));
}

Text ToText(const Variant& value) {
    switch (value.kind()) {
    case Kind::Text: return value.AsText();
    case Kind::Empty: return {};
    case Kind::Boolean: return Text::FromAscii(conversion::TextOf(value.Number() != 0));
    case Kind::Byte:
    case Kind::Integer:
    case Kind::Long: return TextOfWhole(value.Number());
    case Kind::Single: return Text::FromAscii(conversion::TextOf(value.Single()));
    case Kind::Double: return Text::FromAscii(conversion::TextOf(value.Real()));
    case Kind::Currency: return Text::FromAscii(conversion::TextOf(value.Currency()));
    case Kind::Date: return Text::FromAscii(conversion::TextOf(value.Date()));
    case Kind::Null: Raise(numbers::InvalidUseOfNull);
    case Kind::Object:
    case Kind::ScriptObject: return ToText(PlainValue(value));
    default: Raise(numbers::TypeMismatch);
    }
}

} // namespace quillon::vbscript
