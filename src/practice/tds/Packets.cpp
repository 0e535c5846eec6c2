#include "practice/tds/Packets.h"

#include <algorithm>
#include <utility>

namespace quillon::practice::tds {
namespace {

bool IsClientPacket(std::uint8_t type) {
    switch (static_cast<PacketType>(type)) {
    case PacketType::SqlBatch:
    case PacketType::PreTds7Login:
    case PacketType::Rpc:
    case PacketType::Attention:
    case PacketType::BulkLoad:
    case PacketType::FederatedToken:
    case PacketType::TransactionManager:
    case PacketType::Login7:
    case PacketType::Sspi:
    case PacketType::Prelogin: return true;
    case PacketType::Response: return false;
    }
    return false;
}

} // namespace

std::optional<ClientMessage> PacketAssembler::Next() {
    while (!m_complete) {
        if (!TakePacket()) {
            m_bytes.erase(0, std::exchange(m_start, 0));
            return std::nullopt;
        }
    }
    m_complete = false;
    m_within = false;
    return std::exchange(m_message, {});
}

void PacketAssembler::StartMessage(PacketType type, std::uint8_t flags) {
    m_message = {};
    m_message.type = type;
    m_message.resetFlags = flags & (status::resetConnection | status::resetKeepTransaction);
    m_within = true;
}

bool PacketAssembler::TakePacket() {
    std::string_view waiting = std::string_view(m_bytes).substr(m_start);
    if (waiting.size() < packetHeaderSize) {
        return false;
    }
    auto byteAt = [&](std::size_t index) { return static_cast<std::uint8_t>(waiting[index]); };
    std::size_t length = static_cast<std::size_t>(byteAt(2)) << 8 | byteAt(3);
    if (!IsClientPacket(byteAt(0)) || length < packetHeaderSize) {
        throw ProtocolError("A packet has a header that no client sends.");
    }
    if (waiting.size() < length) {
        return false;
    }
    auto type = static_cast<PacketType>(byteAt(0));
    std::uint8_t flags = byteAt(1);
    if (!m_within || type == PacketType::Attention) {
        StartMessage(type, flags);
    } else if (type != m_message.type) {
        throw ProtocolError("A message changes its type half-way.");
    }
    if (m_message.body.size() + length > m_limit) {
        throw ProtocolError("A message is longer than this server takes.");
    }
    m_message.body.append(waiting.substr(packetHeaderSize, length - packetHeaderSize));
    m_message.ignored = (flags & status::ignore) != 0;
    m_complete = (flags & status::endOfMessage) != 0 || type == PacketType::Attention;
    m_start += length;
    return true;
}

PacketWriter::PacketWriter(Send send, std::uint16_t spid)
    : m_send(std::move(send))
    , m_spid(spid) {
    StartPacket();
}

void PacketWriter::StartPacket() {
    m_packet.assign(packetHeaderSize, '\0');
}

void PacketWriter::Write(std::string_view bytes) {
    while (!bytes.empty()) {
        // A full packet is only sent when more follows: the last packet of a message is never empty for
        // nothing.
        if (m_packet.size() == m_size) {
            SendPacket(0);
        }
        std::size_t count = std::min(bytes.size(), m_size - m_packet.size());
        m_packet.append(bytes.substr(0, count));
        bytes.remove_prefix(count);
    }
}

void PacketWriter::Flush() {
    if (m_packet.size() > packetHeaderSize) {
        SendPacket(0);
    }
}

void PacketWriter::EndMessage() {
    SendPacket(status::endOfMessage);
    m_packetNumber = 1;
    m_size = m_nextSize;
}

void PacketWriter::SendPacket(std::uint8_t statusFlags) {
    std::size_t length = m_packet.size();
    m_packet[0] = static_cast<char>(PacketType::Response);
    m_packet[1] = static_cast<char>(statusFlags);
    m_packet[2] = static_cast<char>(length >> 8);
    m_packet[3] = static_cast<char>(length & 0xFF);
    m_packet[4] = static_cast<char>(m_spid >> 8);
    m_packet[5] = static_cast<char>(m_spid & 0xFF);
    m_packet[6] = static_cast<char>(m_packetNumber++);
    m_send(m_packet);
    StartPacket();
}

} // namespace quillon::practice::tds
