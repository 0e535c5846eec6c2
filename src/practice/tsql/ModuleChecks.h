// What can be told of a module's or batch's statements as a whole once they are parsed.
#pragma once

#include "practice/tsql/ParseState.h"

namespace quillon::practice::tsql {

using Visitor = std::function<void(const Statement&)>;
/// Each statement, and those inside of it.
void Visit(const Statement& statement, const Visitor& visitor);
void Visit(const StatementList& statements, const Visitor& visitor);

/// A function only reads, ends with RETURN and sends nothing to the client: 443, 444, 455.
void CheckFunctionBody(ParseState& state, const CreateFunctionStatement& function);

/// Every GOTO has its label and no label stands twice: 133, 132.
void CheckLabels(ParseState& state, const StatementList& statements);

} // namespace quillon::practice::tsql
