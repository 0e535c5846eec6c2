// Equality without regard to the case of the letters A to Z, for the doubles.
#pragma once

#include <algorithm>
#include <cctype>
#include <string_view>

namespace quillon::tests {

inline bool SameText(std::string_view left, std::string_view right) {
    return std::ranges::equal(
        left, right, [](unsigned char a, unsigned char b) { return std::tolower(a) == std::tolower(b); });
}

} // namespace quillon::tests
