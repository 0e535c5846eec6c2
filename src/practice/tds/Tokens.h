// The tokens of the server's answers ([MS-TDS] 2.2.7), one function each. Where the versions of the protocol
// differ the writer knows which one this connection speaks.
#pragma once

#include "practice/session/ResultSink.h"
#include "practice/tds/Bytes.h"
#include "practice/tds/Packets.h"
#include "practice/tds/WireType.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace quillon::practice::tds {

namespace done {
constexpr std::uint16_t more = 0x001;
constexpr std::uint16_t error = 0x002;
constexpr std::uint16_t inTransaction = 0x004;
constexpr std::uint16_t count = 0x010;
constexpr std::uint16_t attention = 0x020;
} // namespace done

class TokenWriter {
  public:
    TokenWriter(PacketWriter& packets, std::uint32_t tdsVersion, std::string serverName);

    void LoginAcknowledge();
    void Message(const ServerMessage& message);
    // Columns of a result; Row takes values for the last ones told.
    void Columns(const std::vector<ResultColumn>& columns);
    void Row(std::span<const Datum> values);
    void Done(const StatementEnd& end, std::uint16_t flags);
    void ReturnStatus(std::int32_t status);
    void ReturnValue(std::size_t ordinal, std::string_view name, const SqlType& type, const Datum& value);
    void Environment(const EnvironmentChange& change);
    void PacketSizeChange(std::size_t newSize, std::size_t oldSize);
    void CollationChange();
    void ResetAcknowledge();

    void Flush() { m_packets.Flush(); }
    void EndMessage() { m_packets.EndMessage(); }

  private:
    void WriteColumn(const ResultColumn& column, const WireType& type);
    void WriteTableName(const std::string& name);
    void WriteUserType(const SqlType& type);
    void TextChange(std::uint8_t kind, std::string_view newValue, std::string_view oldValue);
    void TransactionChange(std::uint8_t kind, std::uint64_t newValue, std::uint64_t oldValue);
    // Writes the token of which the fields up to now are in m_buffer.
    void Send();
    void SendWithLength(std::uint8_t token, const ByteWriter& fields);

    PacketWriter& m_packets;
    std::uint32_t m_version;
    std::string m_serverName;
    std::vector<WireType> m_types;
    ByteWriter m_buffer;
};

} // namespace quillon::practice::tds
