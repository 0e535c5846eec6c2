// The old rules (CREATE RULE) that are bound to columns: conditions over one variable, whatever its name.
#pragma once

#include "practice/statements/translate/Translator.h"

#include <string>

namespace quillon::practice {

/// The rule's condition as SQL for SQLite, with `value` where its variable stands.
std::string RuleCondition(Engine& engine, Surroundings here, const TextObject& rule, const Scalar& value);

} // namespace quillon::practice
