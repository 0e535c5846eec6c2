// SELECT as a statement: rows to the client, into variables, into a new table, or one by one to a cursor.
#pragma once

#include "practice/statements/Executor.h"
#include "practice/statements/Plan.h"

namespace quillon::practice {

StatementOutcome RunSelect(Engine& engine, const tsql::SelectStatement& statement);
std::unique_ptr<QueryReader> OpenReader(Engine& engine, const tsql::SelectStatement& statement,
                                        bool withRowIds);
// Binds the query and runs nothing.
void TrySelect(Engine& engine, const tsql::SelectStatement& statement);
std::vector<ResultColumn> DescribeSelect(Engine& engine, const tsql::SelectStatement& statement);

// Shared with OUTPUT: what the client is told of the columns, and one row as it leaves.
std::vector<ResultColumn> ResultColumns(const std::vector<OutputColumn>& columns);
void LoadRow(const Prepared& statement, const std::vector<OutputColumn>& columns, std::vector<Datum>& row);

} // namespace quillon::practice
