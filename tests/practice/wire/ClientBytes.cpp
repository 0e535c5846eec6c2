#include "practice/wire/ClientBytes.h"

#include "practice/tds/Unicode.h"

#include <gtest/gtest.h>

namespace quillon::practice::testing {
namespace {

std::string Disguise(std::string_view password) {
    std::string wide = tds::ToUtf16(password);
    for (char& character : wide) {
        auto value = static_cast<std::uint8_t>(character);
        character = static_cast<char>(((value << 4 | value >> 4) & 0xFF) ^ 0xA5);
    }
    return wide;
}

std::string Packet(tds::PacketType type, std::uint8_t flags, std::string_view content) {
    std::string packet(tds::packetHeaderSize, '\0');
    std::size_t length = packet.size() + content.size();
    packet[0] = static_cast<char>(type);
    packet[1] = static_cast<char>(flags);
    packet[2] = static_cast<char>(length >> 8);
    packet[3] = static_cast<char>(length & 0xFF);
    return packet.append(content);
}

class AnswerReader {
  public:
    AnswerReader(std::string_view tokens, std::uint32_t version)
        : m_reader(tokens)
        , m_later(version >= tds::version::tds72) {}

    Answer Read() {
        while (!m_reader.AtEnd()) {
            std::uint8_t token = m_reader.U8();
            m_answer.tokens.push_back(token);
            ReadToken(token);
        }
        return m_answer;
    }

  private:
    void ReadToken(std::uint8_t token) {
        switch (token) {
        case 0x79: m_reader.U32(); return;
        case 0x81: ReadColumns(); return;
        case 0xAC: ReadReturnValue(); return;
        case 0xD1:
        case 0xD2: ReadRow(token == 0xD2); return;
        case 0xFD:
        case 0xFE:
        case 0xFF: ReadDone(token); return;
        default: ReadSized(token);
        }
    }
    void ReadSized(std::uint8_t token) {
        tds::ByteReader fields(m_reader.Bytes(m_reader.U16()));
        if (token == 0xAA || token == 0xAB) {
            m_answer.messages.push_back(fields.I32());
        } else if (token == 0xE3) {
            m_answer.environment.push_back(fields.U8());
        } else if (token != 0xAD) {
            ADD_FAILURE() << "unknown token " << int{token};
        }
    }
    void ReadDone(std::uint8_t token) {
        std::uint16_t flags = m_reader.U16();
        m_reader.U16();
        m_answer.dones.push_back({token, flags, m_reader.Fixed(m_later ? 8 : 4)});
    }
    void ReadIntType() {
        m_reader.Bytes(m_later ? 4 : 2);
        m_reader.U16();
        ASSERT_EQ(m_reader.U8(), 0x26);
        ASSERT_EQ(m_reader.U8(), 4);
    }
    void ReadColumns() {
        m_columns = m_reader.U16();
        for (std::size_t index = 0; index < m_columns; ++index) {
            ReadIntType();
            m_reader.ShortText();
        }
    }
    void ReadRow(bool withBitmap) {
        std::string_view bitmap = withBitmap ? m_reader.Bytes((m_columns + 7) / 8) : std::string_view();
        for (std::size_t index = 0; index < m_columns; ++index) {
            bool null = withBitmap && ((bitmap[index / 8] >> (index % 8)) & 1) != 0;
            if (!null) {
                m_answer.values.push_back(static_cast<std::int32_t>(m_reader.Fixed(m_reader.U8())));
            }
        }
    }
    void ReadReturnValue() {
        m_answer.ordinals.push_back(m_reader.U16());
        m_reader.ShortText();
        m_reader.U8();
        ReadIntType();
        m_answer.returned.push_back(static_cast<std::int32_t>(m_reader.Fixed(m_reader.U8())));
    }

    tds::ByteReader m_reader;
    bool m_later;
    std::size_t m_columns = 0;
    Answer m_answer;
};

} // namespace

std::string Packets(tds::PacketType type, std::string_view body, std::size_t packetSize,
                    std::uint8_t lastFlags) {
    std::string bytes;
    const std::size_t room = packetSize - tds::packetHeaderSize;
    while (body.size() > room) {
        bytes += Packet(type, 0, body.substr(0, room));
        body.remove_prefix(room);
    }
    return bytes + Packet(type, lastFlags, body);
}

std::string Login7Body(const LoginText& text) {
    constexpr std::size_t fixedPart = 94;
    const std::vector<std::string> fields{tds::ToUtf16("workstation"), tds::ToUtf16(text.login),
                                          Disguise(text.password),     tds::ToUtf16("wire test"),
                                          tds::ToUtf16("127.0.0.1"),   "",
                                          tds::ToUtf16("by hand"),     "",
                                          tds::ToUtf16(text.database)};
    tds::ByteWriter places;
    std::string contents;
    for (const std::string& field : fields) {
        places.U16(static_cast<std::uint16_t>(fixedPart + contents.size()));
        places.U16(static_cast<std::uint16_t>(field.size() / 2));
        contents += field;
    }
    tds::ByteWriter body;
    body.U32(static_cast<std::uint32_t>(fixedPart + contents.size()));
    body.U32(text.version);
    body.U32(text.packetSize);
    body.Bytes(std::string(12, '\0')); // program version, process, connection
    body.U8(text.databaseRequired ? 0x40 : 0);
    body.U8(0x02); // ODBC
    body.Bytes(std::string(10, '\0'));
    body.Bytes(places.Content());
    body.Bytes(std::string(fixedPart - body.Size(), '\0'));
    body.Bytes(contents);
    return body.Content();
}

std::string RequestHeaders(std::uint32_t version) {
    tds::ByteWriter headers;
    if (version >= tds::version::tds72) {
        headers.U32(22);
        headers.U32(18);
        headers.U16(2);
        headers.U64(0);
        headers.U32(1);
    }
    return headers.Content();
}

std::string BatchBody(std::string_view text, std::uint32_t version) {
    return RequestHeaders(version) + tds::ToUtf16(text);
}

Answer TakeApart(std::string_view tokens, std::uint32_t version) {
    return AnswerReader(tokens, version).Read();
}

std::string Unwrap(std::string_view bytes) {
    std::string joined;
    while (!bytes.empty()) {
        if (bytes.size() < tds::packetHeaderSize) {
            ADD_FAILURE() << "an answer ends within a packet's header";
            return joined;
        }
        std::size_t length = static_cast<std::size_t>(static_cast<std::uint8_t>(bytes[2])) << 8 |
                             static_cast<std::uint8_t>(bytes[3]);
        EXPECT_LE(length, bytes.size());
        EXPECT_EQ(bytes[0], 4);
        EXPECT_EQ(bytes[1] == 1, length == bytes.size()) << "only the last packet ends the message";
        joined.append(bytes.substr(tds::packetHeaderSize, length - tds::packetHeaderSize));
        bytes.remove_prefix(std::min(length, bytes.size()));
    }
    return joined;
}

} // namespace quillon::practice::testing
