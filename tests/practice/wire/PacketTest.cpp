#include "practice/tds/Packets.h"

#include "practice/wire/ClientBytes.h"

#include <numeric>

namespace quillon::practice::tds {
namespace {

using testing::Packets;

TEST(PacketAssembler, FindsMessagesHoweverTheBytesAreSplit) {
    std::string body(1500, 'x');
    std::iota(body.begin(), body.end(), '\0');
    const std::string bytes = Packets(PacketType::SqlBatch, body, 512) + Packets(PacketType::Rpc, "call");
    for (std::size_t piece :
         {std::size_t{1}, std::size_t{7}, std::size_t{511}, std::size_t{512}, bytes.size()}) {
        PacketAssembler assembler;
        std::vector<ClientMessage> messages;
        for (std::size_t start = 0; start < bytes.size(); start += piece) {
            assembler.Feed(std::string_view(bytes).substr(start, piece));
            while (auto message = assembler.Next()) {
                messages.push_back(*message);
            }
        }
        ASSERT_EQ(messages.size(), 2U) << piece;
        EXPECT_EQ(messages[0].body, body) << piece;
        EXPECT_EQ(messages[0].type, PacketType::SqlBatch);
        EXPECT_EQ(messages[1].body, "call") << piece;
        EXPECT_EQ(messages[1].type, PacketType::Rpc);
    }
}

TEST(PacketAssembler, RefusesWhatNoClientSends) {
    const std::vector<std::pair<const char*, std::string>> cases{
        {"a response", std::string("\x04\x01\x00\x08\0\0\0\0", 8)},
        {"an unknown type", std::string("\x63\x01\x00\x08\0\0\0\0", 8)},
        {"a length below the header's", std::string("\x01\x01\x00\x07\0\0\0\0", 8)},
        {"a type that changes half-way",
         std::string("\x01\x00\x00\x08\0\0\0\0", 8) + std::string("\x03\x01\x00\x08\0\0\0\0", 8)},
    };
    for (const auto& [name, bytes] : cases) {
        PacketAssembler assembler;
        assembler.Feed(bytes);
        EXPECT_THROW(assembler.Next(), ProtocolError) << name;
    }
}

TEST(PacketAssembler, RefusesMessagesBeyondTheLimit) {
    PacketAssembler assembler;
    assembler.SetLimit(1000);
    assembler.Feed(Packets(PacketType::SqlBatch, std::string(1200, 'x'), 512));
    EXPECT_THROW(while (assembler.Next()){}, ProtocolError);
}

TEST(PacketAssembler, AnAttentionReplacesTheMessageItInterrupts) {
    PacketAssembler assembler;
    std::string begun = Packets(PacketType::SqlBatch, std::string(800, 'x'), 512).substr(0, 512);
    assembler.Feed(begun + Packets(PacketType::Attention, "") + Packets(PacketType::SqlBatch, "next"));
    auto first = assembler.Next();
    auto second = assembler.Next();
    ASSERT_TRUE(first && second);
    EXPECT_EQ(first->type, PacketType::Attention);
    EXPECT_EQ(second->body, "next");
}

TEST(PacketAssembler, ReadsTheFlagsOfAMessage) {
    PacketAssembler assembler;
    assembler.Feed(
        Packets(PacketType::SqlBatch, "taken back", 512, status::endOfMessage | status::ignore) +
        Packets(PacketType::SqlBatch, "pooled", 512, status::endOfMessage | status::resetConnection));
    EXPECT_TRUE(assembler.Next()->ignored);
    auto pooled = assembler.Next();
    EXPECT_FALSE(pooled->ignored);
    EXPECT_EQ(pooled->resetFlags, status::resetConnection);
}

TEST(PacketWriter, FillsPacketsAndMarksTheLast) {
    for (std::size_t length : {0U, 1U, 503U, 504U, 505U, 1008U, 5000U}) {
        std::vector<std::string> sent;
        PacketWriter writer([&](std::string_view packet) { sent.emplace_back(packet); }, 0x1234);
        writer.SetPacketSize(512);
        writer.EndMessage(); // the size holds from the next message on
        sent.clear();
        std::string body(length, 'y');
        writer.Write(body);
        writer.EndMessage();
        std::string all = std::accumulate(sent.begin(), sent.end(), std::string());
        EXPECT_EQ(testing::Unwrap(all), body) << length;
        EXPECT_EQ(sent.size(), length == 0 ? 1 : (length + 503) / 504) << length;
        for (std::size_t index = 0; index < sent.size(); ++index) {
            EXPECT_EQ(sent[index].substr(4, 3), std::string("\x12\x34") + static_cast<char>(index + 1));
            EXPECT_TRUE(sent[index].size() == 512 || index + 1 == sent.size());
        }
    }
}

} // namespace
} // namespace quillon::practice::tds
