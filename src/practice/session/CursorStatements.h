// DECLARE, OPEN, FETCH, CLOSE and DEALLOCATE of cursors, and cursor variables.
#pragma once

#include "practice/session/Cursor.h"

namespace quillon::practice {

struct SessionState;

/// The cursor of that name: a local one before a global one. Throws SqlError 16916, and 16950 for a variable
/// that has none.
Cursor& RequireCursor(SessionState& session, const tsql::CursorName& name);

void RunDeclareCursor(SessionState& session, const tsql::DeclareCursorStatement& statement);
void RunSetCursor(SessionState& session, const tsql::SetCursorVariableStatement& statement);
/// OPEN, CLOSE, DEALLOCATE
void RunCursor(SessionState& session, const tsql::CursorStatement& statement);
void RunFetch(SessionState& session, const tsql::FetchCursorStatement& statement);

} // namespace quillon::practice
