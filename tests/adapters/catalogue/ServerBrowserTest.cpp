// Servers that answer on the network: what their answers hold, and that a search ends in time.
#include "adapters/catalogue/ServerBrowser.h"

#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <thread>

namespace quillon::tests {
namespace {

using adapters::BrowserSearch;
using adapters::FindServers;
using adapters::ServersInAnswer;
using Names = std::vector<std::string>;

std::string Answer(const std::string& text) {
    return std::string("\x05") + static_cast<char>(text.size() & 255) + static_cast<char>(text.size() >> 8) +
           text;
}

constexpr const char* TwoInstances =
    "ServerName;BETA;InstanceName;MSSQLSERVER;IsClustered;No;Version;15.0.2000.5;tcp;1433;;"
    "ServerName;BETA;InstanceName;SALES;IsClustered;No;Version;15.0.2000.5;tcp;50123;;";

TEST(ServerBrowserTest, ReadsTheInstancesOfAnAnswer) {
    const struct {
        const char* what;
        std::string datagram;
        Names names;
    } cases[] = {
        {"two instances", Answer(TwoInstances), {"BETA", "BETA\\SALES"}},
        {"nothing", "", {}},
        {"a header alone", std::string("\x05\x00\x00", 3), {}},
        {"another message", "\x04" + Answer(TwoInstances).substr(1), {}},
        {"shorter than it says", Answer(TwoInstances).substr(0, 40), {}},
        {"no instance", Answer("ServerName;BETA;;"), {}},
        {"no host", Answer("ServerName;;InstanceName;A;;"), {}},
        {"garbage", Answer(";;;;ServerName;InstanceName;"), {}},
    };
    for (const auto& [what, datagram, names] : cases)
        EXPECT_EQ(ServersInAnswer(datagram), names) << what;
}

// A browser service on a port of the system's choice that answers once with several datagrams.
class Browser {
  public:
    explicit Browser(Names datagrams)
        : m_socket(::socket(AF_INET, SOCK_DGRAM, 0)) {
        sockaddr_in own{};
        own.sin_family = AF_INET;
        own.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        ::bind(m_socket, reinterpret_cast<sockaddr*>(&own), sizeof own);
        socklen_t length = sizeof own;
        ::getsockname(m_socket, reinterpret_cast<sockaddr*>(&own), &length);
        m_port = ntohs(own.sin_port);
        m_thread = std::thread([this, answers = std::move(datagrams)] {
            char question = 0;
            sockaddr_in asker{};
            socklen_t size = sizeof asker;
            if (::recvfrom(m_socket, &question, 1, 0, reinterpret_cast<sockaddr*>(&asker), &size) != 1)
                return;
            m_question = question;
            for (const auto& answer : answers)
                ::sendto(m_socket, answer.data(), answer.size(), 0, reinterpret_cast<sockaddr*>(&asker),
                         size);
        });
    }
    ~Browser() {
        Join();
        ::close(m_socket);
    }
    void Join() {
        if (m_thread.joinable())
            m_thread.join();
    }
    std::uint16_t Port() const { return m_port; }
    char Question() const { return m_question; }

  private:
    int m_socket;
    std::uint16_t m_port = 0;
    char m_question = 0;
    std::thread m_thread;
};

TEST(ServerBrowserTest, CollectsAnswersUntilTheTimeIsOver) {
    Browser browser({Answer(TwoInstances), "x", Answer("ServerName;ALPHA;InstanceName;MSSQLSERVER;;"),
                     Answer("ServerName;ALPHA;InstanceName;MSSQLSERVER;;")});
    const BrowserSearch search{{"127.0.0.1", "no address"}, browser.Port(), std::chrono::milliseconds(300)};
    EXPECT_EQ(FindServers(search), (Names{"ALPHA", "BETA", "BETA\\SALES"}));
    browser.Join();
    EXPECT_EQ(browser.Question(), 2);
}

TEST(ServerBrowserTest, ANetworkWithoutServersFindsNone) {
    EXPECT_EQ(FindServers({{"127.0.0.1"}, 9, std::chrono::milliseconds(50)}), Names{});
}

} // namespace
} // namespace quillon::tests
