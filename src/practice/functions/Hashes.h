// Message digests for HASHBYTES, as RFC 1321 and FIPS 180-4 define them. Bytes in, bytes out. Not for other
// rooms.
#pragma once

#include <string>
#include <string_view>

namespace quillon::practice {

std::string Md5(std::string_view bytes);
std::string Sha1(std::string_view bytes);
std::string Sha256(std::string_view bytes);
std::string Sha512(std::string_view bytes);

} // namespace quillon::practice
