// What the lexer asks of characters, on UTF-8 text.
#pragma once

#include <cstddef>
#include <string_view>

namespace quillon::practice::tsql {

inline bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}
inline bool IsHexDigit(char c) {
    return IsDigit(c) || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}

/// Bytes of the character at `at`, which is inside the text; a byte that begins no character counts as one of
/// its own.
std::size_t CharacterLength(std::string_view text, std::size_t at);

/// Characters in the text.
std::size_t CharacterCount(std::string_view text);

/// Bytes of the first `count` characters, or of the whole text if it has fewer.
std::size_t PrefixLength(std::string_view text, std::size_t count);

/// Bytes of the blank at `at` (spaces of all kinds, control characters, byte order mark), 0 if none stands
/// there.
std::size_t BlankLength(std::string_view text, std::size_t at);

/// Bytes of the currency sign at `at`, 0 if none stands there.
std::size_t CurrencyLength(std::string_view text, std::size_t at);

/// Whether a name can begin at `at`: a letter of any script, _ or #.
bool IsNameStart(std::string_view text, std::size_t at);

/// Bytes of the character at `at` if it can stand in a name, otherwise 0.
std::size_t NamePartLength(std::string_view text, std::size_t at);

} // namespace quillon::practice::tsql
