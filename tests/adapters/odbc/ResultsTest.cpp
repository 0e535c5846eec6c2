// Results as they come over the driver: order of rows, messages and errors, statements inside each other,
// procedures, values, links that break.
#include "ScriptedDatabase.h"
#include "execution/clsExecuteSQLScript.h"
#include "platform/Conversion.h"
#include "platform/Platform.h"
#include "shell/Trace.h"
#include "support/ScriptedFrontEnd.h"

namespace quillon::tests {
namespace {

using Lines = std::vector<std::string>;

constexpr const char* Prefix = "[Microsoft][ODBC SQL Server Driver][SQL Server]";

class ResultsTest : public ScriptedDatabase {};

TEST_F(ResultsTest, RowsAreReadAndReadAgain) {
    answers["q"] = [](ResultSink& sink) { Rows(sink, "n", {1, 2, 3}); };
    const auto connection = Connect();
    const auto kept = Query(connection, "q", data::CursorType::Static);
    for (int round = 0; round < 2; ++round) {
        kept->MoveFirst();
        for (int expected = 1; expected <= 3; ++expected, kept->MoveNext())
            EXPECT_EQ(Number(*kept), expected);
        EXPECT_TRUE(kept->Eof());
    }
    const auto forward = Query(connection, "q");
    EXPECT_EQ(FailureOf([&] { forward->MoveFirst(); }).number(), numbers::DataAccess);
    EXPECT_EQ(forward->GetRows().size(), 3u);
    EXPECT_EQ(FailureOf([&] { forward->MoveNext(); }).number(), numbers::NoCurrentRecord);
    EXPECT_EQ(FailureOf([&] { forward->FieldNamed("none"); }).number(), numbers::ItemNotFound);
}

TEST_F(ResultsTest, AnEmptyResultIsOpenAndAtBothEnds) {
    answers["q"] = [](ResultSink& sink) { Rows(sink, "n", {}); };
    const auto recordset = Query(Connect(), "q");
    EXPECT_EQ(recordset->State(), data::ObjectState::Open);
    EXPECT_TRUE(recordset->Bof() && recordset->Eof());
    EXPECT_EQ(recordset->FieldAt(0).Name, "n");
}

// Neither disturbs the other, though the connection carries one result at a time.
TEST_F(ResultsTest, StatementsNestOnOneConnection) {
    answers["outer"] = [](ResultSink& sink) { Rows(sink, "n", {1, 2, 3}); };
    answers["inner"] = [](ResultSink& sink) { Rows(sink, "m", {10, 20}); };
    const auto connection = Connect();
    const auto outer = Query(connection, "outer");
    std::vector<int> seen;
    for (; !outer->Eof(); outer->MoveNext()) {
        seen.push_back(Number(*outer));
        const auto inner = Query(connection, "inner");
        for (; !inner->Eof(); inner->MoveNext())
            seen.push_back(Number(*inner));
    }
    EXPECT_EQ(seen, (std::vector<int>{1, 10, 20, 2, 10, 20, 3, 10, 20}));
}

TEST_F(ResultsTest, ARefusedStatementTellsItsNumberAndText) {
    const auto connection = Connect();
    const auto failure = FailureOf([&] { Query(connection, "nonsense"); });
    EXPECT_EQ(failure.number(), numbers::DataAccess);
    EXPECT_EQ(failure.description(), std::string(Prefix) + "Incorrect syntax near 'nonsense'.");
    ASSERT_FALSE(connection->Errors().empty());
    EXPECT_EQ(connection->Errors().front().NativeError, 102);
}

class ScriptRunTest : public ScriptedDatabase {
  protected:
    ScriptRunTest() { g_objTrace = std::make_unique<Trace>(); }
    ~ScriptRunTest() override { g_objTrace.reset(); }
    // The log with the columns' padding taken off, and without the lines of hyphens.
    Lines Run(const std::string& script) {
        clsExecuteSQLScript executor;
        executor.SetConnection(Connect());
        executor.SetScript(script);
        executor.Execute();
        Lines lines;
        for (std::string line : executor.Results()) {
            line.erase(line.find_last_not_of(" ") + 1);
            if (line.find_first_not_of('-') != std::string::npos)
                lines.push_back(std::move(line));
        }
        return lines;
    }

    ScriptedFrontEnd frontEnd;
    Platform platform{{.frontEnd = &frontEnd, .dataAccess = &access}};
};

TEST_F(ScriptRunTest, PrintRowsErrorRowsAndRaiserrorStandInServerOrder) {
    bool tellsEnd = false;
    answers["mixed"] = [&](ResultSink& sink) {
        Print(sink, "begun", tellsEnd);
        Rows(sink, "a", {1});
        sink.Message(wire::Message(547, 16, "conflict"));
        sink.Done({practice::EndScope::Batch, practice::StatementKind::Insert, std::nullopt, true});
        Rows(sink, "b", {2});
        Refuse(sink, 50000, "at last");
    };
    const Lines expected = {"begun",    "a", "1", "(1 row(s) affected)", "Server: Msg 547",
                            "conflict", "b", "2", "(1 row(s) affected)", "Server: Msg 50000",
                            "at last"};
    EXPECT_EQ(Run("mixed"), expected);
    tellsEnd = true;
    EXPECT_EQ(Run("mixed"), expected);
}

TEST_F(ScriptRunTest, ABatchThatFailsFirstLeavesTheNextOne) {
    answers["\nq\n"] = [](ResultSink& sink) { Rows(sink, "n", {7}); };
    EXPECT_EQ(Run("x\nGO\nq\nGO"),
              (Lines{"Server: Msg 102", "Incorrect syntax near 'x\n'.", "n", "7", "(1 row(s) affected)"}));
}

// The driver hands errors over first; the log has them where the server put them.
TEST_F(ScriptRunTest, MessagesOfOneAnswerStandInServerOrder) {
    const auto say = [](ResultSink& sink, std::int32_t number, const char* text, int line) {
        auto message = wire::Message(number, number == 0 || number == 3621 ? 0 : 16, text);
        message.line = line;
        sink.Message(message);
    };
    const auto end = [](ResultSink& sink) {
        sink.Done({practice::EndScope::Batch, practice::StatementKind::Other, std::nullopt, true});
    };
    answers["last"] = [&](ResultSink& sink) {
        for (const char* text : {"a", "b", "c"})
            say(sink, 0, text, 1);
        say(sink, 266, "count", 0);
        end(sink);
    };
    EXPECT_EQ(Run("last"), (Lines{"a", "b", "c", "Server: Msg 266", "count"}));
    answers["terminated"] = [&](ResultSink& sink) {
        say(sink, 0, "a", 1);
        say(sink, 0, "b", 1);
        say(sink, 2627, "twice", 1);
        say(sink, 3621, "ended", 1);
        end(sink);
    };
    EXPECT_EQ(Run("terminated"), (Lines{"a", "b", "Server: Msg 2627", "twice", "Server: Msg 3621", "ended"}));
    answers["among"] = [&](ResultSink& sink) {
        say(sink, 0, "a", 1);
        say(sink, 8134, "x", 2);
        say(sink, 0, "b", 3);
        say(sink, 0, "c", 4);
        say(sink, 8134, "y", 5);
        say(sink, 0, "d", 6);
        end(sink);
    };
    EXPECT_EQ(Run("among"), (Lines{"a", "Server: Msg 8134", "x", "b", "c", "Server: Msg 8134", "y", "d"}));
}

TEST_F(ScriptRunTest, CountsGiveNoLineAndOneMessageIsTold) {
    answers["dml"] = [](ResultSink& sink) {
        wire::TellCount(sink, practice::StatementKind::Update, 3);
        Print(sink, "not told: a result without rows came before");
    };
    EXPECT_EQ(Run("dml"), Lines{});
}

TEST_F(ScriptRunTest, AServerThatDiesInTheMiddleOfAResultIsToldAndEndsTheRun) {
    answers["dying"] = [](ResultSink& sink) {
        practice::ResultColumn column;
        column.name = "n";
        column.type = practice::SimpleType(practice::TypeId::Int);
        sink.Columns({column});
        const Datum one = Datum::Int(1);
        for (int row = 0; row < 5000; ++row)
            sink.Row(std::span<const Datum>(&one, 1));
        sink.Flush();
        throw practice::ClientGone(); // the connection ends without a word
    };
    const auto lines = Run("dying");
    ASSERT_GT(lines.size(), 3u);
    EXPECT_EQ(lines.front(), "n");
    EXPECT_EQ(lines[lines.size() - 2].substr(0, 12), "Server: Msg ") << lines.back();
    EXPECT_NE(lines.back().find("connection"), std::string::npos) << lines.back();
}

TEST_F(ResultsTest, AProcedureGivesReturnValueAndOutput) {
    listener.server.script.call = [](const practice::ProcedureCall& call, ResultSink& sink) {
        EXPECT_EQ(call.name, "dbo.p");
        Print(sink, "working");
        sink.ReturnStatus(4);
        for (std::size_t at = 0; at < call.parameters.size(); ++at)
            if (call.parameters[at].output)
                sink.OutputParameter(at, "", call.parameters[at].type, Datum::Int(40 + static_cast<int>(at)));
        sink.Done({practice::EndScope::Procedure, practice::StatementKind::Execute, std::nullopt, false});
    };
    const auto command = access.NewCommand();
    command->SetActiveConnection(Connect());
    command->SetCommandType(data::CommandType::StoredProcedure);
    command->SetCommandText("dbo.p");
    command->AppendParameter(
        {"RETURN_VALUE", data::DataType::Integer, data::ParameterDirection::ReturnValue, 0, {}});
    command->AppendParameter(
        {"@in", data::DataType::VarChar, data::ParameterDirection::Input, 20, Value("Zoë €")});
    command->AppendParameter(
        {"@out", data::DataType::Integer, data::ParameterDirection::InputOutput, 0, NullValue{}});
    command->Execute();
    EXPECT_EQ(command->ParameterNamed("return_value").Value, Value(std::int32_t{4}));
    EXPECT_EQ(command->ParameterNamed("@out").Value, Value(std::int32_t{41}));
}

TEST_F(ResultsTest, ValuesHaveTheirDefaultForms) {
    using namespace practice;
    const SqlType when = SimpleType(TypeId::DateTime);
    const Moment moment{*DayFromDate(2024, 2, 29), 12 * ticksPerHour, 0};
    const struct {
        SqlType type;
        Datum value;
        const char* text;
    } cases[] = {
        {SimpleType(TypeId::Bit), Datum::Bit(true), "True"},
        {SimpleType(TypeId::TinyInt), Datum::Integer(TypeId::TinyInt, 255), "255"},
        {SimpleType(TypeId::BigInt), Datum::BigInt(1LL << 50), "1125899906842624"},
        {SimpleType(TypeId::Float), Datum::Float(0.5), "0.5"},
        {SimpleType(TypeId::Money), Datum::Money(-123400), "-12.34"},
        {DecimalType(20, 3), Datum::Number(DecimalType(20, 3), 1234500), "1234.5"},
        {when, Datum::When(when, moment), "2/29/2024 12:00:00 PM"},
        {NVarChar(20), Datum::Text(NVarChar(20), "Дом 家"), "Дом 家"},
        {VarChar(20), Datum::Text(VarChar(20), ""), ""},
        {NVarChar(maxLength), Datum::Text(NVarChar(maxLength), std::string(100, 'x')), nullptr},
        {BinaryType(TypeId::VarBinary, 4), Datum::Bytes(BinaryType(TypeId::VarBinary, 4), "\x01\xFE"),
         "0x01FE"},
    };
    answers["all"] = [&](ResultSink& sink) {
        std::vector<ResultColumn> columns;
        std::vector<Datum> values, nulls;
        for (const auto& one : cases) {
            columns.emplace_back().type = one.type;
            values.push_back(one.value);
            nulls.push_back(Datum::Null(one.type));
        }
        sink.Columns(columns);
        sink.Row(values);
        sink.Row(nulls);
        wire::TellCount(sink, StatementKind::Select, 2);
    };
    const auto recordset = Query(Connect(), "all");
    for (std::size_t at = 0; at < std::size(cases); ++at)
        EXPECT_EQ(conversion::ToText(recordset->FieldAt(at).Value),
                  cases[at].text == nullptr ? std::string(100, 'x') : cases[at].text)
            << at;
    recordset->MoveNext();
    for (std::size_t at = 0; at < std::size(cases); ++at)
        EXPECT_TRUE(recordset->FieldAt(at).Value.IsNull()) << at;
}

// --- getting in ---

TEST_F(ResultsTest, AWrongPasswordIsToldInTheServersWords) {
    const auto failure = FailureOf([&] { access.NewConnection()->Open(ConnectionString("wrong")); });
    EXPECT_EQ(failure.number(), numbers::LoginFailed);
    EXPECT_EQ(failure.description(), std::string(Prefix) + "Login failed for user 'sa'.");
}

TEST_F(ResultsTest, ServersThatCannotBeReachedAreTold) {
    for (const char* server : {"127.0.0.1,9", "no-such-host.invalid"}) {
        const auto failure = FailureOf([&] {
            access.NewConnection()->Open("Data Source=" + std::string(server) + ";User ID=sa;Password=x;");
        });
        EXPECT_EQ(failure.description(),
                  "[Microsoft][ODBC SQL Server Driver]SQL Server does not exist or access denied.")
            << server;
    }
}

TEST_F(ResultsTest, ABrokenLinkHasItsNumberAndTheConnectionCanBeOpenedAgain) {
    answers["die"] = [](ResultSink&) { throw practice::ClientGone(); };
    answers["q"] = [](ResultSink& sink) { Rows(sink, "n", {1}); };
    const auto connection = Connect();
    EXPECT_EQ(FailureOf([&] { Query(connection, "die"); }).number(), numbers::LinkBroken);
    EXPECT_EQ(FailureOf([&] { Query(connection, "q"); }).number(), numbers::LinkBroken);
    connection->Close();
    connection->Open("");
    EXPECT_EQ(Number(*Query(connection, "q")), 1);
}

TEST_F(ResultsTest, StatesAreKept) {
    const auto connection = Connect();
    EXPECT_EQ(connection->State(), data::ObjectState::Open);
    EXPECT_EQ(FailureOf([&] { connection->Open(""); }).number(), numbers::ObjectOpen);
    connection->Close();
    EXPECT_EQ(FailureOf([&] { connection->Close(); }).number(), numbers::ObjectClosed);
    EXPECT_EQ(FailureOf([&] { Query(connection, "q"); }).number(), numbers::ObjectClosed);
}

} // namespace
} // namespace quillon::tests
