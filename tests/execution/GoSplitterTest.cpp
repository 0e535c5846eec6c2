// Where a script is cut, and what happens to the text around the cuts.
#include <gtest/gtest.h>

#include "execution/GoSplitter.h"

namespace quillon::tests {
namespace {

using Batches = std::vector<std::string>;

Batches Split(std::string_view script, int* occurrences = nullptr) {
    Batches batches;
    for (const auto batch : SplitAtGo(script, [&] {
             if (occurrences != nullptr)
                 ++*occurrences;
         }))
        batches.emplace_back(batch);
    return batches;
}

TEST(GoSplitterTest, CutsAtLinesThatHoldGoAlone) {
    const struct {
        const char* what;
        std::string script;
        Batches batches;
    } cases[] = {
        {"nothing", "", {}},
        {"no letters anywhere: one batch, however it ends", "SELECT 1\r\n", {"SELECT 1\r\n"}},
        {"letters in a word and no separator: no batch", "SELECT * FROM CATEGORY", {}},
        {"letters in a word, then a separator", "a CATEGORY\nGO", {"a CATEGORY\n"}},
        {"first line", "GO\nx\nGO\n", {"", "\nx\n"}},
        {"two in a row", "x\r\nGO\r\nGO\r\n", {"x\r\n", "\r\n"}},
        {"any case", "a\ngo\nb\nGo\nc\ngO\n", {"a\n", "\nb\n", "\nc\n"}},
        {"a blank before", "a\n GO\nb\nGO", {"a\n GO\nb\n"}},
        {"a blank behind", "a\nGO \nb\nGO", {"a\nGO \nb\n"}},
        {"a count", "a\nGO 2\nb\nGO", {"a\nGO 2\nb\n"}},
        {"a comment beside it", "a\nGO -- x\nb\nGO", {"a\nGO -- x\nb\n"}},
        {"inside a comment", "/*\nGO\n*/ x\nGO", {"/*\n", "\n*/ x\n"}},
        {"inside a literal", "PRINT '\nGO\n'\nGO", {"PRINT '\n", "\n'\n"}},
        {"line feeds alone", "a\nGO\nb\nGO\n", {"a\n", "\nb\n"}},
        {"carriage returns alone", "a\rGO\rb\r", {}},
        {"last line without a break", "a\nGO", {"a\n"}},
        {"the tail is dropped", "a\nGO\nb", {"a\n"}},
        {"GOTO is a word", "a\nGOTO x\nGO", {"a\nGOTO x\n"}},
        {"letters right behind a separator are passed over", "a\nGO\nGOGO\nGO\n", {"a\n", "\nGOGO\n"}},
        {"an occurrence that touches the one before", "\nGGO\nGO", {"\nGGO\n"}},
        {"letters beyond ASCII", "é\nGO\nгo\nGO", {"é\n", "\nгo\n"}},
    };
    for (const auto& [what, script, batches] : cases)
        EXPECT_EQ(Split(script), batches) << what;
}

// Behind a separator the search goes on one character later, so letters that start there are not seen.
TEST(GoSplitterTest, TheCharacterBehindASeparatorIsNotLookedAt) {
    EXPECT_EQ(Split("GO\nGO\nGO"), (Batches{"", "\n", "\n"}));
}

TEST(GoSplitterTest, GivesATurnForEveryOccurrence) {
    int occurrences = 0;
    Split("CATEGORY ago\nGO\nx\n GO\nGO", &occurrences);
    EXPECT_EQ(occurrences, 5);
}

} // namespace
} // namespace quillon::tests
