// Errors of the operating system as failures with the numbers that users know.
#pragma once

#include <string>

namespace quillon::adapters {

// Raises the failure for `error` (an errno value) at a file, given by its native path. A missing file is 53
// when its folder exists and 76 when that is missing too; missing rights are 70, a folder in place of a file
// and the like 75, a full disk 61, an impossible name 52, memory 7, everything else 57 with the system's own
// words.
[[noreturn]] void RaiseSystemFailure(int error, const std::string& nativePath);

} // namespace quillon::adapters
