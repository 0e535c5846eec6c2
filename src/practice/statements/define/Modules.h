// What the definitions of modules have in common.
#pragma once

#include "practice/statements/Plan.h"

namespace quillon::practice {

// The text that the catalogue keeps: the whole batch, saying CREATE whatever made it.
std::string KeptText(const tsql::ModuleStatement& statement);
// Text, settings and options from the statement and the session.
void FillModule(Engine& engine, const tsql::ModuleStatement& statement, Module& module);
// A firing of a trigger of `parent` that has no rows, to bind statements against.
TriggerFrame PretendedFiring(const Table& parent, bool after);

} // namespace quillon::practice
