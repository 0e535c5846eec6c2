// CREATE, ALTER and DROP INDEX, and statistics, which are accepted and known to no one.
#pragma once

#include "practice/statements/define/Tables.h"

namespace quillon::practice {

// The condition of a filtered index in SQLite's language. Refused by name when it needs a function of ours.
std::string FilterSql(Engine& engine, const Table& table, const Index& index);
void CreateIndex(Engine& engine, const tsql::CreateIndexStatement& statement);
void AlterIndex(Engine& engine, const tsql::AlterIndexStatement& statement);
void DropIndexes(Engine& engine, const tsql::DropIndexStatement& statement);
// The storage of an index over rows that exist: 1505 when they are not unique.
void BuildIndex(Engine& engine, const Table& table, const Index& index);
// Gives computed columns that `after` stores and `before` did not a place and their values.
void StoreComputed(Engine& engine, const Table& before, const std::shared_ptr<const Table>& after);

} // namespace quillon::practice
