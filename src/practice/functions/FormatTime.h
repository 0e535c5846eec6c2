// Times of day as FORMAT writes them, which are spans since midnight. Not for other rooms.
#pragma once

#include "practice/functions/Culture.h"

#include <cstdint>
#include <optional>
#include <string>

namespace quillon::practice {

// A standard format (c, g, G) or a custom one, in which all but its letters must be in quotes or after a
// backslash; nothing where it is not valid.
std::optional<std::string> FormatTime(std::int64_t ticks, std::string_view format, const Culture& culture);

} // namespace quillon::practice
