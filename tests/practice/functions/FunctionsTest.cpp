#include "Support.h"

namespace quillon::practice {
namespace {

TEST(StringFunctions, CutAndSearch) {
    ExpectAll({
        {"len", {"'abc  '"}, "3"},
        {"LEN", {"N'\xF0\x9F\x98\x80'"}, "2"},
        {"DATALENGTH", {"'abc  '"}, "5"},
        {"DATALENGTH", {"N'abc'"}, "6"},
        {"DATALENGTH", {"1"}, "4"},
        {"LEFT", {"'abc'", "2"}, "ab"},
        {"LEFT", {"'abc'", "-1"}, "error 537"},
        {"RIGHT", {"'abc'", "2"}, "bc"},
        {"RIGHT", {"'abc'", "9"}, "abc"},
        {"SUBSTRING", {"'abcdef'", "2", "3"}, "bcd"},
        {"SUBSTRING", {"'abcdef'", "0", "3"}, "ab"},
        {"SUBSTRING", {"'abcdef'", "-1", "3"}, "a"},
        {"SUBSTRING", {"'abcdef'", "2", "-1"}, "error 537"},
        {"SUBSTRING", {"0x010203", "2", "9"}, "0x0203"},
        {"SUBSTRING", {"12", "1", "1"}, "error 8116"},
        {"CHARINDEX", {"'C'", "'abcabc'"}, "3"},
        {"CHARINDEX", {"'c'", "'abcabc'", "4"}, "6"},
        {"CHARINDEX", {"''", "'abc'"}, "0"},
        {"CHARINDEX", {"'x'", "'abc'"}, "0"},
        {"PATINDEX", {"'%[0-9]%'", "'ab3c'"}, "3"},
        {"PATINDEX", {"'b%'", "'ab'"}, "0"},
        {"PATINDEX", {"'%b'", "'abxb'"}, "4"},
        {"REPLACE", {"'aXbx'", "'x'", "'--'"}, "a--b--"},
        {"REPLACE", {"'abc'", "''", "'z'"}, "abc"},
        {"STUFF", {"'abcdef'", "2", "3", "'ZZ'"}, "aZZef"},
        {"STUFF", {"'abc'", "9", "1", "'Z'"}, "NULL"},
        {"REPLICATE", {"'ab'", "3"}, "ababab"},
        {"REPLICATE", {"'ab'", "-1"}, "NULL"},
        {"REVERSE", {"'abc'"}, "cba"},
        {"UPPER",
         {"N'stra\xC3\x9F"
          "e \xD0\xB6'"},
         "STRA\xC3\x9F"
         "E \xD0\x96"},
        {"LTRIM", {"'  a '"}, "a "},
        {"RTRIM", {"' a  '"}, " a"},
        {"TRIM", {"'  a  '"}, "a"},
        {"TRIM", {"'.,a.b,.'", "',.'"}, "a.b"},
        {"LEN", {"NULL"}, "NULL"},
        {"LEN", {"'a'", "'b'"}, "error 174"},
    });
}

TEST(StringFunctions, BuildTexts) {
    ExpectAll({
        {"ASCII", {"'A'"}, "65"},
        {"ASCII", {"''"}, "NULL"},
        {"CHAR", {"128"}, "\xE2\x82\xAC"},
        {"CHAR", {"256"}, "NULL"},
        {"UNICODE", {"N'\xE2\x82\xAC'"}, "8364"},
        {"NCHAR", {"1046"}, "\xD0\x96"},
        {"QUOTENAME", {"'a]b'"}, "[a]]b]"},
        {"QUOTENAME", {"'a\"b'", "'\"'"}, "\"a\"\"b\""},
        {"QUOTENAME", {"'a'", "'x'"}, "NULL"},
        {"STR", {"123.45", "6", "1"}, " 123.5"},
        {"STR", {"123.45", "2", "2"}, "**"},
        {"STR", {"123.456", "5", "3"}, "123.5"},
        {"CONCAT", {"'a'", "NULL", "1"}, "a1"},
        {"CONCAT_WS", {"'-'", "'a'", "NULL", "'b'"}, "a-b"},
        {"SOUNDEX", {"'Robert'"}, "R163"},
        {"SOUNDEX", {"'Ashcraft'"}, "A261"},
        {"DIFFERENCE", {"'Robert'", "'Rupert'"}, "4"},
        {"STRING_ESCAPE", {"'a\"b/'", "'json'"}, "a\\\"b\\/"},
        {"TRANSLATE", {"'2*[3+4]'", "'[]'", "'()'"}, "2*(3+4)"},
        {"TRANSLATE", {"'a'", "'ab'", "'x'"}, "error 9828"},
        {"PARSENAME", {"'db.[my.schema].t'", "2"}, "my.schema"},
    });
}

TEST(DateFunctions, AddAndCount) {
    ExpectAll({
        {"DATEADD", {"'month'", "1", "d'2020-01-31T10:00:00'"}, "2020-02-29 10:00:00.000"},
        {"DATEADD", {"'yy'", "-1", "d'2020-02-29T00:00:00'"}, "2019-02-28 00:00:00.000"},
        {"DATEADD", {"'ms'", "1", "d'2020-01-01T00:00:00'"}, "2020-01-01 00:00:00.000"},
        {"DATEADD", {"'ms'", "2", "d'2020-01-01T00:00:00'"}, "2020-01-01 00:00:00.003"},
        {"DATEADD", {"'wk'", "1", "'2020-01-01'"}, "2020-01-08 00:00:00.000"},
        {"DATEADD", {"'day'", "1.9", "'2020-01-01'"}, "2020-01-02 00:00:00.000"},
        {"DATEADD", {"'day'", "1", "d'9999-12-31T00:00:00'"}, "error 517"},
        {"DATEADD", {"'fortnight'", "1", "'2020-01-01'"}, "error 155"},
        {"DATEDIFF", {"'year'", "'2019-12-31'", "'2020-01-01'"}, "1"},
        {"DATEDIFF", {"'week'", "'2020-01-04'", "'2020-01-05'"}, "1"},
        {"DATEDIFF", {"'hour'", "'2020-01-01 00:59'", "'2020-01-01 01:00'"}, "1"},
        {"DATEDIFF", {"'month'", "'2020-03-31'", "'2020-01-01'"}, "-2"},
        {"DATEDIFF", {"'ms'", "'2020-01-01'", "'2021-01-01'"}, "error 535"},
        {"DATEDIFF_BIG", {"'ms'", "'2020-01-01'", "'2021-01-01'"}, "31622400000"},
        {"DATEPART", {"'weekday'", "'2020-01-05'"}, "1"},
        {"DATEPART", {"'week'", "'2020-01-05'"}, "2"},
        {"DATEPART", {"'isowk'", "'2020-01-05'"}, "1"},
        {"DATEPART", {"'dy'", "'2020-03-01'"}, "61"},
        {"DATEPART", {"'ns'", "t'2020-01-01 00:00:00.1234567'"}, "123456700"},
        {"DATEPART", {"'tz'", "'2020-01-01 00:00 -05:30'"}, "-330"},
        {"DATENAME", {"'month'", "'2020-01-05'"}, "January"},
        {"DATENAME", {"'dw'", "'2020-01-05'"}, "Sunday"},
        {"DAY", {"'2020-01-05'"}, "5"},
        {"YEAR", {"'20200105'"}, "2020"},
        {"EOMONTH", {"'2020-01-05'", "1"}, "2020-02-29"},
        {"DATEFROMPARTS", {"2020", "2", "30"}, "error 289"},
        {"DATETIMEFROMPARTS", {"2020", "1", "5", "13", "4", "5", "998"}, "2020-01-05 13:04:05.997"},
        {"DATETIME2FROMPARTS", {"2020", "1", "5", "13", "4", "5", "5", "1"}, "2020-01-05 13:04:05.5000000"},
        {"ISDATE", {"'2020-02-30'"}, "0"},
        {"ISDATE", {"'20200229'"}, "1"},
        {"SWITCHOFFSET", {"'2020-01-05 10:00 +00:00'", "'-05:00'"}, "2020-01-05 05:00:00.0000000 -05:00"},
        {"TODATETIMEOFFSET", {"t'2020-01-05 10:00'", "90"}, "2020-01-05 10:00:00.0000000 +01:30"},
        {"GETDATE", {}, "2020-01-05 11:00:00.123"},
        {"SYSUTCDATETIME", {}, "2020-01-05 10:00:00.1234567"},
        {"SYSDATETIMEOFFSET", {}, "2020-01-05 11:00:00.1234567 +01:00"},
    });
    QuietContext monday;
    monday.dateFirst = 1;
    EXPECT_EQ("7", Show(monday, "DATEPART", {"'dw'", "'2020-01-05'"}));
}

TEST(MathFunctions, KeepTypesAndReportDomains) {
    ExpectAll({
        {"ABS", {"-5"}, "5"},
        {"ABS", {"-1.50"}, "1.50"},
        {"ABS", {"-2147483648"}, "2147483648"}, // a numeric literal, so no overflow
        {"CEILING", {"1.01"}, "2"},
        {"CEILING", {"-1.5"}, "-1"},
        {"FLOOR", {"-1.5"}, "-2"},
        {"FLOOR", {"$2.75"}, "2.00"},
        {"ROUND", {"123.4545", "2"}, "123.4500"},
        {"ROUND", {"150.75", "0", "1"}, "150.00"},
        {"ROUND", {"748.58", "-2"}, "700.00"},
        {"ROUND", {"748.58", "-4"}, "0.00"},
        {"ROUND", {"748.58", "-3"}, "error 8115"},
        {"ROUND", {"155", "-1"}, "160"},
        {"POWER", {"2", "10"}, "1024"},
        {"POWER", {"2", "31"}, "error 232"},
        {"POWER", {"2.5", "2"}, "6.3"},
        {"SQRT", {"16"}, "4"},
        {"SQRT", {"-1"}, "error 3623"},
        {"LOG", {"0"}, "error 3623"},
        {"LOG", {"8", "2"}, "3"},
        {"SQUARE", {"1.5"}, "2.25"},
        {"SIGN", {"-2.5"}, "-1.0"},
        {"PI", {}, "3.14159"},
        {"DEGREES", {"1"}, "57"},
        {"ATN2", {"1", "1"}, "0.785398"},
        {"ABS", {"'x'"}, "error 8114"},
    });
}

TEST(ConversionFunctions, ChooseAndTest) {
    ExpectAll({
        {"ISNULL", {"NULL", "'abc'"}, "abc"},
        {"ISNULL", {"1", "'x'"}, "1"},
        {"CHOOSE", {"2", "'a'", "'b'"}, "b"},
        {"CHOOSE", {"3", "'a'", "'b'"}, "NULL"},
        {"ISNUMERIC", {"'1e5'"}, "1"},
        {"ISNUMERIC", {"'$1,000'"}, "1"},
        {"ISNUMERIC", {"'abc'"}, "0"},
        {"ISNUMERIC", {"''"}, "0"},
        {"SQL_VARIANT_PROPERTY", {"1.50", "'Scale'"}, "2"},
        {"SQL_VARIANT_PROPERTY", {"N'x'", "'BaseType'"}, "nvarchar"},
    });
    QuietContext context;
    // The replacement takes the type of the first argument.
    const Datum cut = Call(context, "ISNULL", {Datum::Null(VarChar(2)), Datum::VarCharOf("abcdef")});
    EXPECT_EQ("ab", cut.Text());
}

TEST(SystemFunctions, AskTheSessionAndTheCatalogue) {
    QuietContext context;
    EXPECT_EQ("ann", Show(context, "SYSTEM_USER", {}));
    EXPECT_EQ("OBJECT_ID2", Show(context, "object_id", {"'t'", "'U'"}));
    EXPECT_EQ("NULL", Show(context, "ERROR_NUMBER", {}));
    const CaughtError caught{8134, 16, 1, 3, "", "Divide by zero error encountered."};
    context.caught = &caught;
    EXPECT_EQ("8134", Show(context, "ERROR_NUMBER", {}));
    EXPECT_EQ("3", Show(context, "ERROR_LINE", {}));
    EXPECT_EQ("NULL", Show(context, "ERROR_PROCEDURE", {}));
    EXPECT_EQ("Divide by zero error encountered.", Show(context, "ERROR_MESSAGE", {}));
}

TEST(HashFunctions, GiveTheDigestsOfTheStandards) {
    ExpectAll({
        {"HASHBYTES", {"'MD5'", "'abc'"}, "0x900150983CD24FB0D6963F7D28E17F72"},
        {"HASHBYTES", {"'SHA1'", "'abc'"}, "0xA9993E364706816ABA3E25717850C26C9CD0D89D"},
        {"HASHBYTES",
         {"'SHA2_256'", "'abc'"},
         "0xBA7816BF8F01CFEA414140DE5DAE2223B00361A396177A9CB410FF61F20015AD"},
        {"HASHBYTES",
         {"'SHA2_512'", "'abc'"},
         "0xDDAF35A193617ABACC417349AE20413112E6FA4E89A97EA20A9EEEE64B55D39A"
         "2192992A274FC1A836BA3C23A3FEEBBD454D4423643CE80E2A9AC94FA54CA49F"},
        {"HASHBYTES", {"'MD4'", "'abc'"}, "error 49999"},
        {"HASHBYTES", {"'none'", "'abc'"}, "NULL"},
    });
    QuietContext context;
    EXPECT_EQ(Show(context, "CHECKSUM", {"'abc'"}), Show(context, "CHECKSUM", {"'ABC'"}));
    EXPECT_NE(Show(context, "BINARY_CHECKSUM", {"'abc'"}), Show(context, "BINARY_CHECKSUM", {"'ABC'"}));
    EXPECT_NE(Show(context, "CHECKSUM", {"1", "2"}), Show(context, "CHECKSUM", {"2", "1"}));
}

} // namespace
} // namespace quillon::practice
