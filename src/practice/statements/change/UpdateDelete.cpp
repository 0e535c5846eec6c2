// UPDATE and DELETE: first the rows and their new values are found, then they are changed.
#include "practice/statements/change/Assignments.h"
#include "practice/values/SqlError.h"
#include "practice/values/StorageForm.h"

namespace quillon::practice {

namespace {

// The statement yields: the row's id; under INSTEAD OF then the whole row as it is; then the new values; then
// those of variables.
class ChangePlan : public Plan {
  public:
    std::shared_ptr<const Table> table;
    std::shared_ptr<const Trigger> instead;
    int wholeRow = 0; // how many columns of it
    Assignments sets;
};

std::string CurrentOfSql(Engine& engine, const tsql::CurrentOf& cursor, const FromTarget& target) {
    const CursorRow row = engine.context.CursorPosition(cursor);
    if (row.table != target.table->id)
        throw SqlError(16933);
    return target.source->rowId + " = " + std::to_string(row.rowId);
}

template <class Statement>
std::unique_ptr<ChangePlan> MakePlan(Engine& engine, const Statement& statement, TriggerEvent event,
                                     const std::vector<tsql::SetClause>& clauses) {
    auto plan = std::make_unique<ChangePlan>();
    Translator translator(engine);
    if (!statement.with.empty())
        translator.PushCommonTables(statement.with);
    Scope scope;
    const FromTarget target = BindTarget(translator, statement.target, statement.from, event, scope);
    plan->table = target.table;
    plan->instead =
        InsteadOfTrigger(engine, target.view ? target.view->triggers : target.table->triggers, event);
    const Source& source = *target.source;
    std::string list = target.view ? "0" : source.rowId;
    if (plan->instead)
        for (const Column& column : target.table->columns) {
            if (!column.stored)
                continue;
            const auto seen =
                std::find_if(source.columns.begin(), source.columns.end(), [&](const SourceColumn& one) {
                    return source.columnRule.Same(one.name, column.name);
                });
            list += ", " + translator.ColumnScalar({&source, &*seen}, scope).sql;
            ++plan->wholeRow;
        }
    plan->sets = BindAssignments(translator, clauses, scope, source, target.table, plan->instead != nullptr);
    for (const auto& value : plan->sets.columns)
        list += ", " + value.sql;
    for (const auto& value : plan->sets.variables)
        list += ", " + value.sql;
    std::string sql = "SELECT " + list + " FROM " + target.from;
    if (statement.currentOf)
        sql += " WHERE " + CurrentOfSql(engine, *statement.currentOf, target);
    else if (statement.where) {
        scope.aggregateError = 147;
        sql += " WHERE " + translator.Condition(*statement.where, &scope);
    }
    plan->statement = Prepared(engine.Connection(), sql + TopSql(statement, translator), true);
    plan->needs = std::move(translator.needs);
    return plan;
}

// The last columns of the row under the plan go to their variables at once: the next row may read them.
void SetVariables(Engine& engine, const ChangePlan& plan) {
    const int first = 1 + plan.wholeRow + static_cast<int>(plan.sets.columns.size());
    for (std::size_t i = 0; i < plan.sets.variables.size(); ++i) {
        const auto& target = plan.sets.variables[i];
        engine.context.FindVariable(target.name)->value =
            LoadColumn(plan.statement.Handle(), first + static_cast<int>(i), target.type);
    }
}

std::uint64_t ChangeInstead(Engine& engine, ChangePlan& plan, TriggerEvent event) {
    const Table& table = *plan.table;
    const auto inserted = engine.rowSets.Take(table, 'i');
    const auto deleted = engine.rowSets.Take(table, 'd');
    TriggerFrame frame;
    frame.updated.assign(static_cast<std::size_t>(table.lastColumnId) + 1, false);
    for (const auto& value : plan.sets.columns)
        frame.updated[static_cast<std::size_t>(value.column->id)] = true;
    const auto keep = [](RowSet& set, const StoredRow& row) {
        set.Counted();
        set.Insert().Bind(1, set.Count());
        BindRow(set.Insert(), row, 2);
        set.Insert().Run();
    };
    while (engine.Step(plan.statement)) {
        StoredRow row = RowOf(plan.statement, 1);
        StoredRow after(row.begin(), row.begin() + plan.wholeRow);
        keep(*deleted, after);
        for (std::size_t i = 0; i < plan.sets.columns.size(); ++i)
            after[static_cast<std::size_t>(plan.sets.columns[i].place)] =
                row[static_cast<std::size_t>(plan.wholeRow) + i];
        if (event == TriggerEvent::Update)
            keep(*inserted, after);
        SetVariables(engine, plan);
    }
    frame.event = event;
    frame.parent = table.id;
    frame.inserted = inserted->Definition();
    frame.deleted = deleted->Definition();
    frame.rowCount = deleted->Count();
    Fire(engine, {plan.instead}, frame);
    return static_cast<std::uint64_t>(deleted->Count());
}

template <class Statement>
std::uint64_t RunChange(Engine& engine, const Statement& statement, TriggerEvent event,
                        const std::vector<tsql::SetClause>& clauses) {
    const char* verb = event == TriggerEvent::Update ? "UPDATE" : "DELETE";
    const StoreSession::Written writes = KnownWrites(engine, statement.attachment, [&] {
        // What is written may be named by an alias only; the tables of FROM are looked at.
        Translator translator(engine);
        if (!statement.with.empty())
            translator.PushCommonTables(statement.with);
        Scope scope;
        const FromTarget target = BindTarget(translator, statement.target, statement.from, event, scope);
        return WritesOf(engine, statement, target.table.get());
    });
    StatementScope scope(engine, writes);
    std::unique_ptr<tsql::Attachment> once;
    PlanUse<ChangePlan> plan(engine, statement.currentOf ? once : statement.attachment,
                             [&] { return MakePlan(engine, statement, event, clauses); });
    plan->writes = writes;
    engine.begun = true;
    plan->Bind(engine);
    if (plan->instead) {
        const std::uint64_t count = ChangeInstead(engine, *plan, event);
        scope.End();
        return count;
    }
    CheckOutput(engine, statement, *plan->table, {event});
    std::vector<PendingUpdate> updates;
    std::vector<std::int64_t> rowIds;
    while (engine.Step(plan->statement)) {
        SetVariables(engine, *plan);
        if (plan->statement.IsNull(0))
            continue; // the empty side of an outer join
        if (event == TriggerEvent::Delete) {
            rowIds.push_back(plan->statement.Integer(0));
            continue;
        }
        StoredRow values = RowOf(plan->statement, 1);
        values.resize(plan->sets.columns.size());
        updates.push_back({plan->statement.Integer(0), std::move(values)});
    }
    plan->statement.Reset();
    ChangeRun run(engine);
    RowChange& change = run.Start(plan->table, event, verb, !statement.output.empty());
    if (event == TriggerEvent::Delete)
        change.Delete(rowIds);
    else
        change.Update(updates, plan->sets.Places());
    run.CheckKeys();
    RunOutput(engine, statement, {&change}, run);
    run.CheckKeys();
    const auto count = static_cast<std::uint64_t>(change.Count());
    run.FireTriggers();
    scope.End();
    return count;
}

} // namespace

StatementOutcome RunUpdate(Engine& engine, const tsql::UpdateStatement& statement) {
    return {StatementKind::Update, RunChange(engine, statement, TriggerEvent::Update, statement.sets)};
}

StatementOutcome RunDelete(Engine& engine, const tsql::DeleteStatement& statement) {
    return {StatementKind::Delete, RunChange(engine, statement, TriggerEvent::Delete, {})};
}

void TryUpdate(Engine& engine, const tsql::UpdateStatement& statement) {
    MakePlan(engine, statement, TriggerEvent::Update, statement.sets);
}

void TryDelete(Engine& engine, const tsql::DeleteStatement& statement) {
    MakePlan(engine, statement, TriggerEvent::Delete, {});
}

} // namespace quillon::practice
