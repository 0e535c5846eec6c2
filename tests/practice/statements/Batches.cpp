#include "Batches.h"

#include "practice/values/Convert.h"

#include <random>

namespace quillon::practice::test {

void Lines::Row(std::span<const Datum> values) {
    std::string line;
    for (std::size_t i = 0; i < values.size(); ++i)
        line += (i > 0 ? "|" : "") + (values[i].IsNull() ? std::string("NULL") : ToText(values[i]));
    lines.push_back(line);
}

void Lines::Done(const StatementEnd& end) {
    if (counts && end.count)
        lines.push_back("(" + std::to_string(*end.count) + ")");
}

void Lines::Message(const ServerMessage& message) {
    constexpr int changedDatabase = 5701;
    constexpr int terminated = 3621;
    if (message.number == changedDatabase || message.number == terminated)
        return;
    const bool error = message.severity > 10;
    lines.push_back(error ? "Msg " + std::to_string(message.number) + ": " + message.text : message.text);
}

TestServer::TestServer() {
    std::random_device chance;
    m_folder = std::filesystem::temp_directory_path() / ("quillon-statements-" + std::to_string(chance()));
    std::filesystem::create_directories(m_folder);
    m_accounts = std::make_unique<Accounts>(m_folder / "logins");
    m_accounts->Create("sa", "secret", true);
    ServerOptions options;
    options.dataFolder = m_folder;
    options.accounts = m_accounts.get();
    m_server = OpenSqlServer(options);
    Lines lines;
    Open()->ExecuteBatch("IF DB_ID('Work') IS NULL CREATE DATABASE Work", lines);
}

TestServer::~TestServer() {
    m_server.reset();
    std::error_code ignored;
    std::filesystem::remove_all(m_folder, ignored);
}

std::unique_ptr<SqlSession> TestServer::Open() {
    LoginFacts facts;
    facts.login = "sa";
    facts.spid = ++m_lastSession;
    Lines lines;
    std::unique_ptr<SqlSession> session = m_server->OpenSession(facts, lines);
    session->ExecuteBatch("USE Work", lines);
    return session;
}

std::string BatchTest::Run(SqlSession& session, std::string_view text, bool counts) {
    Lines lines;
    lines.counts = counts;
    std::size_t begin = 0;
    while (begin <= text.size()) {
        const std::size_t go = text.find("\nGO\n", begin);
        const std::size_t end = go == std::string_view::npos ? text.size() : go;
        session.ExecuteBatch(text.substr(begin, end - begin), lines);
        begin = go == std::string_view::npos ? text.size() + 1 : go + 4;
    }
    std::string all;
    for (const std::string& line : lines.lines)
        all += (all.empty() ? "" : "\n") + line;
    return all;
}

} // namespace quillon::practice::test
