#include "practice/tsql/Keywords.h"

#include <algorithm>
#include <array>
#include <string>
#include <unordered_map>

namespace quillon::practice::tsql {

namespace {

constexpr std::size_t kLongestKeyword = 20;

char Upper(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

const std::unordered_map<std::string_view, Keyword>& Keywords() {
    static const std::unordered_map<std::string_view, Keyword> table = {
#define QUILLON_KEYWORD(name, text) {text, Keyword::name},
        QUILLON_TSQL_KEYWORDS(QUILLON_KEYWORD)
#undef QUILLON_KEYWORD
    };
    return table;
}

} // namespace

Keyword FindKeyword(std::string_view word) {
    if (word.size() > kLongestKeyword)
        return Keyword::None;
    std::array<char, kLongestKeyword> upper{};
    std::transform(word.begin(), word.end(), upper.begin(), Upper);
    const auto found = Keywords().find(std::string_view(upper.data(), word.size()));
    return found == Keywords().end() ? Keyword::None : found->second;
}

bool SameWord(std::string_view left, std::string_view right) {
    return left.size() == right.size() && std::equal(left.begin(), left.end(), right.begin(),
                                                     [](char a, char b) { return Upper(a) == Upper(b); });
}

std::string UpperWord(std::string_view word) {
    std::string upper(word);
    std::transform(upper.begin(), upper.end(), upper.begin(), Upper);
    return upper;
}

} // namespace quillon::practice::tsql
