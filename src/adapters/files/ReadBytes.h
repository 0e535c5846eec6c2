// The whole contents of a file, by its native path.
#pragma once

#include <string>

namespace quillon::adapters {

std::string ReadBytes(const std::string& nativePath);

} // namespace quillon::adapters
