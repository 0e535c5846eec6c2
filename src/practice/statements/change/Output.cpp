// OUTPUT: a query over the rows before and after, sent to the client or stored.
#include "practice/statements/Selecting.h"
#include "practice/statements/change/Targets.h"
#include "practice/values/SqlError.h"

namespace quillon::practice {

namespace {

// FROM over the kept sets of one change; columns of the side that is missing are NULL.
std::string SetsSql(Translator& translator, const RowChange& change, bool merge, Scope& scope) {
    const TriggerEvent event = change.Event();
    std::string from;
    const auto add = [&](const std::shared_ptr<RowSet>& set) {
        const std::string text = translator.AddTable(set->Definition(), {}, scope);
        if (from.empty())
            from = text;
        else
            from += " LEFT JOIN " + text + " ON " + scope.sources[0]->alias +
                    ".rowid = " + scope.sources[1]->alias + ".rowid";
    };
    if (event != TriggerEvent::Delete)
        add(change.Inserted());
    if (event != TriggerEvent::Insert)
        add(change.Deleted());
    if (merge) {
        // MERGE's OUTPUT may name both, whatever the row's action was.
        if (event == TriggerEvent::Delete)
            add(change.Inserted());
        if (event == TriggerEvent::Insert)
            add(change.Deleted());
        auto action = std::make_unique<Source>();
        SourceColumn word;
        word.name = "$ACTION";
        word.type = NVarChar(10);
        word.type.collation = translator.DatabaseCollation();
        word.sql = event == TriggerEvent::Insert   ? "'INSERT'"
                   : event == TriggerEvent::Update ? "'UPDATE'"
                                                   : "'DELETE'";
        action->columns.push_back(word);
        scope.sources.push_back(std::move(action));
    }
    return from;
}

std::unique_ptr<Plan> MakeOutput(Engine& engine, const tsql::OutputClause& clause, const RowChange& change,
                                 bool merge, const Table* into, const std::vector<const Column*>& columns) {
    Translator translator(engine);
    Scope scope;
    const std::string from = SetsSql(translator, change, merge, scope);
    const auto items = translator.Items(clause.items, scope);
    if (into != nullptr && items.size() != columns.size())
        throw SqlError(items.size() < columns.size() ? 120 : 121);
    std::string list;
    auto plan = std::make_unique<Plan>();
    for (std::size_t i = 0; i < items.size(); ++i) {
        const Scalar value =
            into == nullptr ? items[i].value : translator.AssignTo(items[i].value, *columns[i], into->name);
        list += (i > 0 ? ", " : "") + value.sql;
        plan->columns.push_back(items[i].output);
        plan->columns.back().readOnly = false;
    }
    plan->statement = Prepared(engine.Connection(), "SELECT " + list + " FROM " + from + " ORDER BY " +
                                                        scope.sources[0]->alias + ".rowid");
    plan->needs = std::move(translator.needs);
    plan->Bind(engine);
    return plan;
}

// The columns of INTO, those it names or all that can be given.
std::vector<const Column*> IntoColumns(const tsql::OutputClause& clause, const Table& into) {
    std::vector<const Column*> columns;
    for (const std::string& name : clause.intoColumns) {
        columns.push_back(into.FindColumn(name));
        if (columns.back() == nullptr)
            throw SqlError(207, {name});
    }
    if (columns.empty())
        for (const Column& column : into.columns)
            if (!column.IsComputed() && !column.identity && !column.IsRowVersion())
                columns.push_back(&column);
    return columns;
}

void StoreOutput(Engine& engine, const tsql::OutputClause& clause, const std::vector<RowChange*>& changes,
                 bool merge, ChangeRun& run) {
    Translator translator(engine);
    const Target target = RequireTarget(translator, clause.into);
    const Table& into = *target.table;
    const std::vector<const Column*> columns = IntoColumns(clause, into);
    for (const RowChange* change : changes) {
        const std::unique_ptr<Plan> plan = MakeOutput(engine, clause, *change, merge, &into, columns);
        RowChange& added = run.Start(target.table, TriggerEvent::Insert, "INSERT", false);
        TableWriter& writer = added.Writer();
        while (engine.Step(plan->statement)) {
            StoredRow row(writer.StoredColumns().size());
            for (std::size_t i = 0; i < columns.size(); ++i)
                row[static_cast<std::size_t>(writer.PlaceOf(columns[i]->id))] =
                    StoredValue::Column(plan->statement, static_cast<int>(i));
            if (into.IdentityColumn() != nullptr)
                writer.GiveIdentity(row);
            added.Insert(row);
        }
    }
}

void SendOutput(Engine& engine, const tsql::OutputClause& clause, const std::vector<RowChange*>& changes,
                bool merge) {
    bool told = false;
    std::vector<Datum> row;
    for (const RowChange* change : changes) {
        const std::unique_ptr<Plan> plan = MakeOutput(engine, clause, *change, merge, nullptr, {});
        if (!std::exchange(told, true))
            engine.context.Sink().Columns(ResultColumns(plan->columns));
        while (engine.Step(plan->statement)) {
            LoadRow(plan->statement, plan->columns, row);
            engine.context.Sink().Row(row);
        }
    }
}

bool ReadsOtherTables(const tsql::DmlStatement& statement) {
    switch (statement.kind) {
    case tsql::StatementKind::Merge: return true;
    case tsql::StatementKind::Update: return !tsql::As<tsql::UpdateStatement>(statement).from.empty();
    case tsql::StatementKind::Delete: return !tsql::As<tsql::DeleteStatement>(statement).from.empty();
    default: return false;
    }
}

} // namespace

void RunOutput(Engine& engine, const tsql::DmlStatement& statement, const std::vector<RowChange*>& changes,
               ChangeRun& run) {
    const bool merge = statement.kind == tsql::StatementKind::Merge;
    try {
        for (const tsql::OutputClause& clause : statement.output) {
            if (clause.hasInto)
                StoreOutput(engine, clause, changes, merge, run);
            else
                SendOutput(engine, clause, changes, merge);
        }
    } catch (const SqlError& error) {
        // The rows that the change was made from are gone by now; only those that it made are at hand.
        constexpr int unknownQualifier = 4104;
        if (error.number == unknownQualifier && ReadsOtherTables(statement))
            throw SqlError::NotSupported("OUTPUT of columns of other tables");
        throw;
    }
}

} // namespace quillon::practice
