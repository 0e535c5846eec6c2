// What the custom formats of dates and of times of day share. Not for other rooms.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace quillon::practice {

// Appends what a letter that stands so often in a row is for; false where it is not valid.
using WriteRun = std::function<bool(std::string& text, char letter, std::size_t run)>;
// Writes each run of one letter (of which % makes one of its own), the texts in quotes and the characters
// after a backslash. Nothing where the format is not valid.
std::optional<std::string> WritePattern(std::string_view format, const WriteRun& writeRun);

void AppendPadded(std::string& text, std::int64_t number, std::size_t digits);
// The first `digits` digits of the fraction of a second, of at most seven; without zeros at the end where
// `trimmed`.
std::string FractionText(std::int64_t ticks, std::size_t digits, bool trimmed);

} // namespace quillon::practice
