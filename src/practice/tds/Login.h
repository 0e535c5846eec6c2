// The two messages by which a connection begins: PRELOGIN ([MS-TDS] 2.2.6.5), which settles encryption, and
// LOGIN7 (2.2.6.4).
#pragma once

#include "practice/session/SqlSession.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace quillon::practice::tds {

// The versions whose forms differ. The value is the one that LOGIN7 carries.
namespace version {
constexpr std::uint32_t tds71 = 0x71000000;
constexpr std::uint32_t tds71Revision1 = 0x71000001;
constexpr std::uint32_t tds72 = 0x72090002;
constexpr std::uint32_t tds73 = 0x730A0003;
constexpr std::uint32_t tds73B = 0x730B0003; // rows may have a bitmap of their nulls
constexpr std::uint32_t tds74 = 0x74000004;
} // namespace version

// What the server says of itself. Drivers choose their dialect by the version's major number.
constexpr const char* productName = "Quillon practice server";
constexpr std::uint32_t productVersion = 0x0F0007D0; // 15.0.2000: major, minor, build

// The answer to a client's PRELOGIN: our version, no encryption (the server is on the loopback), no MARS.
// Throws ProtocolError when `body` is not a PRELOGIN.
std::string AnswerPrelogin(std::string_view body);

struct Login7 {
    LoginFacts facts;
    std::string password;
    std::string newPassword;
    bool changePassword = false;
    bool integratedSecurity = false;
};

// Throws ProtocolError for a message whose fields do not lie within it, and for versions below 7.1. A version
// above 7.4 becomes 7.4, a packet size out of range the nearest one within.
Login7 ReadLogin7(std::string_view body);

} // namespace quillon::practice::tds
