// DECLARE and SET.
#pragma once

#include "practice/tsql/ParseState.h"

namespace quillon::practice::tsql {

/// A type of the user's own may be a table type: only the catalogue knows.
bool MayBeTableType(const DataType& type);
StatementPtr ParseDeclare(ParseState& state);
StatementPtr ParseSet(ParseState& state);
/// SET of anything but a variable, the word taken.
StatementPtr ParseSetOption(ParseState& state, Position position);

} // namespace quillon::practice::tsql
