// Weeks of a year: on which day they begin, and which week counts as the first.
#pragma once

#include "vbscript/builtins/Arguments.h"

namespace quillon::vbscript {

// The argument firstdayofweek, 1 Sunday to 7 Saturday; 0, the system's choice, is Sunday in en-US. Raises 5.
int FirstDayOfWeek(Arguments arguments, std::size_t index);

// 0 for the first day of the week.
int DayWithinWeek(DateValue date, int firstDay);

// The argument firstweekofyear: vbFirstJan1, vbFirstFourDays, vbFirstFullWeek; 0 is the first. Raises 5.
int FirstWeekOfYear(Arguments arguments, std::size_t index);

// 1 to 54. Days before a year's first week belong to the last week of the year before, and, with
// vbFirstFourDays, the last days of December may belong to week 1.
int WeekOfYear(DateValue date, int firstDay, int firstWeek);

} // namespace quillon::vbscript
