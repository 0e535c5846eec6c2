#include "practice/statements/Selecting.h"

#include "practice/statements/define/Tables.h"
#include "practice/values/SqlError.h"
#include "practice/values/StorageForm.h"

namespace quillon::practice {

namespace {

Translator::QueryOptions OptionsFor(Engine& engine, const tsql::SelectStatement& statement) {
    Translator::QueryOptions options;
    options.top = true;
    options.rowLimit = engine.context.Options().rowCount;
    for (const tsql::QueryHint& hint : statement.hints)
        if (hint.name == "MAXRECURSION" && hint.value)
            options.maxRecursion = *hint.value;
    return options;
}

bool Assigns(const tsql::SelectBody& body) {
    return std::any_of(body.items.begin(), body.items.end(), [](const tsql::SelectItem& item) {
        return item.kind == tsql::SelectItem::Kind::Assignment;
    });
}

QuerySql Translated(Translator& translator, const tsql::SelectStatement& statement, bool rowIds) {
    Translator::QueryOptions options = OptionsFor(translator.Shared(), statement);
    options.keepRowIds = rowIds;
    return Assigns(statement.First()) ? translator.AssignmentQuery(statement.query, options)
                                      : translator.Query(statement.query, nullptr, options);
}

std::unique_ptr<Plan> MakePlan(Engine& engine, const tsql::SelectStatement& statement, bool rowIds,
                               std::shared_ptr<const Table>* base = nullptr) {
    Translator translator(engine);
    QuerySql query = Translated(translator, statement, rowIds);
    auto plan = std::make_unique<Plan>();
    plan->statement = Prepared(engine.Connection(), query.sql, true);
    plan->needs = std::move(translator.needs);
    plan->columns = std::move(query.columns);
    if (base != nullptr)
        *base = query.base;
    return plan;
}

StatementOutcome RunAssignment(Engine& engine, const tsql::SelectStatement& statement) {
    PlanUse<Plan> plan(engine, statement.attachment, [&] { return MakePlan(engine, statement, false); });
    LockReads(engine, plan->needs);
    plan->Bind(engine);
    std::vector<Variable*> variables;
    for (const tsql::SelectItem& item : statement.First().items)
        variables.push_back(engine.context.FindVariable(item.variable));
    std::uint64_t count = 0;
    std::vector<Datum> row;
    while (engine.Step(plan->statement)) {
        ++count;
        LoadRow(plan->statement, plan->columns, row);
        for (std::size_t i = 0; i < row.size(); ++i)
            variables[i]->value = std::move(row[i]);
    }
    return {StatementKind::Select, count};
}

StatementOutcome RunInto(Engine& engine, const tsql::SelectStatement& statement) {
    const bool temporary = IsPrivateName(statement.First().into.Last());
    StatementScope scope(engine, temporary ? StoreSession::Writes::Temporary : StoreSession::Writes::Data);
    const std::unique_ptr<Plan> plan = MakePlan(engine, statement, false);
    plan->Bind(engine);
    const auto table = WithStorage(engine, CreateTableFor(engine, statement.First().into, plan->columns));
    std::string places;
    for (std::size_t i = 1; i <= plan->columns.size(); ++i)
        places += (i > 1 ? ", ?" : "?") + std::to_string(i);
    Prepared insert(engine.Connection(), "INSERT INTO " + table->storage + " VALUES(" + places + ")");
    const Column* identity = table->IdentityColumn();
    std::uint64_t count = 0;
    while (engine.Step(plan->statement)) {
        for (int i = 0; i < plan->statement.ColumnCount(); ++i)
            insert.BindValue(i + 1, plan->statement.Value(i));
        if (identity != nullptr)
            engine.store.Shared().Identities().Follow(table->id, *identity->identity,
                                                      plan->statement.Integer(identity->id - 1));
        insert.Run();
        ++count;
    }
    if (identity != nullptr && !table->temporary)
        engine.store.NoteIdentity(table->id);
    scope.End();
    return {StatementKind::SelectInto, count};
}

// Whether there is a first row. A client is told of the columns even when none can be had: the error comes
// after them.
bool FirstStep(Engine& engine, Plan& plan) {
    try {
        return engine.Step(plan.statement);
    } catch (const SqlError&) {
        engine.context.Sink().Columns(ResultColumns(plan.columns));
        throw;
    }
}

class Reader : public QueryReader {
  public:
    Reader(Engine& engine, std::unique_ptr<Plan> plan, std::shared_ptr<const Table> base)
        : m_engine(engine)
        , m_plan(std::move(plan))
        , m_base(std::move(base))
        , m_columns(ResultColumns(m_plan->columns)) {
        m_plan->Bind(engine);
    }
    const std::vector<ResultColumn>& Columns() const override { return m_columns; }
    bool Next(std::vector<Datum>& row) override {
        if (!m_engine.Step(m_plan->statement)) {
            m_engine.warnings.Tell();
            return false;
        }
        LoadRow(m_plan->statement, m_plan->columns, row);
        if (m_base)
            m_rowId = m_plan->statement.Integer(static_cast<int>(m_columns.size()));
        return true;
    }
    std::optional<CursorRow> Position() const override {
        return m_base ? std::optional(CursorRow{m_base->id, m_rowId}) : std::nullopt;
    }

  private:
    Engine& m_engine;
    std::unique_ptr<Plan> m_plan;
    std::shared_ptr<const Table> m_base;
    std::vector<ResultColumn> m_columns;
    std::int64_t m_rowId = 0;
};

} // namespace

std::vector<ResultColumn> ResultColumns(const std::vector<OutputColumn>& columns) {
    std::vector<ResultColumn> all;
    for (const OutputColumn& column : columns) {
        ResultColumn one;
        one.name = column.name;
        one.type = column.type;
        one.nullable = column.nullable;
        one.identity = column.identity;
        one.readOnly = column.readOnly;
        one.caseSensitive = column.type.collation != nullptr && column.type.collation->caseSensitive;
        one.tableName = column.tableName;
        all.push_back(std::move(one));
    }
    return all;
}

void LoadRow(const Prepared& statement, const std::vector<OutputColumn>& columns, std::vector<Datum>& row) {
    row.resize(columns.size());
    for (std::size_t i = 0; i < columns.size(); ++i)
        row[i] = LoadColumn(statement.Handle(), static_cast<int>(i), columns[i].type);
}

StatementOutcome RunSelect(Engine& engine, const tsql::SelectStatement& statement) {
    if (!statement.First().into.Empty())
        return RunInto(engine, statement);
    if (Assigns(statement.First()))
        return RunAssignment(engine, statement);
    PlanUse<Plan> plan(engine, statement.attachment, [&] { return MakePlan(engine, statement, false); });
    LockReads(engine, plan->needs);
    plan->Bind(engine);
    ResultSink& sink = engine.context.Sink();
    bool more = FirstStep(engine, *plan);
    sink.Columns(ResultColumns(plan->columns));
    std::uint64_t count = 0;
    std::vector<Datum> row;
    for (; more; more = engine.Step(plan->statement)) {
        LoadRow(plan->statement, plan->columns, row);
        sink.Row(row);
        ++count;
    }
    return {StatementKind::Select, count};
}

std::unique_ptr<QueryReader> OpenReader(Engine& engine, const tsql::SelectStatement& statement,
                                        bool withRowIds) {
    std::shared_ptr<const Table> base;
    std::unique_ptr<Plan> plan = MakePlan(engine, statement, withRowIds, &base);
    LockReads(engine, plan->needs);
    return std::make_unique<Reader>(engine, std::move(plan), base);
}

void TrySelect(Engine& engine, const tsql::SelectStatement& statement) {
    Translator translator(engine);
    Translated(translator, statement, false);
}

std::vector<ResultColumn> DescribeSelect(Engine& engine, const tsql::SelectStatement& statement) {
    if (!statement.First().into.Empty() || Assigns(statement.First()))
        return {};
    Translator translator(engine);
    return ResultColumns(translator.Query(statement.query, nullptr, OptionsFor(engine, statement)).columns);
}

} // namespace quillon::practice
