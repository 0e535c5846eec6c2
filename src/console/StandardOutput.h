// What commands print: bytes as they are.
//
// Both raise 57 (device I/O error), or 61 when the disk behind a redirection is full.
#pragma once

#include <string_view>

namespace quillon::console {

void WriteStandardOutput(std::string_view text);
// What was written is on its way when this returns; a command's last act.
void FlushStandardOutput();

} // namespace quillon::console
