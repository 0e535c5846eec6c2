// INSERT.
#include "practice/statements/Truncation.h"
#include "practice/statements/change/ConstantRows.h"
#include "practice/statements/change/InsertColumns.h"
#include "practice/statements/change/Targets.h"
#include "practice/values/SqlError.h"
#include "practice/values/StorageForm.h"

namespace quillon::practice {

namespace {

using Values = std::vector<Datum>;

// The plan's statement yields whole rows: every stored column of the table.
class InsertPlan : public Plan {
  public:
    InsertColumns target;
    bool materialise = false; // it may read what it writes
    // Where the values are known without a query: the place of the first one among what the statement, which
    // then yields one row, has bound. 0 for a query.
    int firstGiven = 0;
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

// As many values as there are columns to give.
void RequireWidth(const tsql::InsertStatement& statement, const InsertColumns& target, std::size_t values) {
    const std::size_t wanted = target.columns.size();
    if (values != wanted)
        throw SqlError(!statement.hasColumns ? 213 : values < wanted ? 109 : 110);
}

std::string ValuesSql(Translator& translator, const InsertColumns& target,
                      const tsql::InsertStatement& statement) {
    std::string rows;
    for (const tsql::ExpressionList& row : statement.rows) {
        RequireWidth(statement, target, row.size());
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

// One row whose given values are bound, after what the defaults of the other columns need.
std::string GivenSql(Translator& translator, InsertPlan& plan, bool defaultForNull) {
    std::map<int, std::string> given;
    const auto placeFrom = [&](int first) {
        plan.firstGiven = first;
        for (const Column* column : plan.target.columns) {
            std::string& value = given[column->id];
            value = "?" + std::to_string(first++);
            if (defaultForNull && !column->identity)
                value = "COALESCE(" + value + ", " +
                        DefaultValueOf(translator, *plan.target.table, *column).sql + ")";
        }
        return "SELECT " + JoinSql(plan.target.Complete(translator, given));
    };
    placeFrom(1); // finds out what the defaults need
    return placeFrom(static_cast<int>(translator.needs.values.size()) + 1);
}

std::unique_ptr<InsertPlan> MakePlan(Engine& engine, const tsql::InsertStatement& statement,
                                     bool valuesKnown) {
    auto plan = std::make_unique<InsertPlan>();
    Translator translator(engine);
    if (!statement.with.empty())
        translator.PushCommonTables(statement.with);
    plan->target = BindInsert(translator, statement);
    std::string sql;
    if (valuesKnown)
        sql = GivenSql(translator, *plan,
                       statement.source == tsql::InsertSource::Bulk && !statement.bulk.keepNulls);
    else if (statement.source == tsql::InsertSource::Values)
        sql = ValuesSql(translator, plan->target, statement);
    else if (statement.source == tsql::InsertSource::Query)
        sql = QuerySqlFor(translator, plan->target, statement);
    else
        sql = "VALUES (" + JoinSql(plan->target.Complete(translator, {})) + ")";
    if (const std::string limit = TopSql(statement, translator); !limit.empty() && !valuesKnown)
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
    std::vector<Values> rows;
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

std::vector<Values> RowsOfCall(Engine& engine, const tsql::InsertStatement& statement) {
    Collector collected(engine.context.Sink());
    engine.context.RunForInsert(static_cast<const tsql::ExecuteStatement&>(*statement.execute), collected);
    return std::move(collected.rows);
}

// A value as its column holds it.
Datum ForColumn(Engine& engine, const InsertColumns& target, const Column& column, const Datum& value) {
    if (value.IsNull())
        return Datum::Null(column.type);
    if (engine.context.Options().ansiWarnings)
        return FitIntoColumn(engine, value, column.type, target.fullName, column.name);
    try {
        return Convert(value, column.type, engine.context.Functions().Options());
    } catch (const SqlError& error) {
        if (!engine.warnings.Replaces(error))
            throw;
        return Datum::Null(column.type);
    }
}

// Rows that come from a call or a client are known only when the statement runs.
bool IsBrought(const tsql::InsertStatement& statement) {
    return statement.source == tsql::InsertSource::Execute || statement.source == tsql::InsertSource::Bulk;
}

// What is wrong with the statement itself, whatever the values are.
void CheckKnown(const InsertColumns& target, const tsql::InsertStatement& statement,
                const std::vector<Values>& known) {
    const bool called = IsBrought(statement);
    for (const Values& values : known) {
        if (called && values.size() != target.columns.size())
            throw SqlError(213);
        RequireWidth(statement, target, values.size());
        for (std::size_t i = 0; i < values.size(); ++i) {
            if (called || !values[i].IsNull())
                target.RequireWritable(*target.columns[i]);
            if (!values[i].IsNull())
                RequireConversion(values[i].Type(), target.columns[i]->type, false);
        }
    }
}

// A whole row from the values that are known, of a call, of literals or of a client. The plan is bound.
StoredRow CompleteRow(Engine& engine, InsertPlan& plan, const Values& values) {
    for (std::size_t i = 0; i < values.size(); ++i) {
        const Column& column = *plan.target.columns[i];
        BindDatum(plan.statement.Handle(), plan.firstGiven + static_cast<int>(i),
                  ForColumn(engine, plan.target, column, values[i]), column.type);
    }
    engine.Step(plan.statement);
    StoredRow row = RowOf(plan.statement);
    plan.statement.Reset();
    return row;
}

std::vector<StoredRow> Complete(Engine& engine, InsertPlan& plan, const std::vector<Values>& known) {
    std::vector<StoredRow> rows;
    rows.reserve(known.size());
    plan.Bind(engine);
    for (const Values& values : known)
        rows.push_back(CompleteRow(engine, plan, values));
    return rows;
}

// Calls `use` for every row to insert.
template <class Use>
void ForEachRow(Engine& engine, InsertPlan& plan, const tsql::InsertStatement& statement,
                std::vector<StoredRow>& known, Use use) {
    if (statement.source == tsql::InsertSource::Bulk) {
        plan.Bind(engine);
        for (Values values; engine.context.NextBulkRow(values);) {
            CheckKnown(plan.target, statement, {values});
            StoredRow row = CompleteRow(engine, plan, values);
            use(row);
        }
        return;
    }
    if (plan.firstGiven > 0) {
        for (StoredRow& row : known)
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

std::uint64_t InsertInstead(Engine& engine, InsertPlan& plan, const tsql::InsertStatement& statement,
                            const std::shared_ptr<const Trigger>& trigger, std::vector<StoredRow>& known) {
    const InsertColumns& target = plan.target;
    const auto inserted = engine.rowSets.Take(*target.table, 'i');
    const auto deleted = engine.rowSets.Take(*target.table, 'd');
    ForEachRow(engine, plan, statement, known, [&](const StoredRow& row) {
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
    const std::string shape =
        engine.context.Options().rowCount == 0 ? ConstantShape(statement) : std::string();
    const bool bulk = statement.source == tsql::InsertSource::Bulk;
    const bool valuesKnown = IsBrought(statement) || !shape.empty();
    std::vector<Values> values;
    if (valuesKnown && !bulk)
        values = IsBrought(statement) ? RowsOfCall(engine, statement)
                                      : ConstantRows(statement, Translator(engine).DatabaseCollation());
    std::unique_ptr<tsql::Attachment>& slot =
        shape.empty() ? statement.attachment : engine.shapes.Slot(shape);
    const StoreSession::Written writes = KnownWrites(engine, slot, [&] {
        Translator translator(engine);
        const Target target = RequireTarget(translator, statement.target);
        return WritesOf(engine, statement, target.table.get());
    });
    StatementScope scope(engine, writes);
    PlanUse<InsertPlan> plan(engine, slot, [&] { return MakePlan(engine, statement, valuesKnown); });
    plan->writes = writes;
    const InsertColumns& target = plan->target;
    CheckKnown(target, statement, values);
    engine.begun = true;
    std::vector<StoredRow> known;
    if (valuesKnown && !bulk)
        known = Complete(engine, *plan, values);
    std::uint64_t count = 0;
    const bool fires = !bulk || (statement.bulk.fireTriggers && engine.context.HasBulkRows());
    const bool checks = !bulk || statement.bulk.checkConstraints;
    const auto instead = InsteadOfTrigger(engine, target.table->triggers, TriggerEvent::Insert);
    if (instead && fires) {
        count = InsertInstead(engine, *plan, statement, instead, known);
        scope.End();
        return {StatementKind::Insert, count};
    }
    CheckOutput(engine, statement, *target.table, {TriggerEvent::Insert});
    ChangeRun run(engine);
    RowChange& change = run.Start(target.table, TriggerEvent::Insert, "INSERT", !statement.output.empty());
    change.checksRows = checks;
    ForEachRow(engine, *plan, statement, known, [&](StoredRow& row) {
        GiveIdentity(engine, target, change.Writer(), row);
        if (!change.Insert(row))
            engine.context.Inform(3604, MessageText(3604));
        else
            ++count;
    });
    plan->statement.Reset();
    if (checks)
        run.CheckKeys();
    RunOutput(engine, statement, {&change}, run);
    if (checks)
        run.CheckKeys();
    if (fires)
        run.FireTriggers();
    scope.End();
    return {StatementKind::Insert, count};
}

void TryInsert(Engine& engine, const tsql::InsertStatement& statement) {
    MakePlan(engine, statement, false);
}

} // namespace quillon::practice
