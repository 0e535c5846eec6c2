#include "console/ScriptFile.h"

#include <cstdint>
#include <optional>

#include "platform/Failure.h"

namespace quillon::console {
namespace {

constexpr std::int32_t InvalidFileFormat = 321;

unsigned ByteAt(std::string_view bytes, std::size_t at) {
    return at < bytes.size() ? static_cast<unsigned char>(bytes[at]) : 0U;
}

void Append(std::string& text, std::uint32_t code) {
    if (code < 0x80) {
        text += static_cast<char>(code);
        return;
    }
    const int following = code < 0x800 ? 1 : code < 0x10000 ? 2 : 3;
    const std::uint32_t lead = following == 1 ? 0xC0 : following == 2 ? 0xE0 : 0xF0;
    text += static_cast<char>(lead | code >> (6 * following));
    for (int i = following - 1; i >= 0; --i)
        text += static_cast<char>(0x80 | (code >> (6 * i) & 0x3F));
}

// None if a half of a pair stands alone or half a unit is left.
std::optional<std::string> FromUtf16(std::string_view bytes, bool bigEndian) {
    const auto unit = [&](std::size_t at) {
        return ByteAt(bytes, at + !bigEndian) << 8 | ByteAt(bytes, at + bigEndian);
    };
    std::string text;
    for (std::size_t at = 0; at < bytes.size(); at += 2) {
        std::uint32_t code = unit(at);
        const bool isHalf = code >= 0xD800 && code < 0xE000;
        if (isHalf) {
            const std::uint32_t low = unit(at += 2);
            if (code >= 0xDC00 || low < 0xDC00 || low > 0xDFFF)
                return std::nullopt;
            code = 0x10000 + ((code & 0x3FF) << 10 | (low & 0x3FF));
        }
        Append(text, code);
    }
    return bytes.size() % 2 == 0 ? std::optional(std::move(text)) : std::nullopt;
}

bool IsText(std::string_view bytes) {
    for (std::size_t at = 0; at < bytes.size();) {
        const unsigned lead = ByteAt(bytes, at++);
        const int following = lead < 0x80 ? 0 : lead >= 0xF0 ? 3 : lead >= 0xE0 ? 2 : 1;
        if (lead == 0 || (lead >= 0x80 && lead < 0xC2) || lead > 0xF4)
            return false;
        for (int i = 0; i < following; ++i)
            if ((ByteAt(bytes, at++) & 0xC0) != 0x80)
                return false;
    }
    return true;
}

} // namespace

std::string ScriptText(std::string_view bytes, const std::string& name) {
    std::optional<std::string> text;
    if (bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF"))
        text = FromUtf16(bytes.substr(2), bytes.starts_with("\xFE"));
    else
        text = bytes.substr(bytes.starts_with("\xEF\xBB\xBF") ? 3 : 0);
    if (!text || !IsText(*text))
        throw Failure(InvalidFileFormat, name + " is no script: neither UTF-8 nor UTF-16 text");
    return *text;
}

} // namespace quillon::console
