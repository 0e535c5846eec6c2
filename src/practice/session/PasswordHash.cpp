#include "practice/session/PasswordHash.h"

#include <crypt.h>
#include <sys/random.h>

#include <memory>
#include <stdexcept>

namespace quillon::practice {
namespace {

constexpr std::string_view saltCharacters =
    "./0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
constexpr std::size_t saltLength = 16;
// SHA-512 with as many rounds as take a hundredth of a second: logins are frequent here, guesses are local.
constexpr const char* method = "$6$rounds=20000$";

std::string Crypt(std::string_view password, const std::string& setting) {
    auto work = std::make_unique<crypt_data>();
    const std::string terminated(password);
    const char* hash = crypt_r(terminated.c_str(), setting.c_str(), work.get());
    if (hash == nullptr || hash[0] == '*') {
        throw std::runtime_error("the system cannot hash passwords");
    }
    return hash;
}

bool SameInConstantTime(std::string_view left, std::string_view right) {
    if (left.size() != right.size()) {
        return false;
    }
    unsigned difference = 0;
    for (std::size_t index = 0; index < left.size(); ++index) {
        difference |= static_cast<unsigned>(left[index] ^ right[index]);
    }
    return difference == 0;
}

std::string RandomText(std::string_view alphabet, std::size_t length) {
    std::string text = RandomBytes(length);
    for (char& character : text) {
        character = alphabet[static_cast<unsigned char>(character) % alphabet.size()];
    }
    return text;
}

} // namespace

std::string RandomBytes(std::size_t count) {
    std::string bytes(count, '\0');
    std::size_t filled = 0;
    while (filled < count) {
        ssize_t got = getrandom(bytes.data() + filled, count - filled, 0);
        if (got <= 0) {
            throw std::runtime_error("the system has no randomness to give");
        }
        filled += static_cast<std::size_t>(got);
    }
    return bytes;
}

std::string RandomPassword() {
    constexpr std::string_view legible = "abcdefghijkmnpqrstuvwxyzABCDEFGHJKLMNPQRSTUVWXYZ23456789";
    constexpr std::size_t length = 20;
    return RandomText(legible, length);
}

std::string HashPassword(std::string_view password) {
    return Crypt(password, method + RandomText(saltCharacters, saltLength));
}

bool MatchesPassword(std::string_view password, const std::string& hash) {
    return SameInConstantTime(Crypt(password, hash), hash);
}

} // namespace quillon::practice
