#include "practice/wire/RunningListener.h"

#include <future>
#include <random>
#include <system_error>

namespace quillon::practice::tds {
namespace {

using namespace quillon::practice::testing;

void AnswerOne(const std::string&, ResultSink& sink, ScriptedSession&) {
    TellValue(sink, "one", Datum::Int(1), SimpleType(TypeId::Int));
}

TEST(Connection, SeveralClientsAreServedAtOnce) {
    RunningListener listener;
    std::promise<void> bothRun;
    std::atomic<int> running = 0;
    std::shared_future<void> both = bothRun.get_future().share();
    listener.server.script.batch = [&](const std::string& text, ResultSink& sink, ScriptedSession& session) {
        if (++running == 2) {
            bothRun.set_value();
        }
        both.wait(); // neither answers before both have begun
        AnswerOne(text, sink, session);
    };
    std::vector<std::future<Answer>> answers;
    for (int client = 0; client < 2; ++client) {
        answers.push_back(std::async(std::launch::async, [&] {
            PlainClient plain(listener.Port());
            plain.LogIn();
            return plain.Batch("SELECT 1");
        }));
    }
    for (auto& answer : answers) {
        EXPECT_EQ(answer.get().values, std::vector<std::int64_t>{1});
    }
}

TEST(Connection, AnAttentionStopsARunningStatementAndTheNextOneRuns) {
    RunningListener listener;
    std::promise<void> started;
    listener.server.script.batch = [&](const std::string& text, ResultSink& sink, ScriptedSession& session) {
        if (text == "WAITFOR") {
            started.set_value();
            session.WaitForCancel();
            return;
        }
        EXPECT_FALSE(session.Cancelled()) << "an attention must not reach the next request";
        AnswerOne(text, sink, session);
    };
    PlainClient client(listener.Port());
    client.LogIn();
    client.Send(Packets(PacketType::SqlBatch, BatchBody("WAITFOR")));
    started.get_future().wait();
    client.Send(Packets(PacketType::Attention, ""));
    Answer stopped = client.Receive();
    ASSERT_EQ(stopped.dones.size(), 1U);
    EXPECT_EQ(stopped.dones[0].flags, done::error);
    Answer acknowledged = client.Receive();
    ASSERT_EQ(acknowledged.dones.size(), 1U);
    EXPECT_EQ(acknowledged.dones[0].flags, done::attention);
    EXPECT_EQ(client.Batch("SELECT 1").values, std::vector<std::int64_t>{1});
}

TEST(Connection, AnAttentionStopsAResultThatTheClientDoesNotRead) {
    RunningListener listener;
    std::uint64_t rows = 0;
    listener.server.script.batch = [&](const std::string&, ResultSink& sink, ScriptedSession& session) {
        ResultColumn column;
        column.type = SimpleType(TypeId::Int);
        sink.Columns({column});
        for (const Datum value = Datum::Int(1); !session.Cancelled(); ++rows) {
            sink.Row(std::span<const Datum>(&value, 1));
        }
    };
    PlainClient client(listener.Port());
    client.LogIn();
    client.Send(Packets(PacketType::SqlBatch, BatchBody("endless")));
    client.Send(Packets(PacketType::Attention, ""));
    Answer answer = client.Receive();
    EXPECT_EQ(answer.dones.back().flags, done::error);
    EXPECT_EQ(answer.values.size(), rows);
    EXPECT_EQ(client.Receive().dones.back().flags, done::attention);
}

TEST(Connection, AClientThatGoesAwayEndsItsStatementAndItsSession) {
    RunningListener listener;
    std::promise<void> started;
    std::promise<void> ended;
    listener.server.script.batch = [&](const std::string&, ResultSink&, ScriptedSession& session) {
        started.set_value();
        session.WaitForCancel();
        ended.set_value();
    };
    PlainClient client(listener.Port());
    client.LogIn();
    client.Send(Packets(PacketType::SqlBatch, BatchBody("WAITFOR")));
    started.get_future().wait();
    client.Close();
    ended.get_future().wait();
}

TEST(Connection, StoppingTheListenerEndsWhatRuns) {
    std::promise<void> started;
    std::atomic<int>* openSessions = nullptr;
    auto listener = std::make_unique<RunningListener>();
    openSessions = &listener->server.openSessions;
    listener->server.script.batch = [&](const std::string&, ResultSink&, ScriptedSession& session) {
        started.set_value();
        session.WaitForCancel();
    };
    PlainClient client(listener->Port());
    client.LogIn();
    EXPECT_EQ(*openSessions, 1);
    client.Send(Packets(PacketType::SqlBatch, BatchBody("WAITFOR")));
    started.get_future().wait();
    listener.reset();
    client.AwaitEnd();
}

TEST(Connection, ABrowserIsToldWhatItHasCalled) {
    RunningListener listener;
    PlainClient browser(listener.Port());
    browser.Send("GET / HTTP/1.1\r\nHost: localhost\r\n\r\n");
    const std::string said = browser.AwaitEnd();
    EXPECT_EQ(said.substr(0, 28), "HTTP/1.1 400 Bad Request\r\nCo");
    EXPECT_NE(said.find("database server"), std::string::npos);
}

TEST(Connection, ThoseWhoOnlyKnockKeepNobodyOut) {
    RunningListener listener;
    listener.server.script.batch = AnswerOne;
    PlainClient honest(listener.Port());
    honest.LogIn();
    std::vector<std::unique_ptr<PlainClient>> knocking;
    constexpr int moreThanAreLetIn = 300;
    for (int count = 0; count < moreThanAreLetIn; ++count) {
        knocking.push_back(std::make_unique<PlainClient>(listener.Port()));
    }
    PlainClient late(listener.Port());
    late.LogIn();
    EXPECT_EQ(late.Batch("SELECT 1").values, std::vector<std::int64_t>{1});
    EXPECT_EQ(honest.Batch("SELECT 1").values, std::vector<std::int64_t>{1});
}

TEST(Connection, HostileBytesEndTheirConnectionAndNoOther) {
    RunningListener listener;
    listener.server.script.batch = AnswerOne;
    PlainClient honest(listener.Port());
    honest.LogIn();
    std::mt19937 random(20240229);
    const std::string login = Packets(PacketType::Login7, Login7Body({}));
    std::vector<std::string> attacks{
        std::string(5000, '\xFF'),
        std::string(5000, '\0'),
        Packets(PacketType::SqlBatch, BatchBody("SELECT 1")),
        Packets(PacketType::Login7, std::string(200000, 'x')),
        login + Packets(PacketType::SqlBatch, std::string("\xff\xff\xff\x7f")),
        login + Packets(PacketType::Rpc, std::string("\x04\0\0\0\xff\xff\x0a\0\0\0\0\0\xE7", 13))};
    for (int index = 0; index < 50; ++index) {
        std::string damaged = login;
        for (int change = 0; change < 3; ++change) {
            damaged[random() % damaged.size()] = static_cast<char>(random());
        }
        attacks.push_back(damaged + Packets(PacketType::Rpc, damaged));
    }
    for (const std::string& attack : attacks) {
        PlainClient client(listener.Port());
        try {
            client.Send(attack);
            client.Send(Packets(PacketType::Sspi, "")); // which has no place anywhere
            client.AwaitEnd();
        } catch (const std::system_error&) {
            // The server has hung up before all was said.
        }
        EXPECT_EQ(honest.Batch("SELECT 1").values, std::vector<std::int64_t>{1});
    }
}

} // namespace
} // namespace quillon::practice::tds
