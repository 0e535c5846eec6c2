#include "triggers/SqlWords.h"

#include <algorithm>
#include <cctype>

namespace quillon {
namespace {

bool IsBlank(char c) {
    return std::isspace(static_cast<unsigned char>(c)) != 0;
}

bool IsWordCharacter(char c) {
    const auto byte = static_cast<unsigned char>(c);
    return std::isalnum(byte) != 0 || byte >= 0x80 || c == '_' || c == '@' || c == '#' || c == '$';
}

} // namespace

bool SqlWords::SkipBlanksAndComments() {
    while (m_at < m_text.size()) {
        if (IsBlank(m_text[m_at]))
            ++m_at;
        else if (IsAt("--"))
            m_at = std::min(m_text.find('\n', m_at), m_text.size());
        else if (IsAt("/*"))
            SkipBlockComment();
        else if (m_text[m_at] == '\'')
            TakeQuoted('\'');
        else
            return true;
    }
    return false;
}

// Block comments nest.
void SqlWords::SkipBlockComment() {
    int depth = 0;
    do {
        depth += IsAt("/*") ? 1 : IsAt("*/") ? -1 : 0;
        m_at += IsAt("/*") || IsAt("*/") ? 2 : 1;
    } while (depth > 0 && m_at < m_text.size());
}

// Past the closing quote; a doubled one stands for itself.
std::string SqlWords::TakeQuoted(char end) {
    std::string text;
    for (++m_at; m_at < m_text.size(); ++m_at) {
        if (m_text[m_at] == end) {
            ++m_at;
            if (m_at == m_text.size() || m_text[m_at] != end)
                return text;
        }
        text += m_text[m_at];
    }
    return text;
}

bool SqlWords::Take(std::string& word) {
    if (!SkipBlanksAndComments())
        return false;
    const char first = m_text[m_at];
    if (first == '[' || first == '"') {
        word = TakeQuoted(first == '[' ? ']' : '"');
        return true;
    }
    const auto begin = m_at++;
    if (IsWordCharacter(first))
        while (m_at < m_text.size() && IsWordCharacter(m_text[m_at]))
            ++m_at;
    word = m_text.substr(begin, m_at - begin);
    return true;
}

std::string SqlWords::TakeName() {
    std::string name, part;
    int parts = 0;
    while (Take(part)) {
        name += part;
        ++parts;
        if (!SkipBlanksAndComments() || m_text[m_at] != '.')
            break;
        name += '.';
        ++m_at;
    }
    return parts == 1 ? "dbo." + name : name;
}

} // namespace quillon
