#include "practice/values/Hijri.h"

namespace quillon::practice {

namespace {

constexpr std::int32_t firstDay = 227014 - 1; // 1 Muharram of year 1, counted from 0001-01-01
constexpr int daysOfCycle = 10631;            // of 30 years, 11 of them with a day more

// Days of the calendar before the year begins.
std::int32_t DaysBeforeYear(int year) {
    const int cycles = (year - 1) / 30;
    std::int32_t days = cycles * daysOfCycle;
    for (int past = 1; past <= (year - 1) % 30; ++past)
        days += (past * 11 + 14) % 30 < 11 ? 355 : 354;
    return days;
}

// Months have 30 and 29 days in turn; the last has one more in a long year.
int DaysBeforeMonth(int month) {
    return (month - 1) * 29 + month / 2;
}

} // namespace

const char* const hijriMonthNames[12] = {"محرم",         "صفر",           "ربيع الاول", "ربيع الثاني",
                                         "جمادى الاولى", "جمادى الثانية", "رجب",        "شعبان",
                                         "رمضان",        "شوال",          "ذو القعدة",  "ذو الحجة"};

CalendarDate HijriFromDay(std::int32_t day) {
    const std::int32_t rest = day - firstDay;
    int year = static_cast<int>(static_cast<std::int64_t>(rest) * 30 / daysOfCycle) + 1;
    while (year > 1 && DaysBeforeYear(year) > rest)
        --year;
    while (DaysBeforeYear(year + 1) <= rest)
        ++year;
    const int dayOfYear = rest - DaysBeforeYear(year);
    int month = 12;
    while (month > 1 && DaysBeforeMonth(month) > dayOfYear)
        --month;
    return {year, month, dayOfYear - DaysBeforeMonth(month) + 1};
}

std::optional<std::int32_t> DayFromHijri(int year, int month, int day) {
    if (year < 1 || year > 9666 || month < 1 || month > 12 || day < 1 || day > 30)
        return {};
    const std::int32_t found = firstDay + DaysBeforeYear(year) + DaysBeforeMonth(month) + day - 1;
    const CalendarDate back = HijriFromDay(found);
    const bool exists = back.year == year && back.month == month && back.day == day && found <= day9999;
    return exists ? std::optional(found) : std::nullopt;
}

} // namespace quillon::practice
