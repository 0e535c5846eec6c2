#include "adapters/catalogue/ServerBrowser.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>

namespace quillon::adapters {
namespace {

constexpr char AskAll = 0x02;       // CLNT_BCAST_EX
constexpr char ServerAnswer = 0x05; // SVR_RESP
constexpr std::size_t HeaderLength = 3;
constexpr std::string_view DefaultInstance = "MSSQLSERVER";

using Deadline = std::chrono::steady_clock::time_point;

class UdpSocket {
  public:
    UdpSocket()
        : m_socket(::socket(AF_INET, SOCK_DGRAM, 0)) {
        const int on = 1;
        if (m_socket >= 0)
            ::setsockopt(m_socket, SOL_SOCKET, SO_BROADCAST, &on, sizeof on);
    }
    ~UdpSocket() {
        if (m_socket >= 0)
            ::close(m_socket);
    }
    UdpSocket(const UdpSocket&) = delete;
    UdpSocket& operator=(const UdpSocket&) = delete;

    // An address that cannot be reached answers nothing, like one where nobody listens.
    void Send(const std::string& address, std::uint16_t port) const {
        sockaddr_in target{};
        target.sin_family = AF_INET;
        target.sin_port = htons(port);
        if (::inet_pton(AF_INET, address.c_str(), &target.sin_addr) == 1)
            ::sendto(m_socket, &AskAll, 1, 0, reinterpret_cast<const sockaddr*>(&target), sizeof target);
    }

    // The next datagram before the deadline; empty when none came.
    std::string Receive(Deadline deadline) const {
        const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(
            deadline - std::chrono::steady_clock::now());
        pollfd waiting{m_socket, POLLIN, 0};
        if (m_socket < 0 || left.count() <= 0 || ::poll(&waiting, 1, static_cast<int>(left.count())) <= 0)
            return {};
        std::string datagram(65536, '\0');
        const auto length = ::recv(m_socket, datagram.data(), datagram.size(), 0);
        // A refusal from one address says nothing of the others; an empty text would end the search.
        datagram.resize(length > 0 ? static_cast<std::size_t>(length) : 1);
        return datagram;
    }

  private:
    int m_socket;
};

// The elements between semicolons.
std::vector<std::string_view> Elements(std::string_view text) {
    std::vector<std::string_view> elements;
    for (std::size_t at = 0; at <= text.size();) {
        const auto end = std::min(text.find(';', at), text.size());
        elements.push_back(text.substr(at, end - at));
        at = end + 1;
    }
    return elements;
}

} // namespace

// "ServerName;HOST;InstanceName;NAME;IsClustered;...;;ServerName;...;;"
std::vector<std::string> ServersInAnswer(std::string_view datagram) {
    if (datagram.size() < HeaderLength || datagram[0] != ServerAnswer)
        return {};
    const std::size_t length =
        static_cast<unsigned char>(datagram[1]) + static_cast<unsigned char>(datagram[2]) * std::size_t{256};
    if (length > datagram.size() - HeaderLength)
        return {};
    const auto elements = Elements(datagram.substr(HeaderLength, length));
    std::vector<std::string> servers;
    for (std::size_t at = 0; at + 3 < elements.size(); ++at) {
        if (elements[at] != "ServerName" || elements[at + 2] != "InstanceName" || elements[at + 1].empty())
            continue;
        const std::string host(elements[at + 1]);
        const std::string_view instance = elements[at + 3];
        servers.push_back(
            instance == DefaultInstance || instance.empty() ? host : host + "\\" + std::string(instance));
    }
    return servers;
}

std::vector<std::string> FindServers(const BrowserSearch& search) {
    const auto deadline = std::chrono::steady_clock::now() + search.duration;
    const UdpSocket socket;
    for (const std::string& address : search.addresses)
        socket.Send(address, search.port);
    std::vector<std::string> servers;
    for (std::string datagram; !(datagram = socket.Receive(deadline)).empty();)
        std::ranges::copy(ServersInAnswer(datagram), std::back_inserter(servers));
    std::ranges::sort(servers);
    servers.erase(std::unique(servers.begin(), servers.end()), servers.end());
    return servers;
}

} // namespace quillon::adapters
