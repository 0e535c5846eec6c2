#include "practice/values/CodePage.h"
#include "practice/values/ConvertParts.h"
#include "practice/values/SqlError.h"
#include "practice/values/Unicode.h"

#include <algorithm>
#include <cstring>

namespace quillon::practice {

namespace {

[[noreturn]] void NoRoom(const Datum& value, const SqlType& to) {
    const SqlType& from = value.Type();
    if (from.IsMoney())
        throw SqlError(234, {to.Name()}, 2);
    if (from.IsFloat())
        throw SqlError(232, {to.Name(), std::to_string(value.Float())}, 2);
    if (from.id == TypeId::UniqueIdentifier && !to.IsUnicode())
        throw SqlError(8170, {}, 2);
    throw SqlError(8115, {from.IsDecimal() ? "numeric" : "expression", to.Name()}, 2);
}

// A number is never cut: it is refused, or shown as an asterisk where the older rules say so.
std::string FitNumber(const Datum& value, const SqlType& to, std::string text) {
    if (to.IsMax() || to.IsLegacyLob() || CountCharacters(text) <= to.length)
        return text;
    const TypeId from = value.Type().id;
    const bool isStarred = from == TypeId::Int || from == TypeId::SmallInt || from == TypeId::TinyInt;
    if (isStarred && !to.IsUnicode())
        return "*";
    NoRoom(value, to);
}

std::string Sized(std::string text, const SqlType& to) {
    if (to.IsMax() || to.IsLegacyLob() || to.id == TypeId::Xml)
        return text;
    const int count = LengthIn(to, text);
    if (count > to.length)
        return std::string(BeginningIn(to, text, to.length));
    if (to.id == TypeId::Char || to.id == TypeId::NChar)
        text.append(static_cast<std::size_t>(to.length - count), ' ');
    return text;
}

std::string BytesToText(const Datum& value, const SqlType& to, int style) {
    if (style != noStyle && (style < 0 || style > 2))
        throw SqlError(281, {std::to_string(style), value.Type().Name()});
    if (style == 1 || style == 2)
        return ToHex(value.Bytes(), style == 1);
    return TextOfBytes(value.Bytes(), to);
}

void AppendBigEndian(std::string& bytes, std::uint64_t number, int width) {
    for (int shift = (width - 1) * 8; shift >= 0; shift -= 8)
        bytes.push_back(static_cast<char>(number >> shift));
}

void AppendLittleEndian(std::string& bytes, std::uint64_t number, int width) {
    for (int index = 0; index < width; ++index)
        bytes.push_back(static_cast<char>(number >> (index * 8)));
}

std::string BytesOfDecimal(const Datum& value) {
    const SqlType& type = value.Type();
    std::string bytes{static_cast<char>(type.precision), static_cast<char>(type.scale), '\0'};
    const Int128 unscaled = value.Number().unscaled;
    bytes.push_back(unscaled < 0 ? '\0' : '\1');
    auto magnitude = static_cast<UInt128>(unscaled < 0 ? -unscaled : unscaled);
    for (int width = type.StorageBytes() - 1; width > 0; --width) {
        bytes.push_back(static_cast<char>(magnitude & 0xFF));
        magnitude >>= 8;
    }
    return bytes;
}

std::string BytesOfMoment(const Datum& value) {
    const SqlType& type = value.Type();
    const Moment& moment = value.When();
    std::string bytes;
    if (type.id == TypeId::DateTime || type.id == TypeId::SmallDateTime) {
        const bool isSmall = type.id == TypeId::SmallDateTime;
        AppendBigEndian(bytes, static_cast<std::uint64_t>(moment.day - day1900), isSmall ? 2 : 4);
        const std::int64_t clock = isSmall ? moment.ticks / ticksPerMinute : DateTimeSteps(moment.ticks);
        AppendBigEndian(bytes, static_cast<std::uint64_t>(clock), isSmall ? 2 : 4);
        return bytes;
    }
    if (type.id != TypeId::Date) {
        std::int64_t clock = moment.ticks;
        for (int digits = type.scale; digits < 7; ++digits)
            clock /= 10;
        bytes.push_back(static_cast<char>(type.scale));
        AppendLittleEndian(bytes, static_cast<std::uint64_t>(clock),
                           MomentType(TypeId::Time, type.scale).StorageBytes());
    }
    if (type.id != TypeId::Time)
        AppendLittleEndian(bytes, static_cast<std::uint64_t>(moment.day), 3);
    if (type.id == TypeId::DateTimeOffset)
        AppendLittleEndian(bytes, static_cast<std::uint16_t>(moment.offsetMinutes), 2);
    return bytes;
}

std::string BytesOfFloat(const Datum& value) {
    std::string bytes;
    if (value.Type().id == TypeId::Real) {
        const auto number = static_cast<float>(value.Float());
        std::uint32_t bits = 0;
        std::memcpy(&bits, &number, sizeof bits);
        AppendBigEndian(bytes, bits, 4);
        return bytes;
    }
    const double number = value.Float();
    std::uint64_t bits = 0;
    std::memcpy(&bits, &number, sizeof bits);
    AppendBigEndian(bytes, bits, 8);
    return bytes;
}

std::string BytesOfHex(std::string_view text, int style, const SqlType& from) {
    const SqlError failure(8114, {from.Name(), "varbinary"}, 5);
    if (style == 1) {
        if (text.size() < 2 || text[0] != '0' || (text[1] | 0x20) != 'x')
            throw failure;
        text.remove_prefix(2);
    }
    if (text.size() % 2 != 0)
        throw failure;
    std::string bytes;
    for (std::size_t at = 0; at < text.size(); at += 2) {
        int pair = 0;
        for (const char c : text.substr(at, 2)) {
            const char lower = static_cast<char>(c | 0x20);
            const int digit = c >= '0' && c <= '9'           ? c - '0'
                              : lower >= 'a' && lower <= 'f' ? lower - 'a' + 10
                                                             : -1;
            if (digit < 0)
                throw failure;
            pair = pair * 16 + digit;
        }
        bytes.push_back(static_cast<char>(pair));
    }
    return bytes;
}

std::string BytesOf(const Datum& value, const SqlType& to, int style) {
    const SqlType& from = value.Type();
    std::string bytes;
    if (from.IsBinary())
        return value.Bytes();
    if (from.IsInteger())
        AppendBigEndian(bytes, static_cast<std::uint64_t>(value.Integer()), from.StorageBytes());
    else if (from.IsMoney())
        AppendBigEndian(bytes, static_cast<std::uint64_t>(value.Number().unscaled), from.StorageBytes());
    else if (from.IsDecimal())
        bytes = BytesOfDecimal(value);
    else if (from.IsFloat())
        bytes = BytesOfFloat(value);
    else if (from.IsMoment())
        bytes = BytesOfMoment(value);
    else if (from.id == TypeId::UniqueIdentifier)
        bytes.assign(reinterpret_cast<const char*>(value.Identifier().bytes.data()), 16);
    else if (from.IsCharacter() || from.id == TypeId::Xml)
        bytes = style == 1 || style == 2 ? BytesOfHex(value.Text(), style, from)
                                         : BytesOfText(value.Text(), from);
    else
        RefuseConversion(from, to);
    return bytes;
}

} // namespace

std::string BytesOfText(std::string_view utf8, const SqlType& type) {
    if (!type.IsUnicode() && type.id != TypeId::Xml)
        return CodePage::Of(type.collation).Encode(utf8);
    std::string bytes;
    for (const char16_t unit : unicode::ToUtf16(utf8)) {
        bytes.push_back(static_cast<char>(unit & 0xFF));
        bytes.push_back(static_cast<char>(unit >> 8));
    }
    return bytes;
}

std::string TextOfBytes(std::string_view bytes, const SqlType& type) {
    if (!type.IsUnicode() && type.id != TypeId::Xml)
        return CodePage::Of(type.collation).Decode(bytes);
    std::u16string units;
    for (std::size_t at = 0; at + 1 < bytes.size(); at += 2)
        units.push_back(static_cast<char16_t>(static_cast<unsigned char>(bytes[at]) |
                                              (static_cast<unsigned char>(bytes[at + 1]) << 8)));
    return unicode::FromUtf16(units);
}

int CountCharacters(std::string_view utf8) {
    int count = 0;
    for (const char c : utf8) {
        const auto byte = static_cast<unsigned char>(c);
        count += (byte & 0xC0) != 0x80; // one for each sequence, two for those of four bytes
        count += byte >= 0xF0;
    }
    return count;
}

std::string_view FirstCharacters(std::string_view utf8, int count) {
    std::size_t at = 0;
    while (at < utf8.size()) {
        std::size_t next = at;
        count -= unicode::Units(unicode::Next(utf8, next));
        if (count < 0)
            break;
        at = next;
    }
    return utf8.substr(0, at);
}

Datum ToCharacterType(const Datum& value, const SqlType& to, int style) {
    const SqlType& from = value.Type();
    if (ConversionBetween(from, to) == ConversionRule::NotAllowed)
        RefuseConversion(from, to);
    std::string text;
    if (from.IsCharacter() || from.id == TypeId::Xml)
        text = value.Text();
    else if (from.IsBinary())
        text = BytesToText(value, to, style);
    else if (from.IsMoment())
        text = FormatMoment(value, style, to.Name());
    else
        text = FitNumber(value, to, ToText(value, style));
    if (!to.IsUnicode() && to.IsCharacter())
        text = CodePage::Of(to.collation).Fit(text);
    return Datum::Text(to, Sized(std::move(text), to));
}

Datum ToBinaryType(const Datum& value, const SqlType& to, int style) {
    std::string bytes = BytesOf(value, to, style);
    if (to.id == TypeId::Image || to.IsMax())
        return Datum::Bytes(to, std::move(bytes));
    const auto limit = static_cast<std::size_t>(to.id == TypeId::RowVersion ? 8 : to.length);
    // Numbers keep their least significant end, all else its beginning.
    const SqlType& from = value.Type();
    const bool keepsEnd = from.IsInteger() || from.IsMoney() || from.IsFloat() ||
                          from.id == TypeId::DateTime || from.id == TypeId::SmallDateTime;
    if (bytes.size() > limit)
        bytes = keepsEnd ? bytes.substr(bytes.size() - limit) : bytes.substr(0, limit);
    if (to.id != TypeId::VarBinary && bytes.size() < limit)
        bytes.insert(keepsEnd || to.id == TypeId::RowVersion ? 0 : bytes.size(), limit - bytes.size(), '\0');
    return Datum::Bytes(to, std::move(bytes));
}

Datum ToGuid(const Datum& value) {
    const SqlType& from = value.Type();
    if (from.IsCharacter()) {
        const auto guid = ParseGuid(value.Text());
        if (!guid)
            throw SqlError(8169, {}, 2);
        return Datum::Identifier(*guid);
    }
    if (!from.IsBinary() || from.id == TypeId::Image || from.id == TypeId::RowVersion)
        RefuseConversion(from, SimpleType(TypeId::UniqueIdentifier));
    Guid guid;
    std::memcpy(guid.bytes.data(), value.Bytes().data(), std::min<std::size_t>(16, value.Bytes().size()));
    return Datum::Identifier(guid);
}

} // namespace quillon::practice
