// The edge between the system's paths, folders joined by "\", and those of the operating system, joined by
// "/".
//
// Used by: the adapters that touch files, the front ends for paths that a person chose or gave. Paths are
// UTF-8; bytes that are not pass through unchanged, since the operating system may use them.
#pragma once

#include <string>
#include <string_view>

namespace quillon::adapters {

// "\home\ann\x.qlnx" becomes "/home/ann/x.qlnx"; "/" is left as it is, since people type it. Raises 52 for an
// empty path and for one that holds a NUL.
std::string ToNative(std::string_view path);

// The reverse. Raises 52 for a name that holds a "\" itself, which the system could not tell from a folder.
std::string FromNative(std::string_view path);

} // namespace quillon::adapters
