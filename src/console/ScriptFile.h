// Script files as people have them.
#pragma once

#include <string>
#include <string_view>

namespace quillon::console {

// The text of a file's bytes, in UTF-8: files in UTF-8, with or without a byte-order mark, and in UTF-16 with
// one. Raises 321 for anything else, with `name` in the text.
std::string ScriptText(std::string_view bytes, const std::string& name);

} // namespace quillon::console
