// The flow of control, variables and messages, as a client sees them.
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

class Flow : public testing::TestWithParam<Script> {};

TEST_P(Flow, AnswersAsDocumented) {
    EXPECT_EQ(AnswerAlone(GetParam().batch), GetParam().answer);
}

const Script kControl[] = {
    {"PRINT 'a'", "info a\n"},
    {"DECLARE @i int = 0 WHILE @i < 5 BEGIN SET @i += 1 IF @i = 2 CONTINUE IF @i = 4 BREAK PRINT @i END",
     "info 1\ninfo 3\n"},
    {"IF 1 = NULL PRINT 'yes' ELSE PRINT 'unknown is not true'", "info unknown is not true\n"},
    {"IF 1 = 1 IF 1 = 2 PRINT 'a' ELSE PRINT 'inner else'", "info inner else\n"},
    {"GOTO b; a: PRINT 'a' GOTO c; b: PRINT 'b' GOTO a; c: PRINT 'c'", "info b\ninfo a\ninfo c\n"},
    {"DECLARE @i int = 0; again: SET @i += 1; IF @i < 3 GOTO again; PRINT @i", "info 3\n"},
    {"PRINT 'a' RETURN PRINT 'b'", "info a\n"},
    {"WHILE 1 = 1 BEGIN BEGIN TRY BREAK END TRY BEGIN CATCH END CATCH END PRINT 'out'", "info out\n"},
    {"IF 1 = 2 DECLARE @a int = 5; SELECT @a", "row NULL\ndone 1\n"},
    {"DECLARE @i int = 0 WHILE @i < 2 BEGIN DECLARE @n int SET @n = ISNULL(@n, 0) + 1 SET @i += 1 END PRINT "
     "@n",
     "info 2\n"},
    {"DECLARE @a varchar(3) = 'abcdef' PRINT @a SET @a += 'x' PRINT @a", "info abc\ninfo abc\n"},
    {"SELECT @@ROWCOUNT; SELECT 1 UNION ALL SELECT 2; SELECT @@ROWCOUNT",
     "row 0\ndone 1\nrow 1\nrow 2\ndone 2\nrow 2\ndone 1\n"},
    {"SET NOCOUNT ON SELECT 1", "row 1\n"},
    {"DECLARE @a int SELECT @a = 7 PRINT @a", "info 7\n"},
    {"SET NOEXEC ON PRINT 'not run' SET NOEXEC OFF PRINT 'run'", "info run\n"},
};
INSTANTIATE_TEST_SUITE_P(Control, Flow, testing::ValuesIn(kControl));

const Script kMessages[] = {
    {"SELECT SUM(a) FROM (VALUES (1), (NULL)) v (a)",
     "row 1\ninfo Warning: Null value is eliminated by an aggregate or other SET operation.\ndone 1\n"},
    {"SET ANSI_WARNINGS OFF SELECT 1 / a FROM (VALUES (0), (0)) v (a)",
     "row NULL\nrow NULL\ninfo Division by zero occurred.\ndone 2\n"},
    {"SET ANSI_WARNINGS OFF SET ARITHABORT ON SELECT 1 / 0 PRINT 'never'",
     "error 8134 1 Divide by zero error encountered.\n"},
    {"RAISERROR('low', 10, 1) PRINT @@ERROR", "info low\ninfo 0\n"},
    {"RAISERROR('low', 9, 1) WITH SETERROR PRINT @@ERROR", "info low\ninfo 50000\n"},
    {"PRINT 'a'\nRAISERROR('high %d', 16, 1, 5)\nPRINT @@ERROR",
     "info a\nerror 50000 2 high 5\ninfo 50000\n"},
    {"RAISERROR(12345, 16, 1)",
     "error 2732 1 Error number 12345 is invalid. The number must be from 13000 through "
     "2147483647 and it cannot be 50000.\n"},
    {"RAISERROR('x', 19, 1)",
     "error 2754 1 Error severity levels greater than 18 can only be specified by members "
     "of the sysadmin role, using the WITH LOG option.\n"},
    {"THROW 50001, 'thrown', 3;\nPRINT 'not reached'", "error 50001 1 thrown\n"},
    {"THROW 49999, 'x', 1",
     "error 35100 1 Error number 49999 in the THROW statement is outside the valid range. "
     "Specify an error number in the valid range of 50000 to 2147483647.\n"},
    {"WAITFOR DELAY '00:00:00.001' PRINT 'later'", "info later\n"},
    {"WAITFOR DELAY 'soon'", "error 148 1 Incorrect time syntax in time string 'soon' used with WAITFOR.\n"},
};
INSTANTIATE_TEST_SUITE_P(Messages, Flow, testing::ValuesIn(kMessages));

const Script kTry[] = {
    {"BEGIN TRY SELECT 1 / 0 END TRY BEGIN CATCH PRINT ERROR_NUMBER() PRINT ERROR_MESSAGE() END CATCH",
     "info 8134\ninfo Divide by zero error encountered.\n"},
    {"BEGIN TRY\nRAISERROR('x', 16, 2)\nEND TRY BEGIN CATCH SELECT ERROR_NUMBER(), ERROR_SEVERITY(), "
     "ERROR_STATE(), "
     "ERROR_LINE(), ERROR_PROCEDURE() END CATCH",
     "row 50000|16|2|2|NULL\ndone 1\n"},
    {"BEGIN TRY RAISERROR('information', 10, 1) PRINT 'still here' END TRY BEGIN CATCH PRINT 'caught' END "
     "CATCH",
     "info information\ninfo still here\n"},
    {"BEGIN TRY THROW 50001, 'inner', 1 END TRY BEGIN CATCH PRINT 'caught';\nTHROW END CATCH PRINT 'not "
     "reached'",
     "info caught\nerror 50001 1 inner\n"},
    {"BEGIN TRY BEGIN TRY THROW 50001, 'a', 1 END TRY BEGIN CATCH THROW 50002, 'b', 1 END CATCH END TRY "
     "BEGIN CATCH PRINT ERROR_MESSAGE() END CATCH PRINT ISNULL(ERROR_MESSAGE(), 'none')",
     "info b\ninfo none\n"},
    {"BEGIN TRY SELECT * FROM nosuch END TRY BEGIN CATCH PRINT 'not caught here' END CATCH PRINT 'nor "
     "reached'",
     "error 208 1 Invalid object name 'nosuch'.\n"},
    {"BEGIN TRY EXEC ('SELECT * FROM nosuch') END TRY BEGIN CATCH PRINT ERROR_NUMBER() END CATCH PRINT 'goes "
     "on'",
     "info 208\ninfo goes on\n"},
    {"THROW", "error 10704 1 To rethrow an error, a THROW statement must be used inside a CATCH block. "
              "Insert the THROW "
              "statement inside a CATCH block, or add error parameters to the THROW statement.\n"},
};
INSTANTIATE_TEST_SUITE_P(TryAndCatch, Flow, testing::ValuesIn(kTry));

const Script kPolicy[] = {
    {"SELECT 1 / 0\nPRINT 'goes on'", "error 8134 1 Divide by zero error encountered.\ninfo goes on\n"},
    {"SELECT CAST('x' AS int) PRINT 'not reached'",
     "error 245 1 Conversion failed when converting the varchar value 'x' to data type int.\n"},
    {"SELECT * FROM nosuch PRINT 'not reached'", "error 208 1 Invalid object name 'nosuch'.\n"},
    {"EXEC nosuch PRINT 'goes on'", "error 2812 1 Could not find stored procedure 'nosuch'.\ninfo goes on\n"},
    {"EXEC ('SELEC 1') PRINT 'goes on'",
     "error 2812 1 Could not find stored procedure 'SELEC'.\ninfo goes on\n"},
    {"EXEC ('PRINT 1 1') PRINT 'goes on'", "error 102 1 Incorrect syntax near '1'.\ninfo goes on\n"},
    {"SET XACT_ABORT ON SELECT 1 / 0 PRINT 'not reached'",
     "error 8134 1 Divide by zero error encountered.\n"},
    {"SET XACT_ABORT ON RAISERROR('x', 16, 1) PRINT 'goes on'", "error 50000 1 x\ninfo goes on\n"},
    {"CREATE TABLE #t (a int NOT NULL) INSERT #t VALUES (NULL) PRINT @@ERROR",
     "error 515 1 Cannot insert the value NULL into column 'a', table 'tempdb.dbo.#t'; column does not allow "
     "nulls. "
     "INSERT fails.\ninfo The statement has been terminated.\ninfo 515\n"},
};
INSTANTIATE_TEST_SUITE_P(Policy, Flow, testing::ValuesIn(kPolicy));

TEST(FlowTest, TheEndOfEachStatementIsToldSaveOfDeclarationsAndAssignments) {
    const Script scripts[] = {
        {"PRINT 'a' PRINT 'b'", "bb"},
        {"DECLARE @i int = 1 SET @i = 2 IF @i = 2 WHILE @i < 4 SET @i += 1", "b"},
        {"SET NOCOUNT ON SELECT 1 PRINT 'a' RAISERROR('b', 10, 1)", "bbbb"},
        {"USE master BEGIN TRAN CREATE TABLE ##ends(a int) INSERT ##ends VALUES (1) ROLLBACK", "bbbbb"},
        {"DECLARE @i int SELECT @i = 1", "b"},
        {"IF 1 = 0 PRINT 'a' ELSE BEGIN PRINT 'b' END GOTO c PRINT 'd' c: RETURN PRINT 'e'", "b"},
        {"RAISERROR('a', 16, 1) PRINT 'b' SELECT 1 / 0", "bbb"},
        {"EXEC('PRINT 1 DECLARE @i int SET @i = 1 SELECT 1') PRINT 'a'", "iipb"},
        {"SET NOCOUNT ON EXEC('PRINT 1 SELECT 1 PRINT 2')", "bip"},
        {"EXEC sp_executesql N'PRINT 1 EXEC(''PRINT 2'')'", "iiip"},
        {"BEGIN TRY PRINT 1 SELECT 1 / 0 END TRY BEGIN CATCH PRINT 2 END CATCH", "bbb"},
    };
    TestServer server;
    for (const Script& script : scripts) {
        const auto session = server.Open();
        Transcript transcript;
        session->PrepareRequest();
        session->ExecuteBatch(script.batch, transcript);
        EXPECT_EQ(transcript.ends, script.answer) << script.batch;
    }
}

} // namespace
} // namespace quillon::practice
