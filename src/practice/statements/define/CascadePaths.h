// The ways that the deletion or change of a row takes through the cascading foreign keys of a database.
#pragma once

#include "practice/storage/Catalogue.h"

namespace quillon::practice {

// Whether a table can be reached from `table`, or from one that hangs on it, by two ways over cascading keys,
// or comes back to itself. `table` counts as it is given, not as the catalogue has it.
bool CascadesMeet(const Catalogue& catalogue, const Table& table);

} // namespace quillon::practice
