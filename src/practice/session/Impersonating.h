// EXECUTE AS and REVERT: who the session is for the time being.
#pragma once

#include "practice/tsql/TreeControl.h"

namespace quillon::practice {

struct SessionState;

void RunExecuteAs(SessionState& session, const tsql::ExecuteAsStatement& statement);
void RunRevert(SessionState& session);

/// Becomes a user of the current database (`kind` USER) or a login (LOGIN). Throws SqlError 15517 when there
/// is none.
void Impersonate(SessionState& session, const std::string& kind, const std::string& name);

} // namespace quillon::practice
