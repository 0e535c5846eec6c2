#include "practice/functions/Matching.h"

#include "practice/values/Unicode.h"

namespace quillon::practice {

namespace {

std::string OneCharacter(char32_t c) {
    std::string text;
    unicode::Append(text, c);
    return text;
}

} // namespace

bool CharacterOrder::Same(char32_t left, char32_t right) const {
    if (left == right)
        return true;
    if (left < 0x80 && right < 0x80)
        return !m_collation.caseSensitive && unicode::ToLower(left) == unicode::ToLower(right);
    return Compare(left, right) == 0;
}

int CharacterOrder::Compare(char32_t left, char32_t right) const {
    return m_collation.Compare(OneCharacter(left), OneCharacter(right));
}

std::vector<char32_t> Characters(std::string_view text) {
    std::vector<char32_t> characters;
    characters.reserve(text.size());
    for (std::size_t at = 0; at < text.size();)
        characters.push_back(unicode::Next(text, at));
    return characters;
}

std::size_t FindCharacters(const std::vector<char32_t>& text, const std::vector<char32_t>& part,
                           std::size_t from, const CharacterOrder& order) {
    for (std::size_t start = from; start + part.size() <= text.size(); ++start) {
        std::size_t length = 0;
        while (length < part.size() && order.Same(text[start + length], part[length]))
            ++length;
        if (length == part.size())
            return start;
    }
    return std::string::npos;
}

} // namespace quillon::practice
