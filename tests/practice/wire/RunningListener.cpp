#include "practice/wire/RunningListener.h"

#include <asio/post.hpp>
#include <asio/read.hpp>
#include <asio/write.hpp>

namespace quillon::practice::testing {

RunningListener::RunningListener()
    : m_surroundings{server, OnlySa(), "PRACTICE"}
    , m_listener(std::make_unique<tds::Listener>(m_context, std::uint16_t{0}, m_surroundings))
    , m_thread([this] { m_context.run(); }) {}

RunningListener::~RunningListener() {
    m_context.stop();
    m_thread.join();
    m_listener->Stop();
}

PlainClient::PlainClient(std::uint16_t port)
    : m_socket(m_context) {
    m_socket.connect({asio::ip::address_v4::loopback(), port});
}

void PlainClient::Send(std::string_view bytes) {
    asio::write(m_socket, asio::buffer(bytes.data(), bytes.size()));
}

Answer PlainClient::Receive() {
    std::string all;
    bool last = false;
    while (!last) {
        std::string header(tds::packetHeaderSize, '\0');
        asio::error_code error;
        asio::read(m_socket, asio::buffer(header), error);
        if (error) {
            return {};
        }
        last = header[1] == 1;
        std::size_t length = static_cast<std::size_t>(static_cast<std::uint8_t>(header[2])) << 8 |
                             static_cast<std::uint8_t>(header[3]);
        std::string body(length - header.size(), '\0');
        asio::read(m_socket, asio::buffer(body));
        all += header + body;
    }
    return TakeApart(Unwrap(all));
}

Answer PlainClient::LogIn(const LoginText& text) {
    Send(Packets(tds::PacketType::Login7, Login7Body(text)));
    return Receive();
}

Answer PlainClient::Batch(const std::string& text) {
    Send(Packets(tds::PacketType::SqlBatch, BatchBody(text)));
    return Receive();
}

std::string PlainClient::AwaitEnd() {
    std::string all;
    std::array<char, 4096> buffer;
    asio::error_code error;
    while (!error) {
        all.append(buffer.data(), m_socket.read_some(asio::buffer(buffer), error));
    }
    return all;
}

} // namespace quillon::practice::testing
