// Who may enter a database, and rights as other sessions see them.
#include "practice/session/Transcript.h"

#include <gtest/gtest.h>

namespace quillon::practice {
namespace {

int RefusalOf(TestServer& server, const std::string& database, const std::string& login) {
    try {
        server.Open(database, login);
    } catch (const LoginRefused& refused) {
        return refused.Refusal().number;
    }
    return 0;
}

TEST(Permissions, ALoginEntersWhereItHasAUserAndSystemDatabasesAsGuest) {
    TestServer server;
    const auto administrator = server.Open();
    EXPECT_EQ(Answer(*administrator, "CREATE LOGIN eve WITH PASSWORD = 'Secret-Word-1'; CREATE DATABASE own"),
              "");
    EXPECT_EQ(RefusalOf(server, "own", "eve"), 4060);
    EXPECT_EQ(Answer(*server.Open("", "eve"), "SELECT DB_NAME(), USER_NAME()"), "row master|guest\ndone 1\n");
    Answer(*administrator, "USE own; CREATE USER eve; CREATE TABLE t (a int)");
    const auto eve = server.Open("own", "EVE");
    EXPECT_EQ(Answer(*eve, "SELECT SUSER_SNAME(), ORIGINAL_LOGIN(), USER_NAME()"),
              "row eve|eve|eve\ndone 1\n");
    EXPECT_EQ(Answer(*server.Open("own", "SA"), "SELECT SUSER_SNAME(), USER_NAME()"), "row sa|dbo\ndone 1\n");
}

TEST(Permissions, TheLoginsOwnDatabaseServesAClientThatDoesNotInsistOnAnother) {
    TestServer server;
    LoginFacts facts;
    facts.login = "sa";
    facts.database = "nowhere";
    facts.databaseRequired = false;
    Transcript answer;
    const auto session = server.Open(facts, answer);
    EXPECT_NE(
        answer.text.find("error 4063 0 Cannot open database \"nowhere\" that was requested by the login. "
                         "Using the user default database \"master\" instead."),
        std::string::npos)
        << answer.text;
    EXPECT_EQ(Answer(*session, "SELECT DB_NAME()"), "row master\ndone 1\n");
}

TEST(Permissions, WhatIsGrantedAndTakenCountsAtOnceInOtherSessions) {
    TestServer server;
    const auto administrator = server.Open();
    Answer(*administrator, "CREATE LOGIN eve WITH PASSWORD = 'Secret-Word-1'; CREATE DATABASE own");
    Answer(*administrator, "USE own; CREATE USER eve; CREATE TABLE t (a int)");
    const auto eve = server.Open("own", "eve");
    const std::string question = "SELECT COUNT(*) FROM t";
    const std::string denied =
        "error 229 1 The SELECT permission was denied on the object 't', database 'own', "
        "schema 'dbo'.\n";
    EXPECT_EQ(Answer(*eve, question), denied);
    Answer(*administrator, "GRANT SELECT ON t TO eve");
    EXPECT_EQ(Answer(*eve, question), "row 0\ndone 1\n");
    Answer(*administrator, "DENY SELECT ON t TO eve");
    EXPECT_EQ(Answer(*eve, question), denied);
    // Who is shut out meanwhile is so from the next statement on that asks for anything.
    Answer(*administrator, "DROP USER eve");
    EXPECT_NE(Answer(*eve, question).find("error 916"), std::string::npos);
}

/// A database `own` with the table t and the user eve, who may do nothing yet.
std::unique_ptr<SqlSession> OpenWithEve(TestServer& server) {
    auto administrator = server.Open();
    Answer(*administrator, "CREATE LOGIN eve WITH PASSWORD = 'Secret-Word-1'; CREATE DATABASE own");
    EXPECT_EQ(Answer(*administrator, "USE own; CREATE USER eve; CREATE TABLE t (a int)").find("error"),
              std::string::npos);
    return administrator;
}

TEST(Permissions, TheColumnsOfAStatementAreToldToThoseAloneWhoMayRunIt) {
    TestServer server;
    const auto administrator = OpenWithEve(server);
    const auto eve = server.Open("own", "eve");
    Transcript told;
    eve->Describe("SELECT a FROM t", "", told);
    EXPECT_EQ(told.text.substr(0, 10), "error 229 ");
}

/// Calls the request off at its first message.
class CancellingTranscript : public Transcript {
  public:
    explicit CancellingTranscript(SqlSession& session)
        : m_session(session) {}
    void Message(const ServerMessage& message) override {
        Transcript::Message(message);
        m_session.Cancel();
    }

  private:
    SqlSession& m_session;
};

TEST(Permissions, ARequestThatIsCalledOffLeavesTheIdentityAsItWas) {
    TestServer server;
    const auto administrator = OpenWithEve(server);
    Answer(*administrator, "CREATE PROCEDURE waits WITH EXECUTE AS 'eve' AS\n"
                           "DECLARE @who sysname = USER_NAME() PRINT @who WAITFOR DELAY '01:00:00'");
    CancellingTranscript answer(*administrator);
    administrator->PrepareRequest();
    administrator->ExecuteBatch("EXEC waits", answer);
    EXPECT_EQ(answer.text, "info eve\n");
    EXPECT_EQ(Answer(*administrator, "SELECT USER_NAME(), SUSER_SNAME()"), "row dbo|sa\ndone 1\n");
}

TEST(Permissions, ALoginStaysAsLongAsSomebodyIsLoggedInWithIt) {
    TestServer server;
    const auto administrator = OpenWithEve(server);
    auto eve = server.Open("own", "eve");
    EXPECT_EQ(Answer(*administrator, "DROP LOGIN eve"),
              "error 15434 1 Could not drop login 'eve' as the user is currently logged in.\n");
    eve.reset();
    EXPECT_EQ(Answer(*administrator, "DROP LOGIN eve"), "");
}

} // namespace
} // namespace quillon::practice
