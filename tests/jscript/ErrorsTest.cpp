// What fails in a script, by which number, and where it says so.
#include "jscript/HostTest.h"

namespace quillon::jscript {
namespace {

class JScriptErrorsTest : public JScriptHostTest {};

TEST_F(JScriptErrorsTest, FailuresHaveTheNumbersThatUsersKnow) {
    const std::pair<const char*, std::int32_t> rows[] = {
        {"x.y", 5009},
        {"var a; a.b", 5007},
        {"nobody()", 5007},
        {"new Nobody()", 5009},
        {"'a' in 5", 5007},
        {"Date.prototype.getTime.call({})", 5006},
        {"[].length = -1", 5030},
        {"new RegExp('*')", 5018},
        {"var a; a()", 5002},
        {"({}).foo()", 438},
        {"null.x", 5007},
        {"var o = {}; new o", 445},
        {"new Array(-1)", 5029},
        {"decodeURI('%')", 5025},
        {"encodeURI('\\ud800')", 5024},
        {"encodeURIComponent('a\\udc00')", 5024},
        {"decodeURIComponent('%c3')", 5025},
        {"(1).toFixed(200)", 5026},
        {"(1).toExponential(-1)", 5026},
        {"(1).toPrecision(0)", 5027},
        {"(1).toPrecision({ valueOf: function () { throw new RangeError('own'); } })", 5},
        {"Number.prototype.toFixed.call('x')", 5001},
        {"String.prototype.toString.call(1)", 5005},
        {"Boolean.prototype.valueOf.call(1)", 5010},
        {"1 instanceof {}", 5002},
        {"var f = function () { }; f.prototype = 1; ({}) instanceof f", 5023},
        {"Enumerator.prototype.item.call({})", 5015},
        {"VBArray.prototype.ubound.call([])", 5013},
        {"RegExp.prototype.compile.call({}, 'x')", 5016},
        {"/x/.compile(Object.create(RegExp.prototype))", 5016},
        {"/x/.compile('*')", 5018},
        {"RegExp.prototype.exec.call('x', 'x')", 5016},
        {"Math.max.apply(null, 5)", 5028},
        {"throw 'x'", 5022},
        {"throw { number: 7, description: 'own' }", 7},
        {"throw new Error(1234, 'own')", 1234},
        {"throw new Error('own')", 5},
        {"function f() { f(); } f()", numbers::OutOfStackSpace},
        {"var s = 'x'; for (;;) s += s;", numbers::OutOfMemory},
        {"var a = []; for (;;) a.push({});", numbers::OutOfMemory},
        {"new RegExp('[')", 5019},
        {"new RegExp('(')", 5020},
        {"new ActiveXObject('Scripting.FileSystemObject')", numbers::CannotCreateObject},
        {"GetObject('x')", numbers::CannotCreateObject},
        {"library.Books(1).Extra()", static_cast<std::int32_t>(0x80040E21)},
    };
    JScriptHost small({}, std::size_t{64} << 20);
    for (const auto& [code, number] : rows) {
        small.AddObject("library", library);
        std::int32_t raised = 0;
        try {
            small.AddCode(code);
        } catch (const Failure& failure) {
            raised = failure.number();
            EXPECT_EQ(small.Error().Number, number) << code;
            EXPECT_EQ(small.Error().Description, failure.description()) << code;
            EXPECT_EQ(small.Error().Source, "Microsoft JScript runtime error") << code;
        }
        EXPECT_EQ(raised, number) << code << ": " << small.Error().Description;
        EXPECT_EQ(small.Eval("1"), Value(std::int32_t{1})) << "the host goes on";
        EXPECT_EQ(small.Error().Number, 0);
        small.Reset();
    }
}

TEST_F(JScriptErrorsTest, CompileErrorsLeaveFromAddCode) {
    struct Row {
        const char* code;
        std::int32_t number, line, column;
    };
    const Row rows[] = {
        {"\nvar 1", 1010, 2, 4},
        {"var s = 'abc", 1015, 1, 12},
        {"a;\n /* abc", 1016, 2, 7},
        {"s = 'abc\nd", 1015, 1, 8},
        {"return 1", 1018, 1, 0},
        {"\n\n break", 1019, 3, 1},
        {"for (;;) { break foo; }", 1026, 1, 17},
        {"if (1) {", 1009, 1, 8},
        {"foo bar", 1004, 1, 4},
        {"x = (1", 1006, 1, 6},
        {"a = 1;\r\nb = 'x'\r\n\xC3\xA9 = )", 1002, 3, 4},
        {"/(/", 5020, 1, 0},
        {"a = 1; if (x { \nvar b = 1;", 1006, 1, 13},
        {"x = { a: 1, b 2 }", 1003, 1, 14},
        {"x = [1, 2", 1007, 1, 9},
        {"do { } whil (1)", 1024, 1, 7},
        {"try { } x", 1033, 1, 8},
        {"x = #", 1014, 1, 4},
        {"var class = 1", 1010, 1, 4},
        {"a;\n/*@cc_on b @*/", 1030, 2, 0},
        {"@if (1) @end", 1030, 1, 0},
    };
    for (const auto& [code, number, line, column] : rows) {
        EXPECT_EQ(NumberOf(code), number) << code;
        EXPECT_EQ(host.Error().Line, line) << code;
        EXPECT_EQ(host.Error().Column, column) << code;
        EXPECT_EQ(host.Error().Source, "Microsoft JScript compilation error") << code;
    }
    EXPECT_EQ(NumberOf("a = 1;\r\nb = 'x'\r\nc = )"), 1002);
    EXPECT_EQ(host.Error().Text, "c = )");
}

TEST_F(JScriptErrorsTest, TextOfTheOtherLanguageIsNamedAsSuch) {
    for (const char* code : {"Function ReturnThis()\r\nDim strVar \r\nReturnThis = strVar\r\nEnd Function",
                             "Dim x\r\nx = 1", "' comment\r\nx = 1", "Option Explicit", "Sub f\r\nEnd Sub"}) {
        EXPECT_NE(NumberOf(code), 0) << code;
        EXPECT_NE(host.Error().Description.find("looks like VBScript"), std::string::npos) << code;
    }
    EXPECT_NE(NumberOf("set = ;"), 0);
    EXPECT_EQ(host.Error().Description.find("VBScript"), std::string::npos);
}

TEST_F(JScriptErrorsTest, ErrorsKnowTheirPlace) {
    struct Row {
        const char* code;
        std::int32_t line, column;
        const char* text;
    };
    const Row rows[] = {
        {"var a = 1;\nvar b = c;", 2, 0, "var b = c;"},
        {"function f() {\r\n  library.Books(9);\r\n}\r\nf();", 2, 2, "  library.Books(9);"},
        {"\n\nlibrary.Books = 1", 3, 0, "library.Books = 1"},
        {"\nthrow 'text'", 2, 0, "throw 'text'"},
        {"\n\n\nthrow new Error(7, 'x')", 4, 0, "throw new Error(7, 'x')"},
        {"try {\n null.x\n} catch (e) {\n throw e }", 2, 1, " null.x"},
        {"\nnew Enumerator(5)", 2, 0, "new Enumerator(5)"},
        {"\n[3].forEach(function () {\n undefinedName })", 3, 1, " undefinedName })"},
        {"var a = 1; if (a) { b = c; }", 1, 20, "var a = 1; if (a) { b = c; }"},
        {"var \xC3\xA9 = 1; c();", 1, 11, "var \xC3\xA9 = 1; c();"},
        {"function f() { return 1; } f(); f.x.y", 1, 32, "function f() { return 1; } f(); f.x.y"},
        {"a = 1;\n eval('b;\\n\\nc')", 2, 1, " eval('b;\\n\\nc')"},
    };
    for (const auto& [code, line, column, text] : rows) {
        EXPECT_NE(NumberOf(code), 0) << code;
        EXPECT_EQ(host.Error().Line, line) << code;
        EXPECT_EQ(host.Error().Column, column) << code;
        EXPECT_EQ(host.Error().Text, text) << code;
    }
    // A function keeps the lines of the text that it came with.
    host.AddCode("function late() {\n  return missing;\n}");
    host.AddCode("var other;\n\n\n");
    EXPECT_THROW(host.Run("late"), Failure);
    EXPECT_EQ(host.Error().Line, 2);
    EXPECT_EQ(host.Error().Text, "  return missing;");
}

TEST_F(JScriptErrorsTest, ScriptsCatchFailures) {
    const std::pair<const char*, const char*> rows[] = {
        {"try { library.Books(9); } catch (e) { (e.number & 0xFFFF) + e.description }",
         "9Subscript out of range"},
        {"try { library.Books = 1; } catch (e) { e.number }", "-2146827837"},
        {"try { null.x } catch (e) { (e.number & 0xFFFF) + e.description }",
         "5007'null' is null or not an object"},
        {"try { library.Books(1).Extra() } catch (e) { e.number + e.message }",
         "-2147217887link broken: \xC3\xA9\xF0\x9F\x93\x9A"},
        {"try { throw new Error(5, 'd') } catch (e) { e.number + e.description + (e instanceof Error) }",
         "5dtrue"},
        {"var n = 0; for (var i = 0; i < 1000; i++) try { library.Books(9) } catch (e) { n++ } n", "1000"},
    };
    for (const auto& [expression, result] : rows)
        EXPECT_EQ(Evaluate(expression), result) << expression;
}

} // namespace
} // namespace quillon::jscript
