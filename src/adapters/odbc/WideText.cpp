#include "adapters/odbc/WideText.h"

namespace quillon::adapters {
namespace {

constexpr char32_t Replacement = 0xFFFD;

// Of a pair that stands for a character beyond 16 bits.
bool IsHalf(char32_t code) {
    return code >= 0xD800 && code <= 0xDFFF;
}

// How many bytes follow a first one; -1 for a byte that begins no character.
int BytesBehind(unsigned char lead) {
    if (lead < 0x80)
        return 0;
    if (lead >> 5 == 0b110)
        return 1;
    if (lead >> 4 == 0b1110)
        return 2;
    return lead >> 3 == 0b11110 ? 3 : -1;
}

char32_t TakeCharacter(std::string_view& text) {
    const auto lead = static_cast<unsigned char>(text.front());
    const int behind = BytesBehind(lead);
    text.remove_prefix(1);
    if (behind <= 0)
        return behind == 0 ? lead : Replacement;
    char32_t code = lead & (0x3Fu >> behind);
    for (int left = behind; left > 0; --left) {
        if (text.empty() || (static_cast<unsigned char>(text.front()) & 0xC0u) != 0x80u)
            return Replacement;
        code = code << 6 | (static_cast<unsigned char>(text.front()) & 0x3Fu);
        text.remove_prefix(1);
    }
    return IsHalf(code) || code > 0x10FFFF ? Replacement : code;
}

void Append(std::string& text, char32_t code) {
    const auto add = [&text](char32_t bits) { text += static_cast<char>(bits); };
    if (code < 0x80)
        return add(code);
    if (code < 0x800) {
        add(0xC0 | code >> 6);
    } else {
        if (code < 0x10000) {
            add(0xE0 | code >> 12);
        } else {
            add(0xF0 | code >> 18);
            add(0x80 | (code >> 12 & 0x3F));
        }
        add(0x80 | (code >> 6 & 0x3F));
    }
    add(0x80 | (code & 0x3F));
}

} // namespace

std::vector<SQLWCHAR> WideText(std::string_view text) {
    std::vector<SQLWCHAR> wide;
    wide.reserve(text.size() + 1);
    while (!text.empty()) {
        const char32_t code = TakeCharacter(text);
        if (code >= 0x10000) {
            wide.push_back(static_cast<SQLWCHAR>(0xD800 + ((code - 0x10000) >> 10)));
            wide.push_back(static_cast<SQLWCHAR>(0xDC00 + ((code - 0x10000) & 0x3FF)));
        } else {
            wide.push_back(static_cast<SQLWCHAR>(code));
        }
    }
    wide.push_back(0);
    return wide;
}

std::string PlainText(const SQLWCHAR* text) {
    std::string plain;
    for (; *text != 0; ++text) {
        const bool isPair = text[0] >= 0xD800 && text[0] < 0xDC00 && text[1] >= 0xDC00 && text[1] < 0xE000;
        if (isPair) {
            Append(plain, 0x10000 + ((text[0] - 0xD800u) << 10) + (text[1] - 0xDC00u));
            ++text;
        } else {
            Append(plain, IsHalf(*text) ? Replacement : *text);
        }
    }
    return plain;
}

} // namespace quillon::adapters
