// The variables of a frame: declared, found, assigned.
#pragma once

#include "practice/session/FlowProgram.h"
#include "practice/statements/ExecutionContext.h"

namespace quillon::practice {

struct SessionState;

/// Gives the top frame every variable that the program declares anywhere, null; table variables are made when
/// they are first needed. Throws SqlError 2715 for unknown types, with the declaration's line.
void DeclareVariables(SessionState& session, const FlowProgram& program);
/// One more variable of the top frame.
Variable& AddVariable(SessionState& session, std::string_view name, const tsql::DataType& type);

/// A variable of the top frame, table variables included; nullptr when it has none of that name.
Variable* FindVariable(SessionState& session, std::string_view name);
/// As above; throws SqlError 137.
Variable& RequireVariable(SessionState& session, std::string_view name);

void RunDeclare(SessionState& session, const tsql::DeclareVariablesStatement& statement);
void RunDeclareTable(SessionState& session, const tsql::DeclareTableStatement& statement);
void RunSetVariable(SessionState& session, const tsql::SetVariableStatement& statement);

} // namespace quillon::practice
