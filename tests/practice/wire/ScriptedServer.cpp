#include "practice/wire/ScriptedServer.h"

namespace quillon::practice::testing {

ScriptedSession::ScriptedSession(const Script& script, std::atomic<int>& openSessions)
    : m_script(script)
    , m_openSessions(openSessions) {
    ++m_openSessions;
}

ScriptedSession::~ScriptedSession() {
    --m_openSessions;
}

void ScriptedSession::ExecuteBatch(std::string_view text, ResultSink& sink) {
    m_script.batch(std::string(text), sink, *this);
}

void ScriptedSession::ExecuteProcedure(const ProcedureCall& call, ResultSink& sink) {
    m_script.call(call, sink);
}

void ScriptedSession::LoadRows(const RowReader& rows, ResultSink& sink) {
    m_script.rows(rows, sink);
}

void ScriptedSession::Describe(std::string_view statement, std::string_view parameters, ResultSink& sink) {
    m_script.describe(std::string(statement), std::string(parameters), sink);
}

void ScriptedSession::RunTransactionRequest(const TransactionRequest& request, ResultSink& sink) {
    m_script.transaction(request, sink);
}

void ScriptedSession::Cancel() noexcept {
    std::lock_guard lock(m_mutex);
    m_cancelled = true;
    m_changed.notify_all();
}

void ScriptedSession::PrepareRequest() noexcept {
    m_cancelled = false;
}

void ScriptedSession::WaitForCancel() {
    std::unique_lock lock(m_mutex);
    m_changed.wait(lock, [&] { return m_cancelled.load(); });
}

void ScriptedSession::Reset(bool, ResultSink&) {
    ++resets;
}

std::unique_ptr<SqlSession> ScriptedServer::OpenSession(const LoginFacts& facts, ResultSink& sink) {
    lastLogin = facts;
    if (facts.database == "nowhere") {
        throw LoginRefused(
            Message(4060, 11, "Cannot open database \"nowhere\" requested by the login. The login failed."));
    }
    sink.Environment({EnvironmentChange::Kind::Database, "master", "master", 0});
    sink.Message(Message(5701, 10, "Changed database context to 'master'."));
    return std::make_unique<ScriptedSession>(script, openSessions);
}

tds::Authenticate OnlySa() {
    return [](const std::string& login, const std::string& password, const std::string*) {
        return login == "sa" && password == "Secret1!";
    };
}

void TellCount(ResultSink& sink, StatementKind kind, std::uint64_t count) {
    sink.Done({EndScope::Batch, kind, count, false});
}

void TellValue(ResultSink& sink, const std::string& name, const Datum& value, const SqlType& type) {
    ResultColumn column;
    column.name = name;
    column.type = type;
    sink.Columns({column});
    sink.Row(std::span<const Datum>(&value, 1));
    TellCount(sink, StatementKind::Select, 1);
}

ServerMessage Message(std::int32_t number, int severity, std::string text) {
    ServerMessage message;
    message.number = number;
    message.severity = static_cast<std::uint8_t>(severity);
    message.text = std::move(text);
    return message;
}

} // namespace quillon::practice::testing
