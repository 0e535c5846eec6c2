// Settings, identities, logins and what is refused by name.
#include "practice/session/Transcript.h"

#include <gtest/gtest.h>

namespace quillon::practice {
namespace {

struct Script {
    const char* batch;
    const char* answer;
};

void PrintTo(const Script& script, std::ostream* out) {
    *out << script.batch;
}

class Services : public testing::TestWithParam<Script> {};

TEST_P(Services, AnswerAsDocumented) {
    TestServer server;
    const auto session = server.Open();
    Answer(*session, "CREATE TABLE t (a int IDENTITY (10, 5), b int)");
    EXPECT_EQ(Answer(*session, std::string("SET NOCOUNT ON\n") + GetParam().batch), GetParam().answer);
}

const Script kScripts[] = {
    {"DBCC CHECKIDENT ('t', RESEED, 100) WITH NO_INFOMSGS INSERT t VALUES (1) INSERT t VALUES (2) SELECT a "
     "FROM t",
     "row 100\nrow 105\n"},
    {"INSERT t VALUES (1) DBCC CHECKIDENT (t, RESEED, 50) WITH NO_INFOMSGS INSERT t VALUES (2) SELECT a FROM "
     "t",
     "row 10\nrow 55\n"},
    {"INSERT t VALUES (1) DBCC CHECKIDENT ('dbo.t', NORESEED)",
     "info Checking identity information: current identity value '10', current column value '10'.\n"
     "info DBCC execution completed. If DBCC printed error messages, contact your system administrator.\n"},
    {"SET IDENTITY_INSERT t ON INSERT t (a, b) VALUES (7, 1) SET IDENTITY_INSERT t OFF SELECT a FROM t",
     "row 7\n"},
    {"SET ROWCOUNT 2 SELECT a FROM (VALUES (1), (2), (3)) v (a)", "row 1\nrow 2\n"},
    {"SET DATEFORMAT dmy SELECT MONTH('01/02/2020')", "row 2\n"},
    {"SET CONTEXT_INFO 0x0102 SELECT CONVERT(varchar(6), SUBSTRING(CONTEXT_INFO(), 1, 2), 1)",
     "row 0x0102\n"},
    {"EXEC sp_set_session_context 'k', 'v' SELECT SESSION_CONTEXT(N'K')", "status 0\nrow v\n"},
    {"SET DATEFIRST 1 SELECT @@DATEFIRST, @@NESTLEVEL, @@TRANCOUNT, @@OPTIONS & 512", "row 1|0|0|512\n"},
    {"CREATE USER u WITHOUT LOGIN EXECUTE AS USER = 'u' PRINT USER_NAME() REVERT PRINT USER_NAME()",
     "info u\ninfo dbo\n"},
    {"EXECUTE AS USER = 'nobody'",
     "error 15517 2 Cannot execute as the database principal because the principal \"nobody\" does not "
     "exist, this "
     "type of principal cannot be impersonated, or you do not have permission.\n"},
    {"SELECT REPLICATE(CAST('x' AS varchar(max)), 1000000001) PRINT 'goes on'",
     "error 7119 2 Attempting to grow LOB beyond maximum allowed size of 1000000000 bytes.\ninfo goes on\n"},
    {"SELECT LEN(REPLICATE(CAST('xy' AS varchar(max)), 5000)), LEN(REPLICATE('xy', 5000))",
     "row 10000|8000\n"},
    {"SET LANGUAGE British PRINT @@LANGUAGE", "info Changed language setting to British.\ninfo British\n"},
};
INSTANTIATE_TEST_SUITE_P(Scripts, Services, testing::ValuesIn(kScripts));

TEST(Refusals, AreMadeByNameAndLeaveTheSessionUsable) {
    const char* const refused[] = {"BULK INSERT t FROM 'x'",
                                   "DBCC SHRINKFILE (1)",
                                   "SET STATISTICS IO ON",
                                   "EXEC xp_cmdshell 'dir'",
                                   "SET LANGUAGE Deutsch",
                                   "SET NUMERIC_ROUNDABORT ON",
                                   "SET ANSI_PADDING OFF CREATE TABLE p (a varchar(5)) SET ANSI_PADDING ON",
                                   "ALTER DATABASE CURRENT SET ENCRYPTION ON",
                                   "CREATE TABLE m (a int) WITH (MEMORY_OPTIMIZED = ON)",
                                   "INSERT t WITH (IGNORE_TRIGGERS) VALUES (1)"};
    TestServer server;
    const auto session = server.Open();
    for (const char* batch : refused)
        EXPECT_EQ(Answer(*session, batch).substr(0, 12), "error 49999 ") << batch;
    EXPECT_EQ(Answer(*session, "RESTORE DATABASE x FROM DISK = 'y' WITH REPLACE PRINT 'usable'"),
              "error 49999 1 Feature 'RESTORE DATABASE' is not supported by the practice server.\n"
              "info usable\n");
}

TEST(Refusals, ADatabaseKeepsACollationThatTellsItsNamesApart) {
    TestServer server;
    const auto session = server.Open();
    Answer(*session, "CREATE DATABASE d COLLATE Latin1_General_CS_AS");
    Answer(*session, "USE d");
    for (const auto& [make, drop] :
         {std::pair("CREATE TABLE t (a int, A int)", "DROP TABLE t"),
          std::pair("CREATE TABLE t (a int) CREATE TABLE T (a int)", "DROP TABLE t, T"),
          std::pair("CREATE TABLE t (a int CONSTRAINT T UNIQUE)", "DROP TABLE t"),
          std::pair("CREATE USER u WITHOUT LOGIN CREATE USER U WITHOUT LOGIN", "DROP USER u")}) {
        EXPECT_EQ(Answer(*session, make), "") << make;
        EXPECT_EQ(Answer(*session, "ALTER DATABASE d COLLATE Latin1_General_CI_AS").substr(0, 12),
                  "error 49999 ")
            << make;
        EXPECT_EQ(Answer(*session, drop), "") << drop;
    }
    EXPECT_EQ(Answer(*session, "ALTER DATABASE d COLLATE Latin1_General_CI_AS"), "");
    EXPECT_EQ(Answer(*session, "SELECT USER_ID('u') - USER_ID('U')"), "row 0\ndone 1\n");
}

TEST(Logins, AreMadeChangedAndDropped) {
    TestServer server;
    const auto session = server.Open();
    EXPECT_EQ(Answer(*session, "CREATE LOGIN ann WITH PASSWORD = 'p', DEFAULT_DATABASE = tempdb"), "");
    EXPECT_EQ(Answer(*session, "CREATE LOGIN ann WITH PASSWORD = 'p'").substr(0, 12), "error 15025 ");
    EXPECT_EQ(
        Answer(*session, "EXECUTE AS LOGIN = 'ann' PRINT SUSER_SNAME() CREATE LOGIN bob WITH PASSWORD = 'p'"),
        "info ann\nerror 15247 1 User does not have permission to perform this action.\n");
    EXPECT_EQ(Answer(*session, "REVERT DROP LOGIN ann"), "");
    EXPECT_EQ(Answer(*session, "DROP LOGIN ann").substr(0, 12), "error 15151 ");
}

TEST(Resets, MakeTheSessionAsNew) {
    TestServer server;
    const auto session = server.Open();
    Answer(*session, "CREATE TABLE #t (a int) SET NOCOUNT ON SET CONTEXT_INFO 0x01 BEGIN TRAN USE master");
    Transcript ignored;
    session->Reset(false, ignored);
    EXPECT_EQ(Answer(*session, "SELECT DB_NAME(), @@TRANCOUNT, OBJECT_ID('tempdb..#t'), CONTEXT_INFO()"),
              "row tempdb|0|NULL|NULL\ndone 1\n");
}

TEST(Cancels, EndTheRunningRequestAloneAndAreForgotten) {
    TestServer server;
    const auto session = server.Open();
    Transcript transcript;
    session->PrepareRequest();
    session->Cancel(); // as a client may at the very start of a request
    session->ExecuteBatch("PRINT 'a' WAITFOR DELAY '01:00:00' PRINT 'b'", transcript);
    EXPECT_EQ(transcript.text, "");
    EXPECT_EQ(Answer(*session, "PRINT 'next'"), "info next\n");
}

} // namespace
} // namespace quillon::practice
