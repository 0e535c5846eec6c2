// The form in which the catalogue keeps and shows the expressions of defaults, checks, computed columns and
// filters: names in square brackets, built-in functions in small letters, numbers in brackets, no blank that
// is not needed; BETWEEN, IN and the words without brackets as what they stand for.
#pragma once

#include "practice/tsql/TreeExpressions.h"

#include <optional>
#include <string>

namespace quillon::practice::tsql {

/// Nothing for what has no such form: queries, window functions, values of a statement.
std::optional<std::string> ExpressionText(const Expression& expression);

} // namespace quillon::practice::tsql
