// Files that only their user may read: the logins and the first password of sa.
#pragma once

#include <filesystem>
#include <string>

namespace quillon::practice {

// The content of a file that exists. Throws std::runtime_error when others than its user have any right to
// it, or when it cannot be read.
std::string ReadPrivateFile(const std::filesystem::path& file);
// Replaces the file as a whole, with rights for its user alone: after a crash there is the old content or the
// new. Throws std::runtime_error.
void WritePrivateFile(const std::filesystem::path& file, const std::string& content);

} // namespace quillon::practice
