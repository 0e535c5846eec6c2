// One client's socket with its two threads: one reads, so that an attention or the client's end is seen while
// a statement runs; the other serves requests and writes the answers. A slow client holds its own serving
// thread back and nobody else.
#pragma once

#include "practice/tds/Dialogue.h"

#include <asio/ip/tcp.hpp>

#include <atomic>
#include <chrono>
#include <thread>

namespace quillon::practice::tds {

class Connection {
  public:
    Connection(asio::ip::tcp::socket socket, const Surroundings& surroundings, std::uint16_t spid);
    // Waits for both threads; call Stop before where the client may still be there.
    ~Connection();

    // From any thread: the running request is cancelled and the connection ends.
    void Stop();
    bool Finished() const { return m_finished; }
    std::uint16_t Spid() const { return m_spid; }
    // Whether the client has had `allowance` since it connected and has not logged in.
    bool Dawdles(std::chrono::steady_clock::duration allowance) const;

  private:
    void Read();
    void ReadMessages(PacketAssembler& assembler);
    void Serve();
    void Send(std::string_view packet);

    asio::ip::tcp::socket m_socket;
    const Surroundings& m_surroundings;
    std::uint16_t m_spid;
    std::chrono::steady_clock::time_point m_start = std::chrono::steady_clock::now();
    Inbox m_inbox;
    std::atomic<bool> m_finished = false;
    std::atomic<bool> m_loggedIn = false;
    std::thread m_reader;
    std::thread m_server;
};

} // namespace quillon::practice::tds
