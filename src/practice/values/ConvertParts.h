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
// `target` is what messages call the type that the text is for.
std::string FormatMoment(const Datum& value, int style, std::string_view target = "varchar");

// Checks range and rounds to what the type holds; `from` names the source in 242.
Datum MakeMoment(const Moment& moment, const SqlType& to, const SqlType& from);

enum class MomentFailure : std::uint8_t { None, Format, Range };
// `legacy` reads for datetime and smalldatetime: at most three digits of fraction, the date order also
// governs dates that begin with the year, the form with T has its seconds. Otherwise as ParseMoment.
MomentFailure ReadMoment(std::string_view text, const ConvertOptions& options, int style, bool legacy,
                         ParsedMoment& result);

// The bytes of a text of this type as CAST to binary sees them, and back.
std::string BytesOfText(std::string_view utf8, const SqlType& type);
std::string TextOfBytes(std::string_view bytes, const SqlType& type);

} // namespace quillon::practice
