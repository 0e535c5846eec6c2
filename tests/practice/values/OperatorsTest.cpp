#include "practice/values/Operators.h"

#include "practice/values/Support.h"

namespace quillon::practice {
namespace {

constexpr auto add = BinaryOperator::Add;
constexpr auto subtract = BinaryOperator::Subtract;
constexpr auto multiply = BinaryOperator::Multiply;
constexpr auto divide = BinaryOperator::Divide;
constexpr auto modulo = BinaryOperator::Modulo;

TEST(Operators, ResultTypeFollowsPrecedenceAndPrecisionRules) {
    struct Case {
        BinaryOperator op;
        const char* left;
        const char* right;
        const char* expected;
    };
    const Case cases[] = {
        {add, "tinyint", "smallint", "smallint"},
        {add, "decimal(5,2)", "decimal(7,1)", "decimal(9, 2)"},
        {multiply, "decimal(5,2)", "decimal(7,1)", "decimal(13, 3)"},
        {divide, "decimal(5,2)", "decimal(7,1)", "decimal(14, 10)"},
        {divide, "numeric(2,1)", "numeric(1,0)", "numeric(7, 6)"},
        {modulo, "decimal(5,2)", "decimal(7,1)", "decimal(5, 2)"},
        {multiply, "decimal(38,10)", "decimal(38,10)", "decimal(38, 6)"},
        {add, "decimal(38,10)", "decimal(38,0)", "decimal(38, 0)"},
        {divide, "decimal(38,20)", "decimal(38,20)", "decimal(38, 6)"},
        {add, "decimal(5,2)", "int", "decimal(13, 2)"},
        {add, "money", "int", "money"},
        {add, "varchar(10)", "int", "int"},
        {add, "varchar(10)", "nvarchar(5)", "nvarchar(15)"},
        {add, "varchar(8000)", "varchar(5)", "varchar(8000)"},
        {add, "varchar(max)", "varchar(5)", "varchar(max)"},
        {add, "datetime", "int", "datetime"},
        {add, "real", "float", "float"},
        {BinaryOperator::BitAnd, "int", "bigint", "bigint"},
    };
    for (const Case& item : cases)
        EXPECT_EQ(item.expected, ResultType(item.op, Type(item.left), Type(item.right)).Declaration())
            << item.left << ' ' << OperatorName(item.op) << ' ' << item.right;
    EXPECT_EQ("numeric(1, 0)", ConstantOperandType(Datum::Int(3), Type("numeric(2,1)")).Declaration());
}

TEST(Operators, RefuseTypesThatDoNotGoTogether) {
    struct Case {
        BinaryOperator op;
        const char* left;
        const char* right;
        const char* text;
    };
    const Case cases[] = {
        {add, "text", "varchar(5)", "The data types text and varchar are incompatible in the add operator."},
        {subtract, "varchar(5)", "varchar(5)", "Operand data type varchar is invalid for subtract operator."},
        {add, "date", "int", "Operand type clash: date is incompatible with int"},
        {modulo, "float", "int", "The data types float and int are incompatible in the modulo operator."},
        {add, "varchar(5)", "varbinary(5)",
         "The data types varchar and varbinary are incompatible in the add operator."},
        {add, "bit", "bit", "The data types bit and bit are incompatible in the add operator."},
        {BinaryOperator::BitAnd, "float", "int",
         "The data types float and int are incompatible in the '&' operator."},
    };
    for (const Case& item : cases)
        EXPECT_EQ(item.text, ErrorTextOf([&] { ResultType(item.op, Type(item.left), Type(item.right)); }));
    EXPECT_EQ(402,
              ErrorOf([] { ComparisonType(ComparisonOperator::Equal, Type("text"), Type("varchar(5)")); }));
    EXPECT_EQ(206, ErrorOf([] { ComparisonType(ComparisonOperator::Equal, Type("date"), Type("int")); }));
}

std::string Calculate(const Datum& left, BinaryOperator op, const Datum& right) {
    const SqlType l = ConstantOperandType(left, right.Type());
    const SqlType r = ConstantOperandType(right, left.Type());
    return ToText(Evaluate(op, left, right, ResultType(op, l, r)));
}

TEST(Operators, CalculateAndReportOverflow) {
    EXPECT_EQ("-2", Calculate(Datum::Int(-7), divide, Datum::Int(3)));
    EXPECT_EQ("-1", Calculate(Datum::Int(-7), modulo, Datum::Int(3)));
    EXPECT_EQ("0.333333", Calculate(DecimalLiteral("1.0"), divide, Datum::Int(3)));
    EXPECT_EQ("0.33", Calculate(MoneyLiteral("$1"), divide, Datum::Int(3)));
    EXPECT_EQ("2.25", Calculate(DecimalLiteral("1.5"), multiply, DecimalLiteral("1.5")));
    EXPECT_EQ("ab1", Calculate(Datum::VarCharOf("ab"), add, Datum::VarCharOf("1")));
    EXPECT_EQ("3", Calculate(Datum::VarCharOf("2"), add, Datum::Int(1)));
    EXPECT_EQ("Jan  2 2020 12:00AM", Calculate(Value("datetime", "20200101"), add, Datum::Int(1)));
    EXPECT_EQ("Dec 31 1899 12:00PM",
              Calculate(Value("datetime", "19000101"), subtract, DecimalLiteral("0.5")));
    EXPECT_EQ(8115, ErrorOf([] { Calculate(Datum::Int(2147483647), add, Datum::Int(1)); }));
    EXPECT_EQ(8115, ErrorOf([] { Calculate(Value("tinyint", "255"), add, Value("tinyint", "1")); }));
    EXPECT_EQ(8115,
              ErrorOf([] { Calculate(Value("bigint", "9223372036854775807"), multiply, Datum::Int(2)); }));
    EXPECT_EQ(8134, ErrorOf([] { Calculate(Datum::Int(1), divide, Datum::Int(0)); }));
    EXPECT_EQ(8134, ErrorOf([] { Calculate(Datum::Float(1), divide, Datum::Float(0)); }));
    EXPECT_EQ(8115, ErrorOf([] { Calculate(Datum::Float(1e308), multiply, Datum::Float(10)); }));
    EXPECT_EQ(517, ErrorOf([] { Calculate(Value("datetime", "99991231"), add, Datum::Int(1)); }));
    const Datum most = Value("decimal(38,0)", "99999999999999999999999999999999999999");
    EXPECT_EQ(8115, ErrorOf([&] { Calculate(most, add, most); }));
    EXPECT_TRUE(Evaluate(add, Datum::Null(Type("int")), Datum::Int(1), Type("int")).IsNull());
}

TEST(Operators, CompareAcrossTypes) {
    const auto compare = [](const Datum& left, const Datum& right) { return CompareValues(left, right); };
    EXPECT_EQ(0, compare(Datum::VarCharOf("abc  "), Datum::NVarCharOf("ABC")));
    EXPECT_EQ(0, compare(Datum::VarCharOf("10"), Datum::Int(10)));
    EXPECT_GT(compare(DecimalLiteral("1.5"), Datum::Int(1)), 0);
    EXPECT_LT(compare(Datum::Float(0.5), DecimalLiteral("0.75")), 0);
    EXPECT_EQ(0, compare(Value("datetime", "20200101"), Datum::VarCharOf("2020-01-01T00:00:00")));
    EXPECT_EQ(0, compare(Value("datetimeoffset", "2020-01-01 10:00 +02:00"),
                         Value("datetimeoffset", "2020-01-01 08:00 +00:00")));
    EXPECT_FALSE(Compare(ComparisonOperator::Equal, Datum(), Datum::Int(1)).has_value());
}

TEST(Decimal, DividesAndMultipliesBeyond128Bits) {
    const Decimal large = ParseDecimal("12345678901234567890.123456789012345678").value();
    const Decimal whole{large.unscaled / PowerOfTen(18), 0};
    EXPECT_FALSE(Multiply(whole, whole, 0).has_value()); // 39 digits
    EXPECT_EQ("1.000000000000000000", FormatDecimal(Divide(large, large, 18).value()));
    EXPECT_EQ("0.33333333333333333333333333333333333333", FormatDecimal(Divide({1, 0}, {3, 0}, 38).value()));
    EXPECT_EQ("152415787517146788751714.678875171",
              FormatDecimal(Multiply(large, ParseDecimal("12345.6789").value(), 9).value()));
    EXPECT_GT(Decimal::Compare(large, ParseDecimal("12345678901234567890.1").value()), 0);
}

} // namespace
TEST(Messages, ComeWithTheirDocumentedState) {
    EXPECT_EQ(2, SqlError(137, {"@x"}).state);
    EXPECT_EQ(9, SqlError(468).state);
    EXPECT_EQ(1, SqlError(208).state);
    EXPECT_EQ(0, SqlError(547, {}, 0).state);
}

} // namespace quillon::practice
