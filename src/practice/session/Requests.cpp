#include "practice/session/Requests.h"

#include "practice/session/BulkScope.h"
#include "practice/session/FlowRunner.h"
#include "practice/session/Permitting.h"
#include "practice/session/SessionFunctions.h"
#include "practice/session/SetOptions.h"
#include "practice/session/Transactions.h"
#include "practice/session/Variables.h"
#include "practice/tsql/Parser.h"
#include "practice/values/SqlError.h"

namespace quillon::practice {

namespace {

/// Drivers may name the first procedure of a group: p;1.
std::string_view WithoutGroupNumber(std::string_view name) {
    return name.ends_with(";1") ? name.substr(0, name.size() - 2) : name;
}

std::vector<CallArgument> ArgumentsOf(const ProcedureCall& call) {
    std::vector<CallArgument> arguments;
    for (const CallParameter& parameter : call.parameters) {
        CallArgument argument;
        argument.name = parameter.name;
        argument.value = parameter.value;
        argument.output = parameter.output;
        argument.useDefault = parameter.useDefault;
        argument.rows = parameter.table;
        arguments.push_back(std::move(argument));
    }
    return arguments;
}

void SendOutputs(SessionSink& sink, const ProcedureCall& call, const std::vector<CallArgument>& arguments) {
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        if (!arguments[i].output)
            continue;
        const SqlType& type = arguments[i].value.Type().id == TypeId::Null ? call.parameters[i].type
                                                                           : arguments[i].value.Type();
        sink.OutputParameter(i, arguments[i].name, type, arguments[i].value);
    }
}

/// A frame for what a request runs, below all others.
std::unique_ptr<Frame> BaseFrame(std::shared_ptr<const tsql::Batch> tree) {
    auto frame = std::make_unique<Frame>();
    frame->kind = FrameKind::Batch;
    frame->tree = std::move(tree);
    return frame;
}

LoginRefused Refused(int number, std::string_view name) {
    const SqlError error(number, {name});
    ServerMessage message;
    message.number = error.number;
    message.severity = static_cast<std::uint8_t>(error.severity);
    message.state = static_cast<std::uint8_t>(error.state);
    message.text = error.text;
    return LoginRefused(std::move(message));
}

} // namespace

SessionOfRequests::SessionOfRequests(ServerParts& server, LoginFacts facts)
    : m_state(server, std::move(facts)) {
    m_state.now = PresentMoment();
    m_row.sessionId = m_state.facts.spid;
    m_row.login = m_state.facts.login;
    m_row.hostName = m_state.facts.hostName;
    m_row.programName = m_state.facts.applicationName;
    m_row.hostProcessId = static_cast<int>(m_state.facts.processId);
    m_row.loginTime = m_state.now;
    m_row.status = "sleeping";
}

SessionOfRequests::~SessionOfRequests() = default;

SessionRow SessionOfRequests::Row() const {
    SessionRow row;
    {
        const std::lock_guard lock(m_rowMutex);
        row = m_row;
    }
    row.settings = m_state.ShownSettings();
    return row;
}

void SessionOfRequests::End() const {
    if (m_state.facts.endConnection)
        m_state.facts.endConnection();
}

void SessionOfRequests::UseDatabase(const Database& database, int messageState) {
    m_state.database = database.id;
    m_state.TellDatabase();
    m_state.Inform(5701, MessageText(5701, {database.name}), 0, messageState);
}

const Database& SessionOfRequests::FirstDatabase(const std::string& loginDefault) {
    const auto open = [this](const std::string& name) {
        const Database* found = m_state.store.View()->FindDatabase(name);
        return found != nullptr && m_state.UserIn(*found) ? found : nullptr;
    };
    const std::string& wanted = m_state.facts.database;
    if (!wanted.empty()) {
        if (const Database* named = open(wanted))
            return *named;
        if (m_state.facts.databaseRequired)
            throw Refused(4060, wanted);
    }
    const Database* own = open(loginDefault);
    if (own == nullptr)
        throw Refused(4064, loginDefault);
    if (!wanted.empty())
        m_state.Tell(SqlError(4063, {wanted, own->name}));
    return *own;
}

void SessionOfRequests::LogIn(ResultSink& sink) {
    const RequestScope scope(m_state.sink, sink);
    const auto account = m_state.server.accounts.Find(m_state.facts.login);
    if (!account || account->disabled)
        throw Refused(18456, m_state.facts.login);
    m_state.facts.login = account->name; // as it is written there
    const Database& database = FirstDatabase(account->defaultDatabase);
    SetLoginDefaults(m_state,
                     m_state.facts.language.empty() ? account->defaultLanguage : m_state.facts.language);
    UseDatabase(database, 2);
    EnvironmentChange language;
    language.kind = EnvironmentChange::Kind::Language;
    language.newValue = m_state.language;
    m_state.sink.Environment(language);
    m_state.Inform(5703, MessageText(5703, {m_state.language}));
    const std::lock_guard lock(m_rowMutex);
    m_row.database = database.name;
}

/// Runs one request: what ends it early is told here, and its last Done is sent whatever happened.
template <class Work>
void SessionOfRequests::Serve(ResultSink& sink, Work work) {
    const RequestScope scope(m_state.sink, sink);
    m_state.now = PresentMoment();
    {
        const std::lock_guard lock(m_rowMutex);
        m_row.status = "running";
    }
    try {
        work();
    } catch (const BatchAborted&) { // told where it happened
    } catch (const Interrupted&) {  // the client asked for it and is told nothing
        m_state.store.ClearInterrupt();
        if (m_state.options.xactAbort && m_state.store.TransactionCount() > 0)
            RollbackTransaction(m_state, {});
    }
    EndDoomedTransaction(m_state);
    if (m_state.sink.WantsDone())
        m_state.sink.Done({EndScope::Batch, StatementKind::Other, std::nullopt, false});
    const std::lock_guard lock(m_rowMutex);
    m_row.status = "sleeping";
    m_row.database = m_state.DatabaseName();
    m_row.openTransactions = m_state.store.TransactionCount();
}

void SessionOfRequests::RunBatchText(std::string text) {
    tsql::ParseOptions options;
    options.quotedIdentifiers = m_state.options.quotedIdentifier;
    std::shared_ptr<const tsql::Batch> tree;
    try {
        tree = tsql::ParseBatch(std::move(text), options);
    } catch (const tsql::SyntaxErrors& errors) {
        m_state.error = errors.number;
        m_state.Tell(errors);
        for (const SqlError& other : errors.Others())
            m_state.Tell(other);
        m_state.Finish(StatementKind::Other, std::nullopt, true);
        return;
    }
    const FlowProgram program(tree->statements);
    const FrameScope frame(m_state, BaseFrame(tree));
    try {
        DeclareVariables(m_state, program);
    } catch (const SqlError& error) {
        FlowRunner(m_state).Handle(error);
        return;
    }
    FlowRunner(m_state).Run(program);
}

void SessionOfRequests::LoadRows(const RowReader& rows, ResultSink& sink) {
    Serve(sink, [&] {
        const std::shared_ptr<const tsql::Batch> tree = std::exchange(m_state.bulkTree, nullptr);
        const FlowProgram program(tree->statements);
        const FrameScope frame(m_state, BaseFrame(tree));
        const BulkScope loading(m_state, rows);
        FlowRunner(m_state).Run(program);
    });
}

void SessionOfRequests::ExecuteBatch(std::string_view text, ResultSink& sink) {
    m_state.bulkTree = nullptr;
    Serve(sink, [&] { RunBatchText(std::string(text)); });
}

void SessionOfRequests::Call(const ProcedureCall& call) {
    const FrameScope frame(m_state, BaseFrame(nullptr));
    StatementEnd end;
    end.scope = EndScope::Procedure;
    end.kind = StatementKind::Execute;
    end.failed = true;
    try {
        const auto name = tsql::ParseObjectName(WithoutGroupNumber(call.name));
        if (!name)
            throw SqlError(2812, {call.name}, 62);
        std::vector<CallArgument> arguments = ArgumentsOf(call);
        const int status = CallProcedure(m_state, *name, arguments);
        m_state.sink.ReturnStatus(status);
        SendOutputs(m_state.sink, call, arguments);
        end.failed = false;
    } catch (const SqlError& error) {
        FlowRunner(m_state).Handle(error);
    } catch (const BatchAborted&) { // told where it happened
    }
    m_state.sink.Done(end);
}

void SessionOfRequests::ExecuteProcedure(const ProcedureCall& call, ResultSink& sink) {
    Serve(sink, [&] { Call(call); });
}

void SessionOfRequests::DescribeText(const std::string& statement, const std::string& parameters) {
    const KeptText kept = ParseKept(m_state, statement, parameters);
    const FrameScope frame(m_state, BaseFrame(kept.tree));
    for (const tsql::Parameter& parameter : *kept.parameters)
        AddVariable(m_state, parameter.name, parameter.type);
    DeclareVariables(m_state, *kept.program);
    for (const tsql::StatementPtr& one : kept.tree->statements) {
        if (!Executor::Handles(one->kind))
            continue;
        RequireRights(m_state, *one);
        const std::vector<ResultColumn> columns = m_state.Statements().Describe(*one);
        if (columns.empty())
            continue;
        m_state.sink.Columns(columns);
        m_state.sink.Done({EndScope::Batch, StatementKind::Select, std::nullopt, false});
        return;
    }
}

void SessionOfRequests::Describe(std::string_view statement, std::string_view parameters, ResultSink& sink) {
    Serve(sink, [&] {
        try {
            DescribeText(std::string(statement), std::string(parameters));
        } catch (const SqlError& error) {
            m_state.Tell(error);
            m_state.Finish(StatementKind::Other, std::nullopt, true);
        }
    });
}

void SessionOfRequests::RunTransactionRequest(const TransactionRequest& request, ResultSink& sink) {
    Serve(sink, [&] {
        try {
            RunManagerRequest(m_state, request);
        } catch (SqlError& error) {
            error.line = std::max(error.line, 1);
            m_state.Tell(error);
            m_state.Finish(StatementKind::Other, std::nullopt, true);
        }
    });
}

void SessionOfRequests::Cancel() noexcept {
    m_state.store.Interrupt();
    const std::lock_guard lock(m_state.waitMutex);
    m_state.waitChanged.notify_all();
}

void SessionOfRequests::PrepareRequest() noexcept {
    m_state.store.ClearInterrupt();
}

void SessionOfRequests::Reset(bool keepTransaction, ResultSink& sink) {
    const RequestScope scope(m_state.sink, sink);
    if (!keepTransaction && m_state.store.TransactionCount() > 0)
        RollbackTransaction(m_state, {});
    m_state.globalCursors.clear();
    m_state.Statements().DropTemporaryTables(-1);
    m_state.store.Temporary().RemoveProcedures();
    if (!keepTransaction)
        m_state.Statements().DropSharedObjects();
    m_state.impersonations.clear();
    m_state.contextInfo.clear();
    m_state.sessionContext.clear();
    m_state.noExecute = false;
    m_state.formatOnly = false;
    m_state.error = 0;
    m_state.rowCount = 0;
    m_state.fetchStatus = 0;
    m_state.identity = Datum::Null(DecimalType(38, 0, TypeId::Numeric));
    m_state.isolation = "READ COMMITTED";
    m_state.store.SetLockTimeout(-1);
    m_state.store.SetDeadlockPriority(0);
    if (!keepTransaction)
        m_state.store.UnlockAllApplication();
    const auto account = m_state.server.accounts.Find(m_state.facts.login);
    SetLoginDefaults(m_state, m_state.facts.language.empty() && account ? account->defaultLanguage
                                                                        : m_state.facts.language);
    const std::string home =
        !m_state.facts.database.empty() || !account ? m_state.facts.database : account->defaultDatabase;
    const Database* database = m_state.store.View()->FindDatabase(home);
    if (database != nullptr && database->id != m_state.database)
        UseDatabase(*database, 1);
}

} // namespace quillon::practice
