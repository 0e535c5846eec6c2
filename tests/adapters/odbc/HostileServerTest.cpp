// Servers that stall, break off or speak another language: a clear failure within the time-out, and a session
// that goes on.
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <thread>

#include "ScriptedDatabase.h"
#include "adapters/odbc/ConnectionText.h"
#include "adapters/odbc/ResultStream.h"

namespace quillon::tests {
namespace {

constexpr int ShortTimeout = 1; // seconds; none of these servers ever answers as it should

// Takes one connection, says what it is told to, and keeps the line open until the end of the test unless it
// hangs up.
class WrongServer {
  public:
    WrongServer(std::string says, bool hangsUp)
        : m_listener(socket(AF_INET, SOCK_STREAM, 0)) {
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t length = sizeof address;
        auto* plain = reinterpret_cast<sockaddr*>(&address);
        if (bind(m_listener, plain, length) != 0 || listen(m_listener, 1) != 0 ||
            getsockname(m_listener, plain, &length) != 0)
            throw std::runtime_error("no socket");
        m_port = ntohs(address.sin_port);
        m_thread = std::thread([this, says = std::move(says), hangsUp] {
            m_peer = accept(m_listener, nullptr, nullptr);
            send(m_peer, says.data(), says.size(), MSG_NOSIGNAL);
            if (hangsUp)
                shutdown(m_peer, SHUT_RDWR);
        });
    }
    ~WrongServer() {
        shutdown(m_listener, SHUT_RDWR);
        m_thread.join();
        close(m_peer);
        close(m_listener);
    }
    std::string Name() const { return "127.0.0.1," + std::to_string(m_port); }

  private:
    int m_listener;
    int m_peer = -1;
    int m_port = 0;
    std::thread m_thread;
};

class HostileServerTest : public ScriptedDatabase {
  protected:
    static std::shared_ptr<adapters::Link> LinkTo(const std::string& server) {
        const adapters::ConnectionParts parts{server, "", "sa", "Secret1!", false};
        return std::make_shared<adapters::Link>(parts.DriverText(), ShortTimeout,
                                                std::make_shared<std::vector<data::Error>>());
    }
};

TEST_F(HostileServerTest, ALoginThatIsNotAnsweredEndsInAFailure) {
    const std::string emptyAnswer("\x04\x01\x00\x08\x00\x00\x01\x00", 8);
    const std::string endlessAnswer("\x04\x01\xFF\xFF\x00\x00\x01\x00\xFF\xFF\xFF\xFF", 12);
    const struct {
        const char* what;
        std::string says;
        bool hangsUp;
    } servers[] = {
        {"silent", "", false},
        {"hangs up", "", true},
        {"another protocol", "HTTP/1.1 400 Bad Request\r\n\r\n", false},
        {"another protocol that hangs up", "SSH-2.0-OpenSSH_9.2\r\n", true},
        {"an answer of nothing", emptyAnswer, false},
        {"an answer that claims more than it has", endlessAnswer, false},
        {"noise", std::string(4096, '\xFF'), true},
    };
    for (const auto& [what, says, hangsUp] : servers) {
        SCOPED_TRACE(what);
        const WrongServer server(says, hangsUp);
        const Failure failure = FailureOf([&] { LinkTo(server.Name()); });
        EXPECT_NE(failure.number(), 0);
        EXPECT_TRUE(failure.description().starts_with("[Microsoft]")) << failure.description();
        EXPECT_EQ(failure.description().find("Secret1!"), std::string::npos);
    }
}

TEST_F(HostileServerTest, AStatementThatIsNotAnsweredTimesOutAndTheConnectionGoesOn) {
    listener.server.script.batch = [](const std::string& text, ResultSink& sink,
                                      wire::ScriptedSession& session) {
        if (text == "stall")
            session.WaitForCancel();
        else
            Rows(sink, "n", {1});
    };
    const auto link = LinkTo(ServerName());
    {
        adapters::ResultStream stalled(link);
        const Failure failure = FailureOf([&] { stalled.Execute("stall", ShortTimeout); });
        EXPECT_EQ(failure.number(), numbers::CommandTimeout);
        EXPECT_NE(failure.description().find("Timeout expired"), std::string::npos);
    }
    adapters::ResultStream next(link);
    next.Execute("q", ShortTimeout);
    std::vector<Value> row;
    EXPECT_TRUE(next.Fetch(row));
}

TEST_F(HostileServerTest, ColumnsOfAbsurdSizesAreReadAllTheSame) {
    answers["wide"] = [](ResultSink& sink) {
        std::vector<practice::ResultColumn> columns(1000);
        const auto type = practice::NVarChar(practice::maxLength);
        const std::vector<Datum> row(columns.size(), Datum::Text(type, std::string(5000, 'x')));
        for (auto& column : columns) {
            column.name = std::string(128, 'n');
            column.type = type;
        }
        sink.Columns(columns);
        sink.Row(row);
        wire::TellCount(sink, practice::StatementKind::Select, 1);
    };
    const auto recordset = Query(Connect(), "wide");
    ASSERT_EQ(recordset->FieldCount(), 1000u);
    EXPECT_EQ(recordset->FieldAt(999).Name, std::string(128, 'n'));
    EXPECT_EQ(recordset->FieldAt(999).Value, Value(std::string(5000, 'x')));
}

} // namespace
} // namespace quillon::tests
