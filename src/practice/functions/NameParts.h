// Names of several parts in texts that functions are given: 'db.[my schema].t'.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillon::practice {

// The parts, brackets and quotes taken off; an empty part for db..t. Nothing when a bracket is left open or
// there are more than four parts.
std::optional<std::vector<std::string>> SplitName(std::string_view name);

} // namespace quillon::practice
