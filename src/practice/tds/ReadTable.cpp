#include "practice/tds/ReadTable.h"

#include "practice/tds/Values.h"
#include "practice/values/SqlError.h"

namespace quillon::practice::tds {
namespace {

constexpr std::uint16_t mostColumns = 1024;

struct ColumnOfTable {
    WireType type;
    bool leftOut = false;
};

ColumnOfTable ReadColumn(ByteReader& reader, std::uint32_t tdsVersion) {
    constexpr std::uint16_t isDefault = 0x0200;
    ColumnOfTable column;
    reader.U32(); // user type
    column.leftOut = (reader.U16() & isDefault) != 0;
    column.type = ReadTypeInfo(reader, tdsVersion);
    if (column.type.token == Token::Null) {
        throw ProtocolError("A column of a table has no type.");
    }
    reader.ShortText(); // its name, which clients leave empty
    return column;
}

std::vector<ColumnOfTable> ReadColumns(ByteReader& reader, std::uint32_t tdsVersion) {
    constexpr std::uint16_t none = 0xFFFF;
    std::vector<ColumnOfTable> columns;
    const std::uint16_t count = reader.U16();
    if (count == none) {
        return columns;
    }
    if (count > mostColumns) {
        throw ProtocolError("A table has too many columns.");
    }
    while (columns.size() < count) {
        columns.push_back(ReadColumn(reader, tdsVersion));
    }
    return columns;
}

// What the client knows of the rows' order changes nothing: the table has its own keys.
void SkipOrders(ByteReader& reader) {
    enum : std::uint8_t { end = 0x00, orderAndUnique = 0x10, columnOrder = 0x11 };
    constexpr std::size_t orderSize = 3;
    for (std::uint8_t token = reader.U8(); token != end; token = reader.U8()) {
        if (token == columnOrder) {
            throw SqlError::NotSupported("the columns of a table in another order than that of its type");
        }
        if (token != orderAndUnique) {
            throw ProtocolError("The columns of a table are followed by something else than rows.");
        }
        reader.Bytes(reader.U16() * orderSize);
    }
}

// Columns that are left out have no place in the rows.
std::vector<Datum> ReadRow(const std::vector<ColumnOfTable>& columns, ByteReader& reader) {
    std::vector<Datum> row;
    for (const ColumnOfTable& column : columns) {
        if (!column.leftOut) {
            row.push_back(ReadValue(column.type, reader));
        }
    }
    return row;
}

} // namespace

TableArgument ReadTable(ByteReader& reader, std::uint32_t tdsVersion) {
    enum : std::uint8_t { end = 0x00, row = 0x01 };
    TableArgument table;
    reader.ShortText(); // the database, which must be the current one
    reader.ShortText(); // the schema
    table.type = reader.ShortText();
    const std::vector<ColumnOfTable> columns = ReadColumns(reader, tdsVersion);
    for (const ColumnOfTable& column : columns) {
        table.leftOut.push_back(column.leftOut);
    }
    SkipOrders(reader);
    for (std::uint8_t token = reader.U8(); token != end; token = reader.U8()) {
        if (token != row || columns.empty()) {
            throw ProtocolError("A table has something else than rows.");
        }
        table.rows.push_back(ReadRow(columns, reader));
    }
    return table;
}

} // namespace quillon::practice::tds
