// WITH SCHEMABINDING: what such a module names can neither be dropped nor changed under it.
#pragma once

#include "practice/statements/Engine.h"

namespace quillon::practice {

// A module bound to the object, and where `column` is given to that column; nullptr for none. What a module's
// text names counts, since it must name objects by schema.
std::shared_ptr<const Module> ModuleBoundTo(Engine& engine, const SchemaObject& object,
                                            std::string_view column = {});
// 3729 for an object that a module is bound to; `action` as in "DROP TABLE".
void RequireUnbound(Engine& engine, const SchemaObject& object, const char* action);

} // namespace quillon::practice
