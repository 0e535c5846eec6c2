// Cursors.
#pragma once

#include "practice/tsql/ParseState.h"

namespace quillon::practice::tsql {

/// DECLARE name CURSOR ..., the first word taken.
StatementPtr ParseDeclareCursor(ParseState& state, Position position);
/// SET @c = CURSOR ... or another cursor, with what follows the sign ahead.
StatementPtr ParseSetCursor(ParseState& state, Position position, std::string variable);
/// OPEN, CLOSE and DEALLOCATE.
StatementPtr ParseCursorStatement(ParseState& state);
StatementPtr ParseFetch(ParseState& state);

} // namespace quillon::practice::tsql
