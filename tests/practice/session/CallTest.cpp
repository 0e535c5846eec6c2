// Procedures, functions, triggers and texts: arguments, outputs, scopes, nesting.
#include "practice/session/Transcript.h"

#include "practice/values/Convert.h"

#include <gtest/gtest.h>

namespace quillon::practice {
namespace {

struct Script {
    std::vector<const char*> batches; // of which the last one's answer counts
    const char* answer;
};

void PrintTo(const Script& script, std::ostream* out) {
    *out << script.batches.back();
}

class Calls : public testing::TestWithParam<Script> {};

TEST_P(Calls, AnswerAsDocumented) {
    TestServer server;
    const auto session = server.Open();
    std::string answer;
    for (const char* batch : GetParam().batches)
        answer = Answer(*session, batch);
    EXPECT_EQ(answer, GetParam().answer);
}

const Script kArguments[] = {
    {{"CREATE PROC p @a int, @b varchar(10) = 'x', @c int = NULL OUTPUT AS SET @c = @a * 2 PRINT @b RETURN 7",
      "DECLARE @r int, @o int EXEC @r = p 4, @c = @o OUTPUT PRINT @r PRINT @o"},
     "info x\nstatus 7\ninfo 7\ninfo 8\n"},
    {{"CREATE PROC p @a int AS PRINT @a", "EXEC p"},
     "error 201 0 (p) Procedure or function 'p' expects parameter '@a', which was not supplied.\n"},
    {{"CREATE PROC p @a int AS PRINT @a", "EXEC p 1, 2"},
     "error 8144 0 (p) Procedure or function p has too many arguments specified.\n"},
    {{"CREATE PROC p @a int AS PRINT @a", "EXEC p @b = 1"},
     "error 8145 0 (p) @b is not a parameter for procedure p.\n"},
    {{"CREATE PROC p AS PRINT 1", "EXEC p 1"},
     "error 8146 0 (p) Procedure p has no parameters and arguments were supplied.\n"},
    {{"CREATE PROC p @a int AS PRINT @a", "EXEC p 'x'"},
     "error 8114 0 (p) Error converting data type varchar to int.\n"},
    {{"CREATE PROC p @a nvarchar(20) AS PRINT @a", "EXEC p word"}, "info word\nstatus 0\n"},
    {{"DECLARE @n int EXEC sp_executesql N'SET @x = @y + 1', N'@x int OUTPUT, @y int', @x = @n OUTPUT, @y = "
      "4 PRINT @n"},
     "status 0\ninfo 5\n"},
    {{"EXEC sp_executesql N'PRINT @x', N'@x int'"},
     "error 8178 1 The parameterized query '(@x int)PRINT @x' expects the parameter '@x', which was not "
     "supplied.\n"},
    {{"EXEC sp_executesql 'PRINT 1'"},
     "error 214 1 Procedure expects parameter '@statement' of type 'ntext/nchar/nvarchar'.\n"},
};
INSTANTIATE_TEST_SUITE_P(Arguments, Calls, testing::ValuesIn(kArguments));

const Script kScopes[] = {
    {{"CREATE PROC p AS CREATE TABLE #t (a int) INSERT #t VALUES (1) SELECT a FROM #t",
      "EXEC p SELECT * FROM #t"},
     "done 1\nrow 1\ndone 1\nstatus 0\nerror 208 1 Invalid object name '#t'.\n"},
    {{"CREATE PROC p AS INSERT #t VALUES (5)", "CREATE TABLE #t (a int) EXEC p SELECT a FROM #t"},
     "done 1\nstatus 0\nrow 5\ndone 1\n"},
    {{"CREATE PROC p AS SET NOCOUNT ON SELECT 1", "EXEC p SELECT 2"}, "row 1\nstatus 0\nrow 2\ndone 1\n"},
    {{"EXEC ('USE master PRINT DB_NAME()') PRINT DB_NAME()"},
     "info Changed database context to 'master'.\ninfo master\ninfo tempdb\n"},
    {{"EXEC ('DECLARE @inner int') PRINT 'x'", "DECLARE @a int = 1 EXEC ('PRINT @a')"},
     "error 137 1 Must declare the scalar variable \"@a\".\n"},
    {{"CREATE PROC p AS SELECT * FROM later", "EXEC p PRINT 'goes on'"},
     "error 208 1 (p) Invalid object name 'later'.\nstatus -6\ninfo goes on\n"},
    {{"CREATE TABLE t (a int)", "CREATE PROC p AS\nSELECT nope FROM t\nUPDATE t SET no = 1"},
     "error 207 2 (p) Invalid column name 'nope'.\nerror 207 3 (p) Invalid column name 'no'.\n"},
    {{"CREATE PROC p AS EXEC p", "EXEC p"},
     "error 217 1 (p) Maximum stored procedure, function, trigger, or view nesting level exceeded (limit "
     "32).\n"},
    {{"CREATE PROC p AS BEGIN TRAN", "EXEC p PRINT @@TRANCOUNT"},
     "error 266 0 (p) Transaction count after EXECUTE indicates a mismatching number of BEGIN and COMMIT "
     "statements. "
     "Previous count = 0, current count = 1.\nstatus 0\ninfo 1\n"},
    {{"CREATE PROC p AS\n\nSELECT 1 / 0\nPRINT 'inside'", "EXEC p PRINT 'after'"},
     "error 8134 3 (p) Divide by zero error encountered.\ninfo inside\nstatus -6\ninfo after\n"},
    {{"CREATE PROC p AS\nRAISERROR('x', 16, 1)\nPRINT 'skipped'",
      "BEGIN TRY EXEC p END TRY BEGIN CATCH SELECT ERROR_PROCEDURE(), ERROR_LINE() END CATCH"},
     "row p|2\ndone 1\n"},
    {{"CREATE PROC p AS SELECT 1 AS a UNION SELECT 2",
      "CREATE TABLE #t (a int) INSERT #t EXEC p SELECT SUM(a) FROM #t"},
     "done 2\nrow 3\ndone 1\n"},
};
INSTANTIATE_TEST_SUITE_P(Scopes, Calls, testing::ValuesIn(kScopes));

const Script kFunctions[] = {
    {{"CREATE FUNCTION f (@n int) RETURNS int AS BEGIN IF @n <= 1 RETURN 1 RETURN @n * dbo.f(@n - 1) END",
      "SELECT dbo.f(5)"},
     "row 120\ndone 1\n"},
    {{"CREATE FUNCTION f () RETURNS int AS BEGIN DECLARE @a int = 1 / 0 RETURN @a END",
      "SELECT dbo.f() PRINT 'goes on'"},
     "error 8134 1 (f) Divide by zero error encountered.\ninfo goes on\n"},
};
INSTANTIATE_TEST_SUITE_P(Functions, Calls, testing::ValuesIn(kFunctions));

const Script kTriggers[] = {
    {{"CREATE TABLE t (a int)", "CREATE TRIGGER g ON t AFTER INSERT AS IF UPDATE(a) SELECT a FROM inserted",
      "INSERT t VALUES (3)"},
     "row 3\ndone 1\ndone 1\n"},
    {{"CREATE TABLE t (a int)", "CREATE TRIGGER g ON t AFTER INSERT AS ROLLBACK",
      "INSERT t VALUES (3) PRINT 'not reached'"},
     "error 3609 1 The transaction ended in the trigger. The batch has been aborted.\n"},
    {{"CREATE TABLE t (a int)", "CREATE TRIGGER g ON t AFTER INSERT AS\nRAISERROR('no', 16, 1)",
      "INSERT t VALUES (3) SELECT COUNT(*) FROM t"},
     "error 50000 2 (g) no\ndone 1\nrow 1\ndone 1\n"},
    {{"CREATE TABLE t (a int)", "CREATE TRIGGER g ON t AFTER INSERT AS SELECT 1 / 0",
      "INSERT t VALUES (3) PRINT 'not reached'"},
     "error 8134 1 (g) Divide by zero error encountered.\n"},
    {{"CREATE TABLE t (a int IDENTITY)", "CREATE TABLE u (b int IDENTITY(100, 1), c int)",
      "CREATE TRIGGER g ON t AFTER INSERT AS SET NOCOUNT ON INSERT u VALUES (1)",
      "SET NOCOUNT ON INSERT t DEFAULT VALUES SELECT SCOPE_IDENTITY(), @@IDENTITY"},
     "row 1|100\n"},
};
INSTANTIATE_TEST_SUITE_P(Triggers, Calls, testing::ValuesIn(kTriggers));

const Script kCursors[] = {
    {{"DECLARE c CURSOR FOR SELECT 1 AS a UNION ALL SELECT 2 OPEN c DECLARE @a int FETCH NEXT FROM c INTO @a "
      "WHILE @@FETCH_STATUS = 0 BEGIN PRINT @a FETCH c INTO @a END CLOSE c DEALLOCATE c"},
     "info 1\ninfo 2\n"},
    {{"DECLARE c SCROLL CURSOR FOR SELECT 1 AS a UNION ALL SELECT 2 UNION ALL SELECT 3 OPEN c FETCH LAST "
      "FROM c "
      "FETCH PRIOR FROM c FETCH ABSOLUTE -3 FROM c FETCH RELATIVE 1 FROM c FETCH RELATIVE 5 FROM c PRINT "
      "@@FETCH_STATUS"},
     "row 3\ndone 1\nrow 2\ndone 1\nrow 1\ndone 1\nrow 2\ndone 1\ndone 0\ninfo -1\n"},
    {{"OPEN nosuch"}, "error 16916 1 A cursor with the name 'nosuch' does not exist.\n"},
    {{"DECLARE c CURSOR FOR SELECT 1 AS a FETCH c"}, "error 16917 1 Cursor is not open.\n"},
    {{"DECLARE c CURSOR FOR SELECT 1 AS a DECLARE c CURSOR FOR SELECT 2 AS a"},
     "error 16915 1 A cursor with the name 'c' already exists.\n"},
    {{"DECLARE c CURSOR FOR SELECT 1 AS a OPEN c FETCH PRIOR FROM c"},
     "error 16911 1 fetch: The fetch type prior cannot be used with forward only cursors.\n"},
    {{"DECLARE c CURSOR FOR SELECT 1 AS a, 2 AS b OPEN c DECLARE @a int FETCH c INTO @a"},
     "error 16924 1 Cursorfetch: The number of variables declared in the INTO list must match that of "
     "selected "
     "columns.\n"},
    {{"CREATE TABLE t (a int)", "INSERT t VALUES (1), (2), (3)",
      "SET NOCOUNT ON DECLARE @a int DECLARE c CURSOR FOR SELECT a FROM t OPEN c FETCH c INTO @a FETCH c "
      "INTO @a "
      "UPDATE t SET a = 20 WHERE CURRENT OF c FETCH c INTO @a DELETE t WHERE CURRENT OF c SELECT a FROM t"},
     "row 1\nrow 20\n"},
    {{"DECLARE @c CURSOR SET @c = CURSOR FOR SELECT 5 AS a OPEN @c FETCH @c"}, "row 5\ndone 1\n"},
};
INSTANTIATE_TEST_SUITE_P(Cursors, Calls, testing::ValuesIn(kCursors));

TEST(RemoteCalls, ReturnStatusAndOutputs) {
    TestServer server;
    const auto session = server.Open();
    Answer(*session, "CREATE PROC p @a int, @b int OUTPUT AS SET @b = @a + 1 SELECT @a RETURN 3");
    ProcedureCall call;
    call.name = "dbo.p;1";
    CallParameter a;
    a.type = SimpleType(TypeId::Int);
    a.value = Datum::Int(4);
    CallParameter b;
    b.name = "@b";
    b.type = SimpleType(TypeId::Int);
    b.value = Datum::Null(b.type);
    b.output = true;
    call.parameters = {a, b};
    Transcript transcript;
    session->ExecuteProcedure(call, transcript);
    EXPECT_EQ(transcript.text, "row 4\ndone 1\nstatus 3\nout @b 5\n");

    call.name = "nosuch";
    Transcript missing;
    session->ExecuteProcedure(call, missing);
    EXPECT_EQ(missing.text, "error 2812 1 Could not find stored procedure 'nosuch'.\n");
}

struct TableCase {
    const char* procedure;
    TableArgument rows;
    const char* answer;
};

void PrintTo(const TableCase& one, std::ostream* out) {
    *out << one.answer;
}

class TableArguments : public testing::TestWithParam<TableCase> {};

// A table type's constraints and defaults hold for what a client sends.
TEST_P(TableArguments, FillTheirParameter) {
    TestServer server;
    const auto session = server.Open();
    Answer(*session, "CREATE TYPE pairs AS TABLE (id int IDENTITY, a smallint PRIMARY KEY CHECK (a < 100), "
                     "b varchar(5) DEFAULT 'd')");
    Answer(*session, "CREATE PROC p @rows pairs READONLY AS SET NOCOUNT ON SELECT id, a, b FROM @rows");
    Answer(*session, "CREATE PROC scalar @rows int AS SELECT @rows");
    ProcedureCall call;
    call.name = GetParam().procedure;
    CallParameter rows;
    rows.name = "@rows";
    rows.table = std::make_shared<TableArgument>(GetParam().rows);
    if (call.name == "sp_executesql")
        for (const char* text : {"SELECT SUM(a) FROM @rows", "@rows pairs READONLY"}) {
            CallParameter parameter;
            parameter.type = NVarChar(100);
            parameter.value = Datum::Text(parameter.type, text);
            call.parameters.push_back(parameter);
        }
    call.parameters.push_back(rows);
    Transcript transcript;
    session->ExecuteProcedure(call, transcript);
    EXPECT_EQ(transcript.text, GetParam().answer);
    EXPECT_EQ(Answer(*session, "SELECT COUNT(*) FROM sys.tables"), "row 0\ndone 1\n");
}

Datum Varchar(const char* text) {
    return Datum::Text(TextType(TypeId::VarChar, 20), text);
}

const TableCase kTables[] = {
    {"p",
     {"pairs",
      {true, false, false},
      {{Datum::Int(7), Varchar("x")}, {Datum::Int(8), Datum::Null(NVarChar(5))}}},
     "row 1|7|x\nrow 2|8|NULL\nstatus 0\n"},
    {"p", {"pairs", {true, false, true}, {{Datum::Int(7)}}}, "row 1|7|d\nstatus 0\n"},
    {"p",
     {"", {false, false, true}, {{Datum::Null(SimpleType(TypeId::Int)), Datum::Int(7)}}},
     "row 1|7|d\nstatus 0\n"},
    {"p", {}, "status 0\n"},
    {"sp_executesql",
     {"pairs", {true, false, true}, {{Datum::Int(7)}, {Datum::Int(8)}}},
     "row 15\ndone 1\nstatus 0\n"},
    {"p",
     {"pairs", {false, false, true}, {{Datum::Int(1), Datum::Int(7)}}},
     "error 1077 0 (p) INSERT into an identity column not allowed on table variables.\n"},
    {"p",
     {"pairs", {true, false}, {{Datum::Int(1)}}},
     "error 500 0 (p) Trying to pass a table-valued parameter with 2 column(s) where the corresponding "
     "user-defined table type requires 3 column(s).\n"},
    {"p",
     {"others", {true, false, true}, {{Datum::Int(7)}}},
     "error 206 0 (p) Operand type clash: others is incompatible with pairs\n"},
    {"scalar",
     {"pairs", {true, false, true}, {{Datum::Int(7)}}},
     "error 206 0 (scalar) Operand type clash: pairs is incompatible with int\n"},
};
INSTANTIATE_TEST_SUITE_P(Rows, TableArguments, testing::ValuesIn(kTables));

} // namespace
} // namespace quillon::practice
