#include "practice/tds/Unicode.h"
#include "practice/tds/Values.h"
#include "practice/values/CodePage.h"
#include "practice/values/Convert.h"

#include <bit>

namespace quillon::practice::tds {
namespace {

constexpr std::uint64_t chunkedNull = 0xFFFFFFFFFFFFFFFF;
constexpr std::uint16_t shortNull = 0xFFFF;

void WriteMoney(const Datum& value, std::uint32_t size, ByteWriter& out) {
    auto amount = static_cast<std::int64_t>(value.Number().unscaled);
    if (size == 4) {
        out.I32(static_cast<std::int32_t>(amount));
        return;
    }
    // The older half first: the two halves of money are each little endian, but not the pair of them.
    out.U32(static_cast<std::uint32_t>(static_cast<std::uint64_t>(amount) >> 32));
    out.U32(static_cast<std::uint32_t>(amount & 0xFFFFFFFF));
}

void WriteDecimal(const Datum& value, std::uint32_t size, ByteWriter& out) {
    Int128 unscaled = value.Number().unscaled;
    bool negative = unscaled < 0;
    UInt128 magnitude = negative ? -static_cast<UInt128>(unscaled) : static_cast<UInt128>(unscaled);
    out.U8(negative ? 0 : 1);
    for (std::uint32_t index = 1; index < size; ++index) {
        out.U8(static_cast<std::uint8_t>(magnitude & 0xFF));
        magnitude >>= 8;
    }
}

void WriteFloat(const Datum& value, std::uint32_t size, ByteWriter& out) {
    if (size == 4) {
        out.U32(std::bit_cast<std::uint32_t>(static_cast<float>(value.Float())));
    } else {
        out.U64(std::bit_cast<std::uint64_t>(value.Float()));
    }
}

void WriteDateTime(const Moment& moment, std::uint32_t size, ByteWriter& out) {
    std::int32_t day = moment.day - day1900;
    if (size == 4) {
        out.U16(static_cast<std::uint16_t>(day));
        out.U16(static_cast<std::uint16_t>(moment.ticks / ticksPerMinute));
        return;
    }
    constexpr std::int64_t stepsPerDay = 24LL * 60 * 60 * 300;
    std::int64_t steps = DateTimeSteps(moment.ticks);
    out.I32(steps == stepsPerDay ? day + 1 : day);
    out.U32(static_cast<std::uint32_t>(steps == stepsPerDay ? 0 : steps));
}

void WriteTime(const Moment& moment, const SqlType& type, std::size_t size, ByteWriter& out) {
    auto unit = static_cast<std::int64_t>(PowerOfTen(7 - type.scale));
    out.Fixed(static_cast<std::uint64_t>(moment.ticks / unit), size);
}

void WriteLaterDate(const Moment& moment, const WireType& type, ByteWriter& out) {
    auto day = static_cast<std::uint64_t>(moment.day);
    switch (type.token) {
    case Token::DateN: out.Fixed(day, 3); return;
    case Token::TimeN: WriteTime(moment, type.type, type.size, out); return;
    case Token::DateTime2N:
        WriteTime(moment, type.type, type.size - 3, out);
        out.Fixed(day, 3);
        return;
    default:
        WriteTime(moment, type.type, type.size - 5, out);
        out.Fixed(day, 3);
        out.U16(static_cast<std::uint16_t>(moment.offsetMinutes));
    }
}

bool IsOfType(const Datum& value, const SqlType& type) {
    const SqlType& own = value.Type();
    if (type.IsCharacter() || type.id == TypeId::Xml) {
        return own.IsCharacter() || own.id == TypeId::Xml;
    }
    if (type.IsBinary()) {
        return own.IsBinary();
    }
    if (type.IsDecimal()) {
        return own.IsDecimal() && own.scale == type.scale;
    }
    return own.id == type.id || (own.IsInteger() && type.IsInteger());
}

// What one value of a string type takes: bytes as they are, text in the type's code.
void AppendString(const Datum& value, const WireType& type, ByteWriter& out) {
    if (type.type.IsBinary()) {
        out.Bytes(value.Bytes());
    } else if (type.wide) {
        out.Utf16(value.Text());
    } else {
        out.Bytes(CodePage::Of(type.type.collation).Encode(value.Text()));
    }
}

// A type's length holds for every value, also where the value had more characters than the type says.
std::string BoundedString(const Datum& value, const WireType& type) {
    ByteWriter bytes;
    AppendString(value, type, bytes);
    return bytes.Content().substr(0, type.size);
}

void WriteChunks(const Datum& value, const WireType& type, ByteWriter& out) {
    ByteWriter bytes;
    AppendString(value, type, bytes);
    out.U64(bytes.Size());
    if (bytes.Size() > 0) {
        out.U32(static_cast<std::uint32_t>(bytes.Size()));
        out.Bytes(bytes.Content());
    }
    out.U32(0);
}

void WriteLob(const Datum& value, const WireType& type, ByteWriter& out) {
    // Text pointers are not valid beyond this row: READTEXT and its like are not offered.
    constexpr std::size_t pointerSize = 16;
    constexpr std::size_t timestampSize = 8;
    out.U8(pointerSize);
    out.Bytes(std::string(pointerSize + timestampSize, '\xFF'));
    ByteWriter bytes;
    AppendString(value, type, bytes);
    out.U32(static_cast<std::uint32_t>(bytes.Size()));
    out.Bytes(bytes.Content());
}

void WriteNull(LengthForm form, ByteWriter& out) {
    switch (form) {
    case LengthForm::None: return;
    case LengthForm::Byte:
    case LengthForm::Pointer: out.U8(0); return;
    case LengthForm::Short: out.U16(shortNull); return;
    case LengthForm::Chunks: out.U64(chunkedNull); return;
    case LengthForm::Long: out.U32(0); return;
    }
}

} // namespace

void WriteBare(const Datum& value, const WireType& type, ByteWriter& out) {
    switch (type.token) {
    case Token::IntN:
    case Token::BitN: out.Fixed(static_cast<std::uint64_t>(value.Integer()), type.size); return;
    case Token::FloatN: WriteFloat(value, type.size, out); return;
    case Token::MoneyN: WriteMoney(value, type.size, out); return;
    case Token::DecimalN:
    case Token::NumericN: WriteDecimal(value, type.size, out); return;
    case Token::DateTimeN: WriteDateTime(value.When(), type.size, out); return;
    case Token::DateN:
    case Token::TimeN:
    case Token::DateTime2N:
    case Token::DateTimeOffsetN: WriteLaterDate(value.When(), type, out); return;
    case Token::Guid: {
        const Guid& guid = value.Identifier();
        out.Bytes({reinterpret_cast<const char*>(guid.bytes.data()), guid.bytes.size()});
        return;
    }
    default: out.Bytes(BoundedString(value, type));
    }
}

void WriteValue(const Datum& value, const WireType& type, ByteWriter& out) {
    if (value.IsNull()) {
        WriteNull(type.form, out);
        return;
    }
    if (type.token == Token::Variant) {
        WriteVariant(value, out);
        return;
    }
    if (!IsOfType(value, type.type)) {
        WriteValue(Convert(value, type.type), type, out);
        return;
    }
    switch (type.form) {
    case LengthForm::Byte:
        out.U8(static_cast<std::uint8_t>(type.size));
        WriteBare(value, type, out);
        return;
    case LengthForm::Short: {
        std::string bytes = BoundedString(value, type);
        out.U16(static_cast<std::uint16_t>(bytes.size()));
        out.Bytes(bytes);
        return;
    }
    case LengthForm::Chunks: WriteChunks(value, type, out); return;
    case LengthForm::Pointer: WriteLob(value, type, out); return;
    case LengthForm::None:
    case LengthForm::Long: throw std::logic_error("a form that only parameters have");
    }
}

} // namespace quillon::practice::tds
