// The built-in functions that a server of this version has and this one has not: they are refused by name,
// where a word that no server knows is 195.
#pragma once

#include <string_view>

namespace quillon::practice {

// `name` in upper case.
bool IsRefusedFunction(std::string_view name);

} // namespace quillon::practice
