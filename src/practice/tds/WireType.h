// How the types of the server are named on the wire ([MS-TDS] 2.2.5.4, 2.2.5.6), and which of them an older
// client cannot be told: those go out in the form that the documentation gives for such clients.
#pragma once

#include "practice/tds/Bytes.h"
#include "practice/values/SqlType.h"

#include <cstdint>

namespace quillon::practice::tds {

enum class Token : std::uint8_t {
    Null = 0x1F,
    Int1 = 0x30,
    Bit = 0x32,
    Int2 = 0x34,
    Int4 = 0x38,
    DateTime4 = 0x3A,
    Float4 = 0x3B,
    Money = 0x3C,
    DateTime = 0x3D,
    Float8 = 0x3E,
    Money4 = 0x7A,
    Int8 = 0x7F,
    Guid = 0x24,
    IntN = 0x26,
    BitN = 0x68,
    DecimalN = 0x6A,
    NumericN = 0x6C,
    FloatN = 0x6D,
    MoneyN = 0x6E,
    DateTimeN = 0x6F,
    DateN = 0x28,
    TimeN = 0x29,
    DateTime2N = 0x2A,
    DateTimeOffsetN = 0x2B,
    OldDecimal = 0x37,
    OldNumeric = 0x3F,
    OldVarBinary = 0x25,
    OldVarChar = 0x27,
    OldBinary = 0x2D,
    OldChar = 0x2F,
    VarBinary = 0xA5,
    VarChar = 0xA7,
    Binary = 0xAD,
    Char = 0xAF,
    NVarChar = 0xE7,
    NChar = 0xEF,
    Clr = 0xF0,
    Xml = 0xF1,
    TableValued = 0xF3,
    Text = 0x23,
    NText = 0x63,
    Image = 0x22,
    Variant = 0x62,
};

// The maximum length by which the (max) types are known, and the longest string that is not one of them.
constexpr std::uint32_t chunkedSize = 0xFFFF;
constexpr std::uint32_t longestString = 8000;

// How the length of a value is told.
enum class LengthForm : std::uint8_t {
    None,    // fixed size
    Byte,    // one byte, 0 for NULL
    Short,   // two bytes, FFFF for NULL
    Chunks,  // the partially length-prefixed form of the (max) types
    Pointer, // text, ntext, image: a text pointer, then four bytes
    Long,    // sql_variant: four bytes, 0 for NULL
};

// A type as one connection sees it.
struct WireType {
    Token token = Token::Null;
    LengthForm form = LengthForm::None;
    SqlType type;           // what the values are converted to before they are written
    std::uint32_t size = 0; // the maximum length of the type, in bytes
    bool wide = false;      // text in UTF-16
    int codePage = 1252;    // of text that comes in and is not wide
};

// For columns and return values that are sent. Older clients (`tdsVersion`) get (max) types as text, ntext
// and image and the dates of 7.3 as nvarchar.
WireType WireTypeFor(const SqlType& type, std::uint32_t tdsVersion);

// TYPE_INFO, without the table name that text, ntext and image have in COLMETADATA.
void WriteTypeInfo(const WireType& type, ByteWriter& out);
// The five bytes that name the collation of a character type.
void WriteCollation(const WireType& type, ByteWriter& out);
// TYPE_INFO of a parameter, save that of a table. Throws ProtocolError for sizes that no type has, and
// SqlError for CLR types, which are refused.
WireType ReadTypeInfo(ByteReader& reader, std::uint32_t tdsVersion);

// The number that clients know a user-defined or aliased system type by: 80 for rowversion.
std::uint32_t UserTypeOf(const SqlType& type);

} // namespace quillon::practice::tds
