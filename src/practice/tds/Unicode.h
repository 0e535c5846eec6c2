// The UTF-16 texts of the wire, little endian: n-types and names. The other character types are in the code
// page of their collation. Inside the server text is UTF-8. Half a surrogate pair, which n-types may hold, is
// kept as the three bytes that UTF-8 would have for it, so that it goes out as it came in.
#pragma once

#include <string>
#include <string_view>

namespace quillon::practice::tds {

// `bytes` has an even length; a last odd byte is ignored.
std::string FromUtf16(std::string_view bytes);
std::string ToUtf16(std::string_view utf8);
// Each byte that is no UTF-8 becomes the character of its own number.
void AppendUtf16(std::string_view utf8, std::string& out);

} // namespace quillon::practice::tds
