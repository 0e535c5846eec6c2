#include "practice/values/NameRule.h"

#include "practice/values/Unicode.h"

#include <algorithm>

namespace quillon::practice {

namespace {

bool IsPlain(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

char LowerPlain(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool IsPartOfWord(char c) {
    return c == '_' || c == '@' || c == '#' || c == '$' || (c >= '0' && c <= '9') ||
           (LowerPlain(c) >= 'a' && LowerPlain(c) <= 'z') || static_cast<unsigned char>(c) >= 0x80;
}

} // namespace

// Most names are plain ones and differ: that must be told without the collation's weights.
bool NameRule::Same(std::string_view left, std::string_view right) const {
    if (left == right)
        return true;
    if (!IsPlain(left) || !IsPlain(right))
        return m_collation->Compare(left, right) == 0;
    return !m_collation->caseSensitive && left.size() == right.size() &&
           std::equal(left.begin(), left.end(), right.begin(),
                      [](char a, char b) { return LowerPlain(a) == LowerPlain(b); });
}

std::string NameRule::Key(std::string_view name) const {
    return m_collation->Key(name);
}

bool NameRule::IsMentioned(std::string_view name, std::string_view text) const {
    const auto folded = [this](std::string_view one) {
        return m_collation->caseSensitive ? std::string(one) : unicode::ToLower(one);
    };
    const std::string whole = folded(text);
    const std::string wanted = folded(name);
    for (std::size_t at = whole.find(wanted); at != std::string::npos; at = whole.find(wanted, at + 1)) {
        const std::size_t end = at + wanted.size();
        if ((at == 0 || !IsPartOfWord(whole[at - 1])) && (end == whole.size() || !IsPartOfWord(whole[end])))
            return true;
    }
    return false;
}

std::string FoldName(std::string_view name) {
    return NameRule().Key(name);
}

bool SameName(std::string_view left, std::string_view right) {
    return NameRule().Same(left, right);
}

} // namespace quillon::practice
