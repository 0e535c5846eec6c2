#include "practice/values/ConvertParts.h"
#include "practice/values/SqlError.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace quillon::practice {

namespace {

// The exponent has at least three digits, whatever the C library prints.
std::string WidenExponent(std::string text) {
    const std::size_t at = text.find('e');
    if (at == std::string::npos)
        return text;
    while (text.size() - at < 5)
        text.insert(at + 2, 1, '0');
    return text;
}

std::string Print(const char* format, int digits, double value) {
    char buffer[64];
    std::snprintf(buffer, sizeof buffer, format, digits, value);
    return WidenExponent(buffer);
}

std::string GroupThousands(std::string digits) {
    const std::size_t first = digits.front() == '-' ? 1 : 0;
    for (std::size_t at = digits.find('.'); at > first + 3;) {
        at -= 3;
        digits.insert(at, 1, ',');
    }
    return digits;
}

} // namespace

std::string FormatFloat(double value, bool isReal, int style) {
    switch (style) {
    case noStyle:
    case 0: return Print("%.*g", 6, value);
    case 1: return Print("%.*e", 7, value);
    case 2: return Print("%.*e", 15, value);
    case 3: return Print("%.*e", isReal ? 8 : 16, value);
    case 126: return Print("%.*e", isReal ? 7 : 15, value);
    case 128:
    case 129: return Print("%.*g", isReal ? 9 : 17, value);
    default: throw SqlError(281, {std::to_string(style), isReal ? "real" : "float"});
    }
}

std::string FormatMoney(Int128 tenThousandths, int style) {
    if (style == 2 || style == 126)
        return FormatDecimal({tenThousandths, 4});
    if (style != noStyle && style != 0 && style != 1)
        throw SqlError(281, {std::to_string(style), "money"});
    const std::string text = FormatDecimal(*Rescale({tenThousandths, 4}, 2));
    return style == 1 ? GroupThousands(text) : text;
}

std::string ToHex(std::string_view bytes, bool prefix) {
    constexpr char digits[] = "0123456789ABCDEF";
    std::string text = prefix ? "0x" : "";
    text.reserve(text.size() + bytes.size() * 2);
    for (const char byte : bytes) {
        text.push_back(digits[static_cast<unsigned char>(byte) >> 4]);
        text.push_back(digits[static_cast<unsigned char>(byte) & 15]);
    }
    return text;
}

std::string FormatGuid(const Guid& guid) {
    constexpr int order[16] = {3, 2, 1, 0, 5, 4, 7, 6, 8, 9, 10, 11, 12, 13, 14, 15};
    std::string bytes;
    for (const int index : order)
        bytes.push_back(static_cast<char>(guid.bytes[static_cast<std::size_t>(index)]));
    std::string text = ToHex(bytes, false);
    for (const std::size_t at : {8u, 13u, 18u, 23u})
        text.insert(at, 1, '-');
    return text;
}

std::optional<Guid> ParseGuid(std::string_view text) {
    if (!text.empty() && text.front() == '{') {
        text.remove_prefix(1);
        if (text.size() < 37 || text[36] != '}')
            return {};
    }
    if (text.size() < 36)
        return {};
    constexpr int order[16] = {3, 2, 1, 0, 5, 4, 7, 6, 8, 9, 10, 11, 12, 13, 14, 15};
    Guid guid;
    std::size_t at = 0;
    for (const int index : order) {
        if (at == 8 || at == 13 || at == 18 || at == 23)
            if (text[at++] != '-')
                return {};
        const char pair[3] = {text[at], text[at + 1], '\0'};
        if (std::strspn(pair, "0123456789abcdefABCDEF") != 2)
            return {};
        guid.bytes[static_cast<std::size_t>(index)] =
            static_cast<std::uint8_t>(std::strtoul(pair, nullptr, 16));
        at += 2;
    }
    return guid;
}

std::string ToText(const Datum& value, int style) {
    if (value.IsNull())
        return "NULL";
    const SqlType& type = value.Type();
    if (type.IsInteger())
        return std::to_string(value.Integer());
    if (type.IsMoney())
        return FormatMoney(value.Number().unscaled, style);
    if (type.IsDecimal())
        return FormatDecimal(value.Number());
    if (type.IsFloat())
        return FormatFloat(value.Float(), type.id == TypeId::Real, style);
    if (type.IsMoment())
        return FormatMoment(value, style);
    if (type.id == TypeId::UniqueIdentifier)
        return FormatGuid(value.Identifier());
    if (type.IsBinary())
        return style == 1 || style == 2 ? ToHex(value.Bytes(), style == 1)
                                        : TextOfBytes(value.Bytes(), VarChar(1));
    return value.Text();
}

} // namespace quillon::practice
