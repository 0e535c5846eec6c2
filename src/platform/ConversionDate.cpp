// The calendar of dates, and their text form.
#include <chrono>
#include <cmath>
#include <cstdio>

#include "platform/Conversion.h"
#include "platform/Failure.h"
#include "platform/FailureNumbers.h"

namespace quillon::conversion {
namespace {

constexpr std::chrono::sys_days DayZero =
    std::chrono::year(1899) / std::chrono::December / std::chrono::day(30);
constexpr int SecondsOfDay = 86400;

struct DayAndSecond {
    std::int64_t day;
    int second;
};

// The fraction is the time of day before day 0 too: -1.25 is six in the morning of the day before.
DayAndSecond Split(DateValue value) {
    const double day = std::trunc(value.days);
    const auto second = static_cast<int>(std::lround(std::fabs(value.days - day) * SecondsOfDay));
    auto whole = static_cast<std::int64_t>(day);
    if (second < SecondsOfDay)
        return {whole, second};
    return {whole + 1, 0};
}

std::string TimeText(const CalendarTime& time) {
    char text[40];
    const int hour = time.hour % 12 == 0 ? 12 : time.hour % 12;
    std::snprintf(text, sizeof text, "%d:%02d:%02d %s", hour, time.minute, time.second,
                  time.hour < 12 ? "AM" : "PM");
    return text;
}

} // namespace

CalendarTime CalendarOf(DateValue value) {
    const auto [day, second] = Split(value);
    const std::chrono::year_month_day date{DayZero + std::chrono::days(day)};
    return {static_cast<int>(date.year()),
            static_cast<int>(static_cast<unsigned>(date.month())),
            static_cast<int>(static_cast<unsigned>(date.day())),
            second / 3600,
            second / 60 % 60,
            second % 60};
}

DateValue DateOf(int year, int month, int day, int hour, int minute, int second) {
    const std::int64_t months = static_cast<std::int64_t>(year) * 12 + month - 1;
    const std::int64_t carriedYear = months >= 0 ? months / 12 : (months - 11) / 12;
    if (carriedYear < -20000 || carriedYear > 20000)
        throw Failure(numbers::InvalidCall);
    const auto first = std::chrono::sys_days(
        std::chrono::year(static_cast<int>(carriedYear)) /
        std::chrono::month(static_cast<unsigned>(months - carriedYear * 12 + 1)) / std::chrono::day(1));
    const std::int64_t seconds =
        static_cast<std::int64_t>(hour) * 3600 + static_cast<std::int64_t>(minute) * 60 + second;
    std::int64_t carriedDays = seconds / SecondsOfDay;
    std::int64_t rest = seconds % SecondsOfDay;
    if (rest < 0) {
        rest += SecondsOfDay;
        --carriedDays;
    }
    const std::int64_t days = (first - DayZero).count() + static_cast<std::int64_t>(day) - 1 + carriedDays;
    if (days < EarliestDay || days > LatestDay)
        throw Failure(numbers::InvalidCall);
    const double fraction = static_cast<double>(rest) / SecondsOfDay;
    return DateValue{days < 0 ? static_cast<double>(days) - fraction : static_cast<double>(days) + fraction};
}

int WeekdayOf(DateValue value) {
    const std::chrono::weekday day{DayZero + std::chrono::days(Split(value).day)};
    return static_cast<int>(day.c_encoding()) + 1;
}

std::string TextOf(DateValue value) {
    const auto [day, second] = Split(value);
    const CalendarTime time = CalendarOf(value);
    if (day == 0)
        return TimeText(time);
    std::string text =
        std::to_string(time.month) + "/" + std::to_string(time.day) + "/" + std::to_string(time.year);
    if (second != 0)
        text.append(1, ' ').append(TimeText(time));
    return text;
}

} // namespace quillon::conversion
