// A session on a store of its own, and what it answers as lines that a test can compare.
#pragma once

#include "practice/session/Accounts.h"
#include "practice/session/SqlSession.h"

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace quillon::practice {

/// `row a|b`, `info text`, `error number line text`, `done [count]`, `status n`, `out @name value`. A Done
/// that has nothing to tell is left out, and so are the columns.
class Transcript : public ResultSink {
  public:
    void Columns(const std::vector<ResultColumn>& columns) override;
    void Row(std::span<const Datum> values) override;
    void Done(const StatementEnd& end) override;
    void Message(const ServerMessage& message) override;
    void ReturnStatus(std::int32_t status) override;
    void OutputParameter(std::size_t ordinal, const std::string& name, const SqlType& type,
                         const Datum& value) override;
    void Environment(const EnvironmentChange& change) override;

    std::string text;
    std::size_t dones = 0;
    std::string ends; // a letter each: of a statement of the batch b, within a procedure i, of a call p
    std::vector<EnvironmentChange::Kind> changes;
};

/// A server in a folder that goes away with it.
class TestServer {
  public:
    TestServer();
    ~TestServer();
    TestServer(const TestServer&) = delete;
    TestServer& operator=(const TestServer&) = delete;

    std::unique_ptr<SqlSession> Open(const std::string& database = "tempdb", const std::string& login = "sa");
    /// With what the login itself answers; the session's number is given here.
    std::unique_ptr<SqlSession> Open(LoginFacts facts, Transcript& answer);

  private:
    std::filesystem::path m_folder;
    std::unique_ptr<Accounts> m_accounts;
    std::unique_ptr<SqlServer> m_server;
    std::uint16_t m_lastSpid = 50;
};

/// What the session answers to a batch.
std::string Answer(SqlSession& session, const std::string& batch);
/// What a session of its own answers to a batch.
std::string AnswerAlone(const std::string& batch);

} // namespace quillon::practice
