// The JScript host: code in, values out, late-bound objects, what fails and where it says so.
#include <atomic>
#include <thread>

#include <gtest/gtest.h>

#include "jscript/JScriptHost.h"
#include "jscript/Library.h"
#include "platform/Conversion.h"

namespace quillon::jscript {
namespace {

class JScriptHostTest : public testing::Test {
  protected:
    JScriptHostTest() { host.AddObject("library", library); }
    ~JScriptHostTest() override { Lib().kept = {}; } // it may have been given itself to keep

    // The value as text; "#number description" for a failure.
    std::string Evaluate(std::string_view expression) {
        try {
            return TextOf(host.Eval(expression));
        } catch (const Failure& failure) {
            return "#" + std::to_string(failure.number()) + " " + failure.description();
        }
    }
    static std::string TextOf(const Value& value) {
        if (value.IsEmpty())
            return "undefined";
        if (value.IsNull())
            return "null";
        if (const auto* object = value.If<ObjectRef>())
            return (*object)->TypeName();
        return conversion::ToText(value);
    }
    // The number that adding and then running the code fails with, 0 if neither does.
    std::int32_t NumberOf(std::string_view code) {
        try {
            host.AddCode(code);
        } catch (const Failure& failure) {
            EXPECT_EQ(failure.number(), host.Error().Number);
            return failure.number();
        }
        return 0;
    }
    Library& Lib() { return static_cast<Library&>(*library); }

    ObjectRef library = MakeObject<Library>();
    JScriptHost host;
};

TEST_F(JScriptHostTest, ValuesCross) {
    const std::pair<const char*, Value> rows[] = {
        {"1 + 1", std::int32_t{2}},
        {"1 / 2", 0.5},
        {"2147483648", 2147483648.0},
        {"'a' + 1", "a1"},
        {"1 == 1", true},
        {"null", NullValue{}},
        {"undefined", Value{}},
        {"'\\u00e9\\ud83d\\udcda'", "\xC3\xA9\xF0\x9F\x93\x9A"},
        {"'\\ud83d'", "\xEF\xBF\xBD"},
        {"new Date(2004, 1, 28, 13, 5, 7)", conversion::DateOf(2004, 2, 28, 13, 5, 7)},
    };
    for (const auto& [expression, value] : rows)
        EXPECT_EQ(host.Eval(expression), value) << expression;
}

TEST_F(JScriptHostTest, ValuesComeBackAsTheyWent) {
    const Value rows[] = {
        Value{}, NullValue{}, true, std::int32_t{-7}, 0.25, "text \xF0\x9F\x93\x9A", DateValue{38045.5},
        library};
    host.AddCode("function same(x) { return x; }");
    for (const Value& value : rows) {
        Value arguments[] = {value};
        EXPECT_EQ(host.Run("same", arguments), value);
    }
    Value currency[] = {CurrencyValue{12500}};
    EXPECT_EQ(host.Run("same", currency), Value(1.25));
}

TEST_F(JScriptHostTest, SeveralTextsJoinOneModule) {
    host.AddCode("function f() { return g() + 1; }");
    host.AddCode("function g() { return 1; } var top = 5;");
    EXPECT_EQ(host.Run("f"), Value(std::int32_t{2}));
    host.AddCode("function g() { return 10 + top; }");
    EXPECT_EQ(host.Run("f"), Value(std::int32_t{16}));
    host.Reset();
    EXPECT_THROW(host.Run("f"), Failure);
    EXPECT_EQ(host.Language(), "JScript");
}

TEST_F(JScriptHostTest, PropertiesWithParametersAreWritten) {
    for (const char* code :
         {"library.Books.Item(1) = library.Books(2);", "library.Books(1) = library.Books(2);",
          "var shelf = library.Books; shelf(1) = shelf(2);"}) {
        const ObjectRef emma = host.Eval("library.Books(1)").As<ObjectRef>();
        host.AddCode(code);
        EXPECT_EQ(Evaluate("library.Books(1).Title"), "Ulysses") << code;
        Value arguments[] = {emma};
        host.AddCode("function restore(book) { library.Books.Item(1) = book; }");
        host.Run("restore", arguments);
        EXPECT_EQ(Evaluate("library.Books(1).Title"), "Emma");
    }
    host.AddObject("tally", MakeObject<Tally>());
    const std::pair<const char*, const char*> rows[] = {
        {"tally.Of('a') += 5; tally.Of('a')", "5"},
        {"tally.Of('a') -= 2; tally.Of('a') *= 7; tally.Of('a') >>>= 1; tally.Of('a')", "10"},
        {"tally.Of('b') = 3; tally.Of('a') /= tally.Of('b') + 2; tally.Of('a')", "2"},
        {"tally.Of('a')++ + tally.Of('a')", "5"},
        {"var n = 'x'; tally.Of(n)--; tally.Of(n += 'y') ^= 3; tally.Of('x') + ',' + tally.Of('xy')", "-1,3"},
        {"tally('z') |= 6; tally('z') &= 3; tally.Of('z')", "2"},
        {"tally.Of('z') <= 2 && tally.Of('z') == 2 && tally.Of('z') >= 2", "True"},
        {"var o = { m: function () { return 1; } }; o.m(1) += 5", "#5003 Cannot assign to a function result"},
    };
    for (const auto& [expression, result] : rows)
        EXPECT_EQ(Evaluate(expression), result) << expression;
    EXPECT_EQ(NumberOf("library.Books.Item(9) = library.Books(1);"), 9);
    EXPECT_EQ(NumberOf("library.Books.Item(1) = 5;"), 424);
    EXPECT_EQ(NumberOf("function f() { return {}; } f(1) = 5;"), 5003);
    EXPECT_EQ(NumberOf("var o = { m: function () { return {}; } }; o.m(1) = 5;"), 5003);
    EXPECT_EQ(host.Error().Line, 1);
}

TEST_F(JScriptHostTest, MembersOfObjects) {
    const std::pair<const char*, const char*> rows[] = {
        {"library.Books.Count", "2"},
        {"LIBRARY", "#5009 'LIBRARY' is undefined"},
        {"library.bOOKS.cOUNT", "2"},
        {"library.Books(1).Title", "Emma"},
        {"library.Books.Item(2).Title", "Ulysses"},
        {"library.Books(1) + ''", "Emma"},
        {"library.Books(1) == 'Emma'", "True"},
        {"library.Books(1) == library.Books(1)", "True"},
        {"library.Books(1) == library.Books(2)", "False"},
        {"library.Books(3)", "#9 Subscript out of range"},
        {"library.Books('x')", "#13 Type mismatch"},
        {"library.Books(1).Pages = 7; library.Books(1).pages", "7"},
        {"library.Books(1).Pages += 5; library.Books(1).Pages", "105"},
        {"library.Books(1).Open(); library.Books(1).Open(1); library.Books(1).Opened", "2"},
        {"var n = 'Open'; library.Books(1)[n]; library.Books(1).Opened", "1"},
        {"library.Unknown", "undefined"},
        {"library.Unknown()", "#438 Object doesn't support this property or method"},
        {"library.Unknown = 1", "#438 Object doesn't support this property or method"},
        {"'books' in library", "True"},
        {"'x' in library", "False"},
        {"library.Books = 1", "#451 Object not a collection: 'Books'"},
        {"library.Keep(library) == library", "True"},
        {"library.Keep(null)", "null"},
        {"library.Kept = 5; library.Kept", "5"},
        {"library.Kept = library; library.Kept.Books.Count", "2"},
        {"String(library)", "[object Library]"},
        {"library.Books(1).toString()", "Emma"},
        {"library.Books(1).Added.getFullYear()", "2004"},
        {"var keep = library\n . /* here */ Keep\n (3); keep", "3"},
        {"new library", "#445 Object doesn't support this action"},
    };
    for (const auto& [expression, result] : rows) {
        host.Reset();
        library = MakeObject<Library>();
        host.AddObject("library", library);
        EXPECT_EQ(Evaluate(expression), result) << expression;
        Lib().kept = {};
    }
}

TEST_F(JScriptHostTest, MethodsRunOnceAndOnlyWhenCalled) {
    int calls = 0;
    Lib().action = [&calls] { return Value(std::int32_t{++calls}); };
    EXPECT_EQ(Evaluate("library.Do()"), "1");
    EXPECT_EQ(Evaluate("library.Keep(library.Do())"), "2");
    EXPECT_EQ(Evaluate("var o = { Do: function () { return 'own'; } }; o.Do() + library.Do"), "own3");
    EXPECT_EQ(calls, 3);
}

TEST_F(JScriptHostTest, CollectionsAndArrays) {
    const std::pair<const char*, const char*> rows[] = {
        {"var t = ''; for (var e = new Enumerator(library.Books); !e.atEnd(); e.moveNext()) t += "
         "e.item().Title; t",
         "EmmaUlysses"},
        {"var e = new Enumerator(library.Books); e.moveNext(); e.moveFirst(); e.item().Title", "Emma"},
        {"new Enumerator().atEnd()", "True"},
        {"new Enumerator([5]).item()", "5"},
        {"new Enumerator(library)", "#451 Object not a collection"},
        {"new Enumerator({})", "#451 Object not a collection"},
        {"var a = new VBArray(library.Grid); a.dimensions() + ',' + a.ubound(2) + ',' + a.lbound(1)",
         "2,2,0"},
        {"new VBArray(library.Grid).getItem(1, 2)", "5"},
        {"new VBArray(library.Grid).toArray().join('')", "012345"},
        {"new VBArray(library.Grid).getItem(2, 0)", "#9 Subscript out of range"},
        {"new VBArray(library.Grid).ubound(3)", "#9 Subscript out of range"},
        {"new VBArray(5)", "#5013 VBArray expected"},
    };
    for (const auto& [expression, result] : rows)
        EXPECT_EQ(Evaluate(expression), result) << expression;
    EXPECT_EQ(host.Eval("library.Keep(library.Grid)").As<std::shared_ptr<const ArrayValue>>()->upperBounds,
              (std::vector<std::int32_t>{1, 2}));
}

TEST_F(JScriptHostTest, ScriptObjectsServeTheSystem) {
    const ObjectRef made =
        host.Eval("({ name: 'x', add: function (a, b) { return a + b; }, toString: function () "
                  "{ return 'made'; } })")
            .As<ObjectRef>();
    const auto add = made->FindMember("add");
    ASSERT_TRUE(add);
    Value arguments[] = {std::int32_t{2}, std::int32_t{3}};
    EXPECT_EQ(made->Invoke(*add, InvokeKind::Get, arguments), Value(std::int32_t{5}));
    EXPECT_EQ(made->Invoke(DefaultMemberId, InvokeKind::Get, {}), Value("made"));
    EXPECT_FALSE(made->FindMember("Add")); // this language minds case
    const auto name = made->FindMember("name");
    Value renamed[] = {"y"};
    made->Invoke(*name, InvokeKind::Let, renamed);
    EXPECT_EQ(made->Invoke(*name, InvokeKind::Get, {}), Value("y"));

    Value back[] = {made};
    host.AddCode(
        "function same(a) { return a; } var kept = null; function keep(a) { var first = kept === null; kept "
        "= first ? a : kept; return kept === a; }");
    host.Run("keep", back);
    EXPECT_EQ(host.Run("keep", back), Value(true));

    const auto walk = host.Eval("[1, 'b']").As<ObjectRef>()->Enumerate();
    EXPECT_EQ(walk->Next(), Value(std::int32_t{1}));
    EXPECT_EQ(walk->Next(), Value("b"));
    EXPECT_EQ(walk->Next(), std::nullopt);

    host.Reset();
    EXPECT_THROW(made->FindMember("name"), Failure);
}

TEST_F(JScriptHostTest, GlobalMembers) {
    host.AddObject("lib", library, true);
    EXPECT_EQ(Evaluate("Books(1).Title"), "Emma");
    EXPECT_EQ(Evaluate("Books.Count"), "2");
    EXPECT_EQ(Evaluate("Kept = 4; library.Kept"), "4");
    host.AddCode("function Keep(x) { return 'own'; }");
    EXPECT_EQ(Evaluate("Keep(1)"), "own");
}

TEST_F(JScriptHostTest, FailuresHaveTheNumbersThatUsersKnow) {
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

TEST_F(JScriptHostTest, CompileErrorsLeaveFromAddCode) {
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

TEST_F(JScriptHostTest, TextOfTheOtherLanguageIsNamedAsSuch) {
    for (const char* code : {"Function ReturnThis()\r\nDim strVar \r\nReturnThis = strVar\r\nEnd Function",
                             "Dim x\r\nx = 1", "' comment\r\nx = 1", "Option Explicit", "Sub f\r\nEnd Sub"}) {
        EXPECT_NE(NumberOf(code), 0) << code;
        EXPECT_NE(host.Error().Description.find("looks like VBScript"), std::string::npos) << code;
    }
    EXPECT_NE(NumberOf("set = ;"), 0);
    EXPECT_EQ(host.Error().Description.find("VBScript"), std::string::npos);
}

TEST_F(JScriptHostTest, ErrorsKnowTheirPlace) {
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

TEST_F(JScriptHostTest, ScriptsCatchFailures) {
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

TEST_F(JScriptHostTest, UnknownProcedureIsAFailureOfTheCall) {
    EXPECT_THROW(host.Eval("null.x"), Failure);
    EXPECT_EQ(host.Error().Number, 5007);
    try {
        host.Run("nobody");
        ADD_FAILURE();
    } catch (const Failure& failure) {
        EXPECT_EQ(failure.number(), numbers::InvalidCall);
    }
    EXPECT_EQ(host.Error().Number, 0);
    host.AddCode("var number = 5;");
    EXPECT_THROW(host.Run("number"), Failure);
    EXPECT_THROW(host.Run("library"), Failure);
}

TEST_F(JScriptHostTest, LanguageIsFixed) {
    host.SetLanguage("jSCRIPT");
    try {
        host.SetLanguage("VBScript");
        ADD_FAILURE();
    } catch (const Failure& failure) {
        EXPECT_EQ(failure.number(), 380);
    }
}

TEST_F(JScriptHostTest, StopEndsLoopsCallsAndCatches) {
    Lib().action = [this] {
        host.Stop();
        return Value();
    };
    for (const char* code :
         {"library.Do(); for (;;) ;", "library.Do(); while (true) { }", "library.Do(); do { } while (1);",
          "library.Do(); while (1) { try { for (;;) ; } catch (e) { } }",
          "library.Do(); for (;;) { try { library.Do() } catch (e) { } finally { continue } }",
          "function f() { f(); f(); } library.Do(); f();"}) {
        EXPECT_EQ(NumberOf(code), numbers::ScriptStopped) << code;
        EXPECT_EQ(Evaluate("1"), "1");
    }
    std::atomic<bool> started = false;
    Lib().action = [&started] {
        started = true;
        return Value();
    };
    std::thread other([&] {
        while (!started)
            std::this_thread::yield();
        host.Stop();
    });
    EXPECT_EQ(NumberOf("library.Do(); for (var i = 0; ; i++) ;"), numbers::ScriptStopped);
    other.join();
}

// Each of these runs for hours, and asks nobody.
TEST_F(JScriptHostTest, StopEndsWhatRunsOnByItself) {
    std::atomic<bool> started = false;
    Lib().action = [&started] {
        started = true;
        return Value();
    };
    for (const char* code : {"eval('library.Do(); for (;;) ;')", "new Function('library.Do(); for (;;) ;')()",
                             "library.Do(); /^(a+)+$/.test(new Array(50).join('a') + 'b')",
                             "library.Do(); (new Array(50).join('a') + 'b').replace(/^(a|a)*$/g, '')",
                             "library.Do(); new Array(4294967290).join('x')",
                             "library.Do(); Array.prototype.indexOf.call({ length: 2147483000 }, 1)",
                             "var s = 'a'; for (var i = 0; i < 22; i++) s += s; library.Do(); "
                             "s.indexOf(s.substr(1) + 'b'); for (;;) ;",
                             "library.Do(); for (;;) try { var t = 'x'; for (;;) t += t; } catch (e) { }",
                             "library.Do(); (function g() { try { g() } finally { g() } })()"}) {
        started = false;
        std::thread other([&] {
            while (!started)
                std::this_thread::yield();
            host.Stop();
        });
        EXPECT_EQ(NumberOf(code), numbers::ScriptStopped) << code;
        EXPECT_EQ(host.Error().Line, 1) << code;
        other.join();
        EXPECT_EQ(Evaluate("1"), "1");
    }
}

TEST_F(JScriptHostTest, HostsCallBackIntoScripts) {
    host.AddCode("function inner(n) { return n < 1 ? 'done' : library.Do(); } var depth = 3;");
    int depth = 5;
    Lib().action = [&] {
        Value arguments[] = {std::int32_t{--depth}};
        return host.Run("inner", arguments);
    };
    EXPECT_EQ(Evaluate("inner(5)"), "done");
    Lib().action = [&] { return host.Eval("null.x"); };
    EXPECT_EQ(Evaluate("try { library.Do() } catch (e) { 'caught ' + (e.number & 0xFFFF) }"), "caught 5007");
    Lib().action = [&]() -> Value {
        host.Reset();
        return {};
    };
    EXPECT_EQ(Evaluate("library.Do()").substr(0, 3), "#5 ");
}

TEST_F(JScriptHostTest, ForeignExceptionsPassThrough) {
    Lib().action = []() -> Value { throw std::runtime_error("not a failure"); };
    EXPECT_THROW(host.Eval("try { library.Do() } catch (e) { 1 }"), std::runtime_error);
    EXPECT_EQ(Evaluate("2"), "2");
}

TEST_F(JScriptHostTest, RecursionThroughTheHostEnds) {
    Lib().action = [&] { return host.Eval("library.Do()"); };
    EXPECT_EQ(Evaluate("library.Do()"), "#28 Out of stack space");
    EXPECT_EQ(Evaluate("3"), "3");
}

TEST_F(JScriptHostTest, ScriptsReachNothingOutside) {
    for (const char* name : {"Duktape", "require", "process", "print", "alert", "WScript", "load"})
        EXPECT_EQ(Evaluate(std::string("typeof ") + name), "undefined") << name;
    EXPECT_EQ(Evaluate("$called = 1; typeof $called"), "function");
}

TEST_F(JScriptHostTest, TheLanguageIsTheOldOne) {
    const std::pair<const char*, const char*> rows[] = {
        {"typeof library", "object"},
        {"typeof library.Books", "object"},
        {"typeof library.Unknown", "undefined"},
        {"typeof nobody", "undefined"},
        {"var f = function () { }; typeof f", "function"},
        {"typeof Proxy + typeof Symbol", "undefinedundefined"},
        {"eval('library.Do()'); eval('typeof library')", "object"},
        {"new Function('a', 'b', 'return a + library.Books(b).Title')(1, 2)", "1Ulysses"},
        {"(function () { 'use strict'; return arguments.callee === undefined; })()", "False"},
        {"with (library) { Books.Count }", "2"},
        {"var n = 0; for (var k in library) n++; n", "0"},
        {"new Date('1/5/2004 5:06 PM').getHours()", "17"},
        {"new Date('Jan 5, 2004 10:20:30').getMinutes()", "20"},
        {"new Date('5 January 2004').getDate()", "5"},
        {"Date.parse('Mon, 25 Dec 1995 13:30:00 GMT+0430')", "819882000000"},
        {"Date.parse('2004-02-29')", "1078012800000"},
        {"Date.parse('no date') + Date.parse('99/99/99') + ''", "NaN"},
        {"new Date(0).toUTCString()", "Thu, 1 Jan 1970 00:00:00 UTC"},
        {"new Date(2004, 0, 5, 16, 7, 8).toLocaleString()", "Monday, January 05, 2004 4:07:08 PM"},
        {"String(new Date(2004, 0, 5, 16, 7, 8)).substr(0, 19)", "Mon Jan 5 16:07:08 "},
        {"library.Keep(new Date(2004, 0, 5).getVarDate()).getDate()", "5"},
        {"'x'.bold() + 'y'.link('z')", "<B>x</B><A HREF=\"z\">y</A>"},
        {"/(b)(c)/.exec('abcd'); RegExp.$1 + RegExp.$2 + RegExp.lastMatch + RegExp.rightContext + "
         "RegExp.index",
         "bcbcd1"},
        {"'a1b2'.replace(/[a-z](\\d)/g, ''); RegExp.$1 + RegExp.leftContext", "2a1"},
        {"'x'.search(/y/); RegExp.$1", "2"},
        {"var r = /a/g; r.test('xa'); r.compile('B+', 'i'); r.source + r.global + r.ignoreCase + r.lastIndex "
         "+ "
         "r.exec('abbc')[0]",
         "B+falsetrue0bb"},
        {"r.compile(/c/m) === r && r.multiline && r.test('c') && !r.test('b')", "True"},
        {"parseInt('010') + parseInt(' -017') + parseInt('08') + parseInt('0x1F') + parseInt('010', 0)",
         "32"},
        {"parseInt('010', 10) + parseInt('0') + parseInt('0.9') + parseInt('10')", "20"},
        {"encodeURI('\\u00e9 /') + encodeURIComponent('/') + decodeURI('%C3%A9')", "%C3%A9%20/%2F\xC3\xA9"},
        {"1.005.toFixed(2).length + (255).toPrecision(2) + (1.5).toExponential() + (2).toFixed()",
         "42.6e+21.5e+02"},
        {"try { nobody() } catch (e) { e.message }", "Object expected"},
        {"try { nobody } catch (e) { e.description + (e.number & 0xFFFF) }", "'nobody' is undefined5009"},
        {"new Error('own').number + new Error(7, 'x').number", "7"},
        {"ScriptEngine() + ScriptEngineMajorVersion()", "JScript5"},
    };
    for (const auto& [expression, result] : rows) {
        EXPECT_EQ(Evaluate(expression), result) << expression;
        Lib().kept = {};
    }
}

TEST_F(JScriptHostTest, ObjectsLiveAsLongAsScriptsHoldThem) {
    class Counted final : public Object {
      public:
        explicit Counted(int& alive)
            : m_alive(alive) {
            ++m_alive;
        }
        ~Counted() override { --m_alive; }
        std::string TypeName() const override { return "Counted"; }
        std::optional<MemberId> FindMember(std::string_view) const override { return std::nullopt; }
        Value Invoke(MemberId, InvokeKind, std::span<Value>) override { return std::int32_t{7}; }

      private:
        int& m_alive;
    };
    int alive = 0;
    Lib().action = [&alive] { return Value(MakeObject<Counted>(alive)); };
    host.AddCode("var held = library.Do();");
    EXPECT_EQ(alive, 1);
    EXPECT_EQ(Evaluate("held + 1"), "8");
    int most = 0;
    Lib().action = [&] {
        most = std::max(most, alive);
        return Value(MakeObject<Counted>(alive));
    };
    host.AddCode("for (var i = 0; i < 20000; i++) { var o = library.Do(); }");
    EXPECT_LT(most, 10) << "those that nobody holds go while the script runs on";
    host.AddCode("for (var i = 0; i < 20000; i++) { o = { a: library.Do() }; o.self = o; }");
    EXPECT_LT(most, 20000) << "those that circles hold go too";
    EXPECT_EQ(Evaluate("held + 1"), "8");
    host.Reset();
    EXPECT_EQ(alive, 0);
}

} // namespace
} // namespace quillon::jscript
