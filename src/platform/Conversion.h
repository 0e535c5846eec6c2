// The host's conversion rules between sub-types, and the en-US text forms of numbers and dates.
//
// Used by: the VBScript engine (its conversion functions are these), the settings readers, the selection
// files, the data lines of script runs. Rules follow the VBScript 5.8 documentation, locale en-US. Every
// conversion that cannot be made raises a Failure: 13 (type mismatch), 6 (overflow), 94 (invalid use of
// Null), 438 for an object without a default member.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/Value.h"

namespace quillon::conversion {

// --- to a sub-type: CBool, CByte, CInt, CLng, CSng, CDbl, CCur, CDate, CStr ---
// Integers round half to even. Objects convert through their default member.
bool ToBoolean(const Value& value);
std::uint8_t ToByte(const Value& value);
std::int16_t ToInteger(const Value& value);
std::int32_t ToLong(const Value& value);
float ToSingle(const Value& value);
double ToDouble(const Value& value);
CurrencyValue ToCurrency(const Value& value);
DateValue ToDate(const Value& value);
std::string ToText(const Value& value);

// --- text forms ---
std::string TextOf(double value);        // 15 significant digits, "1E+20" where the host uses exponents
std::string TextOf(float value);         // 7 significant digits
std::string TextOf(CurrencyValue value); // up to four decimals, trailing zeros dropped
std::string TextOf(DateValue value); // "2/28/2004 1:05:00 PM", date alone at midnight, time alone on day 0
std::string TextOf(bool value);      // "True", "False"

// --- reading text ---
// A number as CDbl reads it (blanks around, sign, decimal point, thousands commas, exponent, &H and &O,
// currency sign, trailing sign, parentheses); none if the text is none. Raises 6 beyond the range of a
// Double.
std::optional<double> ParseNumber(std::string_view text);
// A date, a time or both as CDate reads them, with two-digit years 00 to 29 in this century; none if it is
// none.
std::optional<DateValue> ParseDate(std::string_view text);
bool IsNumeric(const Value& value);

// --- rounding ---
double RoundHalfEven(double value) noexcept;

// --- the calendar ---
// The days of 1 January 100 and 31 December 9999.
inline constexpr std::int32_t EarliestDay = -657434;
inline constexpr std::int32_t LatestDay = 2958465;

struct CalendarTime {
    int year, month, day, hour, minute, second;
};
CalendarTime CalendarOf(DateValue value);
// Months and days outside their range carry over; raises 5 outside years 100 to 9999.
DateValue DateOf(int year, int month, int day, int hour = 0, int minute = 0, int second = 0);
// 1 Sunday to 7 Saturday.
int WeekdayOf(DateValue value);

} // namespace quillon::conversion
