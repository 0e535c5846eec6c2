// Conversion between types: CAST, CONVERT with styles, the implicit conversions of assignment and operators,
// and the text form of every type.
#pragma once

#include "practice/values/Datum.h"

#include <optional>
#include <string>
#include <string_view>

namespace quillon::practice {

enum class DateOrder : std::uint8_t { Mdy, Dmy, Ymd, Ydm, Myd, Dym };

// What the session's SET options change about conversions.
struct ConvertOptions {
    DateOrder dateOrder = DateOrder::Mdy;
    int twoDigitYearCutoff = 2049;
};

enum class ConversionRule : std::uint8_t { Implicit, ExplicitOnly, NotAllowed };
ConversionRule ConversionBetween(const SqlType& from, const SqlType& to);
// Throws 529 (explicit), 206 (implicit, not allowed) or 257 (implicit, but explicit is allowed) when the
// static types cannot be converted; to be asked while binding.
void RequireConversion(const SqlType& from, const SqlType& to, bool isExplicit);

// No style was written: money and floats then look as in style 0, but date, time, datetime2 and
// datetimeoffset as in 121.
constexpr int noStyle = -1;

// CAST(value AS to) and CONVERT(to, value, style). Too long texts and bytes are cut, numbers are rounded as
// documented. Throws SqlError 220, 232, 234, 235, 237, 241, 242, 244, 245, 248, 281, 517, 529, 8114, 8115,
// 8152, 8169, 9809 and their like. Null stays null.
Datum Convert(const Datum& value, const SqlType& to, const ConvertOptions& options = {}, int style = noStyle);
// TRY_CAST and TRY_CONVERT: null where the value cannot be converted; 529 is still thrown.
Datum TryConvert(const Datum& value, const SqlType& to, const ConvertOptions& options = {},
                 int style = noStyle);
// Assignment to a variable or parameter: as CAST, implicit rules (206, 257).
Datum ConvertForVariable(const Datum& value, const SqlType& to, const ConvertOptions& options = {});
// Assignment to a column: as above but a value that would lose characters or bytes (other than trailing
// blanks) is refused with 2628, naming table (db.schema.table) and column.
Datum ConvertForColumn(const Datum& value, const SqlType& to, const ConvertOptions& options,
                       std::string_view tableName, std::string_view columnName);

// The text that CAST to varchar gives, unlimited in length; null gives "NULL" (what PRINT-like uses must not
// ask for).
std::string ToText(const Datum& value, int style = noStyle);
// The form that a client's grid shows is the client's; this is the 0x... form of bytes.
std::string ToHex(std::string_view bytes, bool prefix = true);
std::string FormatGuid(const Guid& guid); // upper case with dashes
std::optional<Guid> ParseGuid(std::string_view text);

// Dates from text (any form the documentation of datetime, date, datetime2 lists, under the date order).
// `hasOffset` tells whether an offset was there. Nothing when it is no date.
struct ParsedMoment {
    Moment moment; // local, not UTC, when an offset is present
    bool hasOffset = false;
    bool hasDate = false;
    bool hasTime = false;
};
std::optional<ParsedMoment> ParseMoment(std::string_view text, const ConvertOptions& options,
                                        int style = noStyle);

// Characters as T-SQL counts them: UTF-16 code units.
int CountCharacters(std::string_view utf8);
// Left part of at most so many characters; never splits a UTF-8 sequence.
std::string_view FirstCharacters(std::string_view utf8, int count);

} // namespace quillon::practice
