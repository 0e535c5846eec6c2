// Characters of UTF-8 text, and comparison without regard to case.
//
// Used by: keys of the object model, the path and split helpers. Case pairs are those of the Latin, Greek and
// Cyrillic letters, the same on every machine: a key must not depend on the locale of who runs the program.
// Bytes that are no UTF-8 count as one character each and equal only themselves.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace quillon {

// Length in bytes of the character that begins at `offset`, which must lie inside the text.
std::size_t CharacterSize(std::string_view text, std::size_t offset) noexcept;

// Number of characters.
std::size_t CharacterCount(std::string_view text) noexcept;

// Equal for texts that differ in case alone.
std::uint32_t FoldedHash(std::string_view text) noexcept;
bool EqualFolded(std::string_view left, std::string_view right) noexcept;

// Offset in bytes of the first place where `wanted` stands in `text` in any case; npos if there is none.
// Linear in the product of the lengths at worst; meant for short delimiters.
std::size_t FindFolded(std::string_view text, std::string_view wanted) noexcept;

} // namespace quillon
