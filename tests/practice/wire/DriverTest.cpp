// The driver against a server that only follows a script: that what is sent is what the driver understands.
#include "practice/support/CommandOutput.h"
#include "practice/support/OdbcClient.h"
#include "practice/wire/RunningListener.h"

namespace quillon::practice::tds {
namespace {

using namespace quillon::practice::testing;

class DriverTest : public ::testing::TestWithParam<const char*> {
  protected:
    RunningListener m_listener;
    Script& m_script = m_listener.server.script;
};

INSTANTIATE_TEST_SUITE_P(Versions, DriverTest, ::testing::Values("7.1", "7.2", "7.3", "7.4"));

struct TypedText {
    SqlType type;
    Datum value;
    const char* shown;
};

std::vector<TypedText> OneOfEachType() {
    SqlType money = SimpleType(TypeId::Money);
    SqlType when = SimpleType(TypeId::DateTime);
    SqlType date = SimpleType(TypeId::Date);
    SqlType later = MomentType(TypeId::DateTime2, 3);
    Moment moment{*DayFromDate(2024, 2, 29), 12 * ticksPerHour + 5'000'000, 0};
    return {
        {SimpleType(TypeId::Bit), Datum::Bit(true), "1"},
        {SimpleType(TypeId::TinyInt), Datum::Integer(TypeId::TinyInt, 255), "255"},
        {SimpleType(TypeId::SmallInt), Datum::Integer(TypeId::SmallInt, -32768), "-32768"},
        {SimpleType(TypeId::Int), Datum::Int(-5), "-5"},
        {SimpleType(TypeId::BigInt), Datum::BigInt(1LL << 50), "1125899906842624"},
        {SimpleType(TypeId::Float), Datum::Float(0.5), "0.5"},
        {money, Datum::Money(-123456), "-12.3456"},
        {DecimalType(20, 3), Datum::Number(DecimalType(20, 3), 1234567), "1234.567"},
        {when, Datum::When(when, moment), "2024-02-29 12:00:00.500"},
        {date, Datum::When(date, moment), "2024-02-29"},
        {later, Datum::When(later, moment), "2024-02-29 12:00:00.500"},
        {VarChar(20), Datum::Text(VarChar(20), "Zoë €"), "Zoë €"},
        {TextType(TypeId::VarChar, 20, FindCollation("Cyrillic_General_CI_AS")),
         Datum::Text(VarChar(20), "Дом é"), "Дом ?"},
        {NVarChar(20), Datum::Text(NVarChar(20), "Дом 家"), "Дом 家"},
        {TextType(TypeId::NChar, 3), Datum::Text(TextType(TypeId::NChar, 3), "ä  "), "ä  "},
        {BinaryType(TypeId::VarBinary, 4), Datum::Bytes(BinaryType(TypeId::VarBinary, 4), "\x01\xFE"),
         "01fe"},
        {VarChar(maxLength), Datum::Text(VarChar(maxLength), "much"), "much"},
        {NVarChar(maxLength), Datum::Text(NVarChar(maxLength), "家"), "家"},
        {SimpleType(TypeId::Text), Datum::Text(SimpleType(TypeId::Text), "long ago"), "long ago"},
        {SimpleType(TypeId::NText), Datum::Text(SimpleType(TypeId::NText), "Дом"), "Дом"},
        {SimpleType(TypeId::Image), Datum::Bytes(SimpleType(TypeId::Image), "\xAB"), "ab"},
        {SimpleType(TypeId::Xml), Datum::Text(SimpleType(TypeId::Xml), "<a>ä</a>"), "<a>ä</a>"},
        {SimpleType(TypeId::UniqueIdentifier),
         Datum::Identifier(Guid{{0x33, 0x22, 0x11, 0, 0x55, 0x44, 0x77, 0x66, 8, 9, 10, 11, 12, 13, 14, 15}}),
         "00112233-4455-6677-0809-0A0B0C0D0E0F"},
        {SimpleType(TypeId::SqlVariant), Datum::VarCharOf("seven"), "seven"},
    };
}

TEST_P(DriverTest, ReadsEveryTypeAndItsNull) {
    const std::vector<TypedText> types = OneOfEachType();
    m_script.batch = [&](const std::string&, ResultSink& sink, ScriptedSession&) {
        std::vector<ResultColumn> columns;
        std::vector<Datum> values;
        std::vector<Datum> nulls;
        for (const TypedText& one : types) {
            columns.emplace_back().type = one.type;
            columns.back().name = one.type.Declaration();
            values.push_back(one.value);
            nulls.push_back(Datum::Null(one.type));
        }
        sink.Columns(columns);
        sink.Row(values);
        sink.Row(nulls);
        TellCount(sink, StatementKind::Select, 2);
    };
    OdbcClient client(m_listener.Port(), GetParam());
    std::vector<std::string> answers = client.Run("SELECT everything");
    std::string shown = "row ";
    std::string absent = "row ";
    for (const TypedText& one : types) {
        shown += (&one == types.data() ? "" : "|") + std::string(one.shown);
        absent += &one == types.data() ? "-" : "|-";
    }
    ASSERT_EQ(answers.size(), 2U);
    EXPECT_EQ(answers[0], shown);
    EXPECT_EQ(answers[1], absent);
}

TEST_P(DriverTest, ReadsTextsLongerThanManyPackets) {
    std::string longText;
    for (int word = 0; longText.size() < 100000; ++word) {
        longText += std::to_string(word) + " ";
    }
    m_script.batch = [&](const std::string& text, ResultSink& sink, ScriptedSession&) {
        EXPECT_TRUE(text == longText) << "a batch of as many packets";
        TellValue(sink, "a", Datum::Text(NVarChar(maxLength), longText), NVarChar(maxLength));
    };
    OdbcClient client(m_listener.Port(), GetParam());
    EXPECT_TRUE(client.Run(longText) == std::vector<std::string>{"row " + longText});
}

TEST_P(DriverTest, SeesCountsMessagesAndErrorsInOrder) {
    m_script.batch = [](const std::string& text, ResultSink& sink, ScriptedSession&) {
        EXPECT_EQ(text, "the batch €");
        TellCount(sink, StatementKind::Update, 3);
        sink.Message(Message(0, 0, "printed"));
        TellValue(sink, "a", Datum::Int(1), SimpleType(TypeId::Int));
        sink.Message(Message(547, 16, "conflict"));
        sink.Done({EndScope::Batch, StatementKind::Insert, std::nullopt, true});
        TellCount(sink, StatementKind::Delete, 1);
    };
    OdbcClient client(m_listener.Port(), GetParam());
    EXPECT_EQ(client.Run("the batch €"), (std::vector<std::string>{"count 3", "info 0 printed", "row 1",
                                                                   "error 547 conflict", "count 1"}));
}

TEST_P(DriverTest, PreparesExecutesAndCalls) {
    m_script.describe = [](const std::string&, const std::string&, ResultSink& sink) { sink.Done({}); };
    m_script.call = [](const ProcedureCall& call, ResultSink& sink) {
        bool prepared = call.name == "sp_executesql";
        const CallParameter& last = call.parameters.back();
        if (prepared) {
            ResultColumn column;
            column.type = SimpleType(TypeId::Int);
            sink.Columns({column});
            Datum twice = Datum::Int(last.value.Integer() * 2);
            sink.Row(std::span<const Datum>(&twice, 1));
            sink.Done({EndScope::InProcedure, StatementKind::Select, 1, false});
        }
        sink.ReturnStatus(5);
        if (last.output) {
            sink.OutputParameter(call.parameters.size() - 1, last.name, last.type,
                                 Datum::Int(call.parameters[0].value.Integer() + 1));
        }
        sink.Done({EndScope::Procedure, StatementKind::Execute, std::nullopt, false});
    };
    OdbcClient client(m_listener.Port(), GetParam());
    EXPECT_EQ(client.RunPrepared("SELECT 2 * ?", {1, 2, 3}),
              (std::vector<std::string>{"row 2", "row 4", "row 6"}));
    EXPECT_EQ(client.Call("dbo.next", 41), "status 5, out 42");
}

TEST_P(DriverTest, AsksForTransactions) {
    std::vector<std::string> seen;
    m_script.transaction = [&](const TransactionRequest& request, ResultSink& sink) {
        seen.push_back(request.kind == TransactionRequest::Kind::Begin    ? "begin"
                       : request.kind == TransactionRequest::Kind::Commit ? "commit"
                                                                          : "rollback");
        sink.Environment({request.kind == TransactionRequest::Kind::Begin
                              ? EnvironmentChange::Kind::BeginTransaction
                              : EnvironmentChange::Kind::RollbackTransaction,
                          "", "", 1});
        sink.Done({});
    };
    m_script.batch = [&](const std::string& text, ResultSink& sink, ScriptedSession&) {
        seen.push_back(text);
        TellCount(sink, StatementKind::Insert, 1);
    };
    OdbcClient client(m_listener.Port(), GetParam());
    client.SetAutocommit(false);
    client.Run("INSERT");
    client.EndTransaction(false);
    if (std::string(GetParam()) == "7.1") {
        ASSERT_GE(seen.size(), 3U); // such clients say it in words
        EXPECT_EQ(seen[0], "BEGIN TRANSACTION");
    } else {
        ASSERT_GE(seen.size(), 3U);
        EXPECT_EQ(seen[0], "begin");
        EXPECT_EQ(seen[2], "rollback");
    }
    EXPECT_EQ(seen[1], "INSERT");
}

TEST(Driver, IsToldWhyItMayNotEnter) {
    RunningListener listener;
    try {
        OdbcClient client(listener.Port(), "7.4", "wrong");
        FAIL() << "entered with a wrong password";
    } catch (const std::runtime_error& error) {
        EXPECT_NE(std::string(error.what()).find("18456 Login failed for user 'sa'."), std::string::npos)
            << error.what();
    }
}

TEST(CommandLineTools, TalkToTheServer) {
    RunningListener listener;
    listener.server.script.batch = [](const std::string&, ResultSink& sink, ScriptedSession&) {
        TellValue(sink, "answer", Datum::Int(42), SimpleType(TypeId::Int));
    };
    const std::string port = std::to_string(listener.Port());
    std::string tsql =
        OutputOf("printf 'SELECT 42\\nGO\\n' | tsql -H 127.0.0.1 -p " + port + " -U sa -P 'Secret1!' 2>&1");
    EXPECT_NE(tsql.find("answer\n42\n(1 row affected)"), std::string::npos) << tsql;
    std::string bsqldb =
        OutputOf("printf 'SELECT 42\\nGO\\n' | bsqldb -S 127.0.0.1:" + port + " -U sa -P 'Secret1!' 2>&1");
    EXPECT_NE(bsqldb.find("42"), std::string::npos) << bsqldb;
}

} // namespace
} // namespace quillon::practice::tds
