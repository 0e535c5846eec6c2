// Characters under a collation, one by one: what LIKE, CHARINDEX and REPLACE compare. Not for other rooms.
#pragma once

#include "practice/values/Collation.h"

#include <string>
#include <string_view>
#include <vector>

namespace quillon::practice {

class CharacterOrder {
  public:
    explicit CharacterOrder(const Collation& collation)
        : m_collation(collation) {}
    bool Same(char32_t left, char32_t right) const;
    int Compare(char32_t left, char32_t right) const;

  private:
    const Collation& m_collation;
};

std::vector<char32_t> Characters(std::string_view text);
// Index of the first place at or after `from` where `part` stands; npos when nowhere.
std::size_t FindCharacters(const std::vector<char32_t>& text, const std::vector<char32_t>& part,
                           std::size_t from, const CharacterOrder& order);

} // namespace quillon::practice
