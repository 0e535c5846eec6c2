// Path and split helpers.
#include <gtest/gtest.h>

#include "shell/Trace.h"
#include "template/TextCase.h"
#include "template/basStringFunctions.h"

namespace quillon::tests {
namespace {

using namespace basStringFunctions;

class StringFunctions : public testing::Test {
  protected:
    StringFunctions() { g_objTrace = std::make_unique<Trace>(); }
    ~StringFunctions() override { g_objTrace.reset(); }
};

TEST_F(StringFunctions, Paths) {
    struct Case {
        const char* path;
        const char* name;
        const char* folder;
    };
    const Case cases[] = {
        {"\\home\\ann\\x.qlnx", "x.qlnx", "\\home\\ann"},
        {"C:\\x", "x", "C:"},
        {"bare.txt", "bare.txt", "bare.txt"},
        {" bare ", "bare", " bare "},
        {"\\a\\ b .txt ", "b .txt", "\\a\\ b .txt "}, // trimmed, so the folder does not find it
        {"\\folder\\", "", "\\folder\\"},
        {"", "", ""},
        {"\\x\\y\\x", "x", "\\y"}, // every occurrence goes
        {"\\\\srv\\data\\data", "data", "\\\\srv"},
        {"\\größe\\é.txt", "é.txt", "\\größe"},
    };
    for (const auto& [path, name, folder] : cases) {
        EXPECT_EQ(JustFileName(path), name) << path;
        EXPECT_EQ(JustFilePath(path), folder) << path;
    }
}

TEST_F(StringFunctions, Reversal) {
    EXPECT_EQ(ReverseString("añ€😀b"), "b😀€ña");
    EXPECT_EQ(ReverseString(""), "");
    EXPECT_EQ(ReverseString("a\xC3"), "\xC3"
                                      "a");
}

TEST_F(StringFunctions, Splitting) {
    struct Case {
        const char* source;
        const char* delimiter;
        bool trim;
        bool caseSensitive;
        const char* left;
        const char* right;
    };
    const Case cases[] = {
        {"a = b", "=", true, true, "a", "b"},
        {"a = b", "=", false, true, "a ", " b"},
        {"a=b=c", "=", true, true, "a", "b=c"},
        {" whole ", "=", true, true, "whole", ""},
        {" whole ", "=", false, true, " whole ", ""},
        {"=b", "=", true, true, "", "b"},
        {"a=", "=", true, true, "a", ""},
        {"\ta \t", "=", true, true, "\ta \t", ""},
        {"oneANDtwo", "and", true, true, "oneANDtwo", ""},
        {"oneANDtwo", "and", true, false, "one", "two"},
        {"gÖteÉx", "é", true, false, "gÖte", "x"},
        {"ab", "abc", true, false, "ab", ""},
    };
    for (const auto& [source, delimiter, trim, caseSensitive, left, right] : cases) {
        std::string l = "?";
        std::string r = "?";
        SplitString(source, l, r, delimiter, trim, caseSensitive);
        EXPECT_EQ(l, left) << source;
        EXPECT_EQ(r, right) << source;
    }
    std::string l = "kept";
    std::string r = "kept";
    SplitString("", l, r, "=");
    EXPECT_EQ(l + r, "keptkept");
    SplitString(r = "x=y", l, r, "=");
    EXPECT_EQ(l + r, "xy"); // the source may be a result
}

TEST_F(StringFunctions, CaseFolding) {
    const std::pair<const char*, const char*> same[] = {{"ABC", "abc"}, {"ÄÖÜÇ", "äöüç"}, {"Ωδ", "ωΔ"},
                                                        {"ЖЁ", "жё"},   {"ŠŹŁ", "šźł"},   {"Ÿ", "ÿ"}};
    for (const auto& [left, right] : same) {
        EXPECT_TRUE(EqualFolded(left, right)) << left;
        EXPECT_EQ(FoldedHash(left), FoldedHash(right)) << left;
    }
    const std::pair<const char*, const char*> different[] = {{"a", "b"},       {"a", "ab"},   {"×", "÷"},
                                                             {"\xC3", "\xE3"}, {"\xC3", "Ã"}, {"ß", "ss"}};
    for (const auto& [left, right] : different)
        EXPECT_FALSE(EqualFolded(left, right)) << left;
    EXPECT_EQ(CharacterCount("añ€😀\xFF\xC3"), 6u);
}

} // namespace
} // namespace quillon::tests
