#include "practice/tds/BulkRows.h"

#include "practice/tds/Login.h"
#include "practice/tds/Values.h"

namespace quillon::practice::tds {
namespace {

enum : std::uint8_t { columnMetadata = 0x81, plainRow = 0xD1, nullBitmapRow = 0xD2, done = 0xFD };

bool IsOldLob(const WireType& type) {
    return type.token == Token::Text || type.token == Token::NText || type.token == Token::Image;
}

WireType ReadColumn(ByteReader& reader, std::uint32_t tdsVersion) {
    reader.Fixed(tdsVersion >= version::tds72 ? 4 : 2); // user type
    reader.U16();                                       // flags
    WireType type = ReadTypeInfo(reader, tdsVersion);
    if (IsOldLob(type)) {
        reader.LongText(); // the table's name, in one part from clients of all versions
    }
    reader.ShortText();
    return type;
}

std::vector<WireType> ReadColumns(ByteReader& reader, std::uint32_t tdsVersion) {
    if (reader.U8() != columnMetadata) {
        throw ProtocolError("The rows of a bulk load begin with their columns.");
    }
    const std::uint16_t count = reader.U16();
    if (count == 0) {
        throw ProtocolError("A bulk load has no columns.");
    }
    std::vector<WireType> columns;
    for (std::uint16_t index = 0; index < count; ++index) {
        columns.push_back(ReadColumn(reader, tdsVersion));
    }
    return columns;
}

// In a row these types have a text pointer and a timestamp before their length; without a pointer it is NULL.
Datum ReadOldLob(const WireType& type, ByteReader& reader) {
    constexpr std::size_t timestamp = 8;
    const std::uint8_t pointer = reader.U8();
    if (pointer == 0) {
        return Datum::Null(type.type);
    }
    reader.Bytes(pointer + timestamp);
    return ReadValue(type, reader);
}

bool IsMarked(std::string_view bitmap, std::size_t index) {
    return !bitmap.empty() && (static_cast<unsigned char>(bitmap[index / 8]) >> (index % 8) & 1U) != 0;
}

} // namespace

BulkRows::BulkRows(std::string_view body, std::uint32_t tdsVersion)
    : m_reader(body)
    , m_columns(ReadColumns(m_reader, tdsVersion)) {}

void BulkRows::ReadRow(std::string_view nulls, std::vector<Datum>& row) {
    row.clear();
    for (const WireType& column : m_columns) {
        if (IsMarked(nulls, row.size())) {
            row.push_back(Datum::Null(column.type));
        } else {
            row.push_back(IsOldLob(column) ? ReadOldLob(column, m_reader) : ReadValue(column, m_reader));
        }
    }
}

bool BulkRows::Next(std::vector<Datum>& row) {
    if (m_reader.AtEnd()) {
        return false;
    }
    switch (m_reader.U8()) {
    case plainRow: ReadRow({}, row); return true;
    case nullBitmapRow: ReadRow(m_reader.Bytes((m_columns.size() + 7) / 8), row); return true;
    case done: m_reader.Rest(); return false;
    default: throw ProtocolError("A bulk load has something else than rows.");
    }
}

} // namespace quillon::practice::tds
