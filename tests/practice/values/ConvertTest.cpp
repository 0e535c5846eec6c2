#include "practice/values/Support.h"

namespace quillon::practice {
namespace {

struct Case {
    const char* from;
    const char* value;
    const char* to;
    int style;
    const char* expected; // as text: binary in hex
};

std::string Shown(const Datum& value) {
    return ToText(value, value.Type().IsBinary() ? 1 : noStyle);
}

TEST(Convert, GivesTheDocumentedValue) {
    const Case cases[] = {
        // integers
        {"varchar(10)", " -42 ", "int", noStyle, "-42"},
        {"varchar(10)", "", "int", noStyle, "0"},
        {"varchar(5)", "TRUE", "bit", noStyle, "1"},
        {"int", "7", "bit", noStyle, "1"},
        {"decimal(5,2)", "-1.99", "int", noStyle, "-1"},
        {"money", "1.50", "int", noStyle, "2"},
        {"float", "2.9", "int", noStyle, "2"},
        {"varbinary(4)", "0x0000012C", "int", noStyle, "300"},
        // decimals and money
        {"decimal(5,3)", "1.235", "decimal(5,2)", noStyle, "1.24"},
        {"varchar(20)", "-12.345", "decimal(9,2)", noStyle, "-12.35"},
        {"float", "0.1", "decimal(12,10)", noStyle, "0.1000000000"},
        {"float", "123456789012345680000", "decimal(38,0)", noStyle, "123456789012345680000"},
        {"varchar(20)", "$1,234.5678", "decimal(9,2)", -2, ""},
        {"varchar(20)", "$1,234.56785", "money", noStyle, "1234.57"},
        // text forms of numbers
        {"money", "1234567.891", "varchar(30)", 1, "1,234,567.89"},
        {"money", "-1234567.8915", "varchar(30)", 2, "-1234567.8915"},
        {"float", "1234567", "varchar(30)", noStyle, "1.23457e+006"},
        {"float", "0.00001", "varchar(30)", 0, "1e-005"},
        {"float", "123.456", "varchar(30)", 1, "1.2345600e+002"},
        {"float", "123.456", "varchar(30)", 2, "1.234560000000000e+002"},
        {"float", "0.1", "varchar(30)", 3, "1.0000000000000001e-001"},
        {"int", "12345", "varchar(3)", noStyle, "*"},
        // characters
        {"varchar(10)", "abcdef", "char(3)", noStyle, "abc"},
        {"varchar(10)", "ab", "char(4)", noStyle, "ab  "},
        {"nvarchar(10)", "\xD0\x96\xC4\x81z", "varchar(10)", noStyle, "?az"},
        {"nvarchar(10)", "\xE2\x82\xAC", "varbinary(10)", noStyle, "0xAC20"},
        {"varchar(10)", "\xE2\x82\xAC", "varbinary(10)", noStyle, "0x80"},
        // binary
        {"int", "1", "varbinary(8)", noStyle, "0x00000001"},
        {"int", "258", "binary(2)", noStyle, "0x0102"},
        {"varchar(5)", "abc", "binary(5)", noStyle, "0x6162630000"},
        {"varchar(10)", "0x1F2e", "varbinary(10)", 1, "0x1F2E"},
        {"varchar(10)", "1F2e", "varbinary(10)", 2, "0x1F2E"},
        {"varbinary(3)", "0x616263", "varchar(10)", noStyle, "abc"},
        {"varbinary(3)", "0x616263", "varchar(10)", 1, "0x616263"},
        {"varbinary(3)", "0x616263", "varchar(10)", 2, "616263"},
        {"decimal(5,2)", "1.5", "varbinary(20)", noStyle, "0x0502000196000000"},
        {"datetime", "1900-01-02T00:00:01", "varbinary(8)", noStyle, "0x000000010000012C"},
        // identifiers
        {"varchar(40)", "{6f9619ff-8b86-d011-b42d-00c04fc964ff}", "uniqueidentifier", noStyle,
         "6F9619FF-8B86-D011-B42D-00C04FC964FF"},
        {"uniqueidentifier", "6F9619FF-8B86-D011-B42D-00C04FC964FF", "varbinary(16)", noStyle,
         "0xFF19966F868B11D0B42D00C04FC964FF"},
        // moments
        {"datetime", "2020-01-05T13:04:05.997", "varchar(40)", noStyle, "Jan  5 2020  1:04PM"},
        {"date", "2020-01-05", "varchar(40)", noStyle, "2020-01-05"},
        {"date", "2020-01-05", "datetime", noStyle, "Jan  5 2020 12:00AM"},
        {"time(7)", "10:20:30.1234567", "datetime", noStyle, "Jan  1 1900 10:20AM"},
        {"datetime2(7)", "2020-01-05 23:59:59.9999999", "datetime2(3)", noStyle, "2020-01-06 00:00:00.000"},
        {"time(7)", "23:59:59.9999999", "time(0)", noStyle, "00:00:00"},
        {"datetimeoffset(0)", "2020-01-05 10:00:00 +02:00", "datetime2(0)", noStyle, "2020-01-05 10:00:00"},
        {"datetimeoffset(0)", "2020-01-05 10:00:00 +02:00", "varchar(40)", 127, "2020-01-05T08:00:00Z"},
        {"datetimeoffset(1)", "2020-01-05 10:00:00 -02:30", "varchar(40)", noStyle,
         "2020-01-05 10:00:00.0 -02:30"},
        {"int", "1", "datetime", noStyle, "Jan  2 1900 12:00AM"},
        {"datetime", "1900-01-03T12:00:00", "float", noStyle, "2.5"},
        {"datetime", "1900-01-03T12:00:00", "int", noStyle, "3"},
    };
    for (const Case& item : cases) {
        if (item.style == -2) {
            EXPECT_NE(0, ErrorOf([&] { Convert(Value(item.from, item.value), Type(item.to)); }))
                << item.value;
            continue;
        }
        const Datum result = Convert(Value(item.from, item.value), Type(item.to), {}, item.style);
        EXPECT_EQ(item.expected, Shown(result)) << item.from << ' ' << item.value << " to " << item.to;
    }
}

TEST(Convert, DatetimeShowsEveryDocumentedStyle) {
    const Datum moment = Value("datetime", "2020-01-05T13:04:05.123");
    const std::pair<int, const char*> cases[] = {
        {0, "Jan  5 2020  1:04PM"},
        {1, "01/05/20"},
        {2, "20.01.05"},
        {3, "05/01/20"},
        {4, "05.01.20"},
        {5, "05-01-20"},
        {6, "05 Jan 20"},
        {7, "Jan 05, 20"},
        {8, "13:04:05"},
        {9, "Jan  5 2020  1:04:05:123PM"},
        {10, "01-05-20"},
        {11, "20/01/05"},
        {12, "200105"},
        {13, "05 Jan 2020 13:04:05:123"},
        {14, "13:04:05:123"},
        {20, "2020-01-05 13:04:05"},
        {21, "2020-01-05 13:04:05.123"},
        {22, "01/05/20  1:04:05 PM"},
        {23, "2020-01-05"},
        {101, "01/05/2020"},
        {103, "05/01/2020"},
        {112, "20200105"},
        {121, "2020-01-05 13:04:05.123"},
        {126, "2020-01-05T13:04:05.123"},
    };
    for (const auto& [style, expected] : cases)
        EXPECT_EQ(expected, ToText(moment, style)) << style;
    EXPECT_EQ(281, ErrorOf([&] { ToText(moment, 99); }));
}

TEST(Convert, RefusesWithTheDocumentedNumberAndText) {
    struct Failure {
        const char* from;
        const char* value;
        const char* to;
        int number;
        const char* text;
    };
    const Failure cases[] = {
        {"varchar(10)", "abc", "int", 245,
         "Conversion failed when converting the varchar value 'abc' to data type int."},
        {"nvarchar(10)", "1.5", "int", 245,
         "Conversion failed when converting the nvarchar value '1.5' to data type int."},
        {"varchar(20)", "99999999999", "int", 248,
         "The conversion of the varchar value '99999999999' overflowed an int column."},
        {"varchar(20)", "300", "tinyint", 244,
         "The conversion of the varchar value '300' overflowed an INT1 column. Use a larger integer column."},
        {"varchar(20)", "x", "bigint", 8114, "Error converting data type varchar to bigint."},
        {"varchar(20)", "x", "decimal(5,2)", 8114, "Error converting data type varchar to numeric."},
        {"varchar(20)", "1234.5", "decimal(5,2)", 8115,
         "Arithmetic overflow error converting varchar to data type numeric."},
        {"int", "300", "tinyint", 220, "Arithmetic overflow error for data type tinyint, value = 300."},
        {"bigint", "3000000000", "int", 8115,
         "Arithmetic overflow error converting expression to data type int."},
        {"decimal(6,2)", "1000.00", "decimal(5,2)", 8115,
         "Arithmetic overflow error converting numeric to data type numeric."},
        {"int", "100000", "nvarchar(3)", 8115,
         "Arithmetic overflow error converting expression to data type nvarchar."},
        {"decimal(9,2)", "1234.56", "varchar(3)", 8115,
         "Arithmetic overflow error converting numeric to data type varchar."},
        {"money", "1234.56", "varchar(3)", 234,
         "There is insufficient result space to convert a money value to varchar."},
        {"varchar(20)", "x", "money", 235,
         "Cannot convert a char value to money. The char value has incorrect syntax."},
        {"varchar(20)", "x", "float", 8114, "Error converting data type varchar to float."},
        {"varchar(20)", "x", "datetime", 241,
         "Conversion failed when converting date and/or time from character string."},
        {"varchar(20)", "2020-13-01", "datetime", 242,
         "The conversion of a varchar data type to a datetime data type resulted in an out-of-range value."},
        {"varchar(20)", "1752-12-31", "datetime", 242,
         "The conversion of a varchar data type to a datetime data type resulted in an out-of-range value."},
        {"varchar(20)", "2020-02-30", "date", 241,
         "Conversion failed when converting date and/or time from character string."},
        {"varchar(20)", "x", "smalldatetime", 295,
         "Conversion failed when converting character string to smalldatetime data type."},
        {"varchar(30)", "2020-01-01 10:00:00.1234", "datetime", 241,
         "Conversion failed when converting date and/or time from character string."},
        {"varchar(40)", "not a guid", "uniqueidentifier", 8169,
         "Conversion failed when converting from a character string to uniqueidentifier."},
        {"int", "1", "uniqueidentifier", 529,
         "Explicit conversion from data type int to uniqueidentifier is not allowed."},
        {"date", "2020-01-01", "int", 529, "Explicit conversion from data type date to int is not allowed."},
    };
    for (const Failure& item : cases) {
        const Datum value = Value(item.from, item.value);
        EXPECT_EQ(item.number, ErrorOf([&] { Convert(value, Type(item.to)); }))
            << item.value << " to " << item.to;
        EXPECT_EQ(item.text, ErrorTextOf([&] { Convert(value, Type(item.to)); }));
    }
}

TEST(Convert, TryConvertGivesNullForValuesButKeepsRefusingTypes) {
    EXPECT_TRUE(TryConvert(Value("varchar(10)", "abc"), Type("int")).IsNull());
    EXPECT_EQ(529, ErrorOf([] { TryConvert(Value("int", "1"), Type("uniqueidentifier")); }));
}

TEST(Convert, ColumnsRefuseWhatVariablesCut) {
    const Datum longText = Value("varchar(10)", "abcdef");
    EXPECT_EQ("abc", ConvertForVariable(longText, Type("varchar(3)")).Text());
    EXPECT_EQ(
        "String or binary data would be truncated in table 'db.dbo.t', column 'c'. Truncated value: 'abc'.",
        ErrorTextOf([&] { ConvertForColumn(longText, Type("varchar(3)"), {}, "db.dbo.t", "c"); }));
    EXPECT_EQ("ab ",
              ConvertForColumn(Value("varchar(10)", "ab    "), Type("varchar(3)"), {}, "t", "c").Text());
    EXPECT_EQ(
        257, ErrorOf([] { ConvertForColumn(Value("varchar(3)", "a"), Type("varbinary(3)"), {}, "t", "c"); }));
    EXPECT_EQ(206, ErrorOf([] { ConvertForColumn(Value("date", "2020-01-01"), Type("int"), {}, "t", "c"); }));
}

TEST(Convert, ReadsDatesUnderTheDateOrder) {
    struct Reading {
        DateOrder order;
        const char* text;
        const char* type;
        const char* expected; // style 121; empty for a failure
    };
    const Reading cases[] = {
        {DateOrder::Mdy, "01/02/2020", "date", "2020-01-02"},
        {DateOrder::Dmy, "01/02/2020", "date", "2020-02-01"},
        {DateOrder::Dmy, "2020-01-02", "date", "2020-01-02"},
        {DateOrder::Dmy, "2020-01-02", "datetime", "2020-02-01 00:00:00.000"},
        {DateOrder::Dmy, "2020-01-02T00:00:00", "datetime", "2020-01-02 00:00:00.000"},
        {DateOrder::Dmy, "20200102", "datetime", "2020-01-02 00:00:00.000"},
        {DateOrder::Ymd, "20/01/02", "date", "2020-01-02"},
        {DateOrder::Mdy, "1/2/49", "date", "2049-01-02"},
        {DateOrder::Mdy, "1/2/50", "date", "1950-01-02"},
        {DateOrder::Mdy, "Jan 5, 2020 1:30PM", "datetime", "2020-01-05 13:30:00.000"},
        {DateOrder::Mdy, "5 January 2020", "datetime", "2020-01-05 00:00:00.000"},
        {DateOrder::Mdy, "05-Jan-2020 13:30:00:5", "datetime", "2020-01-05 13:30:00.007"},
        {DateOrder::Mdy, "Apr 1996", "datetime", "1996-04-01 00:00:00.000"},
        {DateOrder::Mdy, "1996", "datetime", "1996-01-01 00:00:00.000"},
        {DateOrder::Mdy, "14:30", "datetime", "1900-01-01 14:30:00.000"},
        {DateOrder::Mdy, "4 am", "time(0)", "04:00:00"},
        {DateOrder::Mdy, "12:15 AM", "time(0)", "00:15:00"},
        {DateOrder::Mdy, "", "datetime", "1900-01-01 00:00:00.000"},
        {DateOrder::Mdy, "2020-01-05T10:00:00Z", "datetime", "2020-01-05 10:00:00.000"},
        {DateOrder::Mdy, "2020-01-05T10:00:00+02:00", "datetime", ""},
        {DateOrder::Mdy, "2020-01-05 13:00 AM", "datetime", ""},
        {DateOrder::Mdy, "2020-1", "datetime", ""},
        {DateOrder::Mdy, "30/01/2020", "datetime", ""},
        {DateOrder::Mdy, "2020-01-05 25:00", "datetime", ""},
    };
    for (const Reading& item : cases) {
        const Datum text = Datum::VarCharOf(item.text);
        const Datum result = TryConvert(text, Type(item.type), {item.order, 2049});
        EXPECT_EQ(item.expected, result.IsNull() ? "" : ToText(result, 121)) << item.text;
    }
    const Datum british = Convert(Datum::VarCharOf("30/01/2020"), Type("datetime"), {}, 103);
    EXPECT_EQ("2020-01-30 00:00:00.000", ToText(british, 121));
}

TEST(Convert, OldMomentsRoundToTheirSteps) {
    EXPECT_EQ("2020-01-01 23:59:59.997", ToText(Value("datetime", "2020-01-01T23:59:59.998"), 121));
    EXPECT_EQ("2020-01-02 00:00:00.000", ToText(Value("datetime", "2020-01-01T23:59:59.999"), 121));
    EXPECT_EQ("2020-01-01 12:35:00", ToText(Value("smalldatetime", "2020-01-01 12:35:29.998"), 120));
    EXPECT_EQ("2020-01-01 12:36:00", ToText(Value("smalldatetime", "2020-01-01 12:35:29.999"), 120));
}

TEST(Literals, HaveTheTypeTheLanguageGivesThem) {
    EXPECT_EQ("int", IntegerLiteral("2147483647").Type().Declaration());
    EXPECT_EQ("numeric(10, 0)", IntegerLiteral("2147483648").Type().Declaration());
    EXPECT_EQ("numeric(3, 2)", DecimalLiteral("1.50").Type().Declaration());
    EXPECT_EQ("numeric(2, 2)", DecimalLiteral(".05").Type().Declaration());
    EXPECT_EQ(1007, ErrorOf([] { IntegerLiteral("123456789012345678901234567890123456789"); }));
    EXPECT_EQ("float", FloatLiteral("1e").Type().Declaration());
    EXPECT_EQ("varbinary(2)", BinaryLiteral("0x123").Type().Declaration());
    EXPECT_EQ("0x0123", ToText(BinaryLiteral("0x123"), 1));
    EXPECT_EQ("nvarchar(3)", StringLiteral("abc", true, nullptr).Type().Declaration());
    EXPECT_EQ("varchar(max)", StringLiteral(std::string(9000, 'a'), false, nullptr).Type().Declaration());
}

} // namespace
} // namespace quillon::practice
