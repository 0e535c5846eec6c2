// Control of flow, messages, transactions, and small statements of their own.
#pragma once

#include "practice/tsql/ParseState.h"

namespace quillon::practice::tsql {

/// A statement of these families; nothing when none of them is ahead.
StatementPtr ParseControlStatement(ParseState& state);
StatementPtr ParseLabel(ParseState& state);
StatementPtr ParseThrow(ParseState& state);

// Between the files of this family

StatementPtr ParseMessageStatement(ParseState& state);
StatementPtr ParseTransactionStatement(ParseState& state, Position position);
StatementPtr ParseServiceStatement(ParseState& state);

} // namespace quillon::practice::tsql
