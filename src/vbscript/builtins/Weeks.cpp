#include "vbscript/builtins/Weeks.h"

#include <cmath>

#include "platform/Conversion.h"

namespace quillon::vbscript {
namespace {

constexpr int FirstFourDays = 2, FirstFullWeek = 3;

// The days of a year's first calendar week that lie in the year before, and whether that week counts.
struct YearStart {
    int daysBefore;
    bool counts;
};

YearStart StartOf(int year, int firstDay, int firstWeek) {
    const int before = DayWithinWeek(conversion::DateOf(year, 1, 1), firstDay);
    const bool counts = firstWeek == FirstFullWeek ? before == 0 : firstWeek != FirstFourDays || before <= 3;
    return {before, counts};
}

int DayOfYear(DateValue date, int year) {
    return static_cast<int>(std::trunc(date.days) - conversion::DateOf(year, 1, 1).days);
}

} // namespace

int FirstDayOfWeek(Arguments arguments, std::size_t index) {
    const std::int32_t day = LongOr(arguments, index, 1);
    if (day < 0 || day > 7)
        RaiseInvalidCall();
    return day == 0 ? 1 : day;
}

int DayWithinWeek(DateValue date, int firstDay) {
    return (conversion::WeekdayOf(date) - firstDay + 7) % 7;
}

int FirstWeekOfYear(Arguments arguments, std::size_t index) {
    const std::int32_t choice = LongOr(arguments, index, 1);
    if (choice < 0 || choice > 3)
        RaiseInvalidCall();
    return choice == 0 ? 1 : choice;
}

int WeekOfYear(DateValue date, int firstDay, int firstWeek) {
    const int year = conversion::CalendarOf(date).year;
    const YearStart start = StartOf(year, firstDay, firstWeek);
    const int week = (DayOfYear(date, year) + start.daysBefore) / 7 + (start.counts ? 1 : 0);
    if (week == 0 && year > 100)
        return WeekOfYear(conversion::DateOf(year - 1, 12, 31), firstDay, firstWeek);
    if (firstWeek == FirstFourDays && year < 9999) {
        const YearStart next = StartOf(year + 1, firstDay, firstWeek);
        const double nextYear = conversion::DateOf(year + 1, 1, 1).days;
        if (next.counts && std::trunc(date.days) >= nextYear - next.daysBefore)
            return 1;
    }
    return week;
}

} // namespace quillon::vbscript
