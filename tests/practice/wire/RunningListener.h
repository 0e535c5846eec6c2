// A listener over a scripted server, running for the time of a test, and a plain socket to talk to it.
#pragma once

#include "practice/tds/Listener.h"
#include "practice/wire/ClientBytes.h"
#include "practice/wire/ScriptedServer.h"

#include <asio/io_context.hpp>
#include <asio/ip/tcp.hpp>

#include <memory>
#include <string>
#include <string_view>
#include <thread>

namespace quillon::practice::testing {

class RunningListener {
  public:
    RunningListener();
    ~RunningListener();

    std::uint16_t Port() const { return m_listener->Port(); }
    ScriptedServer server;

  private:
    tds::Surroundings m_surroundings;
    asio::io_context m_context;
    std::unique_ptr<tds::Listener> m_listener;
    std::thread m_thread;
};

class PlainClient {
  public:
    explicit PlainClient(std::uint16_t port);

    void Send(std::string_view bytes);
    // The next whole answer, taken apart; an empty one when the server has closed the connection.
    Answer Receive();
    Answer LogIn(const LoginText& text = {});
    Answer Batch(const std::string& text);
    // Waits until the server closes, dropping what it still says.
    std::string AwaitEnd(); // what came until then
    void Close() { m_socket.close(); }

  private:
    asio::io_context m_context;
    asio::ip::tcp::socket m_socket;
};

} // namespace quillon::practice::testing
