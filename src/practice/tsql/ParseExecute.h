// EXECUTE and what belongs to it.
#pragma once

#include "practice/tsql/ParseState.h"

namespace quillon::practice::tsql {

/// EXEC ..., EXECUTE AS ...
StatementPtr ParseExecute(ParseState& state);
/// A call without EXEC, which only the first statement of a batch may be.
StatementPtr ParseBareExecute(ParseState& state);
StatementPtr ParseExecuteAs(ParseState& state);
/// `EXECUTE AS x` in the header of a module, EXECUTE taken: CALLER, SELF, OWNER or a user's name.
std::string ParseModuleIdentity(ParseState& state);

} // namespace quillon::practice::tsql
