// The parts of a date that DATEADD and its kin name. Not for other rooms.
#pragma once

#include "practice/values/Convert.h"

#include <optional>
#include <string_view>

namespace quillon::practice {

enum class DatePart : std::uint8_t {
    Year,
    Quarter,
    Month,
    DayOfYear,
    Day,
    Week,
    WeekDay,
    Hour,
    Minute,
    Second,
    Millisecond,
    Microsecond,
    Nanosecond,
    Offset,
    IsoWeek,
};

// The part by its name or abbreviation, without regard to case. Throws 155 with the function's name for any
// other word.
DatePart DatePartOf(const Datum& word, std::string_view function);
std::string_view NameOf(DatePart part);
// 9810 when values of the type have no such part.
void RequirePart(DatePart part, const SqlType& type, std::string_view function);
// A date argument: moments as they are, texts and numbers as datetime (texts with more digits or an offset as
// datetimeoffset(7) where `wide`).
Datum MomentOf(const Datum& value, const ConvertOptions& options, bool wide);

constexpr const char* monthFullNames[] = {"January",   "February", "March",    "April",
                                          "May",       "June",     "July",     "August",
                                          "September", "October",  "November", "December"};
constexpr const char* dayFullNames[] = {"Sunday",   "Monday", "Tuesday", "Wednesday",
                                        "Thursday", "Friday", "Saturday"};

} // namespace quillon::practice
