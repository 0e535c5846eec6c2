// The lines of a text in memory, as views into it. CR LF, LF and CR all end a line; a last line need not end.
//
// Linear in the text whatever ends its lines.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace quillon {

class TextLines {
  public:
    // `text` must outlive this and the lines taken.
    explicit TextLines(std::string_view text) noexcept;

    // False at the end of the text.
    bool Take(std::string_view& line) noexcept;

  private:
    std::size_t Next(char ending) const noexcept;

    std::string_view m_text;
    std::size_t m_at = 0;
    // Where the next ending of each kind stands, looked for only when it was passed; the text's size for
    // none.
    std::size_t m_feed;
    std::size_t m_return;
};

// A file that a person's editor wrote may begin with a byte order mark, which is no part of its text.
void DropByteOrderMark(std::string& textOrFirstLine);

} // namespace quillon
