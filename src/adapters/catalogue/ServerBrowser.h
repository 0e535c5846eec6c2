// Finds database servers on the network by the SQL Server Browser protocol (MS-SQLR): one datagram to the
// broadcast address, and the answers that come within a bounded time.
#pragma once

#include <chrono>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace quillon::adapters {

struct BrowserSearch {
    // IPv4. The loopback stands beside the broadcast address, which does not reach this machine's own
    // servers.
    std::vector<std::string> addresses{"255.255.255.255", "127.0.0.1"};
    std::uint16_t port = 1434;
    std::chrono::milliseconds duration{1500};
};

// Names of the servers that answer, "HOST" or "HOST\INSTANCE", in order and each once. A network that cannot
// be used finds none.
std::vector<std::string> FindServers(const BrowserSearch& search);

// The server names in one answer; none if it is malformed.
std::vector<std::string> ServersInAnswer(std::string_view datagram);

} // namespace quillon::adapters
