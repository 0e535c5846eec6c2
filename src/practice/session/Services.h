// WAITFOR, DBCC and the other small services.
#pragma once

#include "practice/tsql/TreeControl.h"

namespace quillon::practice {

struct SessionState;

/// Any statement that is neither the Executor's nor of one of the session's families. Throws SqlError 49999
/// for what is not done here.
void RunService(SessionState& session, const tsql::Statement& statement);

} // namespace quillon::practice
