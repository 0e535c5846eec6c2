// Names as small numbers: one number a name without regard to case, for the life of the engine.
//
// The lexer gives every identifier its number, so that the parser, the compiler and the machine compare
// numbers. The first spelling met is the one that messages show.
#pragma once

#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace quillon::vbscript {

using NameId = std::uint32_t;
inline constexpr NameId NoName = UINT32_MAX;

class Names {
  public:
    NameId Intern(std::u16string_view name);
    NameId InternAscii(std::string_view name);
    // None if no text has used the name yet.
    std::optional<NameId> Find(std::u16string_view name) const;
    std::optional<NameId> FindUtf8(std::string_view name) const;

    const std::string& Utf8(NameId id) const { return m_spellings[id]; }
    std::size_t Count() const noexcept { return m_spellings.size(); }

  private:
    std::unordered_map<std::u16string, NameId> m_ids; // by the name in lower case
    std::deque<std::string> m_spellings;
};

} // namespace quillon::vbscript
