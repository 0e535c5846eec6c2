#include "practice/values/Unicode.h"

#include <algorithm>

namespace quillon::practice::unicode {

namespace {

bool IsContinuation(std::string_view text, std::size_t position) {
    return position < text.size() && (static_cast<unsigned char>(text[position]) & 0xC0) == 0x80;
}

char32_t MapCase(char32_t codePoint, const CaseRange* ranges, int count) {
    const CaseRange* end = ranges + count;
    const CaseRange* at = std::upper_bound(
        ranges, end, codePoint, [](char32_t value, const CaseRange& range) { return value < range.first; });
    // Ranges of step two interleave, so the one that holds the letter may be a little further back.
    for (int back = 0; back < 3 && at != ranges; ++back) {
        --at;
        if (codePoint <= at->last && (codePoint - at->first) % static_cast<char32_t>(at->step) == 0)
            return static_cast<char32_t>(static_cast<std::int64_t>(codePoint) + at->delta);
    }
    return codePoint;
}

template <typename Map>
std::string MapText(std::string_view text, Map map) {
    std::string result;
    result.reserve(text.size());
    for (std::size_t position = 0; position < text.size();)
        Append(result, map(Next(text, position)));
    return result;
}

} // namespace

char32_t Next(std::string_view text, std::size_t& position) {
    const auto lead = static_cast<unsigned char>(text[position]);
    const int extra = lead < 0x80                   ? 0
                      : lead >= 0xF0 && lead < 0xF8 ? 3
                      : lead >= 0xE0                ? 2
                      : lead >= 0xC2                ? 1
                                                    : -1;
    if (extra <= 0 || lead >= 0xF8) {
        ++position;
        return lead;
    }
    char32_t codePoint = lead & (0x3Fu >> extra);
    for (int index = 1; index <= extra; ++index) {
        if (!IsContinuation(text, position + index)) {
            ++position;
            return lead;
        }
        codePoint = (codePoint << 6) | (static_cast<unsigned char>(text[position + index]) & 0x3Fu);
    }
    position += extra + 1;
    return codePoint;
}

void Append(std::string& text, char32_t codePoint) {
    if (codePoint < 0x80) {
        text.push_back(static_cast<char>(codePoint));
    } else if (codePoint < 0x800) {
        text.push_back(static_cast<char>(0xC0 | (codePoint >> 6)));
        text.push_back(static_cast<char>(0x80 | (codePoint & 0x3F)));
    } else if (codePoint < 0x10000) {
        text.push_back(static_cast<char>(0xE0 | (codePoint >> 12)));
        text.push_back(static_cast<char>(0x80 | ((codePoint >> 6) & 0x3F)));
        text.push_back(static_cast<char>(0x80 | (codePoint & 0x3F)));
    } else {
        text.push_back(static_cast<char>(0xF0 | (codePoint >> 18)));
        text.push_back(static_cast<char>(0x80 | ((codePoint >> 12) & 0x3F)));
        text.push_back(static_cast<char>(0x80 | ((codePoint >> 6) & 0x3F)));
        text.push_back(static_cast<char>(0x80 | (codePoint & 0x3F)));
    }
}

char32_t ToUpper(char32_t codePoint) {
    if (codePoint < 0x80)
        return codePoint >= 'a' && codePoint <= 'z' ? codePoint - 32 : codePoint;
    return MapCase(codePoint, upperRanges, upperRangeCount);
}

char32_t ToLower(char32_t codePoint) {
    if (codePoint < 0x80)
        return codePoint >= 'A' && codePoint <= 'Z' ? codePoint + 32 : codePoint;
    return MapCase(codePoint, lowerRanges, lowerRangeCount);
}

std::string ToUpper(std::string_view text) {
    return MapText(text, [](char32_t codePoint) { return ToUpper(codePoint); });
}

std::string ToLower(std::string_view text) {
    return MapText(text, [](char32_t codePoint) { return ToLower(codePoint); });
}

std::size_t PositionOfUnit(std::string_view text, std::int64_t units) {
    std::size_t position = 0;
    while (units > 0 && position < text.size())
        units -= Units(Next(text, position));
    return position;
}

std::u16string ToUtf16(std::string_view text) {
    std::u16string units;
    units.reserve(text.size());
    for (std::size_t position = 0; position < text.size();) {
        char32_t codePoint = Next(text, position);
        if (codePoint > 0xFFFF) {
            codePoint -= 0x10000;
            units.push_back(static_cast<char16_t>(0xD800 + (codePoint >> 10)));
            codePoint = 0xDC00 + (codePoint & 0x3FF);
        }
        units.push_back(static_cast<char16_t>(codePoint));
    }
    return units;
}

std::string FromUtf16(std::u16string_view units) {
    std::string text;
    text.reserve(units.size());
    for (std::size_t index = 0; index < units.size(); ++index) {
        char32_t codePoint = units[index];
        const bool isPair = codePoint >= 0xD800 && codePoint < 0xDC00 && index + 1 < units.size() &&
                            units[index + 1] >= 0xDC00 && units[index + 1] < 0xE000;
        if (isPair)
            codePoint = 0x10000 + ((codePoint - 0xD800) << 10) + (units[++index] - 0xDC00);
        Append(text, codePoint);
    }
    return text;
}

Accented Decompose(char32_t codePoint) {
    const Accented* end = accentedLetters + accentedLetterCount;
    const Accented* at =
        std::lower_bound(accentedLetters, end, codePoint,
                         [](const Accented& entry, char32_t value) { return entry.letter < value; });
    return at != end && at->letter == codePoint ? *at : Accented{codePoint, codePoint, 0};
}

} // namespace quillon::practice::unicode
