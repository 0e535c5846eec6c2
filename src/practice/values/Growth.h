// How long a value may become: what makes one from others asks before it takes the memory.
#pragma once

#include <cstddef>

namespace quillon::practice {

// Throws SqlError 7119 for more bytes than the storage takes.
void RequireGrowth(std::size_t bytes);
[[noreturn]] void RefuseGrowth();

} // namespace quillon::practice
