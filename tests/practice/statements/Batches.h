// Runs batches in a session of a server of its own and writes down, as lines of text, what the client would
// see: a row as its values joined by '|', a count as "(n)", an error as "Msg n: text", a message as its text.
#pragma once

#include "practice/session/Accounts.h"
#include "practice/session/SqlSession.h"

#include <gtest/gtest.h>

namespace quillon::practice::test {

class Lines : public ResultSink {
  public:
    bool counts = false;
    std::vector<std::string> lines;
    std::vector<ResultColumn> columns;

    void Columns(const std::vector<ResultColumn>& told) override { columns = told; }
    void Row(std::span<const Datum> values) override;
    void Done(const StatementEnd& end) override;
    void Message(const ServerMessage& message) override;
    void ReturnStatus(std::int32_t) override {}
    void OutputParameter(std::size_t, const std::string&, const SqlType&, const Datum&) override {}
    void Environment(const EnvironmentChange&) override {}
};

// A server in a temporary folder with a database `Work`, and sessions in it.
class TestServer {
  public:
    TestServer();
    ~TestServer();
    std::unique_ptr<SqlSession> Open();

  private:
    std::filesystem::path m_folder;
    std::unique_ptr<Accounts> m_accounts;
    std::unique_ptr<SqlServer> m_server;
    std::uint16_t m_lastSession = 50;
};

class BatchTest : public ::testing::Test {
  protected:
    BatchTest()
        : m_session(m_server.Open()) {}

    // The lines that a batch answers; several batches are parted by lines that hold GO alone.
    std::string Run(std::string_view text) { return Run(*m_session, text); }
    static std::string Run(SqlSession& session, std::string_view text, bool counts = false);
    std::string RunCounted(std::string_view text) { return Run(*m_session, text, true); }
    TestServer& Server() { return m_server; }

  private:
    TestServer m_server;
    std::unique_ptr<SqlSession> m_session;
};

// One batch and what it answers.
struct Answer {
    const char* batch;
    const char* lines;
};

} // namespace quillon::practice::test
