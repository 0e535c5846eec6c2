// What a client sends, built by hand, and what a server's answer says when it is taken apart.
#pragma once

#include "practice/tds/Bytes.h"
#include "practice/tds/Login.h"
#include "practice/tds/Packets.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace quillon::practice::testing {

// The packets of one message.
std::string Packets(tds::PacketType type, std::string_view body,
                    std::size_t packetSize = tds::defaultPacketSize,
                    std::uint8_t lastFlags = tds::status::endOfMessage);

struct LoginText {
    std::string login = "sa";
    std::string password = "Secret1!";
    std::string database;
    bool databaseRequired = true;
    std::uint32_t version = tds::version::tds74;
    std::uint32_t packetSize = 4096;
};
std::string Login7Body(const LoginText& text);

// The headers that requests have since 7.2; nothing before.
std::string RequestHeaders(std::uint32_t version = tds::version::tds74);
std::string BatchBody(std::string_view text, std::uint32_t version = tds::version::tds74);

// The tokens of an answer, as far as tests look into them. Rows are not taken apart: the reader knows the
// columns' sizes only for int columns, which is what the scripts here answer.
struct Answer {
    struct Done {
        std::uint8_t token;
        std::uint16_t flags;
        std::uint64_t count;
    };
    std::vector<std::uint8_t> tokens;
    std::vector<Done> dones;
    std::vector<std::int32_t> messages;    // numbers
    std::vector<std::uint8_t> environment; // kinds of change
    std::vector<std::int64_t> values;      // of int columns
    std::vector<std::int64_t> returned;    // int output parameters
    std::vector<std::uint16_t> ordinals;   // of output parameters
};
Answer TakeApart(std::string_view tokens, std::uint32_t version = tds::version::tds74);

// The bodies of the packets in `bytes`, joined; checks the headers' lengths.
std::string Unwrap(std::string_view bytes);

} // namespace quillon::practice::testing
