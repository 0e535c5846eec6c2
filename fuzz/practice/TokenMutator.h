// Changes a T-SQL text by whole words, so that far more of what comes out still parses than after a change of
// single bytes.
#pragma once

#include <cstddef>
#include <random>
#include <string>
#include <string_view>

namespace quillon::practice::fuzz {

/// `text` with one change at a word of `random`'s choice: dropped, doubled, swapped with its neighbour, or
/// replaced by one of the language's words or by a word of `other`. Text that cannot be cut into words comes
/// back as it is.
std::string ChangeOneWord(std::string_view text, std::string_view other, std::minstd_rand& random);

/// A piece of `text` that ends at a word's end, followed by a piece of `other` that begins at a word's start.
std::string Splice(std::string_view text, std::string_view other, std::minstd_rand& random);

} // namespace quillon::practice::fuzz
