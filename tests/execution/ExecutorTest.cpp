// What a script run makes of what the server answers.
#include "execution/clsExecuteSQLScript.h"

#include "ExecutionTest.h"

namespace quillon::tests {
namespace {

const Failure Refused(numbers::DataAccess, "refused");

data::Error Message(std::int32_t number, std::string text) {
    return {number, "[Microsoft][ODBC SQL Server Driver][SQL Server]" + std::move(text), "42000"};
}

class ExecutorTest : public ExecutionTest {
  protected:
    ExecutorTest() {
        connection = data.NewConnection();
        connection->Open("Server=PRACTICE;Database=pubs;");
    }

    Lines Run(const std::string& script) {
        clsExecuteSQLScript executor;
        executor.SetConnection(connection);
        executor.SetScript(script);
        executor.Execute();
        return executor.Results();
    }

    data::ConnectionRef connection;
};

TEST_F(ExecutorTest, AResultGivesHeaderRowsAndCount) {
    data.Answer(
        "s", {{{{"id", "a name"}, {{Value(std::int32_t{1}), "x"}, {Value(std::int32_t{2}), NullValue{}}}}}});
    EXPECT_EQ(Run("s"), (Lines{
                            Padded("id") + " " + Padded("a name"),
                            std::string(61, '-'),
                            Padded("1") + " " + Padded("x") + " ",
                            Padded("2") + " " + Padded("NULL") + " ",
                            "(2 row(s) affected)",
                        }));
}

TEST_F(ExecutorTest, AResultWithoutRowsIsShown) {
    data.Answer("s", {{{{"id"}, {}}}});
    EXPECT_EQ(Run("s"), (Lines{Padded("id"), std::string(30, '-'), "(0 row(s) affected)"}));
}

// Thirty characters, however many bytes they take.
TEST_F(ExecutorTest, ValuesAndNamesTakeThirtyCharacters) {
    const std::string wide = "äöü" + std::string(28, 'x');
    data.Answer("s", {{{{wide}, {{wide}, {"é"}}}}});
    EXPECT_EQ(Run("s"), (Lines{
                            wide.substr(0, wide.size() - 1),
                            std::string(30, '-'),
                            wide.substr(0, wide.size() - 1) + " ",
                            "é" + std::string(29, ' ') + " ",
                            "(2 row(s) affected)",
                        }));
}

TEST_F(ExecutorTest, ARefusedBatchGivesItsErrorsAndTheRunGoesOn) {
    FakeAnswer refused(Refused);
    refused.Messages = {Message(208, "Invalid object name 'x'."), {0, "Plain text", "01000"}};
    data.Answer("a\n", refused);
    data.Answer("\nb\n", {{One("n", "2")}});
    EXPECT_EQ(Run("a\nGO\nb\nGO"),
              (Lines{"Server: Msg 208", "Invalid object name 'x'.", "Plain text", Padded("n"),
                     std::string(30, '-'), Padded("2") + " ", "(1 row(s) affected)"}));
}

TEST_F(ExecutorTest, OnlyTheFirstResultWithoutRowsTellsItsMessages) {
    FakeAnswer answer({{}, One("n", "1"), {}});
    answer.Messages = {{0, "[Microsoft][ODBC SQL Server Driver][SQL Server]Done.", "01000"}};
    data.Answer("s", answer);
    EXPECT_EQ(Run("s"),
              (Lines{"Done.", Padded("n"), std::string(30, '-'), Padded("1") + " ", "(1 row(s) affected)"}));
}

TEST_F(ExecutorTest, AStatementWithoutRowsGivesNoLine) {
    data.Answer("UPDATE t", FakeAnswer({FakeResult{}}));
    EXPECT_EQ(Run("UPDATE t"), Lines{});
}

// The walk begins anew on the result where it stands: its rows are read, so the header comes again alone.
TEST_F(ExecutorTest, AFailureBetweenResultsRestartsTheWalkThere) {
    FakeAnswer answer({One("n", "1"), {}});
    answer.Messages = {Message(50000, "late")};
    data.Answer("s", answer);
    plan.FailAt("Recordset.NextRecordset", 1, Refused);
    EXPECT_EQ(Run("s"),
              (Lines{Padded("n"), std::string(30, '-'), Padded("1") + " ", "(1 row(s) affected)", Padded("n"),
                     std::string(30, '-'), "(0 row(s) affected)", "Server: Msg 50000", "late"}));
}

TEST_F(ExecutorTest, AWalkThatNeverGetsFurtherIsGivenUpAndReported) {
    data.Answer("s", FakeAnswer({FakeResult{}}));
    plan.FailAlways("Recordset.NextRecordset", Refused);
    frontEnd.ExpectFailure("refused");
    EXPECT_EQ(Run("s"), Lines{});
    EXPECT_TRUE(g_objTrace->Chain().empty());
}

TEST_F(ExecutorTest, BatchesGoOutAsTheyStandAndEmptyOnesDoNot) {
    data.Answer("\r\n", {});
    Run("GO\r\nGO\r\nGO");
    EXPECT_EQ(data.Data().Statements, (Lines{"\r\n", "\r\n"}));
}

TEST_F(ExecutorTest, ASecondRunStartsAnew) {
    data.Answer("s", {{One("n", "1")}});
    clsExecuteSQLScript executor;
    EXPECT_TRUE(executor.Results().empty());
    executor.SetConnection(connection);
    executor.SetScript("s");
    executor.Execute();
    executor.Execute();
    EXPECT_EQ(executor.Results().size(), 4u);
}

TEST_F(ExecutorTest, ItsOwnConnectionHasTheOdbcFormAndFailuresOfItTravel) {
    clsExecuteSQLScript executor;
    EXPECT_TRUE(executor.CreateODBCConnection("S", "db", "", ""));
    EXPECT_EQ(data.Data().Opened.back(), "Driver={SQL Server};Server=S;Database=db;Uid=;Pwd=;");
    plan.FailAlways("Connection.Open", Refused);
    EXPECT_THROW(clsExecuteSQLScript().CreateODBCConnection("S", "db", "", ""), Failure);
}

TEST_F(ExecutorTest, EveryOccurrenceOfTheLettersGivesATurn) {
    data.Answer("a cargo\n", {});
    Run("a cargo\nGO");
    EXPECT_EQ(frontEnd.Turns(), 2);
}

} // namespace
} // namespace quillon::tests
