// The pattern match that names of tables and types are tested with.
#pragma once

#include <string_view>

namespace quillon {

// Whole text against a pattern, case-sensitive: "*" any run, "?" one character, "#" one digit, "[a-z_]" one
// of a list,
// "[!...]" one not in it. A bracket that is never closed matches nothing.
bool Like(std::string_view text, std::string_view pattern) noexcept;

} // namespace quillon
