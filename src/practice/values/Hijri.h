// The Hijri calendar as CONVERT's styles 130 and 131 use it: the tabular one of 30-year cycles, which reckons
// by rule and not by the moon, so that a day may differ by one from what a country keeps.
#pragma once

#include "practice/values/Moment.h"

namespace quillon::practice {

extern const char* const hijriMonthNames[12]; // Arabic, UTF-8

// Days before the calendar's first (18 July 622) are counted into its first year's past: year below 1.
CalendarDate HijriFromDay(std::int32_t day);
// Nothing when the calendar has no such day or it lies after 9999-12-31.
std::optional<std::int32_t> DayFromHijri(int year, int month, int day);

} // namespace quillon::practice
