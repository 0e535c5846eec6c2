// EXECUTE and what belongs to it.
#pragma once

#include "practice/tsql/ParseState.h"

namespace quillon::practice::tsql {

/// EXEC ..., EXECUTE AS ...
StatementPtr ParseExecute(ParseState& state);
/// A call without EXEC, which only the first statement of a batch may be.
StatementPtr ParseBareExecute(ParseState& state);
StatementPtr ParseExecuteAs(ParseState& state);
/// `EXECUTE AS x` in the header of a module, EXECUTE taken.
void ParseModuleIdentity(ParseState& state, ModuleStatement& module);

} // namespace quillon::practice::tsql
