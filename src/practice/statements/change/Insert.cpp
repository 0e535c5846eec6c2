// INSERT.
#include "practice/statements/change/InsertColumns.h"
#include "practice/statements/change/Targets.h"
#include "practice/values/SqlError.h"
#include "practice/values/StorageForm.h"

namespace quillon::practice {

namespace {

// The plan's statement yields whole rows: every stored column of the table.
class InsertPlan : public Plan {
  public:
    InsertColumns target;
    bool materialise = false; // it may read what it writes
};

std::string JoinSql(const std::vector<std::string>& parts) {
    std::string sql;
    for (const std::string& part : parts)
        sql += (sql.empty() ? "" : ", ") + part;
    return sql;
}

// VALUES with one row: each expression goes straight to its column.
std::string OneRow(Translator& translator, const InsertColumns& target, const tsql::ExpressionList& values) {
    std::map<int, std::string> given;
    for (std::size_t i = 0; i < values.size(); ++i) {
        const Column& column = *target.columns[i];
        const bool isDefault = values[i]->kind == tsql::ExpressionKind::DefaultValue;
        given[column.id] = target.Given(translator, column, isDefault ? nullptr : values[i].get());
    }
    return "(" + JoinSql(target.Complete(translator, given)) + ")";
}

std::string ValuesSql(Translator& translator, const InsertColumns& target,
                      const tsql::InsertStatement& statement) {
    std::string rows;
    for (const tsql::ExpressionList& row : statement.rows) {
        if (row.size() != target.columns.size())
            throw SqlError(!statement.hasColumns ? 213 : row.size() < target.columns.size() ? 109 : 110);
        rows += (rows.empty() ? "" : ", ") + OneRow(translator, target, row);
    }
    return "VALUES " + rows;
}

std::string QuerySqlFor(Translator& translator, const InsertColumns& target,
                        const tsql::InsertStatement& statement) {
    Translator::QueryOptions options;
    options.top = true; // its order is that of the identity values
    const QuerySql query = translator.Query(*statement.query, nullptr, options);
    if (query.columns.size() != target.columns.size())
        throw SqlError(!statement.hasColumns                          ? 213
                       : query.columns.size() < target.columns.size() ? 120
                                                                      : 121);
    const std::string alias = translator.NextAlias();
    std::map<int, std::string> given;
    for (std::size_t i = 0; i < query.columns.size(); ++i) {
        Scalar value;
        value.sql = alias + ".o" + std::to_string(i + 1);
        value.type = query.columns[i].type;
        value.label = query.columns[i].label;
        target.RequireWritable(*target.columns[i]);
        given[target.columns[i]->id] = translator.AssignTo(value, *target.columns[i], target.fullName).sql;
    }
    return "SELECT " + JoinSql(target.Complete(translator, given)) + " FROM (" + query.sql + ") AS " + alias;
}

std::unique_ptr<InsertPlan> MakePlan(Engine& engine, const tsql::InsertStatement& statement) {
    auto plan = std::make_unique<InsertPlan>();
    Translator translator(engine);
    if (!statement.with.empty())
        translator.PushCommonTables(statement.with);
    plan->target = BindInsert(translator, statement);
    std::string sql;
    switch (statement.source) {
    case tsql::InsertSource::Values: sql = ValuesSql(translator, plan->target, statement); break;
    case tsql::InsertSource::Query: sql = QuerySqlFor(translator, plan->target, statement); break;
    case tsql::InsertSource::Defaults:
        sql = "VALUES (" + JoinSql(plan->target.Complete(translator, {})) + ")";
        break;
    case tsql::InsertSource::Execute: return plan;
    }
    if (const std::string limit = TopSql(statement, translator); !limit.empty())
        sql = "SELECT * FROM (" + sql + ")" + limit;
    plan->statement = Prepared(engine.Connection(), sql, true);
    plan->needs = std::move(translator.needs);
    plan->materialise = plan->needs.callsModules || plan->needs.reads.contains(plan->target.table->id);
    return plan;
}

// The rows of INSERT ... EXEC, kept until the call is over.
class Collector : public ResultSink {
  public:
    explicit Collector(ResultSink& through)
        : m_through(through) {}
    std::vector<std::vector<Datum>> rows;
    std::size_t width = 0;

    void Columns(const std::vector<ResultColumn>& columns) override {
        if (!rows.empty() && columns.size() != width)
            throw SqlError(213);
        width = columns.size();
    }
    void Row(std::span<const Datum> values) override { rows.emplace_back(values.begin(), values.end()); }
    void Done(const StatementEnd&) override {}
    void Message(const ServerMessage& message) override { m_through.Message(message); }
    void ReturnStatus(std::int32_t) override {}
    void OutputParameter(std::size_t, const std::string&, const SqlType&, const Datum&) override {}
    void Environment(const EnvironmentChange& change) override { m_through.Environment(change); }

  private:
    ResultSink& m_through;
};

std::vector<StoredRow> RowsOfCall(Engine& engine, const InsertColumns& target, const Collector& collected) {
    if (!collected.rows.empty() && collected.width != target.columns.size())
        throw SqlError(213);
    Translator translator(engine);
    std::vector<std::string> echoes;
    std::map<int, std::string> given;
    for (std::size_t i = 0; i < target.columns.size(); ++i) {
        target.RequireWritable(*target.columns[i]);
        given[target.columns[i]->id] = "?" + std::to_string(i + 1);
    }
    Prepared row(engine.Connection(), "SELECT " + JoinSql(target.Complete(translator, given)));
    std::vector<StoredRow> rows;
    for (const std::vector<Datum>& values : collected.rows) {
        for (std::size_t i = 0; i < values.size(); ++i) {
            const Column& column = *target.columns[i];
            const Datum value = values[i].IsNull() ? Datum::Null(column.type)
                                                   : ConvertForColumn(values[i], column.type,
                                                                      engine.context.Functions().Options(),
                                                                      target.fullName, column.name);
            BindDatum(row.Handle(), static_cast<int>(i) + 1, value, column.type);
        }
        engine.Step(row);
        rows.push_back(RowOf(row));
        row.Reset();
    }
    return rows;
}

// Calls `use` for every row to insert.
template <class Use>
void ForEachRow(Engine& engine, InsertPlan& plan, std::vector<StoredRow>& called, Use use) {
    if (!plan.statement) {
        for (StoredRow& row : called)
            use(row);
        return;
    }
    plan.Bind(engine);
    std::vector<StoredRow> rows;
    while (engine.Step(plan.statement)) {
        StoredRow row = RowOf(plan.statement);
        if (plan.materialise)
            rows.push_back(std::move(row));
        else
            use(row);
    }
    for (StoredRow& row : rows)
        use(row);
}

std::uint64_t InsertInstead(Engine& engine, InsertPlan& plan, const std::shared_ptr<const Trigger>& trigger,
                            std::vector<StoredRow>& called) {
    const InsertColumns& target = plan.target;
    const auto inserted = engine.rowSets.Take(*target.table, 'i');
    const auto deleted = engine.rowSets.Take(*target.table, 'd');
    ForEachRow(engine, plan, called, [&](const StoredRow& row) {
        inserted->Counted();
        inserted->Insert().Bind(1, inserted->Count());
        BindRow(inserted->Insert(), row, 2);
        inserted->Insert().Run();
    });
    TriggerFrame frame;
    frame.event = TriggerEvent::Insert;
    frame.parent = target.table->id;
    frame.inserted = inserted->Definition();
    frame.deleted = deleted->Definition();
    frame.updated.assign(static_cast<std::size_t>(target.table->lastColumnId) + 1, true);
    frame.rowCount = inserted->Count();
    Fire(engine, {trigger}, frame);
    return static_cast<std::uint64_t>(inserted->Count());
}

} // namespace

StatementOutcome RunInsert(Engine& engine, const tsql::InsertStatement& statement) {
    std::optional<Collector> collected;
    if (statement.source == tsql::InsertSource::Execute) {
        collected.emplace(engine.context.Sink());
        engine.context.RunForInsert(static_cast<const tsql::ExecuteStatement&>(*statement.execute),
                                    *collected);
    }
    const StoreSession::Writes writes = KnownWrites(engine, statement.attachment, [&] {
        Translator translator(engine);
        const Target target = RequireTarget(translator, statement.target);
        return WritesOf(engine, statement, target.table.get());
    });
    StatementScope scope(engine, writes);
    PlanUse<InsertPlan> plan(engine, statement.attachment, [&] { return MakePlan(engine, statement); });
    plan->writes = writes;
    engine.begun = true;
    const InsertColumns& target = plan->target;
    std::vector<StoredRow> called;
    if (collected)
        called = RowsOfCall(engine, target, *collected);
    std::uint64_t count = 0;
    if (const auto instead = InsteadOfTrigger(engine, target.table->triggers, TriggerEvent::Insert)) {
        count = InsertInstead(engine, *plan, instead, called);
        scope.End();
        return {StatementKind::Insert, count};
    }
    CheckOutput(engine, statement, *target.table, {TriggerEvent::Insert});
    ChangeRun run(engine);
    RowChange& change = run.Start(target.table, TriggerEvent::Insert, "INSERT", !statement.output.empty());
    ForEachRow(engine, *plan, called, [&](StoredRow& row) {
        GiveIdentity(engine, target, change.Writer(), row);
        if (!change.Insert(row))
            engine.context.Inform(3604, MessageText(3604));
        else
            ++count;
    });
    plan->statement.Reset();
    run.CheckKeys();
    RunOutput(engine, statement, {&change}, run);
    run.CheckKeys();
    run.FireTriggers();
    scope.End();
    return {StatementKind::Insert, count};
}

} // namespace quillon::practice
