// sql_variant ([MS-TDS] 2.2.5.5.4): a base type's token, the count of its property bytes, the properties, the
// value.
#include "practice/tds/Login.h"
#include "practice/tds/Values.h"

namespace quillon::practice::tds {
namespace {

// Within a variant a type goes by the token of its fixed form.
Token BaseToken(const WireType& type) {
    switch (type.type.id) {
    case TypeId::Bit: return Token::Bit;
    case TypeId::TinyInt: return Token::Int1;
    case TypeId::SmallInt: return Token::Int2;
    case TypeId::Int: return Token::Int4;
    case TypeId::BigInt: return Token::Int8;
    case TypeId::SmallMoney: return Token::Money4;
    case TypeId::Money: return Token::Money;
    case TypeId::Real: return Token::Float4;
    case TypeId::Float: return Token::Float8;
    case TypeId::SmallDateTime: return Token::DateTime4;
    case TypeId::DateTime: return Token::DateTime;
    default: return type.token;
    }
}

void WriteProperties(const WireType& type, ByteWriter& out) {
    switch (type.token) {
    case Token::DecimalN:
    case Token::NumericN:
        out.U8(2);
        out.U8(type.type.precision);
        out.U8(type.type.scale);
        return;
    case Token::TimeN:
    case Token::DateTime2N:
    case Token::DateTimeOffsetN:
        out.U8(1);
        out.U8(type.type.scale);
        return;
    case Token::Binary:
    case Token::VarBinary:
        out.U8(2);
        out.U16(static_cast<std::uint16_t>(type.size));
        return;
    case Token::Char:
    case Token::VarChar:
    case Token::NChar:
    case Token::NVarChar: {
        const Collation* collation =
            type.type.collation != nullptr ? type.type.collation : DefaultCollation();
        out.U8(7);
        out.U32(collation->LocaleAndFlags());
        out.U8(collation->SortId());
        out.U16(static_cast<std::uint16_t>(type.size));
        return;
    }
    default: out.U8(0);
    }
}

[[noreturn]] void Refuse() {
    throw ProtocolError("A sql_variant is not well formed.");
}

// The base types that a variant may hold, from their properties as TYPE_INFO would have them.
WireType TypeFromProperties(Token token, std::string_view properties) {
    std::string info(1, static_cast<char>(token));
    switch (token) {
    case Token::DecimalN:
    case Token::NumericN: info += '\x11'; break;
    case Token::Guid: info += '\x10'; break;
    case Token::Char:
    case Token::VarChar:
    case Token::NChar:
    case Token::NVarChar: // here the collation comes before the length
        if (properties.size() != 7) {
            Refuse();
        }
        info.append(properties.substr(5, 2)).append(properties.substr(0, 5));
        properties = {};
        break;
    case Token::Text:
    case Token::NText:
    case Token::Image:
    case Token::Variant:
    case Token::Xml:
    case Token::Null: Refuse();
    default: break;
    }
    info.append(properties);
    ByteReader reader(info);
    WireType type = ReadTypeInfo(reader, version::tds74);
    if (!reader.AtEnd() || type.form == LengthForm::Chunks) {
        Refuse();
    }
    return type;
}

} // namespace

void WriteVariant(const Datum& value, ByteWriter& out) {
    // A variant is told with all that 7.4 knows: clients that cannot read a base type do not see such values.
    WireType type = WireTypeFor(value.Type(), version::tds74);
    ByteWriter inner;
    inner.U8(static_cast<std::uint8_t>(BaseToken(type)));
    WriteProperties(type, inner);
    WriteBare(value, type, inner);
    out.U32(static_cast<std::uint32_t>(inner.Size()));
    out.Bytes(inner.Content());
}

Datum ReadVariant(std::string_view bytes) {
    ByteReader reader(bytes);
    auto token = static_cast<Token>(reader.U8());
    std::string_view properties = reader.Bytes(reader.U8());
    WireType type = TypeFromProperties(token, properties);
    return ReadBare(type, reader.Rest());
}

} // namespace quillon::practice::tds
