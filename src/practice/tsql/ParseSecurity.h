// Logins, users, roles and rights.
#pragma once

#include "practice/tsql/ParseState.h"

namespace quillon::practice::tsql {

// Each with the words up to the kind of principal taken; `position` is that of CREATE or ALTER.

StatementPtr ParseCreateLogin(ParseState& state, Position position);
StatementPtr ParseAlterLogin(ParseState& state, Position position);
StatementPtr ParseCreateUser(ParseState& state, Position position);
StatementPtr ParseAlterUser(ParseState& state, Position position);
StatementPtr ParseCreateRole(ParseState& state, Position position, bool server);
StatementPtr ParseAlterRole(ParseState& state, Position position, bool server);
StatementPtr ParseAlterAuthorization(ParseState& state, Position position);
/// GRANT, DENY and REVOKE.
StatementPtr ParsePermission(ParseState& state);

} // namespace quillon::practice::tsql
