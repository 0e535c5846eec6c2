#include "practice/tds/Listener.h"

#include <asio/ip/address_v4.hpp>

#include <algorithm>

namespace quillon::practice::tds {
namespace {

constexpr std::size_t mostConnections = 256;
constexpr std::uint16_t firstSpid = 51; // lower numbers belong to a server itself, and tools filter by that
constexpr std::chrono::seconds loginAllowance{30};
constexpr std::chrono::seconds watchInterval{2};

} // namespace

Listener::Listener(asio::io_context& context, std::uint16_t port, const Surroundings& surroundings)
    : m_acceptor(context, asio::ip::tcp::endpoint(asio::ip::address_v4::loopback(), port))
    , m_timer(context)
    , m_surroundings(surroundings) {
    Accept();
    Watch();
}

Listener::~Listener() {
    Stop();
}

void Listener::Stop() {
    asio::error_code ignored; // closing twice is no failure
    m_acceptor.close(ignored);
    m_timer.cancel();
    for (Connection& connection : m_connections) {
        connection.Stop();
    }
    m_connections.clear();
}

void Listener::Accept() {
    m_acceptor.async_accept([this](const asio::error_code& error, asio::ip::tcp::socket socket) {
        if (error == asio::error::operation_aborted) {
            return;
        }
        if (!error) {
            Admit(std::move(socket));
        }
        Accept();
    });
}

void Listener::Admit(asio::ip::tcp::socket socket) {
    Reap();
    if (m_connections.size() >= mostConnections && !MakeRoom()) {
        m_surroundings.log("a client was turned away: too many connections");
        return;
    }
    asio::error_code ignored; // answers only come a little later without it
    socket.set_option(asio::ip::tcp::no_delay(true), ignored);
    m_connections.emplace_back(std::move(socket), m_surroundings, FreeSpid());
}

// Those who only knock keep nobody out: the one that has knocked longest goes.
bool Listener::MakeRoom() {
    const auto knocking = std::find_if(m_connections.begin(), m_connections.end(), [](const Connection& one) {
        return !one.Finished() && one.Dawdles(std::chrono::seconds(0));
    });
    if (knocking == m_connections.end()) {
        return false;
    }
    knocking->Stop();
    return true;
}

void Listener::Watch() {
    m_timer.expires_after(watchInterval);
    m_timer.async_wait([this](const asio::error_code& error) {
        if (error) {
            return;
        }
        Reap();
        for (Connection& connection : m_connections) {
            if (connection.Dawdles(loginAllowance)) {
                connection.Stop();
            }
        }
        Watch();
    });
}

void Listener::Reap() {
    m_connections.remove_if([](const Connection& connection) { return connection.Finished(); });
}

std::uint16_t Listener::FreeSpid() const {
    std::set<std::uint16_t> taken;
    for (const Connection& connection : m_connections) {
        taken.insert(connection.Spid());
    }
    std::uint16_t spid = firstSpid;
    while (taken.contains(spid)) {
        ++spid;
    }
    return spid;
}

} // namespace quillon::practice::tds
