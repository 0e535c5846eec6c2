// SET of the session's options.
#pragma once

#include "practice/tsql/TreeControl.h"

namespace quillon::practice {

struct SessionState;

void RunSetOption(SessionState& session, const tsql::SetOptionStatement& statement);

/// The settings that drivers since ODBC ask for when they log in, or those of the older library without; and
/// the language that the client or the login asks for, where it is one of this server's.
void SetLoginDefaults(SessionState& session, const std::string& language);

} // namespace quillon::practice
