// The 128-bit integers that carry decimals of up to 38 digits. They are an extension of both compilers we
// build with, named here once so that the rest of the code compiles without a pedantic warning.
#pragma once

namespace quillon::practice {

__extension__ typedef __int128 Int128;
__extension__ typedef unsigned __int128 UInt128;

} // namespace quillon::practice
