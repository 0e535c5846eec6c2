// DBCC: the one command that changes data, CHECKIDENT, and those that concern what this server does not have.
#pragma once

#include "practice/tsql/TreeControl.h"

namespace quillon::practice {

struct SessionState;

/// Throws SqlError 49999 for commands that are not done here, 7997 for a table without an identity column.
void RunDbcc(SessionState& session, const tsql::DbccStatement& statement);

} // namespace quillon::practice
