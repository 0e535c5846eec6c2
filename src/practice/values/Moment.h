// Moment: a point of the calendar and the clock, proleptic Gregorian, the payload of all date and time types.
#pragma once

#include <cstdint>
#include <optional>

namespace quillon::practice {

constexpr std::int64_t ticksPerSecond = 10'000'000; // a tick is 100 ns
constexpr std::int64_t ticksPerMinute = 60 * ticksPerSecond;
constexpr std::int64_t ticksPerHour = 60 * ticksPerMinute;
constexpr std::int64_t ticksPerDay = 24 * ticksPerHour;

struct Moment {
    std::int32_t day = 0;           // days since 0001-01-01; time-only values have that of 1900-01-01
    std::int64_t ticks = 0;         // since midnight, 0 .. ticksPerDay - 1
    std::int16_t offsetMinutes = 0; // datetimeoffset only; day and ticks are then UTC, not local

    bool operator==(const Moment&) const = default;
    std::int64_t TotalTicks() const { return day * ticksPerDay + ticks; }
    static Moment FromTotalTicks(std::int64_t total, std::int16_t offsetMinutes = 0);
    Moment Local() const; // day and ticks on the clock of the offset
};

constexpr std::int32_t day1900 = 693595;  // 1900-01-01
constexpr std::int32_t day1753 = 639905;  // 1753-01-01, the first datetime
constexpr std::int32_t day9999 = 3652058; // 9999-12-31

struct CalendarDate {
    int year = 1900, month = 1, day = 1;
};
struct ClockTime {
    int hour = 0, minute = 0, second = 0;
    int fraction = 0; // ticks below the second
};

bool IsLeapYear(int year);
int DaysInMonth(int year, int month);
std::optional<std::int32_t> DayFromDate(int year, int month, int day); // nothing when there is no such day
CalendarDate DateFromDay(std::int32_t day);
ClockTime ClockFromTicks(std::int64_t ticks);
std::int64_t TicksFromClock(const ClockTime& clock);
int DayOfWeek(std::int32_t day); // 0 Sunday .. 6 Saturday
int DayOfYear(std::int32_t day); // 1..366
int IsoWeek(std::int32_t day);

// Datetime counts in three hundredths of a second; these round a tick count of one day to such a step (may
// reach a full day) and turn a number of steps into ticks the way the type shows them (.000 .003 .007).
std::int64_t DateTimeSteps(std::int64_t ticks);
std::int64_t TicksFromSteps(std::int64_t steps);
// Rounds to so many digits after the second, 0..7, carrying into the next day.
Moment RoundFraction(const Moment& moment, int digits);

} // namespace quillon::practice
