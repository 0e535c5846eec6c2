// Who the session is for the time being: EXECUTE AS and REVERT, and the modules that run as somebody else.
#pragma once

#include "practice/tsql/TreeControl.h"

namespace quillon::practice {

struct Module;
struct SessionState;

void RunExecuteAs(SessionState& session, const tsql::ExecuteAsStatement& statement);
/// Takes back the last EXECUTE AS of the running body; what was there before the body stays.
void RunRevert(SessionState& session);

/// Becomes a user of the current database (`kind` USER) or a login (LOGIN). Throws SqlError 15517 or 15406
/// when there is none, or the session may not.
void Impersonate(SessionState& session, const std::string& kind, const std::string& name);
/// In the frame that is on top: becomes whom its text runs as, for as long as the frame lives.
void ImpersonateForText(SessionState& session, const std::string& kind, const std::string& name);
/// The same for WITH EXECUTE AS of a module. Throws SqlError 15517 when that user has gone.
void ImpersonateForModule(SessionState& session, const Module& module);

} // namespace quillon::practice
