// The text forms of numbers and dates: digits kept, exponent forms, parts left out.
#include <gtest/gtest.h>

#include "platform/Conversion.h"

namespace quillon::conversion {
namespace {

TEST(ConversionText, DoublesKeepFifteenDigits) {
    const std::pair<double, const char*> rows[] = {
        {0, "0"},
        {-0.0, "0"},
        {1, "1"},
        {-7, "-7"},
        {0.1 + 0.2, "0.3"},
        {1.0 / 3, "0.333333333333333"},
        {2.0 / 3, "0.666666666666667"},
        {1.0 / 30, "3.33333333333333E-02"},
        {1.0 / 12, "8.33333333333333E-02"},
        {0.00001, "0.00001"},
        {0.000000000000001, "0.000000000000001"},
        {1e-16, "1E-16"},
        {0.0123456789, "0.0123456789"},
        {9.2 * 100, "920"},
        {123456.789, "123456.789"},
        {999999999999999, "999999999999999"},
        {1e14, "100000000000000"},
        {1e15, "1E+15"},
        {123456789012345678.0, "1.23456789012346E+17"},
        {-1.5e300, "-1.5E+300"},
        {1e-300, "1E-300"},
        {999999999999999.9, "1E+15"},
    };
    for (const auto& [value, text] : rows)
        EXPECT_EQ(TextOf(value), text);
}

TEST(ConversionText, SinglesKeepSevenDigits) {
    const std::pair<float, const char*> rows[] = {
        {0.1F, "0.1"},
        {1.0F / 3, "0.3333333"},
        {1.0F / 30, "3.333334E-02"},
        {1234567.0F, "1234567"},
        {1234567.8F, "1234568"},
        {1e7F, "1E+07"},
        {16777216.0F, "1.677722E+07"},
        {-2.5F, "-2.5"},
        {3.402823e38F, "3.402823E+38"},
    };
    for (const auto& [value, text] : rows)
        EXPECT_EQ(TextOf(value), text);
}

TEST(ConversionText, CurrencyDropsTrailingZeros) {
    const std::pair<std::int64_t, const char*> rows[] = {
        {0, "0"},
        {10000, "1"},
        {12500, "1.25"},
        {1, "0.0001"},
        {-1, "-0.0001"},
        {-12345678, "-1234.5678"},
        {std::numeric_limits<std::int64_t>::max(), "922337203685477.5807"},
        {std::numeric_limits<std::int64_t>::min(), "-922337203685477.5808"},
    };
    for (const auto& [value, text] : rows)
        EXPECT_EQ(TextOf(CurrencyValue{value}), text);
}

TEST(ConversionText, DatesLeaveOutMidnightAndDayZero) {
    const std::pair<DateValue, const char*> rows[] = {
        {DateValue{0}, "12:00:00 AM"},
        {DateValue{0.5}, "12:00:00 PM"},
        {DateValue{1}, "12/31/1899"},
        {DateOf(2004, 2, 28), "2/28/2004"},
        {DateOf(2004, 2, 28, 13, 5), "2/28/2004 1:05:00 PM"},
        {DateOf(2004, 2, 28, 0, 0, 1), "2/28/2004 12:00:01 AM"},
        {DateOf(100, 1, 1), "1/1/100"},
        {DateOf(9999, 12, 31, 23, 59, 59), "12/31/9999 11:59:59 PM"},
        {DateValue{-1.25}, "12/29/1899 6:00:00 AM"},
        {DateValue{38045.999999}, "2/29/2004"},
        {DateValue{-0.25}, "6:00:00 AM"},
    };
    for (const auto& [value, text] : rows)
        EXPECT_EQ(TextOf(value), text);
}

TEST(ConversionText, Booleans) {
    EXPECT_EQ(TextOf(true), "True");
    EXPECT_EQ(TextOf(false), "False");
}

} // namespace
} // namespace quillon::conversion
