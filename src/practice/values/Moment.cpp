#include "practice/values/Moment.h"

namespace quillon::practice {

namespace {

constexpr int daysBeforeMonth[13] = {0, 31, 59, 90, 120, 151, 181, 212, 243, 273, 304, 334, 365};

int DaysBeforeYear(int year) {
    const int past = year - 1;
    return past * 365 + past / 4 - past / 100 + past / 400;
}

} // namespace

Moment Moment::FromTotalTicks(std::int64_t total, std::int16_t offsetMinutes) {
    std::int64_t days = total / ticksPerDay;
    std::int64_t rest = total % ticksPerDay;
    if (rest < 0) {
        rest += ticksPerDay;
        --days;
    }
    return {static_cast<std::int32_t>(days), rest, offsetMinutes};
}

Moment Moment::Local() const {
    return FromTotalTicks(TotalTicks() + offsetMinutes * ticksPerMinute, offsetMinutes);
}

bool IsLeapYear(int year) {
    return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
}

int DaysInMonth(int year, int month) {
    return daysBeforeMonth[month] - daysBeforeMonth[month - 1] + (month == 2 && IsLeapYear(year));
}

std::optional<std::int32_t> DayFromDate(int year, int month, int day) {
    if (year < 1 || year > 9999 || month < 1 || month > 12 || day < 1 || day > DaysInMonth(year, month))
        return {};
    return DaysBeforeYear(year) + daysBeforeMonth[month - 1] + (month > 2 && IsLeapYear(year)) + day - 1;
}

CalendarDate DateFromDay(std::int32_t day) {
    int year = static_cast<int>((static_cast<std::int64_t>(day) * 400) / 146097) + 1;
    while (DaysBeforeYear(year + 1) <= day)
        ++year;
    while (DaysBeforeYear(year) > day)
        --year;
    int rest = day - DaysBeforeYear(year);
    int month = 1;
    while (rest >= DaysInMonth(year, month))
        rest -= DaysInMonth(year, month++);
    return {year, month, rest + 1};
}

ClockTime ClockFromTicks(std::int64_t ticks) {
    ClockTime clock;
    clock.hour = static_cast<int>(ticks / ticksPerHour);
    clock.minute = static_cast<int>(ticks / ticksPerMinute % 60);
    clock.second = static_cast<int>(ticks / ticksPerSecond % 60);
    clock.fraction = static_cast<int>(ticks % ticksPerSecond);
    return clock;
}

std::int64_t TicksFromClock(const ClockTime& clock) {
    return clock.hour * ticksPerHour + clock.minute * ticksPerMinute + clock.second * ticksPerSecond +
           clock.fraction;
}

int DayOfWeek(std::int32_t day) {
    return (day + 1) % 7;
} // 0001-01-01 was a Monday

int DayOfYear(std::int32_t day) {
    return day - DaysBeforeYear(DateFromDay(day).year) + 1;
}

int IsoWeek(std::int32_t day) {
    // The week belongs to the year of its Thursday.
    const std::int32_t thursday = day - (DayOfWeek(day) + 6) % 7 + 3;
    return (DayOfYear(thursday) - 1) / 7 + 1;
}

std::int64_t DateTimeSteps(std::int64_t ticks) {
    return (ticks * 3 + ticksPerSecond / 200) / (ticksPerSecond / 100);
}

std::int64_t TicksFromSteps(std::int64_t steps) {
    const std::int64_t milliseconds = (steps * 10 + 1) / 3; // rounds to the nearest
    return milliseconds * 10'000;
}

Moment RoundFraction(const Moment& moment, int digits) {
    std::int64_t unit = 1;
    for (int index = digits; index < 7; ++index)
        unit *= 10;
    const std::int64_t total = moment.TotalTicks();
    return Moment::FromTotalTicks((total + unit / 2) / unit * unit, moment.offsetMinutes);
}

} // namespace quillon::practice
