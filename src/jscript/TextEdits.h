// Changes to a text, gathered in any order and made at once; knows where the lines that come out began.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quillon::jscript {

class TextEdits {
  public:
    explicit TextEdits(std::string_view text)
        : m_text(text) {}

    void Replace(std::size_t offset, std::size_t length, std::string text) {
        m_edits.push_back({offset, length, std::move(text)});
    }
    // Of several at one place, the first stands first.
    void Insert(std::size_t offset, std::string text) { Replace(offset, 0, std::move(text)); }

    // Where each line of the changed text begins in the old one, by bytes. Texts that were put in end a line
    // only with their last character.
    std::string Apply(std::vector<std::size_t>& lines);

  private:
    struct Edit {
        std::size_t offset, erased;
        std::string inserted;
    };

    std::string_view m_text;
    std::vector<Edit> m_edits;
};

} // namespace quillon::jscript
