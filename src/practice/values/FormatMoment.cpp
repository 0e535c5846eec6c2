// The text forms of dates and times: the documented styles of CONVERT, one pattern each.
#include "practice/values/ConvertParts.h"
#include "practice/values/Hijri.h"
#include "practice/values/SqlError.h"

#include <algorithm>
#include <cstdio>

namespace quillon::practice {

namespace {

// What each style prints. Letters: Y year of four digits, y of two, M month, D day, d day padded by a blank,
// N name of the month; H hour of 24, h hour of 12 padded by a blank (g: padded behind a date only), m minute,
// s second, f fraction after a colon or point (F: always a point, O: a point and nothing when it is zero), p
// AM or PM. What does not belong to the type (date or clock) is left out with the separators before it.
struct Style {
    int number;
    const char* date;
    const char* clock;
};

constexpr Style styles[] = {
    {0, "N d Y", "g:mp"},      {100, "N d Y", "g:mp"},    {1, "M/D/y", ""},         {101, "M/D/Y", ""},
    {2, "y.M.D", ""},          {102, "Y.M.D", ""},        {3, "D/M/y", ""},         {103, "D/M/Y", ""},
    {4, "D.M.y", ""},          {104, "D.M.Y", ""},        {5, "D-M-y", ""},         {105, "D-M-Y", ""},
    {6, "D N y", ""},          {106, "D N Y", ""},        {7, "N D, y", ""},        {107, "N D, Y", ""},
    {8, "", "H:m:s"},          {24, "", "H:m:s"},         {108, "", "H:m:s"},       {9, "N d Y", "g:m:sfp"},
    {109, "N d Y", "g:m:sfp"}, {10, "M-D-y", ""},         {110, "M-D-Y", ""},       {11, "y/M/D", ""},
    {111, "Y/M/D", ""},        {12, "yMD", ""},           {112, "YMD", ""},         {13, "D N Y", "H:m:sf"},
    {113, "D N Y", "H:m:sf"},  {14, "", "H:m:sf"},        {114, "", "H:m:sf"},      {20, "Y-M-D", "H:m:s"},
    {120, "Y-M-D", "H:m:s"},   {21, "Y-M-D", "H:m:sF"},   {25, "Y-M-D", "H:m:sF"},  {121, "Y-M-D", "H:m:sF"},
    {22, "M/D/y", "h:m:s p"},  {23, "Y-M-D", ""},         {126, "Y-M-D", "H:m:sO"}, {127, "Y-M-D", "H:m:sO"},
    {130, "d N Y", "h:m:sfp"}, {131, "d/M/Y", "h:m:sfp"},
};

constexpr const char* monthNames[12] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                        "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};

std::string Padded(int value, int width, char fill) {
    std::string text = std::to_string(value);
    return text.size() >= static_cast<std::size_t>(width)
               ? text
               : std::string(static_cast<std::size_t>(width) - text.size(), fill) + text;
}

int FractionDigits(const SqlType& type) {
    return type.id == TypeId::DateTime || type.id == TypeId::SmallDateTime ? 3 : type.scale;
}

std::string Fraction(int ticks, const SqlType& type, char separator, bool leaveOutZero) {
    const int digits = FractionDigits(type);
    if (digits == 0 || (leaveOutZero && ticks == 0))
        return {};
    return separator + Padded(ticks, 7, '0').substr(0, static_cast<std::size_t>(digits));
}

bool IsHijri(int style) {
    return style == 130 || style == 131;
}

std::string DatePart(char letter, const CalendarDate& date, const char* const (&names)[12]) {
    switch (letter) {
    case 'Y': return Padded(date.year, 4, '0');
    case 'y': return Padded(date.year % 100, 2, '0');
    case 'M': return Padded(date.month, 2, '0');
    case 'D': return Padded(date.day, 2, '0');
    case 'd': return Padded(date.day, 2, ' ');
    case 'N': return names[date.month - 1];
    default: return std::string(1, letter);
    }
}

std::string ClockPart(char letter, const ClockTime& clock, const SqlType& type) {
    const bool isOld = type.id == TypeId::DateTime || type.id == TypeId::SmallDateTime;
    const int hour12 = clock.hour % 12 == 0 ? 12 : clock.hour % 12;
    switch (letter) {
    case 'H': return Padded(clock.hour, 2, '0');
    case 'g': return Padded(hour12, type.id == TypeId::Time ? 1 : 2, ' ');
    case 'h': return Padded(hour12, 2, ' ');
    case 'm': return Padded(clock.minute, 2, '0');
    case 's': return Padded(clock.second, 2, '0');
    case 'f': return Fraction(clock.fraction, type, isOld ? ':' : '.', false);
    case 'F': return Fraction(clock.fraction, type, '.', false);
    case 'O': return Fraction(clock.fraction, type, '.', isOld);
    case 'p': return clock.hour < 12 ? "AM" : "PM";
    default: return std::string(1, letter);
    }
}

std::string Offset(int minutes) {
    const int size = minutes < 0 ? -minutes : minutes;
    return (minutes < 0 ? '-' : '+') + Padded(size / 60, 2, '0') + ':' + Padded(size % 60, 2, '0');
}

const Style& FindStyle(int number, const SqlType& type) {
    const auto* found = std::find_if(std::begin(styles), std::end(styles),
                                     [&](const Style& style) { return style.number == number; });
    if (found != std::end(styles))
        return *found;
    throw SqlError(281, {std::to_string(number), type.Name()});
}

// A style of the clock for a date, or of the calendar for a time.
[[noreturn]] void NothingToShow(const Style& style, const SqlType& type, std::string_view target) {
    if (type.id == TypeId::Date && style.number % 100 == 14)
        throw SqlError(281, {std::to_string(style.number), type.Name()});
    throw SqlError(8114, {type.Name(), target}, 5);
}

} // namespace

std::string FormatMoment(const Datum& value, int style, std::string_view target) {
    const SqlType& type = value.Type();
    const bool isOld = type.id == TypeId::DateTime || type.id == TypeId::SmallDateTime;
    if (style == noStyle)
        style = isOld ? 0 : 121;
    const Style& form = FindStyle(style, type);
    const bool isOffset = type.id == TypeId::DateTimeOffset;
    const Moment moment = isOffset && style != 127 ? value.When().Local() : value.When();
    std::string text;
    if (type.id != TypeId::Time) {
        const CalendarDate date = IsHijri(style) ? HijriFromDay(moment.day) : DateFromDay(moment.day);
        for (const char* letter = form.date; *letter != '\0'; ++letter)
            text += DatePart(*letter, date, IsHijri(style) ? hijriMonthNames : monthNames);
    }
    if (type.id == TypeId::Date || *form.clock == '\0') {
        if (text.empty())
            NothingToShow(form, type, target);
        return text;
    }
    if (!text.empty())
        text += style == 126 || style == 127 ? "T" : " ";
    const ClockTime clock = ClockFromTicks(moment.ticks);
    for (const char* letter = form.clock; *letter != '\0'; ++letter)
        text += ClockPart(*letter, clock, type);
    if (isOffset)
        text += style == 127 ? "Z" : (style == 126 ? "" : " ") + Offset(moment.offsetMinutes);
    return text;
}

} // namespace quillon::practice
