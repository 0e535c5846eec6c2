#include "jscript/Encoding.h"

#include <cstdint>

namespace quillon::jscript {
namespace {

unsigned ByteAt(std::string_view text, std::size_t at) {
    return at < text.size() ? static_cast<unsigned char>(text[at]) : 0U;
}

void AppendThreeBytes(std::string& out, std::uint32_t code) {
    out += static_cast<char>(0xE0 | code >> 12);
    out += static_cast<char>(0x80 | (code >> 6 & 0x3F));
    out += static_cast<char>(0x80 | (code & 0x3F));
}

void AppendFourBytes(std::string& out, std::uint32_t code) {
    out += static_cast<char>(0xF0 | code >> 18);
    out += static_cast<char>(0x80 | (code >> 12 & 0x3F));
    out += static_cast<char>(0x80 | (code >> 6 & 0x3F));
    out += static_cast<char>(0x80 | (code & 0x3F));
}

// The UTF-16 half that three bytes at `at` spell, 0 if they spell none.
std::uint32_t HalfAt(std::string_view text, std::size_t at) {
    if (ByteAt(text, at) != 0xED || at + 2 >= text.size())
        return 0;
    const std::uint32_t code = 0xD000U | (ByteAt(text, at + 1) & 0x3F) << 6 | (ByteAt(text, at + 2) & 0x3F);
    return code >= 0xD800 && code <= 0xDFFF ? code : 0;
}

} // namespace

void AppendCesu8(std::string& out, std::string_view utf8) {
    for (std::size_t i = 0; i < utf8.size();) {
        if (ByteAt(utf8, i) < 0xF0 || i + 3 >= utf8.size()) {
            out += utf8[i++];
            continue;
        }
        const std::uint32_t code = ((ByteAt(utf8, i) & 0x07) << 18 | (ByteAt(utf8, i + 1) & 0x3F) << 12 |
                                    (ByteAt(utf8, i + 2) & 0x3F) << 6 | (ByteAt(utf8, i + 3) & 0x3F)) -
                                   0x10000;
        AppendThreeBytes(out, 0xD800 | (code >> 10 & 0x3FF));
        AppendThreeBytes(out, 0xDC00 | (code & 0x3FF));
        i += 4;
    }
}

std::string Utf8FromCesu8(std::string_view cesu8) {
    if (cesu8.find('\xED') == std::string_view::npos)
        return std::string(cesu8);
    std::string out;
    for (std::size_t i = 0; i < cesu8.size();) {
        const std::uint32_t high = HalfAt(cesu8, i);
        if (high == 0) {
            out += cesu8[i++];
            continue;
        }
        const std::uint32_t low = high < 0xDC00 ? HalfAt(cesu8, i + 3) : 0;
        if (low >= 0xDC00) {
            AppendFourBytes(out, 0x10000 + ((high & 0x3FF) << 10 | (low & 0x3FF)));
            i += 6;
        } else {
            out += "\xEF\xBF\xBD";
            i += 3;
        }
    }
    return out;
}

} // namespace quillon::jscript
