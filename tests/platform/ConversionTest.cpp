// Conversions to a sub-type: rounding, ranges, and which failure each impossible one raises.
#include <gtest/gtest.h>

#include "platform/Conversion.h"
#include "platform/ConversionParts.h"
#include "platform/Failure.h"
#include "platform/FailureNumbers.h"
#include "platform/Object.h"

namespace quillon::conversion {
namespace {

template <class F>
std::int32_t NumberRaisedBy(F body) {
    try {
        body();
    } catch (const Failure& failure) {
        return failure.number();
    }
    return 0;
}

// An object whose default member is `held`, or that has none.
class Holder final : public Object {
  public:
    explicit Holder(std::optional<Value> held)
        : m_held(std::move(held)) {}
    std::string TypeName() const override { return "Holder"; }
    std::optional<MemberId> FindMember(std::string_view) const override { return std::nullopt; }
    Value Invoke(MemberId, InvokeKind, std::span<Value>) override {
        if (!m_held)
            throw Failure(numbers::MemberNotSupported);
        return *m_held;
    }

  private:
    std::optional<Value> m_held;
};

Value Holding(std::optional<Value> held) {
    return MakeObject<Holder>(std::move(held));
}

TEST(Conversion, WholeNumbersRoundHalfToEven) {
    const std::pair<double, int> rows[] = {{0.5, 0},   {1.5, 2},    {2.5, 2},    {-0.5, 0},
                                           {-1.5, -2}, {2.4999, 2}, {2.5001, 3}, {-2.5, -2}};
    for (const auto& [value, whole] : rows) {
        EXPECT_EQ(ToInteger(value), whole);
        EXPECT_EQ(ToLong(value), whole);
        EXPECT_EQ(ToLong(CurrencyOf(value)), whole) << value;
    }
    EXPECT_EQ(ToByte(2.5), 2);
    EXPECT_EQ(ToLong("2.5"), 2);
    EXPECT_EQ(ToInteger("3.5"), 4);
}

TEST(Conversion, RangesEndInOverflow) {
    EXPECT_EQ(ToInteger(32767.4), 32767);
    EXPECT_EQ(ToInteger(-32768.5), -32768);
    EXPECT_EQ(ToLong(2147483647.4), 2147483647);
    EXPECT_EQ(ToByte(-0.5), 0);
    const std::pair<const char*, std::function<void()>> rows[] = {
        {"byte 256", [] { ToByte(256.0); }},
        {"byte -1", [] { ToByte(std::int16_t{-1}); }},
        {"integer 32767.5", [] { ToInteger(32767.5); }},
        {"integer -32769", [] { ToInteger(std::int32_t{-32769}); }},
        {"long 2^31", [] { ToLong(2147483648.0); }},
        {"long of a large currency", [] { ToLong(CurrencyValue{std::int64_t{1} << 62}); }},
        {"long of NaN", [] { ToLong(std::numeric_limits<double>::quiet_NaN()); }},
        {"single", [] { ToSingle(1e39); }},
        {"currency", [] { ToCurrency(922337203685478.0); }},
        {"currency of text", [] { ToCurrency("922337203685477.5808"); }},
        {"date", [] { ToDate(1e10); }},
        {"date before 100", [] { ToDate(-657435.0); }},
        {"text &HFFFFF as integer", [] { ToInteger("&HFFFFF"); }},
    };
    for (const auto& [name, body] : rows)
        EXPECT_EQ(NumberRaisedBy(body), numbers::Overflow) << name;
}

TEST(Conversion, BitsFillTheSubTypeAskedFor) {
    EXPECT_EQ(ToInteger("&HFFFF"), -1);
    EXPECT_EQ(ToLong("&HFFFF"), 65535);
    EXPECT_EQ(ToLong("&HFFFFFFFF"), -1);
    EXPECT_EQ(ToByte("&HFF"), 255);
}

TEST(Conversion, Booleans) {
    EXPECT_EQ(ToLong(true), -1);
    EXPECT_EQ(ToByte(true), 255);
    EXPECT_TRUE(ToBoolean("TRUE"));
    EXPECT_FALSE(ToBoolean("false"));
    EXPECT_TRUE(ToBoolean("-3"));
    EXPECT_FALSE(ToBoolean("0"));
    EXPECT_FALSE(ToBoolean(Value{}));
    EXPECT_TRUE(ToBoolean(0.1));
    EXPECT_TRUE(ToBoolean("#TRUE#"));
    EXPECT_EQ(NumberRaisedBy([] { ToDouble("True"); }), numbers::TypeMismatch);
    EXPECT_EQ(NumberRaisedBy([] { ToBoolean("yes"); }), numbers::TypeMismatch);
}

TEST(Conversion, CurrencyKeepsFourDecimalsExactly) {
    const std::pair<Value, std::int64_t> rows[] = {
        {"922337203685477.5807", std::numeric_limits<std::int64_t>::max()},
        {"-922337203685477.5808", std::numeric_limits<std::int64_t>::min()},
        {"0.00005", 0},
        {"0.00015", 2},
        {"0.00025", 2},
        {"0.000251", 3},
        {"-1.23456", -12346},
        {"1e3", 10000000},
        {"0.000001", 0},
        {1.00015625, 10002},
        {DecimalValue{"12.3400"}, 123400},
        {true, -10000},
    };
    for (std::size_t i = 0; i < std::size(rows); ++i)
        EXPECT_EQ(ToCurrency(rows[i].first).tenThousandths, rows[i].second) << i;
}

TEST(Conversion, Dates) {
    EXPECT_EQ(ToDate("2/28/2004"), DateOf(2004, 2, 28));
    EXPECT_EQ(ToDate("39000").days, 39000);
    EXPECT_EQ(ToDate(std::int16_t{1}).days, 1);
    EXPECT_EQ(ToDate(Value{}).days, 0);
    EXPECT_EQ(NumberRaisedBy([] { ToDate("tomorrow"); }), numbers::TypeMismatch);
    EXPECT_EQ(ToDouble(DateOf(1900, 1, 1, 12)), 2.5);
}

TEST(Conversion, CalendarCarriesMonthsAndDays) {
    const std::pair<DateValue, const char*> rows[] = {
        {DateOf(2004, 13, 1), "1/1/2005"},
        {DateOf(2004, 0, 1), "12/1/2003"},
        {DateOf(2004, -11, 1), "1/1/2003"},
        {DateOf(2004, 3, 0), "2/29/2004"},
        {DateOf(2003, 2, 29), "3/1/2003"},
        {DateOf(2004, 1, 366), "12/31/2004"},
        {DateOf(2004, 1, 1, 25), "1/2/2004 1:00:00 AM"},
        {DateOf(2004, 1, 1, 0, -1), "12/31/2003 11:59:00 PM"},
        {DateOf(2004, 1, -366), "12/30/2002"},
    };
    for (const auto& [date, text] : rows)
        EXPECT_EQ(TextOf(date), text);
    EXPECT_EQ(NumberRaisedBy([] { DateOf(99, 12, 31); }), numbers::InvalidCall);
    EXPECT_EQ(NumberRaisedBy([] { DateOf(9999, 12, 32); }), numbers::InvalidCall);
    EXPECT_EQ(NumberRaisedBy([] { DateOf(2147483647, 2147483647, 1); }), numbers::InvalidCall);
}

TEST(Conversion, CalendarRoundTripsEveryMonthEnd) {
    for (int year : {100, 1582, 1899, 1900, 2000, 2100, 9999}) {
        for (int month = 1; month <= 12; ++month) {
            const CalendarTime time = CalendarOf(DateOf(year, month, 28, 23, 59, 58));
            EXPECT_EQ(time.year, year);
            EXPECT_EQ(time.month, month);
            EXPECT_EQ(time.day, 28);
            EXPECT_EQ(time.hour * 10000 + time.minute * 100 + time.second, 235958);
        }
    }
    EXPECT_EQ(WeekdayOf(DateOf(2004, 2, 28)), 7);
    EXPECT_EQ(WeekdayOf(DateOf(1899, 12, 30)), 7);
    EXPECT_EQ(WeekdayOf(DateOf(1800, 1, 1)), 4);
}

TEST(Conversion, ImpossibleOnesName) {
    const auto array = std::make_shared<const ArrayValue>();
    const std::pair<Value, std::int32_t> rows[] = {
        {NullValue{}, numbers::InvalidUseOfNull},
        {"abc", numbers::TypeMismatch},
        {"", numbers::TypeMismatch},
        {Value(array), numbers::TypeMismatch},
        {MissingValue{}, numbers::TypeMismatch},
        {ObjectRef{}, numbers::ObjectNotSet},
        {Holding(std::nullopt), numbers::MemberNotSupported},
        {Holding(ObjectRef{}), numbers::ObjectNotSet},
    };
    for (const auto& [value, number] : rows) {
        EXPECT_EQ(NumberRaisedBy([&v = value] { ToDouble(v); }), number);
        EXPECT_EQ(NumberRaisedBy([&v = value] { ToLong(v); }), number);
        EXPECT_EQ(NumberRaisedBy([&v = value] { ToCurrency(v); }), number);
        EXPECT_EQ(NumberRaisedBy([&v = value] { ToDate(v); }), number);
        EXPECT_EQ(NumberRaisedBy([&v = value] { ToBoolean(v); }), number);
    }
    EXPECT_EQ(NumberRaisedBy([] { ToText(NullValue{}); }), numbers::InvalidUseOfNull);
}

TEST(Conversion, ObjectsStandForTheirDefaultMember) {
    EXPECT_EQ(ToText(Holding("text")), "text");
    EXPECT_EQ(ToLong(Holding(Holding(7.0))), 7);
    EXPECT_TRUE(IsNumeric(Holding("7")));
    EXPECT_FALSE(IsNumeric(Holding(std::nullopt)));
}

TEST(Conversion, Text) {
    const std::pair<Value, const char*> rows[] = {
        {Value{}, ""},
        {std::uint8_t{7}, "7"},
        {std::int16_t{-7}, "-7"},
        {std::int32_t{70000}, "70000"},
        {0.5, "0.5"},
        {0.1F, "0.1"},
        {true, "True"},
        {DecimalValue{"-12.340"}, "-12.340"},
        {CurrencyValue{5}, "0.0005"},
        {DateOf(2004, 2, 28), "2/28/2004"},
    };
    for (const auto& [value, text] : rows)
        EXPECT_EQ(ToText(value), text);
}

TEST(Conversion, NumericValues) {
    const std::pair<Value, bool> rows[] = {
        {Value{}, true},
        {NullValue{}, false},
        {true, true},
        {"5", true},
        {"", false},
        {"1e400", false},
        {"True", false},
        {DateValue{1}, false},
        {0.5, true},
        {CurrencyValue{1}, true},
        {"1d5", true},
        {MissingValue{}, false},
        {DecimalValue{"1.5"}, true},
    };
    for (const auto& [value, numeric] : rows)
        EXPECT_EQ(IsNumeric(value), numeric);
}

} // namespace
} // namespace quillon::conversion
