// SessionOfRequests: the SqlSession that the wire drives: each request becomes a base frame, runs, and is
// told to its end whatever happens in it.
#pragma once

#include "practice/session/Calls.h"
#include "practice/session/SessionState.h"

namespace quillon::practice {

class SessionOfRequests : public SqlSession {
  public:
    SessionOfRequests(ServerParts& server, LoginFacts facts);
    ~SessionOfRequests() override;

    /// Picks the database and tells the client of it and of the language. Throws LoginRefused.
    void LogIn(ResultSink& sink);

    void ExecuteBatch(std::string_view text, ResultSink& sink) override;
    void ExecuteProcedure(const ProcedureCall& call, ResultSink& sink) override;
    bool AwaitsRows() const override { return m_state.bulkTree != nullptr; }
    void LoadRows(const RowReader& rows, ResultSink& sink) override;
    void Describe(std::string_view statement, std::string_view parameters, ResultSink& sink) override;
    void RunTransactionRequest(const TransactionRequest& request, ResultSink& sink) override;
    void MakeDurable() override { m_state.server.store.MakeDurable(); }
    void Cancel() noexcept override;
    void PrepareRequest() noexcept override;
    void Reset(bool keepTransaction, ResultSink& sink) override;

    /// The client's connection ends, and the session with it; from any thread.
    void End() const;
    /// For sp_who and its like; from any thread.
    SessionRow Row() const;

  private:
    template <class Work>
    void Serve(ResultSink& sink, Work work);
    void RunBatchText(std::string text);
    void Call(const ProcedureCall& call);
    void DescribeText(const std::string& statement, const std::string& parameters);
    /// Where the session begins: in the database that the client names or in the login's own. Throws
    /// LoginRefused.
    const Database& FirstDatabase(const std::string& loginDefault);
    void UseDatabase(const Database& database, int messageState);

    SessionState m_state;
    mutable std::mutex m_rowMutex;
    SessionRow m_row;
};

} // namespace quillon::practice
