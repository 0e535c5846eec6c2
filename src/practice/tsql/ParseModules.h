// Views, procedures, functions and triggers, and what switches triggers on and off.
#pragma once

#include "practice/tsql/ParseState.h"

namespace quillon::practice::tsql {

/// What stands before the kind of module: `verb` and where it stands.
struct ModuleHead {
    Position position;
    ModuleVerb verb = ModuleVerb::Create;
    Span verbText;
};

// Each with the words up to the kind of module taken. They take the rest of the batch.

StatementPtr ParseView(ParseState& state, const ModuleHead& head);
StatementPtr ParseProcedure(ParseState& state, const ModuleHead& head);
StatementPtr ParseFunction(ParseState& state, const ModuleHead& head);
StatementPtr ParseTrigger(ParseState& state, const ModuleHead& head);

/// `@a int = 1 OUTPUT, ...`, declared as variables.
std::vector<Parameter> ParseParameterList(ParseState& state);
/// ENABLE TRIGGER and DISABLE TRIGGER.
StatementPtr ParseEnableTrigger(ParseState& state);

} // namespace quillon::practice::tsql
