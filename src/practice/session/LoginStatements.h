// CREATE, ALTER and DROP LOGIN, and membership in the one server role that counts here.
#pragma once

#include "practice/tsql/TreeSecurity.h"

namespace quillon::practice {

struct SessionState;

/// Throws SqlError 15247 or 15151 (not an administrator), 15025, 15174, 15434, and 49999 for statements that
/// are none of these.
void RunLoginStatement(SessionState& session, const tsql::Statement& statement);

} // namespace quillon::practice
