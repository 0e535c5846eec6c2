// LIKE: % _ [a-z] [^a-z] and ESCAPE, under a collation. Shared by LIKE and PATINDEX.
#pragma once

#include "practice/values/Collation.h"

#include <optional>
#include <string_view>

namespace quillon::practice {

// Trailing blanks of the pattern count; those of the text match a pattern without them only for types that
// pad
// (`blanksCount` false: non-Unicode char data). `escape` is one character or nothing.
bool MatchesLike(std::string_view text, std::string_view pattern, const Collation& collation,
                 std::optional<char32_t> escape = {}, bool blanksCount = true);
// PATINDEX: 1-based position, in UTF-16 units, of the first match of the pattern (its outer % respected); 0
// when none.
int FindPattern(std::string_view text, std::string_view pattern, const Collation& collation);

} // namespace quillon::practice
