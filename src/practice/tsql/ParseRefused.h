// What the server does not do is refused when the statement runs, as far as its end can be told; otherwise
// the whole text is refused.
#pragma once

#include "practice/tsql/ParseState.h"

namespace quillon::practice::tsql {

/// Calls `parse` for the statement ahead. Where that refuses the statement, yields one that does so when it
/// runs.
StatementPtr ParseOrRefuse(ParseState& state, StatementPtr (*parse)(ParseState&));

} // namespace quillon::practice::tsql
