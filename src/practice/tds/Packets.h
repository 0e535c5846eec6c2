// Packets: the frames of the protocol ([MS-TDS] 2.2.3). A message is one or more packets, the last of which
// says so.
#pragma once

#include "practice/tds/Bytes.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace quillon::practice::tds {

enum class PacketType : std::uint8_t {
    SqlBatch = 1,
    PreTds7Login = 2,
    Rpc = 3,
    Response = 4,
    Attention = 6,
    BulkLoad = 7,
    FederatedToken = 8,
    TransactionManager = 14,
    Login7 = 16,
    Sspi = 17,
    Prelogin = 18,
};

namespace status {
constexpr std::uint8_t endOfMessage = 0x01;
constexpr std::uint8_t ignore = 0x02;
constexpr std::uint8_t resetConnection = 0x08;
constexpr std::uint8_t resetKeepTransaction = 0x10;
} // namespace status

constexpr std::size_t packetHeaderSize = 8;
constexpr std::size_t leastPacketSize = 512;
constexpr std::size_t defaultPacketSize = 4096;
constexpr std::size_t mostPacketSize = 32767;

// A whole message of the client.
struct ClientMessage {
    PacketType type = PacketType::SqlBatch;
    std::uint8_t resetFlags = 0; // status::reset... of its first packet
    bool ignored = false;        // the client took it back while it sent it
    std::string body;
};

// Puts messages together from bytes that come in pieces of any size.
class PacketAssembler {
  public:
    // Messages beyond this many bytes are refused; memory grows with what has arrived, never with what is
    // announced.
    void SetLimit(std::size_t bytes) { m_limit = bytes; }

    void Feed(std::string_view bytes) { m_bytes.append(bytes); }
    // The next message that is complete. An attention within another message replaces it. Throws
    // ProtocolError.
    std::optional<ClientMessage> Next();

  private:
    bool TakePacket(); // false: more bytes are needed
    void StartMessage(PacketType type, std::uint8_t flags);

    std::string m_bytes;
    std::size_t m_start = 0;
    std::size_t m_limit = 128 * 1024;
    bool m_within = false;
    bool m_complete = false;
    ClientMessage m_message;
};

// Cuts the server's answers into packets and hands each to `send` as soon as it is full.
class PacketWriter {
  public:
    using Send = std::function<void(std::string_view)>;

    explicit PacketWriter(Send send, std::uint16_t spid = 0);

    // Holds for the next message.
    void SetPacketSize(std::size_t bytes) { m_nextSize = bytes; }
    void Write(std::string_view bytes);
    // Sends what there is without ending the message.
    void Flush();
    void EndMessage();

  private:
    void SendPacket(std::uint8_t statusFlags);
    void StartPacket();

    Send m_send;
    std::uint16_t m_spid;
    std::size_t m_size = defaultPacketSize;
    std::size_t m_nextSize = defaultPacketSize;
    std::uint8_t m_packetNumber = 1;
    std::string m_packet;
};

} // namespace quillon::practice::tds
