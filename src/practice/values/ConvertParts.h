// The conversions by family of target types, which Convert() chooses among. Not for other rooms. Each takes a
// value that is not null and throws the documented error when it cannot be converted.
#pragma once

#include "practice/values/Convert.h"

namespace quillon::practice {

Datum ToIntegerType(const Datum& value, const SqlType& to);
Datum ToDecimalType(const Datum& value, const SqlType& to);
Datum ToMoneyType(const Datum& value, const SqlType& to);
Datum ToFloatType(const Datum& value, const SqlType& to);
Datum ToMomentType(const Datum& value, const SqlType& to, const ConvertOptions& options, int style);
Datum ToCharacterType(const Datum& value, const SqlType& to, int style);
Datum ToBinaryType(const Datum& value, const SqlType& to, int style);
Datum ToGuid(const Datum& value);

// 529: explicit conversion between these types is not allowed.
[[noreturn]] void RefuseConversion(const SqlType& from, const SqlType& to);
// How messages name a type: numeric for decimal too.
std::string_view MessageName(const SqlType& type);

// Text forms of numbers and moments under a style.
std::string FormatFloat(double value, bool isReal, int style);
std::string FormatMoney(Int128 tenThousandths, int style);
std::string FormatMoment(const Datum& value, int style);

// Checks range and rounds to what the type holds; `from` names the source in 242.
Datum MakeMoment(const Moment& moment, const SqlType& to, const SqlType& from);

enum class MomentFailure : std::uint8_t { None, Format, Range };
// `legacy` reads for datetime and smalldatetime: at most three digits of fraction, the date order also
// governs dates that begin with the year. Otherwise as ParseMoment.
MomentFailure ReadMoment(std::string_view text, const ConvertOptions& options, int style, bool legacy,
                         ParsedMoment& result);

// The bytes of a text as CAST to binary sees them, and back.
std::string BytesOfText(std::string_view utf8, bool unicode);
std::string TextOfBytes(std::string_view bytes, bool unicode);

} // namespace quillon::practice
