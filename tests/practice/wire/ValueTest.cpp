#include "practice/tds/Values.h"

#include "practice/tds/Login.h"
#include "practice/values/SqlError.h"

#include <iomanip>
#include <sstream>

namespace quillon::practice::tds {
namespace {

std::string Hex(std::string_view bytes) {
    std::ostringstream out;
    for (char byte : bytes) {
        out << std::hex << std::setw(2) << std::setfill('0') << int{static_cast<std::uint8_t>(byte)};
    }
    return out.str();
}

std::string WireForm(const Datum& value, const SqlType& type, std::uint32_t tdsVersion = version::tds74) {
    ByteWriter out;
    WriteValue(value, WireTypeFor(type, tdsVersion), out);
    return out.Content();
}

Moment At(int year, int month, int day, std::int64_t ticks, int offset = 0) {
    return {*DayFromDate(year, month, day), ticks, static_cast<std::int16_t>(offset)};
}

SqlType Of(TypeId id) {
    return SimpleType(id);
}

Guid CountingGuid() {
    Guid guid;
    for (std::size_t index = 0; index < guid.bytes.size(); ++index) {
        guid.bytes[index] = static_cast<std::uint8_t>(index);
    }
    return guid;
}

struct ValueCase {
    const char* name;
    SqlType type;
    Datum value;
    const char* wire; // as the protocol's documentation has it
};

std::vector<ValueCase> Numbers() {
    return {
        {"bit", Of(TypeId::Bit), Datum::Bit(true), "0101"},
        {"tinyint", Of(TypeId::TinyInt), Datum::Integer(TypeId::TinyInt, 255), "01ff"},
        {"smallint", Of(TypeId::SmallInt), Datum::Integer(TypeId::SmallInt, -2), "02feff"},
        {"int", Of(TypeId::Int), Datum::Int(-2), "04feffffff"},
        {"bigint", Of(TypeId::BigInt), Datum::BigInt(1LL << 40), "080000000000010000"},
        {"real", Of(TypeId::Real), Datum::Float(1.5, TypeId::Real), "040000c03f"},
        {"float", Of(TypeId::Float), Datum::Float(-1.5), "08000000000000f8bf"},
        {"smallmoney", Of(TypeId::SmallMoney), Datum::Money(-10000, TypeId::SmallMoney), "04f0d8ffff"},
        {"money", Of(TypeId::Money), Datum::Money(-10000), "08fffffffff0d8ffff"},
        {"large money", Of(TypeId::Money), Datum::Money(0x100000002LL), "080100000002000000"},
        {"decimal(9)", DecimalType(9, 2), Datum::Number(DecimalType(9, 2), -12345), "050039300000"},
        {"numeric(38)", DecimalType(38, 0, TypeId::Numeric),
         Datum::Number(DecimalType(38, 0, TypeId::Numeric), PowerOfTen(38) - 1),
         "1101ffffffff3f228a097ac4865aa84c3b4b"},
    };
}

std::vector<ValueCase> Moments() {
    const std::int64_t noon = 12 * ticksPerHour;
    SqlType time3 = MomentType(TypeId::Time, 3);
    SqlType later = MomentType(TypeId::DateTime2, 7);
    SqlType offset = MomentType(TypeId::DateTimeOffset, 0);
    return {
        {"datetime", Of(TypeId::DateTime), Datum::When(Of(TypeId::DateTime), At(1900, 1, 2, noon)),
         "08010000000"
         "0c1c500"},
        {"datetime before 1900", Of(TypeId::DateTime), Datum::When(Of(TypeId::DateTime), At(1753, 1, 1, 0)),
         "08"
         "462effff"
         "00000000"},
        {"smalldatetime", Of(TypeId::SmallDateTime),
         Datum::When(Of(TypeId::SmallDateTime), At(1900, 1, 11, noon)),
         "04"
         "0a00"
         "d002"},
        {"date", Of(TypeId::Date), Datum::When(Of(TypeId::Date), At(1, 1, 2, 0)), "03010000"},
        {"time(3)", time3, Datum::When(time3, At(1900, 1, 1, 10 * ticksPerSecond + 5000)),
         "04"
         "10270000"},
        {"datetime2(7)", later, Datum::When(later, At(1, 1, 2, 1)),
         "08"
         "0100000000"
         "010000"},
        {"datetimeoffset(0)", offset, Datum::When(offset, At(1, 1, 2, ticksPerSecond, -90)),
         "08"
         "010000"
         "010000"
         "a6ff"},
    };
}

std::vector<ValueCase> Strings() {
    return {
        {"varchar", VarChar(10), Datum::Text(VarChar(10), "a€"),
         "020061"
         "80"},
        {"empty varchar", VarChar(10), Datum::Text(VarChar(10), ""), "0000"},
        {"char", TextType(TypeId::Char, 3), Datum::Text(TextType(TypeId::Char, 3), "a  "), "0300612020"},
        {"nvarchar", NVarChar(10), Datum::Text(NVarChar(10), "a€\xF0\x9F\x94\x91"),
         "0800"
         "6100ac20"
         "3dd811dd"},
        {"varbinary", BinaryType(TypeId::VarBinary, 9),
         Datum::Bytes(BinaryType(TypeId::VarBinary, 9), "\x01\xff"), "020001ff"},
        {"varchar(max)", VarChar(maxLength), Datum::Text(VarChar(maxLength), "abc"),
         "0300000000000000"
         "03000000"
         "616263"
         "00000000"},
        {"empty nvarchar(max)", NVarChar(maxLength), Datum::Text(NVarChar(maxLength), ""),
         "0000000000000000"
         "00000000"},
        {"xml", Of(TypeId::Xml), Datum::Text(Of(TypeId::Xml), "<a/>"),
         "0800000000000000"
         "08000000"
         "3c0061002f003e00"
         "00000000"},
        {"uniqueidentifier", Of(TypeId::UniqueIdentifier), Datum::Identifier(CountingGuid()),
         "10000102030405060708090a0b0c0d0e0f"},
        {"rowversion", Of(TypeId::RowVersion),
         Datum::Bytes(Of(TypeId::RowVersion), std::string("\0\0\0\0\0\0\7\xd1", 8)), "080000000000000007d1"},
    };
}

std::vector<ValueCase> AllValues() {
    std::vector<ValueCase> all = Numbers();
    for (const auto& more : {Moments(), Strings()}) {
        all.insert(all.end(), more.begin(), more.end());
    }
    return all;
}

TEST(Values, HaveTheDocumentedBytes) {
    for (const ValueCase& one : AllValues()) {
        EXPECT_EQ(Hex(WireForm(one.value, one.type)), one.wire) << one.name;
    }
}

// What the server tells of a value, taken as a client's parameter, is the same value of the same type again.
TEST(Values, SurviveTheWayOutAndIn) {
    for (const ValueCase& one : AllValues()) {
        WireType out = WireTypeFor(one.type, version::tds74);
        ByteWriter writer;
        WriteTypeInfo(out, writer);
        WriteValue(one.value, out, writer);
        WriteValue(Datum::Null(one.type), out, writer);
        ByteReader reader(writer.Content());
        WireType in = ReadTypeInfo(reader, version::tds74);
        Datum value = ReadValue(in, reader);
        EXPECT_EQ(Hex(WireForm(value, one.type)), one.wire) << one.name;
        EXPECT_TRUE(ReadValue(in, reader).IsNull()) << one.name;
        EXPECT_TRUE(reader.AtEnd()) << one.name;
        if (one.type.id != TypeId::RowVersion) { // which has no form of its own as a parameter
            EXPECT_EQ(in.type.id, one.type.id) << one.name;
            EXPECT_EQ(in.type.length, one.type.length) << one.name;
        }
    }
}

TEST(Values, SurviveWithinAVariant) {
    for (const ValueCase& one : AllValues()) {
        if (one.type.IsMax() || one.type.id == TypeId::Xml || one.type.id == TypeId::RowVersion) {
            continue; // types that a variant cannot hold
        }
        ByteWriter writer;
        WriteValue(one.value, WireTypeFor(SimpleType(TypeId::SqlVariant), version::tds74), writer);
        ByteReader reader(writer.Content());
        std::uint32_t size = reader.U32();
        ASSERT_EQ(size, reader.Remaining()) << one.name;
        Datum value = ReadVariant(reader.Rest());
        EXPECT_EQ(Hex(WireForm(value, one.type)), one.wire) << one.name;
    }
}

TEST(Values, TextsNeverExceedTheirType) {
    EXPECT_EQ(Hex(WireForm(Datum::Text(VarChar(2), "abcdef"), VarChar(2))), "02006162");
    EXPECT_EQ(Hex(WireForm(Datum::Text(NVarChar(2), "abcdef"), NVarChar(2))), "040061006200");
}

TEST(Values, TextTypesCarryATextPointer) {
    std::string form = WireForm(Datum::Text(Of(TypeId::Text), "abc"), Of(TypeId::Text));
    EXPECT_EQ(Hex(form.substr(0, 1)), "10");
    EXPECT_EQ(Hex(form.substr(25)), "03000000616263");
    EXPECT_EQ(Hex(WireForm(Datum::Null(Of(TypeId::Image)), Of(TypeId::Image))), "00");
}

TEST(Values, OlderClientsGetFormsTheyKnow) {
    struct Case {
        SqlType type;
        std::uint32_t tdsVersion;
        Token token;
    };
    for (const Case& one : {Case{VarChar(maxLength), version::tds71, Token::Text},
                            Case{NVarChar(maxLength), version::tds71, Token::NText},
                            Case{BinaryType(TypeId::VarBinary, maxLength), version::tds71, Token::Image},
                            Case{Of(TypeId::Xml), version::tds71, Token::NText},
                            Case{Of(TypeId::Xml), version::tds72, Token::Xml},
                            Case{Of(TypeId::Date), version::tds72, Token::NVarChar},
                            Case{MomentType(TypeId::DateTime2, 7), version::tds72, Token::NVarChar},
                            Case{Of(TypeId::Date), version::tds73, Token::DateN}}) {
        EXPECT_EQ(WireTypeFor(one.type, one.tdsVersion).token, one.token) << one.type.Declaration();
    }
    Datum date = Datum::When(Of(TypeId::Date), At(2024, 2, 29, 0));
    EXPECT_EQ(WireForm(date, Of(TypeId::Date), version::tds72),
              WireForm(Datum::Text(NVarChar(10), "2024-02-29"), NVarChar(10)));
}

// Chunks may be cut anywhere; their total may be unknown.
TEST(Values, ChunksOfAnySizeMakeOneValue) {
    std::string chunked("\xFE\xFF\xFF\xFF\xFF\xFF\xFF\xFF"
                        "\x01\0\0\0"
                        "a"
                        "\x02\0\0\0"
                        "\0b"
                        "\x01\0\0\0"
                        "\0"
                        "\0\0\0\0",
                        28);
    ByteReader reader(chunked);
    WireType type = WireTypeFor(NVarChar(maxLength), version::tds74);
    EXPECT_EQ(ReadValue(type, reader).Text(), "ab");
}

TEST(Values, RefuseWhatIsNoInstanceOfItsType) {
    const std::vector<std::tuple<const char*, SqlType, std::string>> cases{
        {"an int of three bytes", Of(TypeId::Int), std::string("\3abc")},
        {"a value longer than its message", VarChar(10), std::string("\5\0ab", 4)},
        {"a value longer than its type", VarChar(2), std::string("\3\0abc", 5)},
        {"half a character", NVarChar(10), std::string("\1\0a", 3)},
        {"a time beyond midnight", MomentType(TypeId::Time, 7), std::string("\5\xff\xff\xff\xff\xff")},
        {"a date beyond the calendar", Of(TypeId::Date), std::string("\3\xff\xff\xff")},
        {"a datetime beyond the calendar", Of(TypeId::DateTime),
         std::string("\x08\xff\xff\xff\x7f\0\0\0\0", 9)},
        {"not a number", Of(TypeId::Float), std::string("\x08\0\0\0\0\0\0\xf8\x7f", 9)},
        {"a decimal with too many digits", DecimalType(3, 0), std::string("\5\1\xe8\3\0\0", 6)},
        {"a decimal of 40 digits", DecimalType(38, 0), "\x11\1" + std::string(16, '\xff')},
        {"chunks that never end", VarChar(maxLength), std::string("\1\0\0\0\0\0\0\0\1\0\0\0a", 13)},
        {"a chunk longer than its message", VarChar(maxLength),
         std::string("\1\0\0\0\0\0\0\0\xff\xff\xff\x7f"
                     "a",
                     13)},
        {"a variant within a variant", Of(TypeId::SqlVariant), std::string("\3\0\0\0\x62\0\0", 7)},
        {"a variant without its properties", Of(TypeId::SqlVariant), std::string("\3\0\0\0\xa7\0a", 7)},
    };
    for (const auto& [name, type, bytes] : cases) {
        ByteReader reader(bytes);
        WireType wireType = WireTypeFor(type, version::tds74);
        EXPECT_THROW(ReadValue(wireType, reader), ProtocolError) << name;
    }
}

TEST(TypeInfo, RefusesTypesThatCannotBe) {
    for (const std::string& bytes :
         {std::string("\x26\x03"), std::string("\x6A\x11\x27\x02"), std::string("\x6A\x11\x05\x06"),
          std::string("\x29\x08"), std::string("\xE7\x42\x1F\0\0\0\0\0", 8), std::string("\x99"),
          std::string("\xF3\0\0\0", 4)}) {
        ByteReader reader(bytes);
        EXPECT_THROW(ReadTypeInfo(reader, version::tds74), ProtocolError) << Hex(bytes);
    }
    ByteReader clr(std::string_view("\xF0\0\0\0", 4));
    EXPECT_THROW(ReadTypeInfo(clr, version::tds74), SqlError);
    ByteReader later(std::string_view("\x28"));
    EXPECT_THROW(ReadTypeInfo(later, version::tds72), ProtocolError) << "date came with 7.3";
}

} // namespace
} // namespace quillon::practice::tds
