// Statements and lists of them: the way in to all other families.
#pragma once

#include "practice/tsql/ParseState.h"

namespace quillon::practice::tsql {

/// One statement with the semicolons after it.
StatementPtr ParseStatement(ParseState& state);
/// Statements up to the end of the text.
StatementList ParseStatementsToEnd(ParseState& state);

} // namespace quillon::practice::tsql
