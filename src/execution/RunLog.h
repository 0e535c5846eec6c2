// A run log: what a script run says, line by line. Several named scripts may write into one.
#pragma once

#include <string>
#include <vector>

namespace quillon {

using RunLog = std::vector<std::string>;

} // namespace quillon
