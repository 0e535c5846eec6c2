#include "practice/session/Calls.h"

#include "practice/catalogue/SystemProcedures.h"
#include "practice/session/Ends.h"
#include "practice/session/FlowRunner.h"
#include "practice/session/Impersonating.h"
#include "practice/session/Permitting.h"
#include "practice/session/SessionState.h"
#include "practice/session/Transactions.h"
#include "practice/session/Variables.h"
#include "practice/tsql/Parser.h"
#include "practice/values/SqlError.h"

namespace quillon::practice {

namespace {

constexpr int kDeepestCall = 32;

/// What EXEC sys.q_name in a procedure of the system reaches.
class NativeCall : public NativeHost {
  public:
    explicit NativeCall(SessionState& session)
        : m_session(session) {}
    StoreSession& Store() override { return m_session.store; }
    DatabaseId CurrentDatabase() override { return m_session.database; }
    SchemaId DefaultSchema() override { return m_session.Context().DefaultSchema(); }
    void Inform(int messageNumber, std::string text) override {
        m_session.Inform(messageNumber, std::move(text));
    }

  private:
    SessionState& m_session;
};

int CallNative(SessionState& session, const Native& procedure, const std::vector<CallArgument>& arguments) {
    std::vector<Datum> values;
    for (const CallArgument& argument : arguments)
        values.push_back(argument.value);
    NativeCall host(session);
    if (!procedure.writes)
        return procedure.run(host, values);
    if (procedure.name != "q_raise" && procedure.name != "q_refuse")
        RequireOwner(session);
    if (procedure.forAdministrators && !session.IsAdministrator())
        throw SqlError(15247);
    const StoreSession::StatementMark mark = session.store.BeginStatement(StoreSession::Writes::Data);
    try {
        const int status = procedure.run(host, values);
        session.store.EndStatement(mark);
        return status;
    } catch (...) {
        session.store.UndoStatement(mark);
        throw;
    }
}

/// The parsed text of a procedure of the system, one for each session.
std::shared_ptr<const tsql::Batch> SystemTree(SessionState& session, const SystemProcedure& procedure) {
    KeptText& kept = session.keptTexts["\1" + std::string(procedure.name)];
    if (!kept.tree)
        kept.tree = tsql::ParseBatch(std::string(procedure.text));
    return kept.tree;
}

bool SystemMayOwn(const tsql::Name& name) {
    if (!name.Schema().empty() && !SameName(name.Schema(), "sys") && !SameName(name.Schema(), "dbo"))
        return false;
    return SameName(name.Schema(), "sys") || SameName(name.Last().substr(0, 3), "sp_") ||
           SameName(name.Last().substr(0, 3), "xp_");
}

/// An error of a procedure as a whole: it names the procedure, and line 0.
PassedError OutsideLines(SqlError error, const std::string& procedure) {
    error.procedure = procedure;
    error.line = 0;
    return PassedError(std::move(error), ErrorOrigin::Statement);
}

/// What RETURN gave; without it, an error in the procedure shows as a negative number.
int StatusOf(const Frame& frame) {
    constexpr int mostInformational = 10;
    if (frame.returned)
        return frame.returned->IsNull() ? 0 : static_cast<int>(frame.returned->Integer());
    return frame.failure == 0 ? 0 : mostInformational - frame.failure;
}

int RunProcedureTree(SessionState& session, std::unique_ptr<Frame> frame,
                     std::vector<CallArgument>& arguments) {
    const auto& statement = tsql::As<tsql::CreateProcedureStatement>(frame->tree->statements.front());
    const int before = session.store.TransactionCount();
    const std::string name = frame->name;
    const std::shared_ptr<const Module> module = frame->module;
    int status = 0;
    {
        const FrameScope scope(session, std::move(frame));
        if (module && !module->name.starts_with("#"))
            session.database = module->database; // the system's own and temporary ones run in their caller's
        session.options.quotedIdentifier = !module || module->quotedIdentifier;
        session.options.ansiNulls = !module || module->ansiNulls;
        try {
            BindArguments(session, statement.parameters, arguments, name);
        } catch (const SqlError& error) {
            throw OutsideLines(error, name);
        }
        if (module)
            ImpersonateForModule(session, *module);
        RunProgram(session, ProgramOf(*session.Top().tree->statements.front(), statement.body));
        TakeOutputs(session, statement.parameters, arguments);
        status = StatusOf(session.Top());
    }
    CheckTransactionCount(session, before, name);
    return status;
}

} // namespace

void CheckTransactionCount(SessionState& session, int before, const std::string& procedure) {
    const int after = session.store.TransactionCount();
    if (before == after)
        return;
    PassedError error(SqlError(266, {std::to_string(before), std::to_string(after)}, 2),
                      ErrorOrigin::Statement);
    error.procedure = procedure.empty() ? session.Top().name : procedure;
    error.line = procedure.empty() ? session.Top().line : 0;
    if (session.Top().guarded || session.Top().guardedOutside)
        throw error;
    session.Tell(error);
    session.Finish(StatementKind::Execute, std::nullopt, true);
    session.error = error.number;
}

FrameScope::FrameScope(SessionState& session, std::unique_ptr<Frame> frame)
    : m_session(session)
    , m_options(session.options)
    , m_isolation(session.isolation)
    , m_database(session.database)
    , m_impersonations(session.impersonations.size()) {
    frame->identities = session.frames.empty() ? 0 : m_impersonations;
    frame->scopeIdentity = Datum::Null(DecimalType(38, 0, TypeId::Numeric));
    if (!session.frames.empty()) {
        const Frame& caller = session.Top();
        if (caller.nestLevel >= kDeepestCall)
            throw SqlError(217, {std::to_string(kDeepestCall)});
        frame->nestLevel = caller.nestLevel + 1;
        frame->guardedOutside = caller.guarded || caller.guardedOutside;
    }
    session.frames.push_back(std::move(frame));
}

FrameScope::~FrameScope() {
    Frame& frame = m_session.Top();
    for (const auto& table : frame.ownTables)
        m_session.Statements().DropTable(*table);
    const bool outermost = m_session.frames.size() == 1;
    if (!outermost)
        m_session.Statements().DropTemporaryTables(frame.nestLevel - 1);
    frame.cursors.clear();
    m_session.frames.pop_back();
    if (outermost)
        return; // what a batch sets stays set
    m_session.options = m_options;
    m_session.isolation = std::move(m_isolation);
    m_session.database = m_database;
    auto& identities = m_session.impersonations;
    identities.erase(identities.begin() + static_cast<std::ptrdiff_t>(m_impersonations), identities.end());
}

const FlowProgram& ProgramOf(const tsql::Statement& module, const tsql::StatementList& body) {
    auto* program = dynamic_cast<FlowProgram*>(module.attachment.get());
    if (program == nullptr) {
        auto made = std::make_unique<FlowProgram>(body);
        program = made.get();
        module.attachment = std::move(made);
    }
    return *program;
}

void RunProgram(SessionState& session, const FlowProgram& program) {
    DeclareVariables(session, program);
    FlowRunner(session).Run(program);
}

int CallProcedure(SessionState& session, const tsql::Name& name, std::vector<CallArgument>& arguments) {
    if (const auto status = CallSessionProcedure(session, name, arguments))
        return *status;
    auto frame = std::make_unique<Frame>();
    frame->kind = FrameKind::Procedure;
    if (SystemMayOwn(name)) {
        if (const SystemProcedure* procedure = FindSystemProcedure(name.Last())) {
            frame->name = procedure->name;
            frame->tree = SystemTree(session, *procedure);
            return RunProcedureTree(session, std::move(frame), arguments);
        }
        // Only the system's own procedures may reach what lies under them.
        const bool inside = session.Top().kind == FrameKind::Procedure && !session.Top().module;
        if (inside) {
            if (const Native* native = FindNativeProcedure(name.Last()))
                return CallNative(session, *native, arguments);
        }
    }
    const auto module = std::dynamic_pointer_cast<const Module>(session.Statements().FindObject(name));
    if (!module || module->kind != ObjectKind::Procedure)
        throw SqlError(2812, {name.Text()}, 62);
    RequireRight(session, "EXECUTE", *module);
    frame->module = module;
    frame->name = module->name;
    frame->tree = session.Statements().ModuleTree(*module);
    return RunProcedureTree(session, std::move(frame), arguments);
}

namespace {

void RunTriggerBody(SessionState& session, const Trigger& trigger, const TriggerFrame& firing) {
    auto frame = std::make_unique<Frame>();
    frame->kind = FrameKind::Trigger;
    frame->name = trigger.name;
    frame->module = std::dynamic_pointer_cast<const Module>(session.store.View()->FindObject(trigger.id));
    frame->tree = session.Statements().ModuleTree(trigger);
    frame->trigger = &firing;
    const auto& statement = tsql::As<tsql::CreateTriggerStatement>(frame->tree->statements.front());
    const FrameScope scope(session, std::move(frame));
    session.database = trigger.database;
    session.options.quotedIdentifier = trigger.quotedIdentifier;
    session.options.ansiNulls = trigger.ansiNulls;
    session.options.xactAbort = true; // an error in a trigger takes the transaction with it
    session.rowCount = firing.rowCount;
    ImpersonateForModule(session, trigger);
    RunProgram(session, ProgramOf(*session.Top().tree->statements.front(), statement.body));
}

} // namespace

void RunTrigger(SessionState& session, const Trigger& trigger, const TriggerFrame& firing) {
    RunTriggerBody(session, trigger, firing);
    if (!session.store.Doomed())
        return;
    // An error that the trigger caught has left a transaction that nobody can commit.
    RollbackTransaction(session, {});
    throw SqlError(3616);
}

namespace {

/// Runs a function's body in its frame, already on the stack, with the arguments in its parameters.
void RunFunctionBody(SessionState& session, const Module& function,
                     const tsql::CreateFunctionStatement& statement, std::span<const Datum> arguments) {
    session.database = function.database;
    session.options.quotedIdentifier = function.quotedIdentifier;
    session.options.ansiNulls = function.ansiNulls;
    session.options.noCount = true; // the client hears nothing of what runs inside of an expression
    std::vector<CallArgument> given;
    for (const Datum& argument : arguments) {
        CallArgument one;
        one.value = argument;
        one.useDefault = argument.Type().id == TypeId::Null;
        given.push_back(std::move(one));
    }
    BindArguments(session, statement.parameters, given, function.name);
    ImpersonateForModule(session, function);
    RunProgram(session, ProgramOf(*session.Top().tree->statements.front(), statement.body));
}

std::unique_ptr<Frame> FunctionFrame(SessionState& session, const Module& function) {
    auto frame = std::make_unique<Frame>();
    frame->kind = FrameKind::Function;
    frame->name = function.name;
    frame->module = std::dynamic_pointer_cast<const Module>(session.store.View()->FindObject(function.id));
    frame->tree = session.Statements().ModuleTree(function);
    return frame;
}

/// What a statement left behind must not change because a function ran inside of it.
class KeptCounters {
  public:
    explicit KeptCounters(SessionState& session)
        : m_session(session)
        , m_rowCount(session.rowCount)
        , m_error(session.error)
        , m_fetchStatus(session.fetchStatus) {}
    ~KeptCounters() {
        m_session.rowCount = m_rowCount;
        m_session.error = m_error;
        m_session.fetchStatus = m_fetchStatus;
    }
    KeptCounters(const KeptCounters&) = delete;
    KeptCounters& operator=(const KeptCounters&) = delete;

  private:
    SessionState& m_session;
    std::int64_t m_rowCount;
    int m_error;
    int m_fetchStatus;
};

} // namespace

Datum CallScalarFunction(SessionState& session, const Module& function, std::span<const Datum> arguments) {
    std::unique_ptr<Frame> frame = FunctionFrame(session, function);
    const auto& statement = tsql::As<tsql::CreateFunctionStatement>(frame->tree->statements.front());
    const SqlType type = function.returns.value();
    if (statement.returnsNullOnNullInput &&
        std::any_of(arguments.begin(), arguments.end(), [](const Datum& value) { return value.IsNull(); }))
        return Datum::Null(type);
    const KeptCounters counters(session);
    const FrameScope scope(session, std::move(frame));
    RunFunctionBody(session, function, statement, arguments);
    const auto& returned = session.Top().returned;
    return returned ? ConvertForVariable(*returned, type, session.Functions().Options()) : Datum::Null(type);
}

void RunTableFunction(SessionState& session, const Module& function, std::span<const Datum> arguments,
                      const std::shared_ptr<const Table>& result) {
    std::unique_ptr<Frame> frame = FunctionFrame(session, function);
    const auto& statement = tsql::As<tsql::CreateFunctionStatement>(frame->tree->statements.front());
    Variable rows;
    rows.table = result;
    frame->variables[FoldName(statement.tableVariable)] = std::move(rows);
    const KeptCounters counters(session);
    const FrameScope scope(session, std::move(frame));
    RunFunctionBody(session, function, statement, arguments);
}

} // namespace quillon::practice
