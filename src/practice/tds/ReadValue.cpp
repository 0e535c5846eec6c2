#include "practice/tds/Unicode.h"
#include "practice/tds/Values.h"
#include "practice/values/CodePage.h"

#include <bit>
#include <cmath>

namespace quillon::practice::tds {
namespace {

constexpr std::uint64_t chunkedNull = 0xFFFFFFFFFFFFFFFF;
constexpr std::uint16_t shortNull = 0xFFFF;
constexpr std::uint32_t longNull = 0xFFFFFFFF;

[[noreturn]] void RefuseValue() {
    throw ProtocolError("A parameter's value is not a valid instance of its type.");
}

void RequireSize(std::string_view bytes, std::size_t size) {
    if (bytes.size() != size) {
        RefuseValue();
    }
}

Datum ReadInteger(TypeId id, ByteReader& reader, std::size_t size) {
    std::uint64_t raw = reader.Fixed(size);
    switch (id) {
    case TypeId::Bit: return Datum::Bit(raw != 0);
    case TypeId::TinyInt: return Datum::Integer(id, static_cast<std::int64_t>(raw));
    case TypeId::SmallInt: return Datum::Integer(id, static_cast<std::int16_t>(raw));
    case TypeId::Int: return Datum::Integer(id, static_cast<std::int32_t>(raw));
    default: return Datum::Integer(id, static_cast<std::int64_t>(raw));
    }
}

Datum ReadMoney(TypeId id, ByteReader& reader) {
    if (id == TypeId::SmallMoney) {
        return Datum::Money(reader.I32(), id);
    }
    auto high = std::uint64_t{reader.U32()};
    std::uint64_t low = reader.U32();
    return Datum::Money(static_cast<std::int64_t>(high << 32 | low), id);
}

Datum ReadFloat(TypeId id, ByteReader& reader) {
    double value = id == TypeId::Real ? static_cast<double>(std::bit_cast<float>(reader.U32()))
                                      : std::bit_cast<double>(reader.U64());
    if (!std::isfinite(value)) {
        RefuseValue();
    }
    return Datum::Float(value, id);
}

Datum ReadDecimal(const SqlType& type, std::string_view bytes) {
    if (bytes.size() < 2 || bytes.size() > 17) {
        RefuseValue();
    }
    UInt128 magnitude = 0;
    for (std::size_t index = bytes.size(); index-- > 1;) {
        magnitude = (magnitude << 8) | static_cast<std::uint8_t>(bytes[index]);
    }
    if (magnitude >= static_cast<UInt128>(PowerOfTen(38)) ||
        DigitCount(static_cast<Int128>(magnitude)) > type.precision) {
        RefuseValue();
    }
    auto value = static_cast<Int128>(magnitude);
    return Datum::Number(type, bytes[0] == 0 ? -value : value);
}

Datum ReadDateTime(const SqlType& type, ByteReader& reader) {
    Moment moment;
    if (type.id == TypeId::SmallDateTime) {
        moment.day = day1900 + reader.U16();
        moment.ticks = reader.U16() * ticksPerMinute;
    } else {
        std::int64_t day = std::int64_t{day1900} + reader.I32();
        if (day < day1753 || day > day9999) {
            RefuseValue();
        }
        moment.day = static_cast<std::int32_t>(day);
        moment.ticks = TicksFromSteps(reader.U32());
    }
    if (moment.ticks >= ticksPerDay) {
        RefuseValue();
    }
    return Datum::When(type, moment);
}

std::int64_t ReadTime(int scale, ByteReader& reader, std::size_t size) {
    if (size < 3 || size > 5) {
        RefuseValue();
    }
    auto ticks =
        static_cast<std::int64_t>(reader.Fixed(size)) * static_cast<std::int64_t>(PowerOfTen(7 - scale));
    if (ticks >= ticksPerDay) {
        RefuseValue();
    }
    return ticks;
}

std::int32_t ReadDay(ByteReader& reader) {
    auto day = static_cast<std::int32_t>(reader.Fixed(3));
    if (day > day9999) {
        RefuseValue();
    }
    return day;
}

Datum ReadLaterDate(const WireType& type, std::string_view bytes) {
    ByteReader reader(bytes);
    Moment moment;
    moment.day = day1900;
    std::size_t size = bytes.size();
    switch (type.token) {
    case Token::DateN:
        RequireSize(bytes, 3);
        moment.day = ReadDay(reader);
        break;
    case Token::TimeN: moment.ticks = ReadTime(type.type.scale, reader, size); break;
    case Token::DateTime2N:
        moment.ticks = ReadTime(type.type.scale, reader, size < 3 ? 0 : size - 3);
        moment.day = ReadDay(reader);
        break;
    default:
        moment.ticks = ReadTime(type.type.scale, reader, size < 5 ? 0 : size - 5);
        moment.day = ReadDay(reader);
        moment.offsetMinutes = static_cast<std::int16_t>(reader.U16());
        constexpr int furthestOffset = 14 * 60;
        if (moment.offsetMinutes < -furthestOffset || moment.offsetMinutes > furthestOffset) {
            RefuseValue();
        }
    }
    return Datum::When(type.type, moment);
}

Datum ReadString(const WireType& type, std::string_view bytes) {
    if (type.type.IsBinary()) {
        return Datum::Bytes(type.type, std::string(bytes));
    }
    if (!type.wide) {
        return Datum::Text(type.type, CodePage::Of(type.codePage).Decode(bytes));
    }
    if (bytes.size() % 2 != 0) {
        RefuseValue();
    }
    return Datum::Text(type.type, FromUtf16(bytes));
}

// The announced total is a hint that nothing here relies on: the chunks that are there make the value.
std::string ReadChunks(ByteReader& reader) {
    std::string bytes;
    while (std::uint32_t size = reader.U32()) {
        bytes.append(reader.Bytes(size));
    }
    return bytes;
}

} // namespace

Datum ReadBare(const WireType& type, std::string_view bytes) {
    ByteReader reader(bytes);
    const SqlType& sqlType = type.type;
    switch (type.token) {
    case Token::Int1:
    case Token::Bit:
    case Token::Int2:
    case Token::Int4:
    case Token::Int8:
    case Token::IntN:
    case Token::BitN: RequireSize(bytes, type.size); return ReadInteger(sqlType.id, reader, type.size);
    case Token::Money4:
    case Token::Money:
    case Token::MoneyN: RequireSize(bytes, type.size); return ReadMoney(sqlType.id, reader);
    case Token::Float4:
    case Token::Float8:
    case Token::FloatN: RequireSize(bytes, type.size); return ReadFloat(sqlType.id, reader);
    case Token::DateTime4:
    case Token::DateTime:
    case Token::DateTimeN: RequireSize(bytes, type.size); return ReadDateTime(sqlType, reader);
    case Token::DecimalN:
    case Token::NumericN: return ReadDecimal(sqlType, bytes);
    case Token::DateN:
    case Token::TimeN:
    case Token::DateTime2N:
    case Token::DateTimeOffsetN: return ReadLaterDate(type, bytes);
    case Token::Guid: {
        Guid guid;
        RequireSize(bytes, guid.bytes.size());
        std::copy(bytes.begin(), bytes.end(), reinterpret_cast<char*>(guid.bytes.data()));
        return Datum::Identifier(guid);
    }
    default: return ReadString(type, bytes);
    }
}

Datum ReadValue(const WireType& type, ByteReader& reader) {
    Datum null = Datum::Null(type.type);
    switch (type.form) {
    case LengthForm::None: return type.size == 0 ? null : ReadBare(type, reader.Bytes(type.size));
    case LengthForm::Byte: {
        std::uint8_t size = reader.U8();
        return size == 0 ? null : ReadBare(type, reader.Bytes(size));
    }
    case LengthForm::Short: {
        std::uint16_t size = reader.U16();
        if (size != shortNull && size > type.size) {
            RefuseValue();
        }
        return size == shortNull ? null : ReadBare(type, reader.Bytes(size));
    }
    case LengthForm::Chunks: return reader.U64() == chunkedNull ? null : ReadString(type, ReadChunks(reader));
    case LengthForm::Long: {
        std::uint32_t size = reader.U32();
        if (type.token == Token::Variant) {
            return size == 0 ? null : ReadVariant(reader.Bytes(size));
        }
        return size == longNull ? null : ReadString(type, reader.Bytes(size));
    }
    case LengthForm::Pointer: break;
    }
    throw std::logic_error("a form that only results have");
}

} // namespace quillon::practice::tds
