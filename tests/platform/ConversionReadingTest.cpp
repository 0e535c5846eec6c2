// Reading numbers and dates from text: what counts as one, and what it is.
#include <ctime>

#include <gtest/gtest.h>

#include "platform/Conversion.h"
#include "platform/Failure.h"
#include "platform/FailureNumbers.h"

namespace quillon::conversion {
namespace {

TEST(ConversionReading, Numbers) {
    const std::pair<const char*, double> rows[] = {
        {"5", 5},          {" 5 ", 5},          {"\t5\r\n", 5},
        {"+5", 5},         {"5+", 5},           {"5-", -5},
        {"5 -", -5},       {"- 5", -5},         {"(5)", -5},
        {"( 5 )", -5},     {"$5", 5},           {"5$", 5},
        {"-$5", -5},       {"$-5", -5},         {"($5)", -5},
        {"1,000", 1000},   {"1,,0", 10},        {".5", 0.5},
        {"5.", 5},         {"1,000.5", 1000.5}, {"1e5", 1e5},
        {"1d5", 1e5},      {"1.5E+3", 1500},    {"1E-5", 1e-5},
        {"&HFF", 255},     {"&hff ", 255},      {"&O17", 15},
        {"&HFFFF", 65535}, {"&HFFFFFFFF", -1},  {"&H1FFFFFFFF", 8589934591.0},
        {"1e-400", 0},     {"-0.1", -0.1},      {"123456789012345678", 123456789012345678.0},
    };
    for (const auto& [text, value] : rows)
        EXPECT_EQ(ParseNumber(text), value) << text;
}

TEST(ConversionReading, NoNumbers) {
    for (const char* text : {"",    " ",       "abc",   ".",     "$",   "-",    "()",  "(5",  "5)", "-5-",
                             "1 2", "1e",      "1e+",   "5e5.5", ",5",  "0x10", "5%",  "&",   "&H", "&HG",
                             "&17", "&HFFFF&", "1.2.3", "((5))", "$5$", "--5",  "1_0", "True"})
        EXPECT_EQ(ParseNumber(text), std::nullopt) << text;
}

TEST(ConversionReading, NumbersBeyondAnyRangeOverflow) {
    for (const char* text : {"1e309", "-1e400", "&H1FFFFFFFFFFFFFFFF", "1e999999999"}) {
        try {
            ParseNumber(text);
            ADD_FAILURE() << text;
        } catch (const Failure& failure) {
            EXPECT_EQ(failure.number(), numbers::Overflow);
        }
    }
}

TEST(ConversionReading, Dates) {
    const auto date = [](int year, int month, int day, int hour = 0, int minute = 0, int second = 0) {
        return DateOf(year, month, day, hour, minute, second);
    };
    const std::pair<const char*, DateValue> rows[] = {
        {"2/28/2004", date(2004, 2, 28)},
        {"  2/28/2004  ", date(2004, 2, 28)},
        {"28/2/2004", date(2004, 2, 28)},
        {"2004-02-28", date(2004, 2, 28)},
        {"2004/2/28", date(2004, 2, 28)},
        {"2-28-04", date(2004, 2, 28)},
        {"1/1/29", date(2029, 1, 1)},
        {"1/1/30", date(1930, 1, 1)},
        {"1/1/99", date(1999, 1, 1)},
        {"1/1/100", date(100, 1, 1)},
        {"12/31/9999", date(9999, 12, 31)},
        {"99/12/31", date(1999, 12, 31)},
        {"1 2 3", date(2003, 1, 2)},
        {"2,28,2004", date(2004, 2, 28)},
        {"Feb 28, 2004", date(2004, 2, 28)},
        {"february 28 2004", date(2004, 2, 28)},
        {"28 Feb 2004", date(2004, 2, 28)},
        {"28-Feb-04", date(2004, 2, 28)},
        {"2004 Mar 5", date(2004, 3, 5)},
        {"Mar/5/2004", date(2004, 3, 5)},
        {"Saturday, February 28, 2004", date(2004, 2, 28)},
        {"Feb 2004", date(2004, 2, 1)},
        {"May 32", date(1932, 5, 1)},
        {"2/2004", date(2004, 2, 1)},
        {"2/28/2004 1:05 PM", date(2004, 2, 28, 13, 5)},
        {"1:05 PM 2/28/2004", date(2004, 2, 28, 13, 5)},
        {"2/28/2004 13:05:09", date(2004, 2, 28, 13, 5, 9)},
        {"1:05 PM", date(1899, 12, 30, 13, 5)},
        {"1PM", date(1899, 12, 30, 13)},
        {"12 PM", date(1899, 12, 30, 12)},
        {"12:00 am", date(1899, 12, 30)},
        {"0:05 AM", date(1899, 12, 30, 0, 5)},
        {"23:59:59", date(1899, 12, 30, 23, 59, 59)},
        {"13.50", date(1899, 12, 30, 13, 50)},
    };
    for (const auto& [text, value] : rows) {
        const auto parsed = ParseDate(text);
        ASSERT_TRUE(parsed) << text;
        EXPECT_EQ(TextOf(*parsed), TextOf(value)) << text;
    }
}

TEST(ConversionReading, DatesWithoutAYearMeanThisOne) {
    const std::time_t now = std::time(nullptr);
    const int year = std::localtime(&now)->tm_year + 1900;
    for (const char* text : {"5/20", "20/5", "May 20", "20 May"})
        EXPECT_EQ(ParseDate(text), DateOf(year, 5, 20)) << text;
}

TEST(ConversionReading, NoDates) {
    for (const char* text : {"",
                             "abc",
                             "May",
                             "Saturday",
                             "5",
                             "39000",
                             "1/",
                             "/1/2",
                             "2/28/2004,",
                             "2/30/2004",
                             "13/13/2004",
                             "0/1/2004",
                             "1/0/2004",
                             "1/1/10000",
                             "257/1/2004",
                             "24:00",
                             "1:60",
                             "12:",
                             "1:2:3:4",
                             "10:05 10",
                             "2004-02-28T13:05:00",
                             "1//2/2004",
                             "1/2/3/4",
                             "Feb Mar 2004",
                             "1:00 2:00",
                             "99999999999999999999/1/1",
                             "1.2.2003 4.5"})
        EXPECT_EQ(ParseDate(text), std::nullopt) << text;
}

} // namespace
} // namespace quillon::conversion
