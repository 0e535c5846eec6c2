#include "vbscript/builtins/RegExpProgram.h"

#include <algorithm>

#include "vbscript/machine/Convert.h"

namespace quillon::vbscript::regexp {

void CharacterSet::Add(char16_t first, char16_t last) {
    for (unsigned c = first; c <= last && c < 256; ++c)
        m_low.set(c);
    if (last >= 256)
        m_high.emplace_back(std::max<char16_t>(first, 256), last);
}

void CharacterSet::Add(const CharacterSet& other) {
    m_low |= other.m_low;
    m_high.insert(m_high.end(), other.m_high.begin(), other.m_high.end());
}

// For \D, \W and \S within brackets: those classes hold low characters only, so all high ones come in.
void CharacterSet::AddAllBut(const CharacterSet& other) {
    m_low |= ~other.m_low;
    m_high.emplace_back(char16_t{256}, char16_t{0xFFFF});
}

bool CharacterSet::ListsHigh(char16_t c) const noexcept {
    return std::ranges::any_of(m_high,
                               [c](const auto& range) { return c >= range.first && c <= range.second; });
}

bool CharacterSet::ListsOtherCase(char16_t c) const noexcept {
    return Lists(UpperOf(c)) || Lists(LowerOf(c));
}

} // namespace quillon::vbscript::regexp
