// A run log on the standard output, and what it says about the run.
#pragma once

#include "execution/RunLog.h"

namespace quillon::console {

// Prints the log. Raises 5 afterwards when the server refused something, so that a pipeline notices.
void PrintRunLog(const RunLog& log);

} // namespace quillon::console
