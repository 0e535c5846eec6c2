// The clock, the parts of a date, dates from their parts, names of days and months.
#include <array>
#include <cmath>

#include "platform/Conversion.h"
#include "vbscript/builtins/Arguments.h"
#include "vbscript/builtins/CalendarNames.h"
#include "vbscript/builtins/Clock.h"
#include "vbscript/builtins/Families.h"
#include "vbscript/builtins/Weeks.h"

namespace quillon::vbscript {
namespace {

using conversion::CalendarTime;

DateValue DateOnly(DateValue date) {
    return {std::trunc(date.days)};
}
DateValue TimeOnly(DateValue date) {
    return {std::fabs(date.days - std::trunc(date.days))};
}

Variant Now(BuiltinContext&, Arguments) {
    return LocalNow();
}
Variant Date(BuiltinContext&, Arguments) {
    return DateOnly(LocalNow());
}
Variant Time(BuiltinContext&, Arguments) {
    return TimeOnly(LocalNow());
}
Variant Timer(BuiltinContext&, Arguments) {
    return static_cast<float>(SecondsSinceMidnight());
}

template <int CalendarTime::*Part>
Variant PartOf(BuiltinContext&, Arguments arguments) {
    const Variant value = PlainValue(arguments[0]);
    if (value.IsNull())
        return value;
    return static_cast<std::int16_t>(conversion::CalendarOf(ToDate(value)).*Part);
}

Variant Weekday(BuiltinContext&, Arguments arguments) {
    const int firstDay = FirstDayOfWeek(arguments, 1);
    const Variant value = PlainValue(arguments[0]);
    if (value.IsNull())
        return value;
    return static_cast<std::int16_t>(DayWithinWeek(ToDate(value), firstDay) + 1);
}

template <std::size_t N>
Variant NameAt(const std::array<std::u16string_view, N>& names, std::size_t index, bool abbreviated) {
    return abbreviated ? names[index].substr(0, 3) : names[index];
}

Variant WeekdayName(BuiltinContext&, Arguments arguments) {
    const int firstDay = FirstDayOfWeek(arguments, 2);
    const bool abbreviated = BooleanOr(arguments, 1, false);
    const std::int32_t day = ToLong(arguments[0]);
    if (day < 1 || day > 7)
        RaiseInvalidCall();
    return NameAt(WeekdayNames, static_cast<std::size_t>((day - 1 + firstDay - 1) % 7), abbreviated);
}

Variant MonthName(BuiltinContext&, Arguments arguments) {
    const bool abbreviated = BooleanOr(arguments, 1, false);
    const std::int32_t month = ToLong(arguments[0]);
    if (month < 1 || month > 12)
        RaiseInvalidCall();
    return NameAt(MonthNames, static_cast<std::size_t>(month - 1), abbreviated);
}

// Years 0 to 29 are those from 2000, 30 to 99 those from 1930.
Variant DateSerial(BuiltinContext&, Arguments arguments) {
    const int year = ToInteger(arguments[0]), month = ToInteger(arguments[1]), day = ToInteger(arguments[2]);
    const int century = year < 0 || year > 99 ? 0 : year < 30 ? 2000 : 1900;
    return conversion::DateOf(year + century, month, day);
}

Variant TimeSerial(BuiltinContext&, Arguments arguments) {
    const int hour = ToInteger(arguments[0]), minute = ToInteger(arguments[1]),
              second = ToInteger(arguments[2]);
    return conversion::DateOf(1899, 12, 30, hour, minute, second);
}

// A date as it is, or a text that reads as one; numbers are not dates here.
DateValue DateExpression(const Variant& argument) {
    const Variant value = PlainValue(argument);
    if (value.kind() == Kind::Date)
        return value.Date();
    const auto date = conversion::ParseDate(ToText(value).ToUtf8());
    if (!date)
        throw Failure(numbers::TypeMismatch);
    return *date;
}

Variant DateValueOf(BuiltinContext&, Arguments arguments) {
    return DateOnly(DateExpression(arguments[0]));
}
Variant TimeValueOf(BuiltinContext&, Arguments arguments) {
    return TimeOnly(DateExpression(arguments[0]));
}

constexpr Builtin Table[] = {
    {"Now", 0, 0, Now},
    {"Date", 0, 0, Date},
    {"Time", 0, 0, Time},
    {"Timer", 0, 0, Timer},
    {"Year", 1, 1, PartOf<&CalendarTime::year>},
    {"Month", 1, 1, PartOf<&CalendarTime::month>},
    {"Day", 1, 1, PartOf<&CalendarTime::day>},
    {"Hour", 1, 1, PartOf<&CalendarTime::hour>},
    {"Minute", 1, 1, PartOf<&CalendarTime::minute>},
    {"Second", 1, 1, PartOf<&CalendarTime::second>},
    {"Weekday", 1, 2, Weekday},
    {"WeekdayName", 1, 3, WeekdayName},
    {"MonthName", 1, 2, MonthName},
    {"DateSerial", 3, 3, DateSerial},
    {"TimeSerial", 3, 3, TimeSerial},
    {"DateValue", 1, 1, DateValueOf},
    {"TimeValue", 1, 1, TimeValueOf},
};

} // namespace

FunctionTable DateFunctions() noexcept {
    return Table;
}

} // namespace quillon::vbscript
