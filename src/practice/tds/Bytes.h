// Reading and writing the little-endian fields of which the protocol is made. A reader never looks beyond its
// bytes and never allocates by a length that the bytes merely claim: whatever does not fit is a
// ProtocolError, which ends that connection.
#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>

namespace quillon::practice::tds {

// What a client sent is not the protocol. The text is for the client, as far as it can still be told, and the
// log.
class ProtocolError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

class ByteReader {
  public:
    explicit ByteReader(std::string_view bytes)
        : m_bytes(bytes) {}

    std::size_t Remaining() const { return m_bytes.size() - m_position; }
    bool AtEnd() const { return Remaining() == 0; }

    std::uint8_t U8() { return static_cast<std::uint8_t>(Fixed(1)); }
    std::uint16_t U16() { return static_cast<std::uint16_t>(Fixed(2)); }
    std::uint32_t U32() { return static_cast<std::uint32_t>(Fixed(4)); }
    std::uint64_t U64() { return Fixed(8); }
    std::int32_t I32() { return static_cast<std::int32_t>(U32()); }
    // An unsigned number of 1 to 8 bytes.
    std::uint64_t Fixed(std::size_t size);
    std::uint8_t Peek() const;

    // The next `count` bytes, which stay the property of whoever owns the message.
    std::string_view Bytes(std::size_t count);
    std::string_view Rest() { return Bytes(Remaining()); }
    // Text of `count` UTF-16 units, as UTF-8.
    std::string Utf16(std::size_t count);
    // Text behind a length of one byte or of two, which counts UTF-16 units.
    std::string ShortText() { return Utf16(U8()); }
    std::string LongText() { return Utf16(U16()); }

  private:
    std::string_view m_bytes;
    std::size_t m_position = 0;
};

class ByteWriter {
  public:
    void U8(std::uint8_t value) { m_bytes.push_back(static_cast<char>(value)); }
    void U16(std::uint16_t value) { Fixed(value, 2); }
    void U32(std::uint32_t value) { Fixed(value, 4); }
    void U64(std::uint64_t value) { Fixed(value, 8); }
    void I32(std::int32_t value) { Fixed(static_cast<std::uint32_t>(value), 4); }
    // The lowest `size` bytes of the value.
    void Fixed(std::uint64_t value, std::size_t size);
    void BigEndian32(std::uint32_t value);
    void Bytes(std::string_view bytes) { m_bytes.append(bytes); }
    void Utf16(std::string_view utf8);
    // Texts behind their length in UTF-16 units; what does not fit in that length is cut.
    void ShortText(std::string_view utf8);
    void LongText(std::string_view utf8);

    // Puts a value of two bytes where Reserve16 left room.
    std::size_t Reserve16();
    void Patch16(std::size_t position, std::uint16_t value);

    std::size_t Size() const { return m_bytes.size(); }
    const std::string& Content() const { return m_bytes; }
    void Clear() { m_bytes.clear(); }

  private:
    std::string m_bytes;
};

} // namespace quillon::practice::tds
