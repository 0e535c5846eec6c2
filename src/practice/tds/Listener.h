// Accepts clients on the loopback and keeps the list of their connections.
#pragma once

#include "practice/tds/Connection.h"

#include <asio/io_context.hpp>
#include <asio/steady_timer.hpp>

#include <cstdint>
#include <list>
#include <set>

namespace quillon::practice::tds {

class Listener {
  public:
    // Opens 127.0.0.1:port, where port 0 lets the system choose. Throws asio::system_error when the port is
    // taken. `surroundings` outlives the listener.
    Listener(asio::io_context& context, std::uint16_t port, const Surroundings& surroundings);
    ~Listener();

    std::uint16_t Port() const { return m_acceptor.local_endpoint().port(); }
    // Accepts no more, ends every connection and waits until they are gone.
    void Stop();

  private:
    void Accept();
    void Admit(asio::ip::tcp::socket socket);
    bool MakeRoom();
    void Watch();
    void Reap();
    std::uint16_t FreeSpid() const;

    asio::ip::tcp::acceptor m_acceptor;
    asio::steady_timer m_timer;
    const Surroundings& m_surroundings;
    std::list<Connection> m_connections;
};

} // namespace quillon::practice::tds
