// The steps that ALTER TABLE is made of.
#pragma once

#include "practice/statements/change/TableWriter.h"
#include "practice/statements/define/Indexes.h"
#include "practice/storage/TableStorage.h"

namespace quillon::practice {

// Gives the rows that exist their values in a column that was added.
void FillColumn(Engine& engine, const std::shared_ptr<const Table>& table, const Column& column,
                bool withDefault);
// Makes the storage of a table anew; `values` are the columns' SQL over the old storage (alias x).
void RebuildStorage(Engine& engine, const Table& before, const Table& after,
                    const std::map<int, std::string>& values);
// 547 when rows that exist break the constraint.
void CheckExisting(Engine& engine, const std::shared_ptr<const Table>& table, ObjectId constraint);
// 5074 and 4922 when something hangs on the column.
void RequireFreeColumn(Engine& engine, const Table& table, const Column& column, const char* action,
                       bool keepsType = false);
void DropConstraint(Engine& engine, Table& table, const std::string& name);

} // namespace quillon::practice
