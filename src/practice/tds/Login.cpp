#include "practice/tds/Login.h"

#include "practice/tds/Bytes.h"
#include "practice/tds/Packets.h"
#include "practice/tds/Unicode.h"

#include <algorithm>

namespace quillon::practice::tds {
namespace {

enum class PreloginOption : std::uint8_t {
    Version = 0,
    Encryption = 1,
    Instance = 2,
    Thread = 3,
    Mars = 4,
    End = 0xFF
};

constexpr std::uint8_t encryptionNotSupported = 2;

void CheckPreloginOptions(std::string_view body) {
    ByteReader reader(body);
    while (reader.U8() != static_cast<std::uint8_t>(PreloginOption::End)) {
        std::string_view place = reader.Bytes(4); // offset and length, these two big endian
        auto at = [&](std::size_t index) {
            return static_cast<std::size_t>(static_cast<std::uint8_t>(place[index]));
        };
        if (((at(0) << 8) | at(1)) + ((at(2) << 8) | at(3)) > body.size()) {
            throw ProtocolError("A PRELOGIN option lies outside of its message.");
        }
    }
}

std::uint32_t NegotiatedVersion(std::uint32_t asked) {
    if (asked < version::tds71) {
        throw ProtocolError("This server speaks TDS 7.1 to 7.4.");
    }
    for (std::uint32_t known : {version::tds74, version::tds73B, version::tds73, version::tds72}) {
        if (asked >= known) {
            return known;
        }
    }
    return asked == version::tds71 ? version::tds71 : version::tds71Revision1;
}

std::uint32_t NegotiatedPacketSize(std::uint32_t asked) {
    if (asked == 0) {
        return defaultPacketSize;
    }
    return std::clamp<std::uint32_t>(asked, leastPacketSize, mostPacketSize);
}

// The variable fields: an offset from the message's start and a length in characters.
class LoginFields {
  public:
    LoginFields(std::string_view body, ByteReader& reader)
        : m_body(body)
        , m_reader(reader) {}

    std::string_view NextBytes() {
        std::size_t offset = m_reader.U16();
        std::size_t length = std::size_t{m_reader.U16()} * 2;
        if (length == 0) {
            return {};
        }
        if (offset > m_body.size() || length > m_body.size() - offset) {
            throw ProtocolError("A LOGIN7 field lies outside of its message.");
        }
        return m_body.substr(offset, length);
    }
    std::string NextText() { return FromUtf16(NextBytes()); }
    // Passwords are disguised, not encrypted: half-bytes swapped, then xor A5.
    std::string NextPassword() {
        std::string clear(NextBytes());
        for (char& character : clear) {
            auto value = static_cast<std::uint8_t>(static_cast<std::uint8_t>(character) ^ 0xA5);
            character = static_cast<char>((value << 4 | value >> 4) & 0xFF);
        }
        return FromUtf16(clear);
    }

  private:
    std::string_view m_body;
    ByteReader& m_reader;
};

// The product's version as LOGINACK has it, then a build number of two bytes that nobody reads.
std::string PreloginVersion() {
    ByteWriter writer;
    writer.BigEndian32(productVersion);
    writer.U16(0);
    return writer.Content();
}

} // namespace

std::string AnswerPrelogin(std::string_view body) {
    CheckPreloginOptions(body);
    struct Option {
        PreloginOption id;
        std::string content;
    };
    const std::vector<Option> options{
        {PreloginOption::Version, PreloginVersion()},
        {PreloginOption::Encryption, std::string(1, static_cast<char>(encryptionNotSupported))},
        {PreloginOption::Instance, std::string(1, '\0')},
        {PreloginOption::Thread, std::string()},
        {PreloginOption::Mars, std::string(1, '\0')},
    };
    std::string head;
    std::string contents;
    std::size_t offset = options.size() * 5 + 1;
    for (const Option& option : options) {
        head.push_back(static_cast<char>(option.id));
        for (std::size_t number : {offset + contents.size(), option.content.size()}) {
            head.push_back(static_cast<char>(number >> 8));
            head.push_back(static_cast<char>(number & 0xFF));
        }
        contents += option.content;
    }
    head.push_back(static_cast<char>(PreloginOption::End));
    return head + contents;
}

Login7 ReadLogin7(std::string_view body) {
    ByteReader reader(body);
    Login7 login;
    std::uint32_t length = reader.U32();
    if (length > body.size()) {
        throw ProtocolError("LOGIN7 announces more bytes than it has.");
    }
    login.facts.tdsVersion = NegotiatedVersion(reader.U32());
    login.facts.packetSize = NegotiatedPacketSize(reader.U32());
    reader.U32(); // version of the client's program
    login.facts.processId = reader.U32();
    reader.U32(); // connection id
    std::uint8_t flags1 = reader.U8();
    std::uint8_t flags2 = reader.U8();
    reader.U8(); // type flags
    std::uint8_t flags3 = reader.U8();
    reader.U32(); // time zone
    reader.U32(); // locale
    login.facts.databaseRequired = (flags1 & 0x40) != 0;
    login.facts.odbcDefaults = (flags2 & 0x02) != 0;
    login.integratedSecurity = (flags2 & 0x80) != 0;
    login.changePassword = (flags3 & 0x01) != 0;

    LoginFields fields(body, reader);
    login.facts.hostName = fields.NextText();
    login.facts.login = fields.NextText();
    login.password = fields.NextPassword();
    login.facts.applicationName = fields.NextText();
    login.facts.serverName = fields.NextText();
    reader.U32(); // extension block, none of which changes what we do
    login.facts.libraryName = fields.NextText();
    login.facts.language = fields.NextText();
    login.facts.database = fields.NextText();
    if (login.changePassword && login.facts.tdsVersion >= version::tds72) {
        reader.Bytes(6 + 4 + 4); // hardware address, integrated security, file to attach
        login.newPassword = fields.NextPassword();
    }
    return login;
}

} // namespace quillon::practice::tds
