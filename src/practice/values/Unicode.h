// UTF-8 and what the character sets of the system need to know about letters: case and accents.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace quillon::practice::unicode {

// The code point at `position`, which moves behind it. A byte that starts no valid sequence counts as one
// code point of its own value, so that foreign bytes survive a round trip through comparison. Surrogates are
// accepted.
char32_t Next(std::string_view text, std::size_t& position);
void Append(std::string& text, char32_t codePoint);

char32_t ToUpper(char32_t codePoint);
char32_t ToLower(char32_t codePoint);
std::string ToUpper(std::string_view text);
std::string ToLower(std::string_view text);

// The signs that may stand before an amount of money.
inline bool IsCurrencySign(char32_t codePoint) {
    return codePoint == '$' || (codePoint >= 0xA2 && codePoint <= 0xA5) ||
           (codePoint >= 0x20A0 && codePoint <= 0x20BF);
}

// UTF-16 units of a code point: 1 or 2.
inline int Units(char32_t codePoint) {
    return codePoint > 0xFFFF ? 2 : 1;
}
// Byte position of the UTF-16 unit `units` (0-based); text.size() when there are fewer.
std::size_t PositionOfUnit(std::string_view text, std::int64_t units);
std::u16string ToUtf16(std::string_view text);
std::string FromUtf16(std::u16string_view units);

// The letter under its accents, and a number for the accents (0 for none).
struct Accented {
    char32_t letter;
    char32_t base;
    std::uint16_t accents;
};
Accented Decompose(char32_t codePoint);

// The tables behind the functions above (UnicodeTables.cpp).
struct CaseRange {
    char32_t first, last;
    int step;
    int delta;
};
extern const CaseRange upperRanges[];
extern const int upperRangeCount;
extern const CaseRange lowerRanges[];
extern const int lowerRangeCount;
extern const Accented accentedLetters[];
extern const int accentedLetterCount;

} // namespace quillon::practice::unicode
