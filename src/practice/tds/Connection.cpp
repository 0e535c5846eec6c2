#include "practice/tds/Connection.h"

#include <asio/buffer.hpp>
#include <asio/write.hpp>

#include <algorithm>
#include <array>

namespace quillon::practice::tds {
namespace {

// People point browsers at ports.
bool SpeaksHttp(std::string_view start) {
    constexpr std::string_view methods[] = {"GET ",     "HEAD ",   "POST ", "PUT ",
                                            "OPTIONS ", "DELETE ", "PATCH "};
    return std::any_of(std::begin(methods), std::end(methods),
                       [&](std::string_view method) { return start.starts_with(method); });
}

constexpr std::string_view httpRefusal =
    "HTTP/1.1 400 Bad Request\r\nContent-Type: text/plain; charset=utf-8\r\nConnection: close\r\n"
    "\r\nThis is a database server. Connect to it with a client that speaks TDS.\r\n";

constexpr std::size_t mostLoginBytes = 128 * 1024;
constexpr std::size_t mostRequestBytes = 256 * 1024 * 1024;

} // namespace

Connection::Connection(asio::ip::tcp::socket socket, const Surroundings& surroundings, std::uint16_t spid)
    : m_socket(std::move(socket))
    , m_surroundings(surroundings)
    , m_spid(spid)
    , m_reader([this] { Read(); })
    , m_server([this] { Serve(); }) {}

Connection::~Connection() {
    m_server.join();
    m_reader.join();
}

// Only shutdown is called on the socket while both threads use it, which sockets allow; it is closed with the
// object.
void Connection::Stop() {
    asio::error_code ignored; // the client may have closed it already
    m_socket.shutdown(asio::ip::tcp::socket::shutdown_both, ignored);
    m_inbox.Close();
}

bool Connection::Dawdles(std::chrono::steady_clock::duration allowance) const {
    return !m_loggedIn && std::chrono::steady_clock::now() - m_start > allowance;
}

void Connection::Read() {
    PacketAssembler assembler;
    assembler.SetLimit(mostLoginBytes);
    try {
        ReadMessages(assembler);
    } catch (const std::exception& error) {
        m_surroundings.log("connection " + std::to_string(m_spid) + ": " + error.what());
        asio::error_code ignored;
        m_socket.shutdown(asio::ip::tcp::socket::shutdown_both, ignored);
    }
    m_inbox.Close();
}

void Connection::ReadMessages(PacketAssembler& assembler) {
    std::array<char, 16384> buffer;
    for (bool first = true;; first = false) {
        asio::error_code error;
        std::size_t count = m_socket.receive(asio::buffer(buffer), 0, error);
        if (error || count == 0) {
            return;
        }
        if (first && SpeaksHttp({buffer.data(), count})) {
            Send(httpRefusal);
            throw ProtocolError("A client of the web was turned away.");
        }
        if (m_loggedIn) {
            assembler.SetLimit(mostRequestBytes);
        }
        assembler.Feed({buffer.data(), count});
        while (auto message = assembler.Next()) {
            if (message->type == PacketType::Attention) {
                m_inbox.PutAttention();
            } else {
                m_inbox.Put(std::move(*message));
            }
        }
    }
}

void Connection::Send(std::string_view packet) {
    asio::error_code error;
    asio::write(m_socket, asio::buffer(packet.data(), packet.size()), error);
    if (error) {
        throw ClientGone();
    }
}

void Connection::Serve() {
    asio::error_code ignored; // only names the client
    LoginFacts facts;
    facts.spid = m_spid;
    facts.endConnection = [this] { Stop(); };
    facts.address = m_socket.remote_endpoint(ignored).address().to_string();
    try {
        // The reader must know of the login before the client does, which may answer it with a long request
        // at once.
        Dialogue dialogue(
            m_surroundings, m_inbox,
            [this, &dialogue](std::string_view packet) {
                m_loggedIn = dialogue.LoggedIn();
                Send(packet);
            },
            facts);
        while (auto message = m_inbox.Take()) {
            if (!dialogue.Serve(*message)) {
                break;
            }
        }
    } catch (const ClientGone&) {
        // The session has undone what ran; nobody is left to be told.
    } catch (const std::exception& error) {
        m_surroundings.log("connection " + std::to_string(m_spid) + ": " + error.what());
    }
    Stop();
    m_finished = true;
}

} // namespace quillon::practice::tds
