// What the statements that change rows have in common: finding their target, and their OUTPUT.
#pragma once

#include "practice/statements/Executor.h"
#include "practice/statements/Plan.h"
#include "practice/statements/change/RowChange.h"

namespace quillon::practice {

// The object that an INSERT, or an UPDATE or DELETE without a FROM that names it, writes to.
struct Target {
    std::shared_ptr<const Table> table; // or
    std::shared_ptr<const Module> view;
    std::string name;
};
// Nothing found: both are empty (it may be an alias or a common table).
Target FindTarget(Translator& translator, const tsql::DmlTarget& target);
// As above; 208 or 1087 when there is none.
Target RequireTarget(Translator& translator, const tsql::DmlTarget& target);
// The columns of a view as a table, for row sets and the columns' lists of INSTEAD OF triggers.
std::shared_ptr<const Table> ViewModel(const Module& view);

// Nothing looks whether rows that are changed through a view stay in it, as its WITH CHECK OPTION or that of
// a view under it asks: such changes are refused.
void RequireUnchecked(Translator& translator, const Module& view);

// The value of a column for which none is given: its default's SQL, or NULL.
Scalar DefaultValueOf(Translator& translator, const Table& table, const Column& column);

// The target of UPDATE and DELETE, found among FROM or added to it.
struct FromTarget {
    std::string from; // the text after FROM
    const Source* source = nullptr;
    std::shared_ptr<const Table> table; // the table whose rows change; a view's model under INSTEAD OF
    std::shared_ptr<const Module> view; // the view under INSTEAD OF
};
// `event` tells which INSTEAD OF trigger would take a view's statement over.
FromTarget BindTarget(Translator& translator, const tsql::DmlTarget& target,
                      const std::vector<tsql::TableSourcePtr>& from, TriggerEvent event, Scope& scope);

// OUTPUT of changes whose sets are kept: sends or stores the rows.
void RunOutput(Engine& engine, const tsql::DmlStatement& statement, const std::vector<RowChange*>& changes,
               ChangeRun& run);
// 334, and what OUTPUT INTO may not fill: 330 to 333.
void CheckOutput(Engine& engine, const tsql::DmlStatement& statement, const Table& target,
                 const std::vector<TriggerEvent>& events);
// ` LIMIT n` for TOP and SET ROWCOUNT, or nothing.
std::string TopSql(const tsql::DmlStatement& statement, Translator& translator);
// What the statement and its OUTPUT INTO write.
StoreSession::Written WritesOf(Engine& engine, const tsql::DmlStatement& statement, const Table* target);

StatementOutcome RunInsert(Engine& engine, const tsql::InsertStatement& statement);
StatementOutcome RunUpdate(Engine& engine, const tsql::UpdateStatement& statement);
StatementOutcome RunDelete(Engine& engine, const tsql::DeleteStatement& statement);
StatementOutcome RunMerge(Engine& engine, const tsql::MergeStatement& statement);

// Binds the statement as its run does and runs nothing: what it throws is wrong with the statement itself.
void TryInsert(Engine& engine, const tsql::InsertStatement& statement);
void TryUpdate(Engine& engine, const tsql::UpdateStatement& statement);
void TryDelete(Engine& engine, const tsql::DeleteStatement& statement);
void TryMerge(Engine& engine, const tsql::MergeStatement& statement);

} // namespace quillon::practice
