#include "practice/tds/Login.h"

#include "practice/wire/ClientBytes.h"

namespace quillon::practice::tds {
namespace {

using testing::Login7Body;
using testing::LoginText;

TEST(Prelogin, AnswersThatEncryptionIsNotOffered) {
    const std::string asked("\x00\x00\x0B\x00\x06\x01\x00\x11\x00\x01\xFF"
                            "\x09\x00\x00\x00\x00\x00"
                            "\x00",
                            18);
    std::string answer = AnswerPrelogin(asked);
    ByteReader reader(answer);
    std::map<int, std::string> options;
    for (std::uint8_t option = reader.U8(); option != 0xFF; option = reader.U8()) {
        std::size_t offset = reader.U8() * std::size_t{256};
        offset += reader.U8();
        std::size_t length = reader.U8() * std::size_t{256};
        length += reader.U8();
        options[option] = answer.substr(offset, length);
    }
    EXPECT_EQ(options[1], "\x02");
    EXPECT_EQ(options[4], std::string(1, '\0')) << "no MARS";
    EXPECT_EQ(options[0].size(), 6U);
}

TEST(Prelogin, RefusesOptionsOutsideOfTheMessage) {
    EXPECT_THROW(AnswerPrelogin(std::string("\x00\x00\x0B\x00\x06\xFF", 6)), ProtocolError);
    EXPECT_THROW(AnswerPrelogin(std::string("\x00\x00", 2)), ProtocolError);
    EXPECT_THROW(AnswerPrelogin(""), ProtocolError);
}

TEST(Login7, ReadsWhatTheClientSaysOfItself) {
    LoginText text;
    text.login = "Zoë";
    text.password = "pä$$ wörd \xF0\x9F\x94\x91";
    text.database = "Sales";
    text.packetSize = 8000;
    Login7 login = ReadLogin7(Login7Body(text));
    EXPECT_EQ(login.facts.login, text.login);
    EXPECT_EQ(login.password, text.password);
    EXPECT_EQ(login.facts.database, "Sales");
    EXPECT_EQ(login.facts.hostName, "workstation");
    EXPECT_EQ(login.facts.applicationName, "wire test");
    EXPECT_EQ(login.facts.libraryName, "by hand");
    EXPECT_EQ(login.facts.packetSize, 8000U);
    EXPECT_TRUE(login.facts.odbcDefaults);
    EXPECT_FALSE(login.integratedSecurity);
    EXPECT_TRUE(login.facts.databaseRequired);
    text.databaseRequired = false;
    EXPECT_FALSE(ReadLogin7(Login7Body(text)).facts.databaseRequired);
}

TEST(Login7, SettlesVersionAndPacketSize) {
    struct Case {
        std::uint32_t askedVersion, version, askedSize, size;
    };
    for (const Case& one :
         {Case{0x71000000, version::tds71, 0, 4096}, Case{0x71000001, version::tds71Revision1, 1, 512},
          Case{0x72090002, version::tds72, 512, 512}, Case{0x730A0003, version::tds73, 40000, 32767},
          Case{0x730B0003, version::tds73B, 16384, 16384}, Case{0x74000004, version::tds74, 4096, 4096},
          Case{0x75000000, version::tds74, 4096, 4096}}) {
        LoginText text;
        text.version = one.askedVersion;
        text.packetSize = one.askedSize;
        LoginFacts facts = ReadLogin7(Login7Body(text)).facts;
        EXPECT_EQ(facts.tdsVersion, one.version);
        EXPECT_EQ(facts.packetSize, one.size);
    }
    LoginText old;
    old.version = 0x70000000;
    EXPECT_THROW(ReadLogin7(Login7Body(old)), ProtocolError);
}

TEST(Login7, RefusesFieldsOutsideOfTheMessage) {
    LoginText text;
    text.database = "Sales";
    const std::string whole = Login7Body(text);
    for (std::size_t length = 0; length < whole.size(); ++length) {
        EXPECT_THROW(ReadLogin7(whole.substr(0, length)), ProtocolError) << length;
    }
    for (std::size_t place : {36U, 40U, 44U, 48U, 52U, 60U, 68U}) { // offset of one field, then its length
        std::string far = whole;
        far[place + 1] = '\x70';
        std::string longer = whole;
        longer[place + 3] = '\x70';
        EXPECT_THROW(ReadLogin7(far), ProtocolError) << place;
        EXPECT_THROW(ReadLogin7(longer), ProtocolError) << place;
    }
}

} // namespace
} // namespace quillon::practice::tds
