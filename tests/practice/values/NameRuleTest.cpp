// Which names are the same, by the collation of the place that they belong to.
#include "practice/values/NameRule.h"

#include <gtest/gtest.h>

namespace quillon::practice {
namespace {

TEST(NameRule, NamesAreTheSameWhereTheCollationSaysSo) {
    struct Pair {
        const char *left, *right, *collations; // those by which they are the same
    };
    constexpr const char* all[] = {"Latin1_General_CI_AS", "Latin1_General_CS_AS", "Latin1_General_CI_AI",
                                   "Latin1_General_BIN2"};
    for (const Pair& pair : {Pair{"Orders", "Orders", "CI_AS CS_AS CI_AI BIN2"},
                             {"Orders", "oRDERS", "CI_AS CI_AI"},
                             {"Ärger", "äRGER", "CI_AS CI_AI"},
                             {"Café", "café", "CI_AS CI_AI"},
                             {"cafe", "café", "CI_AI"},
                             {"CAFE", "café", "CI_AI"},
                             {"Straße", "strasse", "CI_AS CI_AI"},
                             {"ＴＯＴＡＬ_1", "total_1", "CI_AS CI_AI"},
                             {"e\u0301", "é", "CI_AS CS_AS CI_AI"},
                             {"Ж-1", "ж-1", "CI_AS CI_AI"},
                             {"A1-", "A2-", ""},
                             {"Orders", "Order", ""},
                             {"a_b", "a-b", ""},
                             {"a[", "a{", ""}})
        for (const char* name : all) {
            const NameRule rule(FindCollation(name));
            const std::string kind = std::string(name).substr(15);
            const bool expected = std::string_view(pair.collations).find(kind) != std::string_view::npos;
            EXPECT_EQ(rule.Same(pair.left, pair.right), expected) << pair.left << ' ' << pair.right << kind;
            EXPECT_EQ(rule.Key(pair.left) == rule.Key(pair.right), expected) << pair.left << kind;
        }
    EXPECT_TRUE(SameName("@Total", "@TOTAL"));
    EXPECT_TRUE(NameRule(nullptr).Same("a", "A"));
}

TEST(NameRule, AnExpressionMentionsWholeWords) {
    const NameRule plain;
    EXPECT_TRUE(plain.IsMentioned("price", "([Price]*(2))"));
    EXPECT_TRUE(plain.IsMentioned("größe", "([GRÖSSE]>(0) or Größe=1)"));
    EXPECT_FALSE(plain.IsMentioned("price", "([prices]+[_price])"));
    EXPECT_FALSE(plain.IsMentioned("größ", "größe"));
    const NameRule cased(FindCollation("Latin1_General_CS_AS"));
    EXPECT_TRUE(cased.IsMentioned("A", "([a]+[A])"));
    EXPECT_FALSE(cased.IsMentioned("A", "([a]+[a])"));
}

} // namespace
} // namespace quillon::practice
