#include "practice/tds/WireType.h"

#include "practice/tds/Login.h"

#include <algorithm>

namespace quillon::practice::tds {
namespace {

constexpr std::uint32_t textSize = 0x7FFFFFFF;
constexpr std::uint32_t wideTextSize = 0x7FFFFFFE;
constexpr std::uint32_t variantSize = 8009;

WireType Sized(Token token, const SqlType& type, std::uint32_t size) {
    return {token, LengthForm::Byte, type, size, false};
}

WireType LobType(const SqlType& type, Token token, bool wide) {
    TypeId id = token == Token::Image ? TypeId::Image : token == Token::NText ? TypeId::NText : TypeId::Text;
    SqlType lob = type;
    lob.id = id;
    lob.length = 0;
    return {token, LengthForm::Pointer, lob, wide ? wideTextSize : textSize, wide};
}

WireType StringType(const SqlType& type, std::uint32_t tdsVersion) {
    bool wide = type.IsUnicode();
    bool bytes = type.IsBinary();
    if (type.IsMax()) {
        if (tdsVersion < version::tds72) {
            return LobType(type, bytes ? Token::Image : wide ? Token::NText : Token::Text, wide);
        }
        Token token = bytes ? Token::VarBinary : wide ? Token::NVarChar : Token::VarChar;
        return {token, LengthForm::Chunks, type, chunkedSize, wide};
    }
    bool fixed = type.id == TypeId::Char || type.id == TypeId::NChar || type.id == TypeId::Binary;
    Token token = bytes  ? (fixed ? Token::Binary : Token::VarBinary)
                  : wide ? (fixed ? Token::NChar : Token::NVarChar)
                         : (fixed ? Token::Char : Token::VarChar);
    auto size = static_cast<std::uint32_t>(std::max(type.length, 1)) * (wide ? 2U : 1U);
    return {token, LengthForm::Short, type, size, wide};
}

std::uint32_t TimeBytes(int scale) {
    return scale <= 2 ? 3 : scale <= 4 ? 4 : 5;
}

// date, time, datetime2 and datetimeoffset came with 7.3; before, clients see them as text of their longest
// form.
WireType LaterDate(const SqlType& type, std::uint32_t tdsVersion) {
    if (tdsVersion < version::tds73) {
        int fraction = type.scale > 0 ? type.scale + 1 : 0;
        int length = type.id == TypeId::Date   ? 10
                     : type.id == TypeId::Time ? 8 + fraction
                                               : (type.id == TypeId::DateTime2 ? 19 : 26) + fraction;
        return StringType(NVarChar(length), tdsVersion);
    }
    switch (type.id) {
    case TypeId::Date: return Sized(Token::DateN, type, 3);
    case TypeId::Time: return Sized(Token::TimeN, type, TimeBytes(type.scale));
    case TypeId::DateTime2: return Sized(Token::DateTime2N, type, TimeBytes(type.scale) + 3);
    default: return Sized(Token::DateTimeOffsetN, type, TimeBytes(type.scale) + 5);
    }
}

std::uint32_t DecimalBytes(int precision) {
    return precision <= 9 ? 5 : precision <= 19 ? 9 : precision <= 28 ? 13 : 17;
}

bool HasCollation(Token token) {
    switch (token) {
    case Token::VarChar:
    case Token::Char:
    case Token::NVarChar:
    case Token::NChar:
    case Token::Text:
    case Token::NText: return true;
    default: return false;
    }
}

} // namespace

WireType WireTypeFor(const SqlType& type, std::uint32_t tdsVersion) {
    switch (type.id) {
    case TypeId::Null:
    case TypeId::Int: return Sized(Token::IntN, SimpleType(TypeId::Int), 4);
    case TypeId::Bit: return Sized(Token::BitN, type, 1);
    case TypeId::TinyInt: return Sized(Token::IntN, type, 1);
    case TypeId::SmallInt: return Sized(Token::IntN, type, 2);
    case TypeId::BigInt: return Sized(Token::IntN, type, 8);
    case TypeId::SmallMoney: return Sized(Token::MoneyN, type, 4);
    case TypeId::Money: return Sized(Token::MoneyN, type, 8);
    case TypeId::Decimal: return Sized(Token::DecimalN, type, DecimalBytes(type.precision));
    case TypeId::Numeric: return Sized(Token::NumericN, type, DecimalBytes(type.precision));
    case TypeId::Real: return Sized(Token::FloatN, type, 4);
    case TypeId::Float: return Sized(Token::FloatN, type, 8);
    case TypeId::SmallDateTime: return Sized(Token::DateTimeN, type, 4);
    case TypeId::DateTime: return Sized(Token::DateTimeN, type, 8);
    case TypeId::Date:
    case TypeId::Time:
    case TypeId::DateTime2:
    case TypeId::DateTimeOffset: return LaterDate(type, tdsVersion);
    case TypeId::Char:
    case TypeId::VarChar:
    case TypeId::NChar:
    case TypeId::NVarChar:
    case TypeId::Binary:
    case TypeId::VarBinary: return StringType(type, tdsVersion);
    case TypeId::Text: return LobType(type, Token::Text, false);
    case TypeId::NText: return LobType(type, Token::NText, true);
    case TypeId::Image: return LobType(type, Token::Image, false);
    case TypeId::UniqueIdentifier: return Sized(Token::Guid, type, 16);
    case TypeId::RowVersion: return {Token::Binary, LengthForm::Short, type, 8, false};
    case TypeId::SqlVariant: return {Token::Variant, LengthForm::Long, type, variantSize, false};
    case TypeId::Xml:
        if (tdsVersion < version::tds72) {
            return LobType(SimpleType(TypeId::NText), Token::NText, true);
        }
        return {Token::Xml, LengthForm::Chunks, type, 0, true};
    }
    throw std::logic_error("a type without a form on the wire");
}

void WriteTypeInfo(const WireType& type, ByteWriter& out) {
    out.U8(static_cast<std::uint8_t>(type.token));
    switch (type.token) {
    case Token::DateN: return;
    case Token::TimeN:
    case Token::DateTime2N:
    case Token::DateTimeOffsetN: out.U8(type.type.scale); return;
    case Token::Xml: out.U8(0); return; // no schema
    default: break;
    }
    if (type.form == LengthForm::Byte) {
        out.U8(static_cast<std::uint8_t>(type.size));
    } else if (type.form == LengthForm::Short || type.form == LengthForm::Chunks) {
        out.U16(static_cast<std::uint16_t>(type.size));
    } else if (type.form == LengthForm::Pointer || type.form == LengthForm::Long) {
        out.U32(type.size);
    }
    if (type.token == Token::DecimalN || type.token == Token::NumericN) {
        out.U8(type.type.precision);
        out.U8(type.type.scale);
    }
    if (HasCollation(type.token)) {
        WriteCollation(type, out);
    }
}

void WriteCollation(const WireType& type, ByteWriter& out) {
    const Collation* collation = type.type.collation != nullptr ? type.type.collation : DefaultCollation();
    out.U32(collation->LocaleAndFlags());
    out.U8(collation->SortId());
}

std::uint32_t UserTypeOf(const SqlType& type) {
    return type.id == TypeId::RowVersion ? 80 : 0;
}

} // namespace quillon::practice::tds
