// What is changed in scripts before they are compiled, what must be left alone, and how tokens are told
// apart.
#include <gtest/gtest.h>

#include "jscript/Rewriter.h"
#include "jscript/Tokens.h"

namespace quillon::jscript {
namespace {

std::string Text(std::string_view script, const IsGlobalMember& isGlobalMember = {}) {
    return Rewrite(script, isGlobalMember).text;
}

TEST(Rewriter, MarksCallsAndAssignments) {
    const std::pair<const char*, const char*> rows[] = {
        {"a.b(1)", "a[$called(\"b\")](1)"},
        {"a.b.c(1)", "a.b[$called(\"c\")](1)"},
        {"a\n .b\n (1)", "a\n [$called(\"b\")]\n (1)"},
        {"a. /*x*/ b (1)", "a /*x*/ [$called(\"b\")] (1)"},
        {"new a.b(1)", "new a[$called(\"b\")](1)"},
        {"1.5.toFixed(1)", "1.5[$called(\"toFixed\")](1)"},
        {"a.b = 1, f(2)", "a.b = 1, f(2)"},
        {"a.b(1) = 2", "a[$put(\"b\")](1,$value)[$assigned()] = 2"},
        {"a(b(1), 2) = 3", "$indexed(a)(b(1), 2,$value)[$assigned()] = 3"},
        {"a.b()++", "a[$put(\"b\")]($value)[$assigned()]++"},
        {"if (a) ++b", "if (a) \n++b"},
        {"a.b(1) == f(1) === 2", "a[$called(\"b\")](1) == f(1) === 2"},
        {"function f(a) { return a }", "function f(a) {$enter(); \nreturn a }"},
        {"x = function () { 'use strict' }", "x = function () {$enter(); \n'use strict' }"},
        {"'use strict'", ";'use strict'"},
        {"eval(a)", "eval($script(a))"},
        {"x.eval(a)", "x[$called(\"eval\")](a)"},
        {"typeof a.b[1](2)", "$typeof( a.b[1](2))"},
        {"typeof (a)", "$typeof( (a))"},
        {"typeof a", "(typeof a===\"function\"?$typeof(a):typeof a)"},
        {"typeof 'a'", "typeof 'a'"},
    };
    for (const auto& [script, rewritten] : rows)
        EXPECT_EQ(Text(script), rewritten);
}

TEST(Rewriter, LeavesStringsCommentsAndExpressionsAlone) {
    for (const char* script :
         {"x = 'a.b(c)'", "x = \"eval(x)\"", "// a.b(c)\n", "/* eval(a) */", "x = /a.b(c)/g", "x = /[/]a.b(/",
          "x = 'it\\'s a.b(c)'", "x = 'line \\\n a.b(c)'", "", "x = 'a.b(", "/* a.b(", "x = a / b / c",
          "return /a.b(c)/", "if (a) {\n}\n/a.b(/", "i++ / 2"})
        EXPECT_EQ(Text(script), script);
}

TEST(Rewriter, TellsDivisionsFromExpressions) {
    const std::pair<const char*, int> rows[] = {
        {"x = a / b.c(1) / d", 0},
        {"x = (a) / b / c", 0},
        {"x[1] / b / c", 0},
        {"x = {} / 2 / 3", 0},
        {"x = function () {} / 2 / 3", 0},
        {"i++ / 2 / 3", 0},
        {"a.return / 2 / 3", 0},
        {"if (a) /b/.test(c)", 1},
        {"while (a) /b'/.test(c)", 1},
        {"function f() {} /b'/.test(c)", 1},
        {"{ } /b'/.test(c)", 1},
        {"x = a ? /b/ : /c/", 2},
        {"switch (a) { case 1: /b/.test(c) }", 1},
        {"x = { a: /b/ }", 1},
        {"typeof /a/", 1},
    };
    for (const auto& [script, expressions] : rows) {
        int found = 0;
        for (const Token& token : Tokenize(script))
            found += token.kind == TokenKind::Expression;
        EXPECT_EQ(found, expressions) << script;
    }
}

TEST(Rewriter, MarksCallsOfGlobalMembers) {
    const IsGlobalMember isMember = [](std::string_view name) { return name == "Print"; };
    EXPECT_EQ(Text("Print(a), Other(b), x = Print", isMember),
              "($called(\"Print\"),Print)(a), Other(b), x = Print");
    EXPECT_EQ(Text("function Print(a) { }", isMember), "function Print(a) {$enter(); }");
}

TEST(Rewriter, StatementsBeginLinesThatKnowTheirPlace) {
    const Rewritten rewritten = Rewrite("a; if (b) c;\r\n  \xC3\xA9 = { x: 1 }; for (;;) { d }\nfoo\n  (1)");
    EXPECT_EQ(rewritten.text, "a; \nif (b) \nc;\r\n  \xC3\xA9 = { x: 1 }; \nfor (;;) { \nd }\nfoo\n  (1)");
    const std::vector<Place> expected{{1, 0}, {1, 3}, {1, 10}, {2, 2}, {2, 16}, {2, 27}, {3, 0}, {4, 2}};
    std::vector<Place> places;
    for (const LineStart& line : rewritten.lines)
        places.push_back(line.place);
    EXPECT_EQ(places, expected);
}

} // namespace
} // namespace quillon::jscript
