#include "practice/tds/Unicode.h"

#include "practice/values/Unicode.h"

#include <cstdint>

namespace quillon::practice::tds {
namespace {

void AppendUnit(char32_t unit, std::string& out) {
    out.push_back(static_cast<char>(unit & 0xFF));
    out.push_back(static_cast<char>((unit >> 8) & 0xFF));
}

char32_t UnitAt(std::string_view bytes, std::size_t index) {
    return static_cast<char32_t>(static_cast<std::uint8_t>(bytes[index]) |
                                 (static_cast<std::uint8_t>(bytes[index + 1]) << 8));
}

bool IsHighSurrogate(char32_t unit) {
    return unit >= 0xD800 && unit < 0xDC00;
}

bool IsLowSurrogate(char32_t unit) {
    return unit >= 0xDC00 && unit < 0xE000;
}

} // namespace

std::string FromUtf16(std::string_view bytes) {
    std::string out;
    out.reserve(bytes.size() / 2);
    for (std::size_t index = 0; index + 1 < bytes.size(); index += 2) {
        char32_t unit = UnitAt(bytes, index);
        if (unit < 0x80) {
            out.push_back(static_cast<char>(unit));
            continue;
        }
        if (IsHighSurrogate(unit) && index + 3 < bytes.size() && IsLowSurrogate(UnitAt(bytes, index + 2))) {
            unit = 0x10000 + ((unit - 0xD800) << 10) + (UnitAt(bytes, index + 2) - 0xDC00);
            index += 2;
        }
        unicode::Append(out, unit);
    }
    return out;
}

void AppendUtf16(std::string_view utf8, std::string& out) {
    for (std::size_t position = 0; position < utf8.size();) {
        char32_t point = unicode::Next(utf8, position);
        if (point < 0x10000) {
            AppendUnit(point, out);
        } else {
            AppendUnit(0xD800 + ((point - 0x10000) >> 10), out);
            AppendUnit(0xDC00 + ((point - 0x10000) & 0x3FF), out);
        }
    }
}

std::string ToUtf16(std::string_view utf8) {
    std::string out;
    out.reserve(utf8.size() * 2);
    AppendUtf16(utf8, out);
    return out;
}

} // namespace quillon::practice::tds
