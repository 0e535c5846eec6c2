// DateAdd, DateDiff, DatePart: arithmetic by named intervals.
#include <array>
#include <cmath>

#include "platform/Conversion.h"
#include "vbscript/builtins/Arguments.h"
#include "vbscript/builtins/Families.h"
#include "vbscript/builtins/Weeks.h"

namespace quillon::vbscript {
namespace {

enum class Interval { Year, Quarter, Month, DayOfYear, Day, Weekday, Week, Hour, Minute, Second };

Interval IntervalOf(const Variant& argument) {
    static constexpr std::array<std::u16string_view, 10> names{u"yyyy", u"q",  u"m", u"y", u"d",
                                                               u"w",    u"ww", u"h", u"n", u"s"};
    const Text text = ToText(argument);
    for (std::size_t i = 0; i < names.size(); ++i) {
        if (CompareIgnoringCase(text.View(), names[i]) == 0)
            return static_cast<Interval>(i);
    }
    RaiseInvalidCall();
}

constexpr std::int64_t SecondsOfDay = 86400;

std::int64_t FloorDivide(std::int64_t value, std::int64_t divisor) {
    return value / divisor - (value % divisor < 0 ? 1 : 0);
}

// Seconds since day 0, evenly before and after it.
std::int64_t SecondsOf(DateValue date) {
    const auto time = conversion::CalendarOf(date);
    const auto day = static_cast<std::int64_t>(conversion::DateOf(time.year, time.month, time.day).days);
    return day * SecondsOfDay + time.hour * 3600 + time.minute * 60 + time.second;
}

DateValue DateOfSeconds(std::int64_t seconds) {
    const std::int64_t day = FloorDivide(seconds, SecondsOfDay);
    if (day < conversion::EarliestDay || day > conversion::LatestDay)
        RaiseInvalidCall();
    return conversion::DateOf(1899, 12, 30 + static_cast<int>(day), 0, 0,
                              static_cast<int>(seconds - day * SecondsOfDay));
}

int DaysOfMonth(int year, int month) {
    static constexpr std::array days{31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    const bool leap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
    return month == 2 && leap ? 29 : days[static_cast<std::size_t>(month - 1)];
}

// A day that the month does not have becomes its last one.
DateValue AddMonths(DateValue date, std::int64_t months) {
    const auto time = conversion::CalendarOf(date);
    const std::int64_t total = static_cast<std::int64_t>(time.year) * 12 + time.month - 1 + months;
    const std::int64_t year = FloorDivide(total, 12);
    if (year < 100 || year > 9999)
        RaiseInvalidCall();
    const int month = static_cast<int>(total - year * 12) + 1;
    const int day = std::min(time.day, DaysOfMonth(static_cast<int>(year), month));
    return conversion::DateOf(static_cast<int>(year), month, day, time.hour, time.minute, time.second);
}

Variant DateAdd(BuiltinContext&, Arguments arguments) {
    const Interval interval = IntervalOf(arguments[0]);
    const std::int64_t number = ToLong(arguments[1]);
    const Variant value = PlainValue(arguments[2]);
    if (value.IsNull())
        return value;
    const DateValue date = ToDate(value);
    switch (interval) {
    case Interval::Year: return AddMonths(date, number * 12);
    case Interval::Quarter: return AddMonths(date, number * 3);
    case Interval::Month: return AddMonths(date, number);
    case Interval::DayOfYear:
    case Interval::Day:
    case Interval::Weekday: return DateOfSeconds(SecondsOf(date) + number * SecondsOfDay);
    case Interval::Week: return DateOfSeconds(SecondsOf(date) + number * 7 * SecondsOfDay);
    case Interval::Hour: return DateOfSeconds(SecondsOf(date) + number * 3600);
    case Interval::Minute: return DateOfSeconds(SecondsOf(date) + number * 60);
    case Interval::Second: break;
    }
    return DateOfSeconds(SecondsOf(date) + number);
}

// Which interval a date lies in, counted from anywhere; differences of these count the boundaries between.
std::int64_t OrdinalOf(DateValue date, Interval interval, int firstDay) {
    const auto time = conversion::CalendarOf(date);
    const std::int64_t seconds = SecondsOf(date);
    switch (interval) {
    case Interval::Year: return time.year;
    case Interval::Quarter: return time.year * 4 + (time.month - 1) / 3;
    case Interval::Month: return time.year * 12 + time.month;
    case Interval::DayOfYear:
    case Interval::Day:
    case Interval::Weekday: return FloorDivide(seconds, SecondsOfDay);
    case Interval::Week:
        return (FloorDivide(seconds, SecondsOfDay) - DayWithinWeek(date, firstDay) + 7'000'000) / 7;
    case Interval::Hour: return FloorDivide(seconds, 3600);
    case Interval::Minute: return FloorDivide(seconds, 60);
    case Interval::Second: break;
    }
    return seconds;
}

Variant DateDiff(BuiltinContext&, Arguments arguments) {
    const Interval interval = IntervalOf(arguments[0]);
    const int firstDay = FirstDayOfWeek(arguments, 3);
    FirstWeekOfYear(arguments, 4); // makes no difference to a difference, but must be valid
    const Variant first = PlainValue(arguments[1]), second = PlainValue(arguments[2]);
    if (first.IsNull() || second.IsNull())
        return NullValue{};
    std::int64_t difference =
        OrdinalOf(ToDate(second), interval, firstDay) - OrdinalOf(ToDate(first), interval, firstDay);
    if (interval == Interval::Weekday)
        difference /= 7; // whole weeks between the dates, not Sundays
    if (difference != static_cast<std::int32_t>(difference))
        throw Failure(numbers::Overflow);
    return static_cast<std::int32_t>(difference);
}

int PartOf(DateValue date, Interval interval, int firstDay, int firstWeek) {
    const auto time = conversion::CalendarOf(date);
    switch (interval) {
    case Interval::Year: return time.year;
    case Interval::Quarter: return (time.month - 1) / 3 + 1;
    case Interval::Month: return time.month;
    case Interval::DayOfYear:
        return static_cast<int>(conversion::DateOf(time.year, time.month, time.day).days -
                                conversion::DateOf(time.year, 1, 1).days) +
               1;
    case Interval::Day: return time.day;
    case Interval::Weekday: return DayWithinWeek(date, firstDay) + 1;
    case Interval::Week: return WeekOfYear(date, firstDay, firstWeek);
    case Interval::Hour: return time.hour;
    case Interval::Minute: return time.minute;
    case Interval::Second: break;
    }
    return time.second;
}

Variant DatePart(BuiltinContext&, Arguments arguments) {
    const Interval interval = IntervalOf(arguments[0]);
    const int firstDay = FirstDayOfWeek(arguments, 2), firstWeek = FirstWeekOfYear(arguments, 3);
    const Variant value = PlainValue(arguments[1]);
    if (value.IsNull())
        return value;
    return static_cast<std::int16_t>(PartOf(ToDate(value), interval, firstDay, firstWeek));
}

constexpr Builtin Table[] = {
    {"DateAdd", 3, 3, DateAdd},
    {"DateDiff", 3, 5, DateDiff},
    {"DatePart", 2, 4, DatePart},
};

} // namespace

FunctionTable DateIntervalFunctions() noexcept {
    return Table;
}

} // namespace quillon::vbscript
