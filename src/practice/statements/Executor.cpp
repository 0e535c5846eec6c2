#include "practice/statements/Executor.h"

#include "practice/statements/Selecting.h"
#include "practice/statements/change/Targets.h"
#include "practice/statements/define/Definition.h"
#include "practice/statements/define/Modules.h"
#include "practice/statements/define/Tables.h"
#include "practice/storage/TableStorage.h"
#include "practice/values/SqlError.h"
#include "practice/values/StorageForm.h"

#include <sqlite3.h>

namespace quillon::practice {

Executor::Executor(StoreSession& store, ExecutionContext& context, const SystemViews* systemViews)
    : m_engine(std::make_unique<Engine>(store, context, systemViews)) {}

Executor::~Executor() = default;

namespace {

bool IsQueryOrChange(tsql::StatementKind kind) {
    return kind >= tsql::StatementKind::Select && kind <= tsql::StatementKind::Merge;
}

StatementOutcome RunQueryOrChange(Engine& engine, const tsql::Statement& statement) {
    switch (statement.kind) {
    case tsql::StatementKind::Select: return RunSelect(engine, tsql::As<tsql::SelectStatement>(statement));
    case tsql::StatementKind::Insert: return RunInsert(engine, tsql::As<tsql::InsertStatement>(statement));
    case tsql::StatementKind::Update: return RunUpdate(engine, tsql::As<tsql::UpdateStatement>(statement));
    case tsql::StatementKind::Delete: return RunDelete(engine, tsql::As<tsql::DeleteStatement>(statement));
    default: return RunMerge(engine, tsql::As<tsql::MergeStatement>(statement));
    }
}

// What another session defined between our look at the catalogue and at the file shows as SQLite not knowing
// a table; with the new catalogue the statement can be bound again.
bool IsStale(Engine& engine, const StoreFailure& failure, std::uint64_t seen) {
    return failure.code == SQLITE_ERROR && engine.store.View()->Version() != seen;
}

// An expression as a plan of its own: one row, one column.
std::unique_ptr<Plan> MakeExpression(Engine& engine, const tsql::Expression& expression,
                                     const SqlType* target, bool condition) {
    Translator translator(engine);
    auto plan = std::make_unique<Plan>();
    std::string sql;
    OutputColumn column;
    if (condition) {
        sql = translator.Condition(expression, nullptr);
        column.type = SimpleType(TypeId::Bit);
    } else {
        Scalar value = translator.Value(expression, nullptr);
        if (target != nullptr)
            value = translator.ConvertTo(std::move(value), *target);
        sql = value.sql;
        column.type = value.type;
        if (target != nullptr)
            column.type = *target;
    }
    plan->columns.push_back(column);
    plan->statement = Prepared(engine.Connection(), "SELECT " + sql, true);
    plan->needs = std::move(translator.needs);
    return plan;
}

Datum RunExpression(Engine& engine, const tsql::Expression& expression, const SqlType* target,
                    bool condition) {
    PlanUse<Plan> plan(engine, expression.attachment,
                       [&] { return MakeExpression(engine, expression, target, condition); });
    // One node may be asked for as different types.
    if (target != nullptr && !(plan->columns[0].type == *target)) {
        const std::unique_ptr<Plan> other = MakeExpression(engine, expression, target, condition);
        other->Bind(engine);
        engine.Step(other->statement);
        return LoadColumn(other->statement.Handle(), 0, *target);
    }
    LockReads(engine, plan->needs);
    plan->Bind(engine);
    engine.Step(plan->statement);
    if (condition)
        return Datum::Bit(!plan->statement.IsNull(0) && plan->statement.Integer(0) != 0);
    const SqlType& type = plan->columns[0].type;
    return plan->statement.IsNull(0) ? Datum::Null(type) : LoadColumn(plan->statement.Handle(), 0, type);
}

// What SQLite refuses in spite of our own checks (its limits on the size of statements, a full disk).
SqlError Refusal(const StoreFailure& failure) {
    static constexpr std::string_view deep[] = {"parser stack overflow", "Expression tree is too large"};
    const std::string_view text = failure.what();
    const auto starts = [&](std::string_view start) { return text.starts_with(start); };
    if (std::any_of(std::begin(deep), std::end(deep), starts))
        return SqlError(191);
    if (starts("at most 64 tables in a join"))
        return SqlError(106, {"64"});
    if (starts("too many FROM clause terms"))
        return SqlError(106, {"200"});
    if (starts("too many columns in result set"))
        return SqlError(1056, {"2000"});
    return SqlError::Custom(notSupportedNumber, 16, 1,
                            "The practice server could not run the statement: " + std::string(text) + ".");
}

// Such a refusal ends the statement, not the session.
template <class Body>
auto Reported(Body body) -> decltype(body()) {
    try {
        return body();
    } catch (const StoreFailure& failure) {
        throw Refusal(failure);
    }
}

Datum Value(Engine& engine, const tsql::Expression& expression, const SqlType* target, bool condition) {
    return engine.warnings.Around(
        [&] { return Reported([&] { return RunExpression(engine, expression, target, condition); }); });
}

StatementOutcome RunWithRetry(Engine& engine, const tsql::Statement& statement) {
    constexpr int attempts = 3;
    for (int attempt = 1;; ++attempt) {
        const std::uint64_t seen = engine.store.View()->Version();
        try {
            if (IsQueryOrChange(statement.kind))
                return RunQueryOrChange(engine, statement);
            RunDefinition(engine, statement);
            return {};
        } catch (const StoreFailure& failure) {
            if (attempt == attempts || !IsStale(engine, failure, seen))
                throw;
        }
    }
}

} // namespace

bool Executor::Handles(tsql::StatementKind kind) {
    return IsQueryOrChange(kind) || IsDefinition(kind);
}

StatementOutcome Executor::Execute(const tsql::Statement& statement) {
    // Statements of a trigger run inside of the one that fires it, which has begun by then and stays so.
    const bool around = m_engine->begun;
    m_engine->begun = false;
    const StatementOutcome outcome = m_engine->warnings.Around(
        [&] { return Reported([&] { return RunWithRetry(*m_engine, statement); }); });
    m_engine->begun = around;
    return outcome;
}

bool Executor::HasBegun() const {
    return m_engine->begun;
}

Datum Executor::Evaluate(const tsql::Expression& expression) {
    return Value(*m_engine, expression, nullptr, false);
}

Datum Executor::Evaluate(const tsql::Expression& expression, const SqlType& target) {
    return Value(*m_engine, expression, &target, false);
}

Datum Executor::Evaluate(BinaryOperator op, const Datum& left, const Datum& right, const SqlType& target) {
    return m_engine->warnings.Around([&] {
        const ConvertOptions options = m_engine->context.Functions().Options();
        try {
            const SqlType type = ResultType(op, left.Type(), right.Type());
            return ConvertForVariable(practice::Evaluate(op, left, right, type, options), target, options);
        } catch (const SqlError& error) {
            if (!m_engine->warnings.Replaces(error))
                throw;
            return Datum::Null(target);
        }
    });
}

bool Executor::IsTrue(const tsql::Expression& condition) {
    return Value(*m_engine, condition, nullptr, true).Integer() != 0;
}

std::unique_ptr<QueryReader> Executor::Open(const tsql::SelectStatement& statement, bool withRowIds) {
    return Reported([&] { return OpenReader(*m_engine, statement, withRowIds); });
}

std::vector<ResultColumn> Executor::Describe(const tsql::Statement& statement) {
    if (statement.kind == tsql::StatementKind::Select)
        return DescribeSelect(*m_engine, tsql::As<tsql::SelectStatement>(statement));
    return {};
}

void Executor::Bind(const tsql::Statement& statement) {
    using tsql::StatementKind;
    Engine& engine = *m_engine;
    switch (statement.kind) {
    case StatementKind::Select: return TrySelect(engine, tsql::As<tsql::SelectStatement>(statement));
    case StatementKind::Insert: return TryInsert(engine, tsql::As<tsql::InsertStatement>(statement));
    case StatementKind::Update: return TryUpdate(engine, tsql::As<tsql::UpdateStatement>(statement));
    case StatementKind::Delete: return TryDelete(engine, tsql::As<tsql::DeleteStatement>(statement));
    case StatementKind::Merge: return TryMerge(engine, tsql::As<tsql::MergeStatement>(statement));
    default: return;
    }
}

void Executor::Bind(const tsql::Expression& expression) {
    Translator translator(*m_engine);
    if (expression.IsCondition())
        translator.Condition(expression, nullptr);
    else
        translator.Value(expression, nullptr);
}

TriggerFrame Executor::PretendedFiring(const Trigger& trigger) {
    const auto parent = m_engine->store.View()->FindObject(trigger.parent);
    if (const auto view = std::dynamic_pointer_cast<const Module>(parent))
        return practice::PretendedFiring(*ViewModel(*view), !trigger.insteadOf);
    return practice::PretendedFiring(dynamic_cast<const Table&>(*parent), !trigger.insteadOf);
}

std::shared_ptr<const Table> Executor::CreateTableVariable(std::string_view name,
                                                           const tsql::TableDefinition& definition) {
    return practice::CreateTableVariable(*m_engine, name, definition);
}

std::shared_ptr<const Table> Executor::CreateTableVariable(std::string_view name, const Table& tableType) {
    auto table = std::make_shared<Table>(tableType);
    table->id = m_engine->store.Shared().NextObjectId();
    table->name = name;
    table->kind = ObjectKind::Table;
    table->database = tempDatabase;
    table->temporary = true;
    table->variable = true;
    return CreateTableObject(*m_engine, table);
}

void Executor::DropTable(const Table& table) noexcept {
    try {
        m_engine->store.Temporary().Remove(table.id);
        DropTableStorage(m_engine->Connection(), table);
    } catch (const std::exception&) {
        // It goes with the connection; nothing can name it any more.
    }
}

void Executor::DropTemporaryTables(int scope) noexcept {
    for (const std::shared_ptr<const Table>& table : m_engine->store.Temporary().Beyond(scope))
        DropTable(*table);
}

void Executor::DropSharedObjects() noexcept {
    StoreSession& store = m_engine->store;
    const std::vector<ObjectId> shared = store.TakeShared();
    if (shared.empty())
        return;
    constexpr int patience = 5000;
    const int before = store.LockTimeout();
    try {
        store.SetLockTimeout(patience);
        StatementScope scope(*m_engine, StoreSession::Writes::Data);
        for (const ObjectId id : shared)
            if (const auto table = store.View()->FindTable(id))
                DropTableObject(*m_engine, table);
            else if (store.View()->FindModule(id))
                store.Change([&](CatalogueEditor& editor) { editor.Drop(id); });
        scope.End();
    } catch (const std::exception&) {
        // tempdb is made anew when the server starts
    }
    store.SetLockTimeout(before);
}

Executor::ResolvedType Executor::ResolveType(const tsql::DataType& type, bool inCast) {
    Translator translator(*m_engine);
    ResolvedType resolved;
    if (!TypeFromName(type.name.Last())) {
        const auto object = translator.FindSourceObject(type.name);
        resolved.table = std::dynamic_pointer_cast<const Table>(object);
        if (object && (object->kind == ObjectKind::TableType || object->kind == ObjectKind::AliasType))
            resolved.userType = object->id;
        if (resolved.table && resolved.table->kind == ObjectKind::TableType)
            return resolved;
        resolved.table = nullptr;
    }
    resolved.type = translator.TypeOf(type, inCast);
    return resolved;
}

std::shared_ptr<const SchemaObject> Executor::FindObject(const tsql::Name& name) {
    return Translator(*m_engine).FindSourceObject(name);
}

std::shared_ptr<const tsql::Batch> Executor::ModuleTree(const Module& module) {
    return m_engine->ModuleTree(module);
}

} // namespace quillon::practice
