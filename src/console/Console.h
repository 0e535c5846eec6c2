// The command line's entry: reads the arguments, runs the command that they name.
#pragma once

#include <cstdio>

namespace quillon::console {

// The process's exit code: 0 when the command succeeded, 1 when a failure was reported, 2 for arguments that
// cannot be understood.
int Main(int argc, const char* const* argv);

} // namespace quillon::console
