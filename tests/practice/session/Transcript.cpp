#include "practice/session/Transcript.h"

#include "practice/values/Convert.h"

#include <gtest/gtest.h>
#include <unistd.h>

namespace quillon::practice {

void Transcript::Columns(const std::vector<ResultColumn>&) {}

void Transcript::Row(std::span<const Datum> values) {
    text += "row ";
    for (std::size_t i = 0; i < values.size(); ++i)
        text += (i > 0 ? "|" : "") + (values[i].IsNull() ? std::string("NULL") : ToText(values[i]));
    text += "\n";
}

void Transcript::Done(const StatementEnd& end) {
    ++dones;
    ends += "bip"[static_cast<int>(end.scope)];
    if (end.count)
        text += "done " + std::to_string(*end.count) + "\n";
}

void Transcript::Message(const ServerMessage& message) {
    if (message.severity <= 10) {
        text += "info " + message.text + "\n";
        return;
    }
    text += "error " + std::to_string(message.number) + " " + std::to_string(message.line) + " ";
    if (!message.procedure.empty())
        text += "(" + message.procedure + ") ";
    text += message.text + "\n";
}

void Transcript::ReturnStatus(std::int32_t status) {
    text += "status " + std::to_string(status) + "\n";
}

void Transcript::OutputParameter(std::size_t, const std::string& name, const SqlType&, const Datum& value) {
    text += "out " + name + " " + (value.IsNull() ? std::string("NULL") : ToText(value)) + "\n";
}

void Transcript::Environment(const EnvironmentChange& change) {
    changes.push_back(change.kind);
}

TestServer::TestServer() {
    static int count = 0;
    m_folder = std::filesystem::temp_directory_path() /
               ("quillon-session-" + std::to_string(::getpid()) + "-" + std::to_string(++count));
    std::filesystem::create_directories(m_folder);
    std::filesystem::permissions(m_folder, std::filesystem::perms::owner_all);
    m_accounts = std::make_unique<Accounts>(m_folder / "logins");
    m_accounts->Create("sa", "secret", true);
    ServerOptions options;
    options.dataFolder = m_folder;
    options.ephemeral = true;
    options.accounts = m_accounts.get();
    m_server = OpenSqlServer(options);
}

TestServer::~TestServer() {
    m_server.reset();
    std::filesystem::remove_all(m_folder);
}

std::unique_ptr<SqlSession> TestServer::Open(const std::string& database, const std::string& login) {
    LoginFacts facts;
    facts.login = login;
    facts.hostName = "desk";
    facts.applicationName = "tests";
    facts.database = database;
    Transcript ignored;
    return Open(std::move(facts), ignored);
}

std::unique_ptr<SqlSession> TestServer::Open(LoginFacts facts, Transcript& answer) {
    facts.spid = ++m_lastSpid;
    return m_server->OpenSession(facts, answer);
}

std::string Answer(SqlSession& session, const std::string& batch) {
    Transcript transcript;
    session.PrepareRequest();
    session.ExecuteBatch(batch, transcript);
    EXPECT_GT(transcript.dones, 0U) << "every batch ends with a Done";
    return transcript.text;
}

std::string AnswerAlone(const std::string& batch) {
    static TestServer server;
    const auto session = server.Open();
    return Answer(*session, batch);
}

} // namespace quillon::practice
