// A server without an engine: what each request answers is a function that the test gives. It notes what it
// was asked.
#pragma once

#include "practice/session/SqlSession.h"
#include "practice/tds/Dialogue.h"

#include <atomic>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <string>
#include <vector>

namespace quillon::practice::testing {

class ScriptedSession;

struct Script {
    std::function<void(const std::string&, ResultSink&, ScriptedSession&)> batch;
    std::function<void(const ProcedureCall&, ResultSink&)> call;
    std::function<void(const std::string&, const std::string&, ResultSink&)> describe;
    std::function<void(const RowReader&, ResultSink&)> rows;
    std::function<void(const TransactionRequest&, ResultSink&)> transaction;
};

class ScriptedSession : public SqlSession {
  public:
    ScriptedSession(const Script& script, std::atomic<int>& openSessions);
    ~ScriptedSession() override;

    void ExecuteBatch(std::string_view text, ResultSink& sink) override;
    void ExecuteProcedure(const ProcedureCall& call, ResultSink& sink) override;
    bool AwaitsRows() const override { return true; }
    void LoadRows(const RowReader& rows, ResultSink& sink) override;
    void Describe(std::string_view statement, std::string_view parameters, ResultSink& sink) override;
    void RunTransactionRequest(const TransactionRequest& request, ResultSink& sink) override;
    void MakeDurable() override {}
    void Cancel() noexcept override;
    void PrepareRequest() noexcept override;
    void Reset(bool keepTransaction, ResultSink& sink) override;

    bool Cancelled() const { return m_cancelled; }
    // Blocks as a long statement does, until Cancel.
    void WaitForCancel();
    int resets = 0;

  private:
    const Script& m_script;
    std::atomic<int>& m_openSessions;
    std::atomic<bool> m_cancelled = false;
    std::mutex m_mutex;
    std::condition_variable m_changed;
};

class ScriptedServer : public SqlServer {
  public:
    std::unique_ptr<SqlSession> OpenSession(const LoginFacts& facts, ResultSink& sink) override;

    Script script;
    LoginFacts lastLogin; // written by the connection's thread before the client hears of its login
    std::atomic<int> openSessions = 0;
};

// The login sa with the password "Secret1!" and no other.
tds::Authenticate OnlySa();

// Helpers for scripts.
void TellCount(ResultSink& sink, StatementKind kind, std::uint64_t count);
void TellValue(ResultSink& sink, const std::string& name, const Datum& value, const SqlType& type);
ServerMessage Message(std::int32_t number, int severity, std::string text);

} // namespace quillon::practice::testing
