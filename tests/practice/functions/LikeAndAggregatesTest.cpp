#include "Support.h"

#include "practice/functions/Aggregates.h"
#include "practice/functions/Like.h"

namespace quillon::practice {
namespace {

TEST(Like, MatchesPatternsUnderTheCollation) {
    struct Case {
        const char* text;
        const char* pattern;
        bool matches;
    };
    const Case cases[] = {
        {"abc", "ABC", true},      {"abc", "a%", true},      {"abc", "%c", true},
        {"abc", "_b_", true},      {"abc", "a_", false},     {"a%c", "a[%]c", true},
        {"abc", "a[%]c", false},   {"bat", "[b-d]at", true}, {"Bat", "[^b-d]at", false},
        {"eat", "[^b-d]at", true}, {"]", "[]]", true},       {"a-c", "a[-x]c", true},
        {"abc", "[abc", false},    {"", "%", true},          {"", "_", false},
        {"aXbXc", "%X%X%", true},  {"ab", "ab ", false},     {"ab\ncd", "ab%cd", true},
        {"^", "[x^]", true},
    };
    for (const Case& item : cases)
        EXPECT_EQ(item.matches, MatchesLike(item.text, item.pattern, *DefaultCollation()))
            << item.text << " like " << item.pattern;
    EXPECT_TRUE(MatchesLike("50%", "50!%", *DefaultCollation(), U'!'));
    EXPECT_FALSE(MatchesLike("500", "50!%", *DefaultCollation(), U'!'));
    EXPECT_FALSE(MatchesLike("abc", "ABC", *FindCollation("Latin1_General_CS_AS")));
    EXPECT_TRUE(MatchesLike("abc  ", "abc", *DefaultCollation(), {}, false));
    EXPECT_FALSE(MatchesLike("abc  ", "abc", *DefaultCollation(), {}, true));
}

TEST(Like, DoesNotGrowExponentially) {
    const std::string text(2000, 'a');
    std::string pattern;
    for (int index = 0; index < 100; ++index)
        pattern += "a%";
    EXPECT_FALSE(MatchesLike(text, pattern + "b", *DefaultCollation()));
}

Datum Aggregated(const char* name, const std::vector<std::string>& values, const SqlType& type) {
    const auto accumulator = FindAggregate(name)->start(type);
    for (const std::string& value : values)
        accumulator->Step(value == "NULL" ? Datum::Null(type) : Convert(Datum::VarCharOf(value), type));
    return accumulator->Result();
}

TEST(Aggregates, GiveTheDocumentedTypesAndValues) {
    struct Case {
        const char* name;
        SqlType type;
        std::vector<std::string> values;
        const char* declaration;
        const char* expected;
    };
    const Case cases[] = {
        {"SUM", SimpleType(TypeId::TinyInt), {"200", "100", "NULL"}, "int", "300"},
        {"SUM", DecimalType(5, 2), {"1.25", "2.50"}, "decimal(38, 2)", "3.75"},
        {"SUM", SimpleType(TypeId::SmallMoney), {"1.5", "2"}, "money", "3.50"},
        {"SUM", SimpleType(TypeId::Real), {"0.5", "2"}, "float", "2.5"},
        {"AVG", SimpleType(TypeId::Int), {"1", "2"}, "int", "1"},
        {"AVG", DecimalType(5, 2), {"1.00", "2.00", "2.00"}, "decimal(38, 6)", "1.666666"},
        {"MIN", VarChar(5), {"b", "A", "NULL"}, "varchar(5)", "A"},
        {"MAX", SimpleType(TypeId::Int), {}, "int", "NULL"},
        {"COUNT", SimpleType(TypeId::Int), {"1", "NULL"}, "int", "1"},
        {"COUNT_BIG", SimpleType(TypeId::Int), {}, "bigint", "0"},
        {"VAR", SimpleType(TypeId::Int), {"2", "4", "4", "4", "5", "5", "7", "9"}, "float", "4.57143"},
        {"STDEVP", SimpleType(TypeId::Int), {"2", "4", "4", "4", "5", "5", "7", "9"}, "float", "2"},
        {"STDEV", SimpleType(TypeId::Int), {"2"}, "float", "NULL"},
    };
    for (const Case& item : cases) {
        EXPECT_EQ(item.declaration, FindAggregate(item.name)->resultType(item.type).Declaration())
            << item.name;
        EXPECT_EQ(item.expected, ToText(Aggregated(item.name, item.values, item.type))) << item.name;
    }
    EXPECT_THROW(Aggregated("SUM", {"2147483647", "1"}, SimpleType(TypeId::Int)), SqlError);
    EXPECT_THROW(FindAggregate("SUM")->resultType(VarChar(5)), SqlError);
    EXPECT_THROW(FindAggregate("MAX")->resultType(SimpleType(TypeId::Bit)), SqlError);
}

TEST(Aggregates, ForgetTheOldestRowsOfAWindow) {
    const SqlType type = SimpleType(TypeId::Int);
    const std::vector<int> values = {5, 3, 8, 3, 1, 9, 2};
    for (const char* name : {"MIN", "MAX", "SUM", "COUNT", "VAR"}) {
        const auto window = FindAggregate(name)->start(type);
        for (std::size_t index = 0; index < values.size(); ++index) {
            window->Step(Datum::Int(values[index]));
            if (index >= 3)
                window->Remove(Datum::Int(values[index - 3]));
            const auto fresh = FindAggregate(name)->start(type);
            for (std::size_t at = index >= 2 ? index - 2 : 0; at <= index; ++at)
                fresh->Step(Datum::Int(values[at]));
            EXPECT_EQ(ToText(fresh->Result()), ToText(window->Result())) << name << index;
        }
    }
}

TEST(Aggregates, JoinTexts) {
    const auto join = StartStringAggregate(VarChar(10), Datum::VarCharOf(", "));
    EXPECT_TRUE(join->Result().IsNull());
    for (const char* text : {"a", "b"})
        join->Step(Datum::VarCharOf(text));
    join->Step(Datum::Null(VarChar(10)));
    EXPECT_EQ("a, b", join->Result().Text());
}

} // namespace
} // namespace quillon::practice
