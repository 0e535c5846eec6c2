// The words of a SQL batch as far as names are concerned: comments and quoted texts are passed over,
// bracketed and double-quoted names come without their quotes.
#pragma once

#include <string>
#include <string_view>

namespace quillon {

class SqlWords {
  public:
    // `batch` must outlive this.
    explicit SqlWords(std::string_view batch) noexcept
        : m_text(batch) {}

    // False at the end. A word is a name, a bare word, a variable, or a single other character.
    bool Take(std::string& word);
    // The name that comes next, its parts joined by dots as they stand; "dbo." comes in front of a single
    // part.
    std::string TakeName();

  private:
    bool SkipBlanksAndComments();
    void SkipBlockComment();
    std::string TakeQuoted(char end);
    bool IsAt(std::string_view text) const { return m_text.substr(m_at, text.size()) == text; }

    std::string_view m_text;
    std::size_t m_at = 0;
};

} // namespace quillon
