// One statement: to the Executor, or to the part of the session whose it is.
#pragma once

namespace quillon::practice {

namespace tsql {
struct Statement;
}
struct SessionState;

/// Runs it and tells its end. Throws SqlError and whatever ends a batch.
void RunStatement(SessionState& session, const tsql::Statement& statement);

} // namespace quillon::practice
