// Salted, deliberately slow hashes of passwords, in the system's own form ("$6$rounds=...$salt$hash"), which
// names method and salt.
#pragma once

#include <string>
#include <string_view>

namespace quillon::practice {

// A new hash with a random salt. Throws std::runtime_error when the system offers no such hash.
std::string HashPassword(std::string_view password);
// Whether the hash was made of this password.
bool MatchesPassword(std::string_view password, const std::string& hash);

// Bytes from the system's source of randomness.
std::string RandomBytes(std::size_t count);
// Letters and digits that a person can copy.
std::string RandomPassword();

} // namespace quillon::practice
