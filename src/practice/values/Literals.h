// The values of literals as the lexer finds them, with the types the language gives them.
#pragma once

#include "practice/values/Datum.h"

namespace quillon::practice {

// Digits only: int when it fits, otherwise numeric(digits, 0). Throws 1007 beyond 38 digits.
Datum IntegerLiteral(std::string_view digits);
// Digits with a point: numeric(p, s). Throws 1007.
Datum DecimalLiteral(std::string_view text);
// 1e5, 1.5E-3: float. Throws 168.
Datum FloatLiteral(std::string_view text);
// $12.50, the sign of the currency included: money.
Datum MoneyLiteral(std::string_view text);
// 0x1F: varbinary.
Datum BinaryLiteral(std::string_view text);
// Already without quotes: varchar(n) or, with N before it, nvarchar(n). What the code page of the database's
// collation lacks is lost here.
Datum StringLiteral(std::string text, bool unicode, const Collation* collation);

} // namespace quillon::practice
