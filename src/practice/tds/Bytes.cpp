#include "practice/tds/Bytes.h"

#include "practice/tds/Unicode.h"

namespace quillon::practice::tds {

std::string_view ByteReader::Bytes(std::size_t count) {
    if (count > Remaining()) {
        throw ProtocolError("A field goes beyond the end of its message.");
    }
    std::string_view piece = m_bytes.substr(m_position, count);
    m_position += count;
    return piece;
}

std::uint64_t ByteReader::Fixed(std::size_t size) {
    std::string_view piece = Bytes(size);
    std::uint64_t value = 0;
    for (std::size_t index = size; index-- > 0;) {
        value = (value << 8) | static_cast<std::uint8_t>(piece[index]);
    }
    return value;
}

std::uint8_t ByteReader::Peek() const {
    if (AtEnd()) {
        throw ProtocolError("A message ends where a field should begin.");
    }
    return static_cast<std::uint8_t>(m_bytes[m_position]);
}

std::string ByteReader::Utf16(std::size_t count) {
    return FromUtf16(Bytes(count * 2));
}

void ByteWriter::Fixed(std::uint64_t value, std::size_t size) {
    for (std::size_t index = 0; index < size; ++index) {
        m_bytes.push_back(static_cast<char>(value & 0xFF));
        value >>= 8;
    }
}

void ByteWriter::BigEndian32(std::uint32_t value) {
    for (int shift = 24; shift >= 0; shift -= 8) {
        m_bytes.push_back(static_cast<char>((value >> shift) & 0xFF));
    }
}

void ByteWriter::Utf16(std::string_view utf8) {
    AppendUtf16(utf8, m_bytes);
}

void ByteWriter::ShortText(std::string_view utf8) {
    std::string wide = ToUtf16(utf8).substr(0, std::size_t{2} * 255);
    U8(static_cast<std::uint8_t>(wide.size() / 2));
    Bytes(wide);
}

void ByteWriter::LongText(std::string_view utf8) {
    // A token's own length has two bytes as well and counts bytes: half of it leaves room for the token's
    // other fields.
    constexpr std::size_t mostUnits = 16000;
    std::string wide = ToUtf16(utf8).substr(0, mostUnits * 2);
    U16(static_cast<std::uint16_t>(wide.size() / 2));
    Bytes(wide);
}

std::size_t ByteWriter::Reserve16() {
    std::size_t position = m_bytes.size();
    m_bytes.append(2, '\0');
    return position;
}

void ByteWriter::Patch16(std::size_t position, std::uint16_t value) {
    m_bytes[position] = static_cast<char>(value & 0xFF);
    m_bytes[position + 1] = static_cast<char>(value >> 8);
}

} // namespace quillon::practice::tds
