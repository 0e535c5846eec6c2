// Finding one text in another, by character code or without regard to case.
#pragma once

#include <string_view>

#include "vbscript/machine/Text.h"

namespace quillon::vbscript {

// Both texts, folded once if case does not matter; offsets in the folded text are those in the original,
// since folding keeps the length. Views into the originals must outlive it.
class Search {
  public:
    Search(std::u16string_view text, std::u16string_view sought, bool ignoreCase);
    Search(const Search&) = delete;
    Search& operator=(const Search&) = delete;

    static constexpr std::size_t None = std::u16string_view::npos;
    // The first place at or after `from`, or None.
    std::size_t Next(std::size_t from) const;
    // The last place at or before `from`, or None.
    std::size_t Last(std::size_t from) const;

  private:
    Text m_foldedText, m_foldedSought;
    std::u16string_view m_text, m_sought;
};

} // namespace quillon::vbscript
