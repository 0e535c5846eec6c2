#include "practice/tds/Dialogue.h"

#include "practice/tds/Unicode.h"
#include "practice/tds/Values.h"
#include "practice/wire/ClientBytes.h"
#include "practice/wire/ScriptedServer.h"

namespace quillon::practice::tds {
namespace {

using namespace quillon::practice::testing;

class DialogueTest : public ::testing::Test {
  protected:
    DialogueTest()
        : m_surroundings{m_server, OnlySa(), "PRACTICE"}
        , m_dialogue(
              m_surroundings, m_inbox, [this](std::string_view packet) { m_sent.append(packet); },
              LoginFacts{}) {}

    Answer Serve(PacketType type, const std::string& body, std::uint8_t resetFlags = 0,
                 bool ignored = false) {
        m_sent.clear();
        m_goesOn = m_dialogue.Serve({type, resetFlags, ignored, body});
        return TakeApart(Unwrap(m_sent), m_version);
    }
    Answer LogIn(const LoginText& text = {}) {
        m_version = text.version;
        return Serve(PacketType::Login7, Login7Body(text));
    }
    Answer Batch(const std::string& text) { return Serve(PacketType::SqlBatch, BatchBody(text, m_version)); }

    std::uint32_t m_version = version::tds74;
    ScriptedServer m_server;
    Surroundings m_surroundings;
    Inbox m_inbox;
    std::string m_sent;
    bool m_goesOn = true;
    Dialogue m_dialogue;
};

// The parameters of a call, by hand.
class CallBody {
  public:
    CallBody(std::uint16_t procedure) {
        m_bytes.Bytes(RequestHeaders());
        m_bytes.U16(0xFFFF);
        m_bytes.U16(procedure);
        m_bytes.U16(0);
    }
    explicit CallBody(const std::string& name) {
        m_bytes.Bytes(RequestHeaders());
        m_bytes.LongText(name);
        m_bytes.U16(0);
    }
    CallBody& Int(std::optional<int> value, bool output = false, const std::string& name = "") {
        return Add(value ? Datum::Int(*value) : Datum::Null(SimpleType(TypeId::Int)), SimpleType(TypeId::Int),
                   output, name);
    }
    CallBody& Text(const std::string& value) {
        return Add(Datum::Text(NVarChar(4000), value), NVarChar(4000), false, "");
    }
    CallBody& Next(std::uint16_t procedure) {
        m_bytes.U8(0xFF);
        m_bytes.U16(0xFFFF);
        m_bytes.U16(procedure);
        m_bytes.U16(0);
        return *this;
    }
    // A table of two columns, the second left to its default.
    CallBody& Table(std::string_view rest) {
        m_bytes.ShortText("@rows");
        m_bytes.Bytes(std::string_view("\0\xF3\0", 3));
        m_bytes.ShortText("dbo");
        m_bytes.ShortText("pairs");
        m_bytes.U16(2);
        m_bytes.Bytes(std::string_view("\0\0\0\0\0\0\x26\x04\0", 9));
        m_bytes.Bytes(std::string_view("\0\0\0\0\0\x02\x26\x04\0", 9));
        m_bytes.Bytes(rest);
        return *this;
    }
    operator std::string() const { return m_bytes.Content(); }

  private:
    CallBody& Add(const Datum& value, const SqlType& type, bool output, const std::string& name) {
        m_bytes.ShortText(name);
        m_bytes.U8(output ? 1 : 0);
        WireType wireType = WireTypeFor(type, version::tds74);
        WriteTypeInfo(wireType, m_bytes);
        WriteValue(value, wireType, m_bytes);
        return *this;
    }
    ByteWriter m_bytes;
};

constexpr std::uint16_t executeSql = 10, prepare = 11, execute = 12, prepareAndExecute = 13, unprepare = 15;

TEST_F(DialogueTest, ALoginTellsDatabaseCollationAndPacketSize) {
    Answer answer = LogIn();
    EXPECT_TRUE(m_goesOn);
    EXPECT_EQ(answer.tokens, (std::vector<std::uint8_t>{0xE3, 0xAB, 0xE3, 0xAD, 0xE3, 0xFD}));
    EXPECT_EQ(answer.environment, (std::vector<std::uint8_t>{1, 7, 4}));
    EXPECT_EQ(m_server.lastLogin.hostName, "workstation");
}

TEST_F(DialogueTest, AWrongPasswordAndAnUnknownDatabaseAreRefused) {
    LoginText wrong;
    wrong.password = "secret1!";
    Answer answer = LogIn(wrong);
    EXPECT_FALSE(m_goesOn);
    EXPECT_EQ(answer.messages, std::vector<std::int32_t>{18456});
    EXPECT_EQ(answer.dones.back().flags, done::error);
    EXPECT_EQ(m_server.openSessions, 0);

    LoginText nowhere;
    nowhere.database = "nowhere";
    EXPECT_EQ(LogIn(nowhere).messages, (std::vector<std::int32_t>{4060, 18456}));
    EXPECT_FALSE(m_goesOn);
}

TEST_F(DialogueTest, ARequestBeforeTheLoginEndsTheConnection) {
    EXPECT_TRUE(Batch("SELECT 1").tokens.empty());
    EXPECT_FALSE(m_goesOn);
}

TEST_F(DialogueTest, EveryDoneButTheLastSaysThatMoreFollows) {
    m_server.script.batch = [](const std::string&, ResultSink& sink, ScriptedSession&) {
        TellValue(sink, "a", Datum::Int(1), SimpleType(TypeId::Int));
        TellValue(sink, "b", Datum::Null(SimpleType(TypeId::Int)), SimpleType(TypeId::Int));
        TellCount(sink, StatementKind::Update, 5000000000);
        sink.Message(Message(50000, 16, "wrong"));
        sink.Done({EndScope::Batch, StatementKind::Other, std::nullopt, true});
    };
    LogIn();
    Answer answer = Batch("x");
    ASSERT_EQ(answer.dones.size(), 4U);
    EXPECT_EQ(answer.dones[0].flags, done::count | done::more);
    EXPECT_EQ(answer.dones[1].flags, done::count | done::more);
    EXPECT_EQ(answer.dones[2].count, 5000000000U);
    EXPECT_EQ(answer.dones[3].flags, done::error);
    EXPECT_EQ(answer.values, std::vector<std::int64_t>{1});
    EXPECT_EQ(answer.tokens,
              (std::vector<std::uint8_t>{0x81, 0xD1, 0xFD, 0x81, 0xD2, 0xFD, 0xFD, 0xAA, 0xFD}));
}

TEST_F(DialogueTest, ABatchWithoutStatementsStillAnswers) {
    m_server.script.batch = [](const std::string&, ResultSink&, ScriptedSession&) {};
    LogIn();
    Answer answer = Batch("");
    ASSERT_EQ(answer.dones.size(), 1U);
    EXPECT_EQ(answer.dones[0].flags, 0);
}

TEST_F(DialogueTest, OlderVersionsHaveTheirForms) {
    std::string asked;
    m_server.script.batch = [&](const std::string& text, ResultSink& sink, ScriptedSession&) {
        asked = text;
        sink.Environment({EnvironmentChange::Kind::BeginTransaction, "", "", 7});
        TellValue(sink, "a", Datum::Null(SimpleType(TypeId::Int)), SimpleType(TypeId::Int));
        sink.Message(Message(50000, 16, "wrong"));
    };
    LoginText text;
    text.version = version::tds71Revision1;
    LogIn(text);
    Answer answer = Batch("SELECT N'€'");
    EXPECT_EQ(asked, "SELECT N'€'");
    EXPECT_EQ(answer.tokens, (std::vector<std::uint8_t>{0x81, 0xD1, 0xFD, 0xAA, 0xFD}))
        << "neither transaction descriptors nor bitmaps of nulls";
}

TEST_F(DialogueTest, ACallAnswersStatusThenParametersThenDone) {
    ProcedureCall seen;
    m_server.script.call = [&](const ProcedureCall& call, ResultSink& sink) {
        seen = call;
        sink.Done({EndScope::InProcedure, StatementKind::Insert, 1, false});
        sink.ReturnStatus(3);
        sink.OutputParameter(1, "@out", SimpleType(TypeId::Int), Datum::Int(9));
        sink.Done({EndScope::Procedure, StatementKind::Execute, std::nullopt, false});
    };
    LogIn();
    Answer answer = Serve(PacketType::Rpc, CallBody("dbo.[a proc]").Text("in").Int(4, true, "@out"));
    EXPECT_EQ(answer.tokens, (std::vector<std::uint8_t>{0xFF, 0x79, 0xAC, 0xFE}));
    EXPECT_EQ(answer.returned, std::vector<std::int64_t>{9});
    EXPECT_EQ(seen.name, "dbo.[a proc]");
    ASSERT_EQ(seen.parameters.size(), 2U);
    EXPECT_EQ(seen.parameters[0].value.Text(), "in");
    EXPECT_TRUE(seen.parameters[1].output);
    EXPECT_EQ(seen.parameters[1].name, "@out");
}

TEST_F(DialogueTest, RowsOfATableReachTheCall) {
    ProcedureCall seen;
    m_server.script.call = [&](const ProcedureCall& call, ResultSink& sink) {
        seen = call;
        sink.Done({EndScope::Procedure, StatementKind::Execute, std::nullopt, false});
    };
    LogIn();
    using namespace std::string_view_literals;
    const auto sorted = "\x10\x01\0\x01\0\x01"sv; // by the first column
    const auto rows = "\0\x01\x04\x07\0\0\0\x01\0\0"sv;
    Serve(PacketType::Rpc, CallBody("p").Table(std::string(sorted) + std::string(rows)).Int(5));
    ASSERT_EQ(seen.parameters.size(), 2U);
    EXPECT_EQ(seen.parameters[1].value.Integer(), 5) << "what follows the table is read where it begins";
    ASSERT_TRUE(seen.parameters[0].table);
    const TableArgument& table = *seen.parameters[0].table;
    EXPECT_EQ(table.type, "pairs");
    EXPECT_EQ(table.leftOut, (std::vector<bool>{false, true}));
    ASSERT_EQ(table.rows.size(), 2U);
    ASSERT_EQ(table.rows[0].size(), 1U);
    EXPECT_EQ(table.rows[0][0].Integer(), 7);
    EXPECT_TRUE(table.rows[1][0].IsNull());
    Serve(PacketType::Rpc, CallBody("p").Table("\0\x01\x04\x07"sv));
    EXPECT_FALSE(m_goesOn) << "a row that breaks off ends the connection";
}

TEST_F(DialogueTest, PreparedStatementsBecomeCallsOfExecuteSql) {
    std::vector<ProcedureCall> calls;
    m_server.script.describe = [](const std::string&, const std::string&, ResultSink& sink) {
        TellCount(sink, StatementKind::Select, 0);
    };
    m_server.script.call = [&](const ProcedureCall& call, ResultSink& sink) {
        calls.push_back(call);
        sink.ReturnStatus(0);
        if (call.parameters.back().output) {
            sink.OutputParameter(call.parameters.size() - 1, "", SimpleType(TypeId::Int), Datum::Int(77));
        }
        sink.Done({EndScope::Procedure, StatementKind::Execute, std::nullopt, false});
    };
    LogIn();
    Answer prepared =
        Serve(PacketType::Rpc, CallBody(prepare).Int({}, true).Text("@p int").Text("SELECT @p").Int(1));
    ASSERT_EQ(prepared.returned.size(), 1U);
    int first = static_cast<int>(prepared.returned[0]);

    Answer executed = Serve(PacketType::Rpc, CallBody(execute).Int(first).Int(5, true));
    ASSERT_EQ(calls.size(), 1U);
    EXPECT_EQ(calls[0].name, "sp_executesql");
    EXPECT_EQ(calls[0].parameters[0].value.Text(), "SELECT @p");
    EXPECT_EQ(calls[0].parameters[1].value.Text(), "@p int");
    EXPECT_EQ(calls[0].parameters[2].value.Integer(), 5);
    EXPECT_EQ(executed.ordinals, std::vector<std::uint16_t>{1}) << "the place in the client's own call";

    Answer both =
        Serve(PacketType::Rpc,
              CallBody(prepareAndExecute).Int({}, true).Text("@q int").Text("SELECT @q").Int(6, true));
    ASSERT_EQ(both.returned.size(), 2U);
    EXPECT_NE(both.returned[0], first);
    EXPECT_EQ(both.ordinals, (std::vector<std::uint16_t>{0, 3}));

    EXPECT_TRUE(Serve(PacketType::Rpc, CallBody(unprepare).Int(first)).messages.empty());
    EXPECT_EQ(Serve(PacketType::Rpc, CallBody(execute).Int(first)).messages, std::vector<std::int32_t>{8179});
    EXPECT_EQ(Serve(PacketType::Rpc, CallBody(unprepare).Int(first)).messages,
              std::vector<std::int32_t>{8179});
}

TEST_F(DialogueTest, AStatementThatCannotBeDescribedIsNotPrepared) {
    m_server.script.describe = [](const std::string&, const std::string&, ResultSink& sink) {
        sink.Message(Message(102, 15, "Incorrect syntax near 'x'."));
    };
    LogIn();
    Answer answer = Serve(PacketType::Rpc, CallBody(prepare).Int({}, true).Text("").Text("x").Int(1));
    EXPECT_EQ(answer.messages, (std::vector<std::int32_t>{102, 8180}));
    EXPECT_TRUE(answer.returned.empty());
    EXPECT_EQ(answer.dones.back().flags, done::error);
}

TEST_F(DialogueTest, SeveralCallsInOneMessageAnswerInTurn) {
    int calls = 0;
    m_server.script.call = [&](const ProcedureCall&, ResultSink& sink) {
        ++calls;
        sink.Done({EndScope::Procedure, StatementKind::Execute, std::nullopt, false});
    };
    LogIn();
    Answer answer =
        Serve(PacketType::Rpc, CallBody(executeSql).Text("SELECT 1").Next(executeSql).Text("SELECT 2"));
    EXPECT_EQ(calls, 2);
    ASSERT_EQ(answer.dones.size(), 2U);
    EXPECT_EQ(answer.dones[0].flags, done::more);
    EXPECT_EQ(answer.dones[1].flags, 0);
}

TEST_F(DialogueTest, WhatIsNotOfferedIsRefusedByName) {
    LogIn();
    for (const auto& [type, body] : std::vector<std::pair<PacketType, std::string>>{
             {PacketType::Rpc, CallBody(2).Int(1)}, // sp_cursoropen
             {PacketType::Rpc,
              static_cast<std::string>(CallBody(10)) + std::string("\0\0\xF0", 3)}, // a CLR type
             {PacketType::TransactionManager,
              RequestHeaders() + std::string(2, '\0')}}) { // a distributed transaction
        Answer answer = Serve(type, body);
        EXPECT_EQ(answer.messages, std::vector<std::int32_t>{49999});
        EXPECT_EQ(answer.dones.back().flags, done::error);
        EXPECT_TRUE(m_goesOn);
    }
}

TEST_F(DialogueTest, TooManyParametersAreRefusedAndTheConnectionGoesOn) {
    LogIn();
    CallBody call(10);
    for (int parameter = 0; parameter <= 2100; ++parameter)
        call.Int(parameter);
    Answer answer = Serve(PacketType::Rpc, call);
    EXPECT_EQ(answer.messages, std::vector<std::int32_t>{8003});
    EXPECT_TRUE(m_goesOn);
}

TEST_F(DialogueTest, TransactionManagerRequestsReachTheSession) {
    std::vector<TransactionRequest> seen;
    m_server.script.transaction = [&](const TransactionRequest& request, ResultSink& sink) {
        seen.push_back(request);
        sink.Environment({EnvironmentChange::Kind::BeginTransaction, "", "", 0x0102030405060708});
        sink.Done({});
    };
    LogIn();
    const std::string name = std::string(1, '\4') + ToUtf16("ab");
    Answer begun = Serve(PacketType::TransactionManager, RequestHeaders() + std::string("\5\0\2", 3) + name);
    EXPECT_EQ(begun.environment, std::vector<std::uint8_t>{8});
    Serve(PacketType::TransactionManager, RequestHeaders() + std::string("\7\0\0\1\4", 5) + name);
    Serve(PacketType::TransactionManager,
          RequestHeaders() + std::string("\x08\0", 2) + name + std::string(1, '\0'));
    Serve(PacketType::TransactionManager, RequestHeaders() + std::string("\x09\0", 2) + name);
    ASSERT_EQ(seen.size(), 4U);
    EXPECT_EQ(seen[0].kind, TransactionRequest::Kind::Begin);
    EXPECT_EQ(seen[0].name, "ab");
    EXPECT_EQ(seen[0].isolation, TransactionRequest::Isolation::ReadCommitted);
    EXPECT_TRUE(seen[1].beginNext);
    EXPECT_EQ(seen[1].nextName, "ab");
    EXPECT_EQ(seen[1].nextIsolation, TransactionRequest::Isolation::Serializable);
    EXPECT_EQ(seen[2].kind, TransactionRequest::Kind::Rollback);
    EXPECT_FALSE(seen[2].beginNext);
    EXPECT_EQ(seen[3].kind, TransactionRequest::Kind::Save);
}

TEST_F(DialogueTest, MalformedRequestsEndTheConnectionWithAMessage) {
    const std::vector<std::pair<PacketType, std::string>> cases{
        {PacketType::SqlBatch, "abc"},                                      // headers longer than the message
        {PacketType::SqlBatch, RequestHeaders() + "a"},                     // half a character
        {PacketType::Rpc, RequestHeaders()},                                // no procedure
        {PacketType::Rpc, RequestHeaders() + "\xFF\xFF\x63"},               // a cut number
        {PacketType::Rpc, CallBody(99)},                                    // no such number
        {PacketType::Rpc, static_cast<std::string>(CallBody(10)) + "\x02"}, // a cut parameter
        {PacketType::TransactionManager, RequestHeaders() + std::string("\5\0\x63\0", 4)},
        {PacketType::Login7, Login7Body({})},
    };
    for (const auto& [type, body] : cases) {
        ScriptedServer server;
        Surroundings surroundings{server, OnlySa(), "PRACTICE"};
        std::string sent;
        Dialogue dialogue(
            surroundings, m_inbox, [&](std::string_view packet) { sent.append(packet); }, LoginFacts{});
        ASSERT_TRUE(dialogue.Serve({PacketType::Login7, 0, false, Login7Body({})}));
        sent.clear();
        EXPECT_FALSE(dialogue.Serve({type, 0, false, body}));
        EXPECT_EQ(TakeApart(Unwrap(sent)).messages, std::vector<std::int32_t>{4002});
    }
}

TEST_F(DialogueTest, AFailureOfTheEngineIsToldAndEndsOnlyThisConnection) {
    m_server.script.batch = [](const std::string&, ResultSink&, ScriptedSession&) {
        throw std::runtime_error("disk full");
    };
    LogIn();
    EXPECT_EQ(Batch("x").messages, std::vector<std::int32_t>{49998});
    EXPECT_FALSE(m_goesOn);
}

TEST_F(DialogueTest, AnAttentionThatCameFirstStopsTheRequestBeforeItBegins) {
    bool ran = false;
    m_server.script.batch = [&](const std::string&, ResultSink&, ScriptedSession&) { ran = true; };
    LogIn();
    m_inbox.PutAttention();
    EXPECT_EQ(Batch("x").dones.back().flags, done::error) << "each message has an answer of its own";
    EXPECT_FALSE(ran);
    auto attention = m_inbox.Take();
    ASSERT_TRUE(attention);
    Answer answer = Serve(attention->type, attention->body);
    ASSERT_EQ(answer.dones.size(), 1U);
    EXPECT_EQ(answer.dones[0].flags, done::attention);
}

TEST_F(DialogueTest, ARequestThatTheClientTookBackIsNotRun) {
    bool ran = false;
    m_server.script.batch = [&](const std::string&, ResultSink&, ScriptedSession&) { ran = true; };
    LogIn();
    Answer answer = Serve(PacketType::SqlBatch, BatchBody("DELETE t"), 0, true);
    EXPECT_FALSE(ran);
    EXPECT_EQ(answer.dones.back().flags, done::error);
}

TEST_F(DialogueTest, APooledConnectionIsResetBeforeItsNextRequest) {
    int resetsSeen = 0;
    m_server.script.batch = [&](const std::string&, ResultSink& sink, ScriptedSession& session) {
        resetsSeen = session.resets;
        sink.Done({});
    };
    LogIn();
    Answer answer = Serve(PacketType::SqlBatch, BatchBody("x"), status::resetConnection);
    EXPECT_EQ(resetsSeen, 1);
    EXPECT_EQ(answer.environment, std::vector<std::uint8_t>{18});
}

// The message of a bulk load: two columns, an int and a text; then what `rows` writes.
std::string BulkBody(const std::function<void(ByteWriter&)>& rows) {
    ByteWriter body;
    body.U8(0x81);
    body.U16(2);
    for (const SqlType& type : {SimpleType(TypeId::Int), SimpleType(TypeId::Text)}) {
        body.U32(0);
        body.U16(0);
        const WireType wire = WireTypeFor(type, version::tds74);
        WriteTypeInfo(wire, body);
        if (wire.form == LengthForm::Pointer)
            body.LongText("t");
        body.ShortText("c");
    }
    rows(body);
    return body.Content();
}

TEST_F(DialogueTest, RowsOfABulkLoadReachTheSessionOneByOne) {
    std::string seen;
    m_server.script.rows = [&](const RowReader& rows, ResultSink& sink) {
        for (std::vector<Datum> row; rows(row);) {
            seen += row[0].IsNull() ? "-" : std::to_string(row[0].Integer());
            seen += row[1].IsNull() ? "-" : row[1].Text();
        }
        TellCount(sink, StatementKind::Insert, 2);
    };
    LogIn();
    const auto rows = [](ByteWriter& body) {
        body.Bytes(std::string("\xD1\x04\x05\0\0\0\x10", 7) + std::string(16 + 8, 'p'));
        body.U32(2);
        body.Bytes("ab");
        body.Bytes(std::string("\xD1\0\0", 3));               // NULL by length, NULL by pointer
        body.Bytes(std::string("\xD2\x02\x04\x07\0\0\0", 7)); // NULL by the bitmap
        body.Bytes(std::string("\xFD\0\0\0\0", 5) + std::string(8, '\0'));
    };
    EXPECT_EQ(Serve(PacketType::BulkLoad, BulkBody(rows)).dones.back().count, 2U);
    EXPECT_EQ(seen, "5ab--7-");
    EXPECT_TRUE(m_goesOn);
    Serve(PacketType::BulkLoad, BulkBody([](ByteWriter& body) { body.Bytes("\xD1\x04"); }));
    EXPECT_FALSE(m_goesOn) << "a row that breaks off ends the connection";
}

} // namespace
} // namespace quillon::practice::tds
