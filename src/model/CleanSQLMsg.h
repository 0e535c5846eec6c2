// Server messages as the user reads them.
#pragma once

#include <string>

namespace quillon {

// The message without the prefixes of driver and server; exact in case.
std::string CleanSQLMsg(std::string message);

} // namespace quillon
