// INSERT, UPDATE, DELETE, MERGE and TRUNCATE.
#pragma once

#include "practice/tsql/ParseState.h"

namespace quillon::practice::tsql {

StatementPtr ParseInsert(ParseState& state);
StatementPtr ParseUpdate(ParseState& state);
StatementPtr ParseDelete(ParseState& state);
StatementPtr ParseMerge(ParseState& state);
StatementPtr ParseTruncate(ParseState& state);

// Between the files of this family

DmlTarget ParseDmlTarget(ParseState& state);
std::vector<OutputClause> ParseOutput(ParseState& state);
/// `SET a = b, ...`, the word SET taken.
std::vector<SetClause> ParseSetClauses(ParseState& state);
/// `(column, ...)` where a column may bear its table's name.
std::vector<Name> ParseColumnNames(ParseState& state);
CursorName ParseCursorName(ParseState& state);

} // namespace quillon::practice::tsql
