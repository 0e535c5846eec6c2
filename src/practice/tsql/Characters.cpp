#include "practice/tsql/Characters.h"

#include "practice/values/Unicode.h"

#include <cstdint>

namespace quillon::practice::tsql {

namespace {

bool IsContinuation(std::string_view text, std::size_t at) {
    return at < text.size() && (static_cast<unsigned char>(text[at]) & 0xC0) == 0x80;
}

/// The character's number; a byte that begins none stands for itself, in the range of Latin letters.
std::uint32_t CodeAt(std::string_view text, std::size_t at) {
    const std::size_t length = CharacterLength(text, at);
    const auto first = static_cast<unsigned char>(text[at]);
    if (length == 1)
        return first < 0x80 ? first : 0xC0;
    std::uint32_t code = first & (0xFFU >> (length + 1));
    for (std::size_t i = 1; i < length; ++i)
        code = code << 6 | (static_cast<unsigned char>(text[at + i]) & 0x3FU);
    return code;
}

bool IsBlank(std::uint32_t code) {
    return code <= 0x20 || code == 0x7F || code == 0x85 || code == 0xA0 || code == 0x1680 ||
           (code >= 0x2000 && code <= 0x200B) || code == 0x2028 || code == 0x2029 || code == 0x202F ||
           code == 0x205F || code == 0x3000 || code == 0xFEFF;
}

/// Beyond ASCII everything counts as a letter but signs and punctuation of the blocks where those live.
bool IsLetter(std::uint32_t code) {
    if (code < 0x80)
        return (code >= 'a' && code <= 'z') || (code >= 'A' && code <= 'Z');
    if (code < 0xC0)
        return code == 0xAA || code == 0xB5 || code == 0xBA;
    if (code == 0xD7 || code == 0xF7)
        return false;
    return (code < 0x2010 || code > 0x2BFF) && !(code >= 0x3001 && code <= 0x3004) &&
           !(code >= 0x3008 && code <= 0x3020) && !IsBlank(code);
}

} // namespace

std::size_t CharacterLength(std::string_view text, std::size_t at) {
    const auto first = static_cast<unsigned char>(text[at]);
    const std::size_t length = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : first >= 0xC2 ? 2 : 1;
    for (std::size_t i = 1; i < length; ++i) {
        if (!IsContinuation(text, at + i))
            return 1;
    }
    return first > 0xF4 ? 1 : length;
}

std::size_t CharacterCount(std::string_view text) {
    std::size_t count = 0;
    for (std::size_t at = 0; at < text.size(); at += CharacterLength(text, at))
        ++count;
    return count;
}

std::size_t PrefixLength(std::string_view text, std::size_t count) {
    std::size_t at = 0;
    while (at < text.size() && count-- > 0)
        at += CharacterLength(text, at);
    return at;
}

std::size_t BlankLength(std::string_view text, std::size_t at) {
    return IsBlank(CodeAt(text, at)) ? CharacterLength(text, at) : 0;
}

std::size_t CurrencyLength(std::string_view text, std::size_t at) {
    return unicode::IsCurrencySign(CodeAt(text, at)) ? CharacterLength(text, at) : 0;
}

bool IsNameStart(std::string_view text, std::size_t at) {
    if (at >= text.size())
        return false;
    const std::uint32_t code = CodeAt(text, at);
    return code == '_' || code == '#' || IsLetter(code);
}

std::size_t NamePartLength(std::string_view text, std::size_t at) {
    const std::uint32_t code = CodeAt(text, at);
    const bool part = code == '@' || code == '$' || code == '#' || code == '_' ||
                      (code >= '0' && code <= '9') || IsLetter(code);
    return part ? CharacterLength(text, at) : 0;
}

} // namespace quillon::practice::tsql
