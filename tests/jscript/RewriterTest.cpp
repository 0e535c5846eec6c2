// What is added to scripts before they are compiled, and what must be left alone.
#include <gtest/gtest.h>

#include "jscript/Rewriter.h"

namespace quillon::jscript {
namespace {

TEST(Rewriter, MarksCallsAndLoops) {
    const std::pair<const char*, const char*> rows[] = {
        {"a.b(1)", "a[$called(\"b\")](1)"},
        {"a.b.c(1)", "a.b[$called(\"c\")](1)"},
        {"a\n .b\n (1)", "a\n [$called(\"b\")]\n (1)"},
        {"a. /*x*/ b (1)", "a /*x*/ [$called(\"b\")] (1)"},
        {"new a.b(1)", "new a[$called(\"b\")](1)"},
        {"1.5.toFixed(1)", "1.5[$called(\"toFixed\")](1)"},
        {"a.b = 1; f(2)", "a.b = 1; f(2)"},
        {"a.b(1) = 2", "a[$put(\"b\")](1)[$assigned()] = 2"},
        {"a(b(1), 2) = 3", "$indexed(a)(b(1), 2)[$assigned()] = 3"},
        {"if (a) (b) = 1; else (c) = 2", "if (a) (b) = 1; else (c) = 2"},
        {"a.b(1) == 2; f(1) === 2", "a[$called(\"b\")](1) == 2; f(1) === 2"},
        {"while (x) y();", "while ($poll(),x) y();"},
        {"do x(); while (y);", "do x(); while ($poll(),y);"},
        {"for (;;) {}", "for (;$poll();) {}"},
        {"for (var i = 0; i < 3; i++) {}", "for (var i = 0;$poll(), i < 3; i++) {}"},
        {"for (var i = f(function () { return 1; }); i; ) {}",
         "for (var i = f(function () {$poll(); return 1; });$poll(), i; ) {}"},
        {"for (k in o) {}", "for (k in o) {}"},
        {"function f(a) { return a; }", "function f(a) {$poll(); return a; }"},
        {"function f() { 'use strict'; }", "function f() { 'use strict'; }"},
    };
    for (const auto& [script, rewritten] : rows)
        EXPECT_EQ(Rewrite(script), rewritten);
}

TEST(Rewriter, LeavesStringsCommentsAndExpressionsAlone) {
    for (const char* script : {"'a.b(c)'", "\"while (x)\"", "// a.b(c)\n", "/* for (;;) */", "x = /a.b(c)/g",
                               "x = /[/]a.b(/", "'it\\'s a.b(c)'", "'line \\\n a.b(c)'", "", "'a.b(",
                               "/* a.b(", "x = a / b / c", "return /a.b(c)/"})
        EXPECT_EQ(Rewrite(script), script);
    EXPECT_EQ(Rewrite("x = a / b.c(1) / d"), "x = a / b[$called(\"c\")](1) / d");
    EXPECT_EQ(Rewrite("x = (a) / b.c(1)"), "x = (a) / b[$called(\"c\")](1)");
}

TEST(Rewriter, MarksCallsOfGlobalMembers) {
    const IsGlobalMember isMember = [](std::string_view name) { return name == "Print"; };
    EXPECT_EQ(Rewrite("Print(a); Other(b); x = Print;", isMember),
              "($called(\"Print\"),Print)(a); Other(b); x = Print;");
    EXPECT_EQ(Rewrite("function Print(a) { }", isMember), "function Print(a) {$poll(); }");
}

} // namespace
} // namespace quillon::jscript
