// CREATE and ALTER of the modules that have a body of statements. Objects may come later than the module that
// names them; columns of objects that are there may not.
#pragma once

#include "practice/statements/Executor.h"

namespace quillon::practice {

struct SessionState;

/// Procedures, functions and triggers.
bool HasBody(tsql::StatementKind kind);

/// Puts the module into the catalogue and binds its statements there; those that name objects that are
/// missing or temporary wait for their run. Throws SqlError, for wrong names (207, 209, 1011, 1013, 4104) all
/// of them with the module's name and their lines; then nothing has changed.
StatementOutcome DefineModule(SessionState& session, const tsql::Statement& statement);

} // namespace quillon::practice
