// Duktape keeps strings in CESU-8: characters beyond the basic plane as two halves of three bytes each.
#pragma once

#include <string>
#include <string_view>

namespace quillon::jscript {

void AppendCesu8(std::string& out, std::string_view utf8);

// Halves without a partner become U+FFFD.
std::string Utf8FromCesu8(std::string_view cesu8);

} // namespace quillon::jscript
