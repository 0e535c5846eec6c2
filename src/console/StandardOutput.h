// What commands print.
#pragma once

#include <string_view>

namespace quillon::console {

// The bytes as they are, on their way when this returns. Raises 57 (device I/O error), or 61 when the disk
// behind a redirection is full.
void WriteStandardOutput(std::string_view text);

} // namespace quillon::console
