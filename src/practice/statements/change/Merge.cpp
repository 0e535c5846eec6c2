// MERGE: target and source are joined; each row of the join says which clause takes it and with what values.
#include "practice/statements/change/Assignments.h"
#include "practice/statements/change/InsertColumns.h"
#include "practice/values/SqlError.h"

#include <unordered_set>

namespace quillon::practice {

namespace {

struct Clause {
    tsql::MergeAction action = tsql::MergeAction::Update;
    Assignments sets;   // Update
    InsertColumns into; // Insert
    int first = 0;      // place of its values in the row
    int count = 0;
};

// The statement yields: the target row's id, the number of the clause, then the values of all clauses.
class MergePlan : public Plan {
  public:
    std::shared_ptr<const Table> table;
    std::vector<Clause> clauses;
};

class MergeBinder {
  public:
    MergeBinder(Engine& engine, const tsql::MergeStatement& statement)
        : m_engine(engine)
        , m_statement(statement)
        , m_translator(engine) {}

    std::unique_ptr<MergePlan> Bind();

  private:
    std::string BindSources();
    std::string Case() const;
    std::string Guarded(const std::string& value, std::size_t clause) const;
    void BindClause(const tsql::MergeClause& clause, MergePlan& plan, std::string& list);
    std::string WhenSql(const tsql::MergeClause& clause);
    bool Has(tsql::MergeMatch match) const;

    Engine& m_engine;
    const tsql::MergeStatement& m_statement;
    Translator m_translator;
    Scope m_scope;
    const Source* m_target = nullptr;
    std::string m_present; // not null where there is a source row
    std::vector<std::string> m_whens;
};

bool MergeBinder::Has(tsql::MergeMatch match) const {
    return std::any_of(m_statement.clauses.begin(), m_statement.clauses.end(),
                       [&](const tsql::MergeClause& clause) { return clause.match == match; });
}

std::string MergeBinder::BindSources() {
    std::string source = m_translator.FromOne(*m_statement.source, m_scope);
    if (m_scope.sources.size() != 1)
        throw SqlError::NotSupported("a join as the source of MERGE");
    const Source& from = *m_scope.sources.front();
    if (from.table)
        m_present = from.alias + ".rowid";
    else {
        const std::string tail = ") AS " + from.alias;
        source = "(SELECT *, 1 AS present FROM " + source.substr(0, source.size() - tail.size() + 1) + tail;
        m_present = from.alias + ".present";
    }
    const Target target = RequireTarget(m_translator, m_statement.target);
    if (!target.table)
        throw SqlError::NotSupported("MERGE into a view");
    const std::string exposed = !m_statement.targetAlias.empty()      ? m_statement.targetAlias
                                : m_statement.target.variable.empty() ? std::string()
                                                                      : m_statement.target.variable;
    const std::string text = m_translator.AddTable(target.table, exposed, m_scope);
    m_target = m_scope.sources.back().get();
    const char* join = Has(tsql::MergeMatch::NotMatchedBySource)   ? " FULL JOIN "
                       : Has(tsql::MergeMatch::NotMatchedByTarget) ? " LEFT JOIN "
                                                                   : " JOIN ";
    return source + join + text + " ON " + m_translator.Condition(*m_statement.on, &m_scope);
}

std::string MergeBinder::WhenSql(const tsql::MergeClause& clause) {
    std::string when = m_target->rowId;
    switch (clause.match) {
    case tsql::MergeMatch::Matched: when += " IS NOT NULL AND " + m_present + " IS NOT NULL"; break;
    case tsql::MergeMatch::NotMatchedByTarget: when += " IS NULL"; break;
    case tsql::MergeMatch::NotMatchedBySource: when = m_present + " IS NULL"; break;
    }
    if (clause.condition)
        when += " AND " + m_translator.Condition(*clause.condition, &m_scope);
    return when;
}

std::string MergeBinder::Case() const {
    std::string sql = "CASE";
    for (std::size_t i = 0; i < m_whens.size(); ++i)
        sql += " WHEN " + m_whens[i] + " THEN " + std::to_string(i);
    return sql + " END";
}

// A value is worked out only for rows of its clause: elsewhere it might fail.
std::string MergeBinder::Guarded(const std::string& value, std::size_t clause) const {
    if (value.find('(') == std::string::npos)
        return value;
    return "CASE WHEN " + Case() + " = " + std::to_string(clause) + " THEN " + value + " END";
}

void MergeBinder::BindClause(const tsql::MergeClause& clause, MergePlan& plan, std::string& list) {
    const std::size_t number = plan.clauses.size();
    Clause bound;
    bound.action = clause.action;
    bound.first = plan.clauses.empty() ? 2 : plan.clauses.back().first + plan.clauses.back().count;
    const auto add = [&](const std::string& value) {
        list += ", " + Guarded(value, number);
        ++bound.count;
    };
    if (clause.action == tsql::MergeAction::Update) {
        bound.sets = BindAssignments(m_translator, clause.sets, m_scope, *m_target, plan.table, false);
        for (const auto& value : bound.sets.columns)
            add(value.sql);
    } else if (clause.action == tsql::MergeAction::Insert) {
        bound.into = BindColumns(m_engine, plan.table, clause.columns,
                                 clause.hasColumns || clause.defaultValues, clause.values.size(), false);
        if (clause.values.size() != bound.into.columns.size())
            throw SqlError(!clause.hasColumns                                 ? 213
                           : clause.values.size() < bound.into.columns.size() ? 109
                                                                              : 110);
        std::map<int, std::string> given;
        for (std::size_t i = 0; i < clause.values.size(); ++i) {
            const Column& column = *bound.into.columns[i];
            const bool isDefault = clause.values[i]->kind == tsql::ExpressionKind::DefaultValue;
            given[column.id] = bound.into.Given(m_translator, column,
                                                isDefault ? nullptr : clause.values[i].get(), &m_scope);
        }
        for (const std::string& value : bound.into.Complete(m_translator, given))
            add(value);
    }
    plan.clauses.push_back(std::move(bound));
}

std::unique_ptr<MergePlan> MergeBinder::Bind() {
    auto plan = std::make_unique<MergePlan>();
    if (!m_statement.with.empty())
        m_translator.PushCommonTables(m_statement.with);
    if (m_statement.top)
        throw SqlError::NotSupported("MERGE TOP");
    const std::string from = BindSources();
    plan->table = m_target->rowTable;
    for (const tsql::MergeClause& clause : m_statement.clauses)
        m_whens.push_back(WhenSql(clause));
    std::string list;
    for (const tsql::MergeClause& clause : m_statement.clauses)
        BindClause(clause, *plan, list);
    plan->statement =
        Prepared(m_engine.Connection(), "SELECT " + m_target->rowId + ", " + Case() + list + " FROM " + from +
                                            " WHERE " + Case() + " IS NOT NULL");
    plan->needs = std::move(m_translator.needs);
    return plan;
}

// The rows that each clause has taken.
struct Taken {
    std::vector<PendingUpdate> updates;
    std::vector<std::int64_t> deletes;
    std::vector<StoredRow> inserts;
};

std::vector<Taken> TakeRows(Engine& engine, MergePlan& plan) {
    std::vector<Taken> taken(plan.clauses.size());
    std::unordered_set<std::int64_t> touched;
    while (engine.Step(plan.statement)) {
        const auto number = static_cast<std::size_t>(plan.statement.Integer(1));
        const Clause& clause = plan.clauses[number];
        StoredRow row = RowOf(plan.statement, clause.first);
        row.resize(static_cast<std::size_t>(clause.count));
        if (clause.action == tsql::MergeAction::Insert) {
            taken[number].inserts.push_back(std::move(row));
            continue;
        }
        const std::int64_t id = plan.statement.Integer(0);
        if (!touched.insert(id).second)
            throw SqlError(8672);
        if (clause.action == tsql::MergeAction::Delete)
            taken[number].deletes.push_back(id);
        else
            taken[number].updates.push_back({id, std::move(row)});
    }
    plan.statement.Reset();
    return taken;
}

} // namespace

StatementOutcome RunMerge(Engine& engine, const tsql::MergeStatement& statement) {
    const StoreSession::Written writes = [&] {
        Translator translator(engine);
        const Target target = RequireTarget(translator, statement.target);
        return WritesOf(engine, statement, target.table.get());
    }();
    StatementScope scope(engine, writes);
    const std::unique_ptr<MergePlan> plan = MergeBinder(engine, statement).Bind();
    plan->Bind(engine);
    engine.begun = true;
    std::vector<TriggerEvent> events;
    for (const auto& [action, event] : {std::pair{tsql::MergeAction::Delete, TriggerEvent::Delete},
                                        {tsql::MergeAction::Update, TriggerEvent::Update},
                                        {tsql::MergeAction::Insert, TriggerEvent::Insert}})
        if (std::any_of(plan->clauses.begin(), plan->clauses.end(),
                        [wanted = action](const Clause& clause) { return clause.action == wanted; }))
            events.push_back(event);
    CheckOutput(engine, statement, *plan->table, events);
    for (const TriggerEvent event : events)
        if (InsteadOfTrigger(engine, plan->table->triggers, event))
            throw SqlError::NotSupported("MERGE into a table with an INSTEAD OF trigger");
    std::vector<Taken> taken = TakeRows(engine, *plan);
    ChangeRun run(engine);
    std::vector<RowChange*> changes;
    for (const TriggerEvent event : events) {
        RowChange& change = run.Start(plan->table, event, "MERGE", !statement.output.empty());
        changes.push_back(&change);
        for (std::size_t i = 0; i < taken.size(); ++i) {
            if (event == TriggerEvent::Delete)
                change.Delete(taken[i].deletes);
            else if (event == TriggerEvent::Update && !taken[i].updates.empty())
                change.Update(taken[i].updates, plan->clauses[i].sets.Places());
            else if (event == TriggerEvent::Insert)
                for (StoredRow& row : taken[i].inserts) {
                    GiveIdentity(engine, plan->clauses[i].into, change.Writer(), row);
                    change.Insert(row);
                }
        }
    }
    run.CheckKeys();
    RunOutput(engine, statement, changes, run);
    run.CheckKeys();
    std::uint64_t count = 0;
    for (const RowChange* change : changes)
        count += static_cast<std::uint64_t>(change->Count());
    run.FireTriggers();
    scope.End();
    return {StatementKind::Merge, count};
}

void TryMerge(Engine& engine, const tsql::MergeStatement& statement) {
    MergeBinder(engine, statement).Bind();
}

} // namespace quillon::practice
