// FormatNumber, FormatCurrency, FormatPercent, FormatDateTime, in the forms of en-US.
#include <array>
#include <charconv>
#include <cmath>

#include "platform/Conversion.h"
#include "vbscript/builtins/Arguments.h"
#include "vbscript/builtins/CalendarNames.h"
#include "vbscript/builtins/Families.h"

namespace quillon::vbscript {
namespace {

// The choices behind the expression: digits, then three of vbTrue, vbFalse, vbUseDefault.
struct NumberForm {
    std::int32_t digits;
    bool leadingZero, parentheses, groups;
};

bool Choice(Arguments arguments, std::size_t index, bool usual) {
    constexpr std::int32_t useDefault = -2;
    const std::int32_t choice = LongOr(arguments, index, useDefault);
    return choice == useDefault ? usual : choice != 0;
}

NumberForm FormOf(Arguments arguments, bool usualParentheses) {
    constexpr std::int32_t usualDigits = 2, mostDigits = 255;
    std::int32_t digits = LongOr(arguments, 1, -1);
    if (digits > mostDigits)
        RaiseInvalidCall();
    if (digits < 0)
        digits = usualDigits;
    return {digits, Choice(arguments, 2, true), Choice(arguments, 3, usualParentheses),
            Choice(arguments, 4, true)};
}

// Null is no number to a format, which complains of its type.
Variant Formattable(const Variant& argument) {
    Variant value = PlainValue(argument);
    if (value.IsNull())
        throw Failure(numbers::TypeMismatch);
    return value;
}

// The digits of a number, and where its decimal point stands among them.
struct DecimalDigits {
    std::string digits;
    std::int64_t point; // digits before it; may be negative or beyond the digits
};

// A Double shows fifteen digits, so those are what is rounded: 1.005 is 1.005, not a little less.
DecimalDigits DigitsOf(double magnitude) {
    std::array<char, 40> text;
    char* const end =
        std::to_chars(text.data(), text.data() + text.size(), magnitude, std::chars_format::scientific, 14)
            .ptr;
    const std::string_view all(text.data(), static_cast<std::size_t>(end - text.data()));
    const std::size_t exponentAt = all.find('e');
    DecimalDigits result{std::string(1, all[0]).append(all.substr(2, exponentAt - 2)), 0};
    int exponent = 0;
    const std::size_t numberAt = exponentAt + (all[exponentAt + 1] == '+' ? 2 : 1);
    std::from_chars(all.data() + numberAt, end, exponent);
    result.point = exponent + 1;
    return result;
}

DecimalDigits DigitsOf(CurrencyValue value) {
    const auto bits = static_cast<std::uint64_t>(value.tenThousandths);
    const std::string digits = std::to_string(value.tenThousandths < 0 ? 0 - bits : bits);
    return {digits, static_cast<std::int64_t>(digits.size()) - 4};
}

// Exactly `places` digits behind the point, half away from zero.
void RoundTo(DecimalDigits& number, std::int32_t places) {
    const std::int64_t kept = number.point + places;
    if (kept < 0) {
        number = {std::string(), -places};
    } else if (kept < static_cast<std::int64_t>(number.digits.size())) {
        const bool up = number.digits[static_cast<std::size_t>(kept)] >= '5';
        number.digits.resize(static_cast<std::size_t>(kept));
        auto digit = number.digits.rbegin();
        bool carry = up;
        for (; carry && digit != number.digits.rend(); ++digit) {
            carry = *digit == '9';
            *digit = carry ? '0' : static_cast<char>(*digit + 1);
        }
        if (carry) {
            number.digits.insert(number.digits.begin(), '1');
            ++number.point;
        }
    }
    if (number.point < 0) {
        number.digits.insert(0, static_cast<std::size_t>(-number.point), '0');
        number.point = 0;
    }
    number.digits.resize(static_cast<std::size_t>(number.point + places), '0');
}

std::string Grouped(std::string whole) {
    for (std::size_t at = whole.size(); at > 3;)
        whole.insert(at -= 3, 1, ',');
    return whole;
}

// The magnitude as text, without a sign.
std::string Magnitude(DecimalDigits number, const NumberForm& form) {
    RoundTo(number, form.digits);
    const auto point = static_cast<std::size_t>(number.point);
    std::string whole = number.digits.substr(0, point);
    whole.erase(0, std::min(whole.find_first_not_of('0'), whole.size()));
    if (form.groups)
        whole = Grouped(std::move(whole));
    if (whole.empty() && (form.leadingZero || form.digits == 0))
        whole = "0";
    return form.digits == 0 ? whole : whole + "." + number.digits.substr(point);
}

struct Signed {
    DecimalDigits digits;
    bool negative;
};

Signed SignedDigits(const Variant& value) {
    if (value.kind() == Kind::Currency)
        return {DigitsOf(value.Currency()), value.Currency().tenThousandths < 0};
    const double number = ToDouble(value);
    return {DigitsOf(std::fabs(number)), number < 0};
}

std::string WithSign(const std::string& text, bool negative, bool parentheses) {
    if (!negative)
        return text;
    return parentheses ? "(" + text + ")" : "-" + text;
}

Variant FormatNumber(BuiltinContext&, Arguments arguments) {
    const NumberForm form = FormOf(arguments, false);
    const Signed number = SignedDigits(Formattable(arguments[0]));
    return Text::FromAscii(WithSign(Magnitude(number.digits, form), number.negative, form.parentheses));
}

Variant FormatCurrency(BuiltinContext&, Arguments arguments) {
    const NumberForm form = FormOf(arguments, true);
    const Signed number = SignedDigits(Formattable(arguments[0]));
    return Text::FromAscii(WithSign("$" + Magnitude(number.digits, form), number.negative, form.parentheses));
}

Variant FormatPercent(BuiltinContext&, Arguments arguments) {
    const NumberForm form = FormOf(arguments, false);
    Signed number = SignedDigits(Formattable(arguments[0]));
    number.digits.point += 2;
    return Text::FromAscii(WithSign(Magnitude(number.digits, form) + "%", number.negative, form.parentheses));
}

Text LongDate(DateValue date) {
    const auto time = conversion::CalendarOf(date);
    Text text(WeekdayNames[static_cast<std::size_t>(conversion::WeekdayOf(date) - 1)]);
    text.Append(u", ");
    text.Append(MonthNames[static_cast<std::size_t>(time.month - 1)]);
    const std::string rest = " " + std::to_string(time.day) + ", " + std::to_string(time.year);
    text.Append(Text::FromAscii(rest).View());
    return text;
}

std::string ShortTime(DateValue date) {
    const auto time = conversion::CalendarOf(date);
    const auto twoDigits = [](int number) { return (number < 10 ? "0" : "") + std::to_string(number); };
    return twoDigits(time.hour) + ":" + twoDigits(time.minute);
}

// The date alone or the time alone, in the form that CStr gives it.
std::string ShortDate(DateValue date) {
    const auto time = conversion::CalendarOf(date);
    return std::to_string(time.month) + "/" + std::to_string(time.day) + "/" + std::to_string(time.year);
}

std::string LongTime(DateValue date) {
    return conversion::TextOf(DateValue{std::fabs(date.days - std::trunc(date.days))});
}

Variant FormatDateTime(BuiltinContext&, Arguments arguments) {
    const std::int32_t form = LongOr(arguments, 1, 0);
    const DateValue date = ToDate(Formattable(arguments[0]));
    switch (form) {
    case 0: return Text::FromAscii(conversion::TextOf(date));
    case 1: return LongDate(date);
    case 2: return Text::FromAscii(ShortDate(date));
    case 3: return Text::FromAscii(LongTime(date));
    case 4: return Text::FromAscii(ShortTime(date));
    default: RaiseInvalidCall();
    }
}

constexpr Builtin Table[] = {
    {"FormatNumber", 1, 5, FormatNumber},
    {"FormatCurrency", 1, 5, FormatCurrency},
    {"FormatPercent", 1, 5, FormatPercent},
    {"FormatDateTime", 1, 2, FormatDateTime},
};

} // namespace

FunctionTable FormatFunctions() noexcept {
    return Table;
}

} // namespace quillon::vbscript
