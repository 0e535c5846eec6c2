#include "practice/functions/Like.h"

#include "practice/functions/Matching.h"
#include "practice/values/Unicode.h"

namespace quillon::practice {

namespace {

struct Range {
    char32_t low, high;
};

// One element of a pattern, which matches one character, or any number of them.
struct Element {
    enum Kind { Character, Any, Many, Class } kind = Character;
    char32_t character = 0;
    bool negated = false;
    std::vector<Range> ranges;
};

// Reads [a-z] or [^a-z] from behind its bracket; false when it is never closed, and then nothing can match.
bool ReadClass(const std::vector<char32_t>& pattern, std::size_t& at, std::optional<char32_t> escape,
               Element& element) {
    element.kind = Element::Class;
    if (at < pattern.size() && pattern[at] == U'^') {
        element.negated = true;
        ++at;
    }
    for (bool first = true; at < pattern.size(); first = false) {
        if (pattern[at] == U']' && !first) {
            ++at;
            return true;
        }
        if (escape && pattern[at] == *escape && at + 1 < pattern.size())
            ++at;
        Range range{pattern[at], pattern[at]};
        ++at;
        if (at + 1 < pattern.size() && pattern[at] == U'-' && pattern[at + 1] != U']') {
            range.high = pattern[at + 1];
            at += 2;
        }
        element.ranges.push_back(range);
    }
    return false;
}

std::optional<std::vector<Element>> Compile(std::string_view patternText, std::optional<char32_t> escape) {
    const std::vector<char32_t> pattern = Characters(patternText);
    std::vector<Element> elements;
    for (std::size_t at = 0; at < pattern.size();) {
        Element element;
        const char32_t c = pattern[at++];
        if (escape && c == *escape) {
            if (at == pattern.size())
                return {};
            element.character = pattern[at++];
        } else if (c == U'%') {
            element.kind = Element::Many;
        } else if (c == U'_') {
            element.kind = Element::Any;
        } else if (c == U'[') {
            if (!ReadClass(pattern, at, escape, element))
                return {};
        } else {
            element.character = c;
        }
        elements.push_back(std::move(element));
    }
    return elements;
}

class PatternMatcher {
  public:
    PatternMatcher(std::vector<Element> elements, const Collation& collation, bool blanksCount)
        : m_elements(std::move(elements))
        , m_order(collation)
        , m_blanksCount(blanksCount) {}

    // Whether the elements from `firstElement` on match the text from `start` to its end.
    bool Matches(const std::vector<char32_t>& text, std::size_t start, std::size_t firstElement) const {
        std::size_t at = start, element = firstElement;
        std::size_t resumeElement = std::string::npos, resumeAt = 0;
        for (;;) {
            if (element < m_elements.size() && m_elements[element].kind == Element::Many) {
                resumeElement = ++element;
                resumeAt = at;
                continue;
            }
            if (element == m_elements.size() && IsEnd(text, at))
                return true;
            if (element < m_elements.size() && at < text.size() &&
                MatchesOne(m_elements[element], text[at])) {
                ++element;
                ++at;
                continue;
            }
            if (resumeElement == std::string::npos || resumeAt >= text.size())
                return false;
            element = resumeElement;
            at = ++resumeAt;
        }
    }

    bool BeginsWithMany() const { return !m_elements.empty() && m_elements.front().kind == Element::Many; }

  private:
    bool IsEnd(const std::vector<char32_t>& text, std::size_t at) const {
        if (!m_blanksCount)
            while (at < text.size() && text[at] == U' ')
                ++at;
        return at == text.size();
    }

    bool MatchesOne(const Element& element, char32_t c) const {
        if (element.kind == Element::Any)
            return true;
        if (element.kind == Element::Character)
            return m_order.Same(element.character, c);
        for (const Range& range : element.ranges)
            if (range.low == range.high
                    ? m_order.Same(range.low, c)
                    : m_order.Compare(range.low, c) <= 0 && m_order.Compare(c, range.high) <= 0)
                return !element.negated;
        return element.negated;
    }

    std::vector<Element> m_elements;
    CharacterOrder m_order;
    bool m_blanksCount;
};

} // namespace

bool MatchesLike(std::string_view text, std::string_view pattern, const Collation& collation,
                 std::optional<char32_t> escape, bool blanksCount) {
    auto elements = Compile(pattern, escape);
    if (!elements)
        return false;
    return PatternMatcher(std::move(*elements), collation, blanksCount).Matches(Characters(text), 0, 0);
}

int FindPattern(std::string_view text, std::string_view pattern, const Collation& collation) {
    auto elements = Compile(pattern, {});
    if (!elements)
        return 0;
    const PatternMatcher matcher(std::move(*elements), collation, true);
    const std::vector<char32_t> characters = Characters(text);
    if (!matcher.BeginsWithMany())
        return matcher.Matches(characters, 0, 0) ? 1 : 0;
    int position = 1;
    for (std::size_t start = 0; start <= characters.size(); ++start) {
        if (matcher.Matches(characters, start, 1))
            return position;
        if (start < characters.size())
            position += unicode::Units(characters[start]);
    }
    return 0;
}

} // namespace quillon::practice
