#include "template/TextLines.h"

#include <algorithm>

namespace quillon {

TextLines::TextLines(std::string_view text) noexcept
    : m_text(text)
    , m_feed(Next('\n'))
    , m_return(Next('\r')) {}

std::size_t TextLines::Next(char ending) const noexcept {
    return std::min(m_text.find(ending, m_at), m_text.size());
}

bool TextLines::Take(std::string_view& line) noexcept {
    if (m_at == m_text.size())
        return false;
    if (m_feed < m_at)
        m_feed = Next('\n');
    if (m_return < m_at)
        m_return = Next('\r');
    const std::size_t end = std::min(m_feed, m_return);
    line = m_text.substr(m_at, end - m_at);
    const bool isPair = end == m_return && m_feed == end + 1;
    m_at = std::min(end + (isPair ? 2 : 1), m_text.size());
    return true;
}

void DropByteOrderMark(std::string& textOrFirstLine) {
    constexpr std::string_view mark = "\xEF\xBB\xBF";
    if (textOrFirstLine.starts_with(mark))
        textOrFirstLine.erase(0, mark.size());
}

} // namespace quillon
