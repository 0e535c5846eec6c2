#include "practice/tds/Login.h"
#include "practice/tds/WireType.h"
#include "practice/values/SqlError.h"

#include <string>

namespace quillon::practice::tds {
namespace {

[[noreturn]] void RefuseSize() {
    throw ProtocolError("A parameter's type has a size that it cannot have.");
}

WireType Simple(Token token, LengthForm form, TypeId id, std::uint32_t size) {
    return {token, form, SimpleType(id), size, false};
}

WireType BySize(Token token, std::uint32_t size) {
    auto choose = [&](std::initializer_list<std::pair<std::uint32_t, TypeId>> choices) {
        for (auto [bytes, id] : choices) {
            if (bytes == size) {
                return Simple(token, LengthForm::Byte, id, size);
            }
        }
        RefuseSize();
    };
    switch (token) {
    case Token::IntN:
        return choose({{1, TypeId::TinyInt}, {2, TypeId::SmallInt}, {4, TypeId::Int}, {8, TypeId::BigInt}});
    case Token::BitN: return choose({{1, TypeId::Bit}});
    case Token::FloatN: return choose({{4, TypeId::Real}, {8, TypeId::Float}});
    case Token::MoneyN: return choose({{4, TypeId::SmallMoney}, {8, TypeId::Money}});
    case Token::DateTimeN: return choose({{4, TypeId::SmallDateTime}, {8, TypeId::DateTime}});
    default: return choose({{16, TypeId::UniqueIdentifier}});
    }
}

WireType ReadDecimal(Token token, ByteReader& reader) {
    std::uint32_t size = reader.U8();
    int precision = reader.U8();
    int scale = reader.U8();
    if (precision < 1 || precision > 38 || scale > precision || size < 2 || size > 17) {
        RefuseSize();
    }
    bool numeric = token == Token::NumericN || token == Token::OldNumeric;
    return {numeric ? Token::NumericN : Token::DecimalN, LengthForm::Byte,
            DecimalType(precision, scale, numeric ? TypeId::Numeric : TypeId::Decimal), 17, false};
}

WireType ReadScaled(Token token, ByteReader& reader) {
    int scale = reader.U8();
    if (scale > 7) {
        RefuseSize();
    }
    TypeId id = token == Token::TimeN        ? TypeId::Time
                : token == Token::DateTime2N ? TypeId::DateTime2
                                             : TypeId::DateTimeOffset;
    return {token, LengthForm::Byte, MomentType(id, scale), 10, false};
}

// What the client's bytes are written in.
int ReadCollation(ByteReader& reader) {
    const std::uint32_t localeAndFlags = reader.U32();
    return CodePageOnWire(localeAndFlags, reader.U8());
}

WireType ReadString(Token token, ByteReader& reader) {
    bool wide = token == Token::NChar || token == Token::NVarChar;
    bool bytes = token == Token::Binary || token == Token::VarBinary;
    TypeId id = token == Token::NChar       ? TypeId::NChar
                : token == Token::NVarChar  ? TypeId::NVarChar
                : token == Token::Binary    ? TypeId::Binary
                : token == Token::VarBinary ? TypeId::VarBinary
                : token == Token::Char      ? TypeId::Char
                                            : TypeId::VarChar;
    std::uint32_t size = reader.U16();
    const int codePage = bytes ? 0 : ReadCollation(reader);
    if (size != chunkedSize && size > longestString) {
        RefuseSize();
    }
    bool chunked = size == chunkedSize;
    int length = chunked ? maxLength : static_cast<int>(std::max(size / (wide ? 2U : 1U), 1U));
    SqlType type = bytes ? BinaryType(id, length) : TextType(id, length);
    return {token, chunked ? LengthForm::Chunks : LengthForm::Short, type, size, wide, codePage};
}

// The strings of 255 bytes at most of older clients.
WireType ReadOldString(Token token, ByteReader& reader) {
    int length = std::max<int>(reader.U8(), 1);
    switch (token) {
    case Token::OldChar: return {token, LengthForm::Byte, TextType(TypeId::Char, length), 255, false};
    case Token::OldVarChar: return {token, LengthForm::Byte, TextType(TypeId::VarChar, length), 255, false};
    case Token::OldBinary: return {token, LengthForm::Byte, BinaryType(TypeId::Binary, length), 255, false};
    default: return {token, LengthForm::Byte, BinaryType(TypeId::VarBinary, length), 255, false};
    }
}

// As a parameter a text has no table name and its values no text pointer.
WireType ReadLob(Token token, ByteReader& reader) {
    std::uint32_t size = reader.U32();
    const int codePage = token == Token::Image ? 0 : ReadCollation(reader);
    TypeId id = token == Token::Image ? TypeId::Image : token == Token::NText ? TypeId::NText : TypeId::Text;
    return {token, LengthForm::Long, SimpleType(id), size, token == Token::NText, codePage};
}

WireType ReadXml(ByteReader& reader) {
    if (reader.U8() != 0) { // a schema: database, owner and collection
        reader.ShortText();
        reader.ShortText();
        reader.LongText();
    }
    return {Token::Xml, LengthForm::Chunks, SimpleType(TypeId::Xml), 0, true};
}

std::optional<WireType> FixedType(Token token) {
    switch (token) {
    case Token::Null: return Simple(token, LengthForm::None, TypeId::Null, 0);
    case Token::Int1: return Simple(token, LengthForm::None, TypeId::TinyInt, 1);
    case Token::Bit: return Simple(token, LengthForm::None, TypeId::Bit, 1);
    case Token::Int2: return Simple(token, LengthForm::None, TypeId::SmallInt, 2);
    case Token::Int4: return Simple(token, LengthForm::None, TypeId::Int, 4);
    case Token::Int8: return Simple(token, LengthForm::None, TypeId::BigInt, 8);
    case Token::DateTime4: return Simple(token, LengthForm::None, TypeId::SmallDateTime, 4);
    case Token::DateTime: return Simple(token, LengthForm::None, TypeId::DateTime, 8);
    case Token::Float4: return Simple(token, LengthForm::None, TypeId::Real, 4);
    case Token::Float8: return Simple(token, LengthForm::None, TypeId::Float, 8);
    case Token::Money4: return Simple(token, LengthForm::None, TypeId::SmallMoney, 4);
    case Token::Money: return Simple(token, LengthForm::None, TypeId::Money, 8);
    default: return std::nullopt;
    }
}

} // namespace

WireType ReadTypeInfo(ByteReader& reader, std::uint32_t tdsVersion) {
    auto token = static_cast<Token>(reader.U8());
    if (auto fixed = FixedType(token)) {
        return *fixed;
    }
    switch (token) {
    case Token::IntN:
    case Token::BitN:
    case Token::FloatN:
    case Token::MoneyN:
    case Token::DateTimeN:
    case Token::Guid: return BySize(token, reader.U8());
    case Token::OldDecimal:
    case Token::OldNumeric:
    case Token::DecimalN:
    case Token::NumericN: return ReadDecimal(token, reader);
    case Token::OldVarBinary:
    case Token::OldVarChar:
    case Token::OldBinary:
    case Token::OldChar: return ReadOldString(token, reader);
    case Token::VarBinary:
    case Token::VarChar:
    case Token::Binary:
    case Token::Char:
    case Token::NVarChar:
    case Token::NChar: return ReadString(token, reader);
    case Token::Text:
    case Token::NText:
    case Token::Image: return ReadLob(token, reader);
    case Token::Variant: return Simple(token, LengthForm::Long, TypeId::SqlVariant, reader.U32());
    default: break;
    }
    if (tdsVersion >= version::tds73 && token == Token::DateN) {
        return Simple(token, LengthForm::Byte, TypeId::Date, 3);
    }
    if (tdsVersion >= version::tds73 &&
        (token == Token::TimeN || token == Token::DateTime2N || token == Token::DateTimeOffsetN)) {
        return ReadScaled(token, reader);
    }
    if (tdsVersion >= version::tds72 && token == Token::Xml) {
        return ReadXml(reader);
    }
    if (token == Token::Clr) {
        throw SqlError::NotSupported("CLR types");
    }
    throw ProtocolError("A parameter has a type that this server does not take.");
}

} // namespace quillon::practice::tds
