// The JScript host: code in, values out, late-bound objects, what ends a script.
#include <atomic>
#include <thread>

#include "jscript/HostTest.h"

namespace quillon::jscript {
namespace {

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
        {"var box = { inside: tally }; box.inside('f') = 4; box.inside('f') += 2; box.inside('f')++; "
         "tally('f')",
         "7"},
        {"tally('s')++; tally('s')++ + tally('s')--", "3"},
        {"var m = 1; if (tally('s')) ++m; while (m < 3) ++m; m", "3"},
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
    EXPECT_EQ(host.Run("same", back), Value(made));
    host.AddCode("var own = { }; function mine() { return own; }");
    const Value mine = host.Run("mine");
    EXPECT_EQ(host.Run("mine"), mine);
    EXPECT_NE(host.Eval("({ })"), mine);

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
        {"var c = /(b)/; 'abc'.search(c); c.compile('x'); RegExp.$1 + RegExp.index", "b1"},
        {"'abc'.replace(/([ac])/g, function () { return RegExp.$1.toUpperCase() + RegExp.index; })", "A0bC2"},
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
