// INSERT ... VALUES of literals alone, of which scripts that carry data are made: the values are there
// without a query, and statements that differ in their literals alone share one plan.
#pragma once

#include "practice/tsql/TreeDml.h"
#include "practice/values/Datum.h"

#include <string>
#include <vector>

namespace quillon::practice {

// What the statement has in common with others like it; empty when it is none of this kind.
std::string ConstantShape(const tsql::InsertStatement& statement);
// The values of such a statement, of the types that the language gives them; a NULL has none.
std::vector<std::vector<Datum>> ConstantRows(const tsql::InsertStatement& statement,
                                             const Collation* collation);

} // namespace quillon::practice
