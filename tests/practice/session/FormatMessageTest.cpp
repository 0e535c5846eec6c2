// RAISERROR's formats: what printf would do, within the documented differences.
#include "practice/session/Messages.h"
#include "practice/values/SqlError.h"

#include <gtest/gtest.h>

namespace quillon::practice {
namespace {

TEST(FormatMessage, PutsArgumentsInPlace) {
    const Datum seven = Datum::Int(7);
    const Datum minus = Datum::Int(-1);
    const Datum word = Datum::NVarCharOf("w\xc3\xb6rd");
    const Datum null = Datum::Null(NVarChar(10));
    struct Row {
        const char* format;
        std::vector<Datum> arguments;
        const char* text;
    };
    const Row rows[] = {
        {"plain 100%%", {}, "plain 100%"},
        {"%d %i %s", {seven, minus, word}, "7 -1 w\xc3\xb6rd"},
        {"[%5d][%-5d][%05d][%+d]", {seven, seven, seven, seven}, "[    7][7    ][00007][+7]"},
        {"[%6s][%-6s][%.2s]", {word, word, word}, "[  w\xc3\xb6rd][w\xc3\xb6rd  ][w\xc3\xb6]"},
        {"[%*d]", {Datum::Int(4), seven}, "[   7]"},
        {"%x %X %#x %o %u",
         {Datum::Int(255), Datum::Int(255), Datum::Int(255), Datum::Int(8), minus},
         "ff FF 0xff 10 4294967295"},
        {"%I64d", {Datum::BigInt(9000000000)}, "9000000000"},
        {"%s and %d", {null}, "(null) and (null)"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(FormatMessage(row.format, row.arguments), row.text) << row.format;
}

TEST(FormatMessage, RefusesWrongFormatsAndTypes) {
    const Datum one = Datum::Int(1);
    const Datum word = Datum::NVarCharOf("x");
    const auto numberOf = [](std::string_view format, const std::vector<Datum>& arguments) {
        try {
            FormatMessage(format, arguments);
        } catch (const SqlError& error) {
            return error.number;
        }
        return 0;
    };
    EXPECT_EQ(numberOf("%d", {word}), 2786);
    EXPECT_EQ(numberOf("%s", {one}), 2786);
    EXPECT_EQ(numberOf("%q", {one}), 2787);
    EXPECT_EQ(numberOf("50%", {}), 2787);
}

TEST(FormatMessage, CutsWhatIsTooLong) {
    const std::string text = FormatMessage(std::string(3000, 'a'), {});
    EXPECT_EQ(text.size(), 2047U);
    EXPECT_EQ(text.substr(2044), "...");
}

} // namespace
} // namespace quillon::practice
