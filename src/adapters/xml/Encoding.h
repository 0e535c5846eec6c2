// A file's bytes as UTF-8 and back, through the encoding that the file declares.
#pragma once

#include <string>
#include <string_view>

namespace quillon::adapters {

// Raises 5 for an encoding that is unknown or for bytes or characters that it does not have.
std::string ToUtf8(std::string_view bytes, const std::string& encoding);
std::string FromUtf8(std::string_view text, const std::string& encoding);

} // namespace quillon::adapters
