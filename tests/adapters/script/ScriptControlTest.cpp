// The script host over both engines: what holds whichever language is set, and across a change of it.
#include <gtest/gtest.h>

#include "adapters/script/ScriptControl.h"
#include "platform/Conversion.h"
#include "platform/Failure.h"
#include "platform/FailureNumbers.h"
#include "platform/Object.h"

namespace quillon::adapters {
namespace {

template <class Work>
std::int32_t NumberOf(Work work) {
    try {
        work();
    } catch (const Failure& failure) {
        return failure.number();
    }
    return 0;
}

// Do() runs what the test set; Size is 3 and cannot be written.
class Probe final : public Object {
  public:
    std::string TypeName() const override { return "Probe"; }
    std::optional<MemberId> FindMember(std::string_view name) const override {
        if (name == "Do" || name == "do")
            return 1;
        return name == "Size" ? std::optional<MemberId>(2) : std::nullopt;
    }
    Value Invoke(MemberId member, InvokeKind kind, std::span<Value>) override {
        if (member == 1)
            return action ? action() : Value();
        if (kind == InvokeKind::Let || kind == InvokeKind::Set)
            throw Failure(numbers::NotACollection, "Object not a collection: 'Size'");
        return std::int32_t{3};
    }
    std::function<Value()> action;
};

// Counts the objects of its kind.
class Alive final : public Object {
  public:
    Alive() { ++count; }
    ~Alive() override { --count; }
    std::string TypeName() const override { return "Alive"; }
    std::optional<MemberId> FindMember(std::string_view) const override { return std::nullopt; }
    Value Invoke(MemberId, InvokeKind, std::span<Value>) override {
        throw Failure(numbers::MemberNotSupported);
    }
    static inline int count = 0;
};

class Site final : public ScriptSite {
  public:
    std::int32_t ScriptMessage(const std::string& prompt, std::int32_t, const std::string&) override {
        said = prompt;
        return 1;
    }
    std::string ScriptInput(const std::string&, const std::string&, const std::string& text) override {
        return text;
    }
    std::string said;
};

// The same small programs in both languages.
struct Dialect {
    const char* name;
    const char* answer;      // defines answer(), which gives 42
    const char* fails;       // fails in its second line
    const char* broken;      // does not compile, second line
    const char* writes;      // writes probe.Size
    const char* loops;       // calls probe.Do() and then loops for ever
    const char* compileText; // the source of a compile error
};

void PrintTo(const Dialect& dialect, std::ostream* out) {
    *out << dialect.name;
}

class ScriptControlTest : public testing::TestWithParam<Dialect> {
  protected:
    ScriptControlTest() { control.SetLanguage(GetParam().name); }

    Site site;
    ScriptControl control{&site};
};

TEST_P(ScriptControlTest, RunsCodeAndKeepsOneError) {
    const ScriptError* const error = &control.Error();
    control.AddCode(GetParam().answer);
    EXPECT_EQ(conversion::ToLong(control.Run("answer")), 42);
    EXPECT_NE(NumberOf([&] { control.AddCode(GetParam().fails); }), 0);
    EXPECT_NE(error->Number, 0);
    EXPECT_EQ(error->Line, 2);
    EXPECT_FALSE(error->Description.empty());
    EXPECT_EQ(&control.Error(), error);
    control.Run("answer");
    EXPECT_EQ(error->Number, 0);
    EXPECT_EQ(error->Line, 0);
}

TEST_P(ScriptControlTest, CompileErrorsLeaveFromAddCode) {
    const std::int32_t number = NumberOf([&] { control.AddCode(GetParam().broken); });
    EXPECT_EQ(number / 1000, 1);
    EXPECT_EQ(control.Error().Number, number);
    EXPECT_EQ(control.Error().Line, 2);
    EXPECT_EQ(control.Error().Source, GetParam().compileText);
}

TEST_P(ScriptControlTest, UnknownProcedureLeavesErrorZero) {
    EXPECT_NE(NumberOf([&] { control.AddCode(GetParam().fails); }), 0);
    EXPECT_EQ(NumberOf([&] { control.Run("nobody"); }), numbers::InvalidCall);
    EXPECT_EQ(control.Error().Number, 0);
}

TEST_P(ScriptControlTest, ReadOnlyMembersSayWhat) {
    control.AddObject("probe", MakeObject<Probe>());
    EXPECT_EQ(NumberOf([&] { control.AddCode(GetParam().writes); }), numbers::NotACollection);
    EXPECT_EQ(control.Error().Number, numbers::NotACollection);
    EXPECT_EQ(control.Error().Description, "Object not a collection: 'Size'");
}

TEST_P(ScriptControlTest, ResetKeepsTheLanguageAndForgetsTheRest) {
    control.AddCode(GetParam().answer);
    control.AddObject("probe", MakeObject<Probe>());
    control.Reset();
    EXPECT_EQ(control.Language(), GetParam().name);
    EXPECT_NE(NumberOf([&] { control.Run("answer"); }), 0);
    EXPECT_NE(NumberOf([&] { control.Eval("probe.Size"); }), 0);
}

TEST_P(ScriptControlTest, EnginesDoNotGoWhileTheyRun) {
    const ObjectRef probe = MakeObject<Probe>();
    auto& action = static_cast<Probe&>(*probe).action;
    control.AddObject("probe", probe);
    std::vector<std::int32_t> raised;
    action = [&] {
        raised.push_back(NumberOf([&] { control.Reset(); }));
        raised.push_back(NumberOf([&] { control.SetLanguage("VBScript"); }) +
                         NumberOf([&] { control.SetLanguage("JScript"); }));
        return Value();
    };
    control.Eval("probe.Do()");
    EXPECT_EQ(raised, (std::vector<std::int32_t>{5, 5}));
    action = nullptr;
}

TEST_P(ScriptControlTest, StopEndsAnEndlessScript) {
    const ObjectRef probe = MakeObject<Probe>();
    static_cast<Probe&>(*probe).action = [&] {
        control.Stop();
        return Value();
    };
    control.AddObject("probe", probe);
    EXPECT_EQ(NumberOf([&] { control.AddCode(GetParam().loops); }), numbers::ScriptStopped);
    control.AddCode(GetParam().answer);
    EXPECT_EQ(control.Error().Number, 0);
    static_cast<Probe&>(*probe).action = nullptr;
}

INSTANTIATE_TEST_SUITE_P(
    Languages, ScriptControlTest,
    testing::Values(Dialect{"VBScript", "Function answer\r\nanswer = 42\r\nEnd Function",
                            "Dim x\r\nx = 1 / 0", "x = 1\r\nx = (", "probe.Size = 1",
                            "probe.Do()\r\nDo\r\nLoop", "Microsoft VBScript compilation error"},
                    Dialect{"JScript", "function answer() { return 42; }", "var x;\r\nx.y.z",
                            "x = 1;\r\nx = (;", "probe.Size = 1", "probe.Do(); for (;;) ;",
                            "Microsoft JScript compilation error"}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(ScriptControl, NothingWorksBeforeTheLanguageIsSet) {
    ScriptControl control;
    EXPECT_EQ(control.Language(), "");
    control.Reset();
    control.Stop();
    EXPECT_NE(NumberOf([&] { control.AddObject("x", {}); }), 0);
    EXPECT_NE(NumberOf([&] { control.AddCode("x = 1"); }), 0);
    EXPECT_NE(NumberOf([&] { control.Run("x"); }), 0);
    EXPECT_NE(NumberOf([&] { control.Eval("1"); }), 0);
    EXPECT_EQ(NumberOf([&] { control.SetLanguage("Perl"); }), 380);
    EXPECT_EQ(control.Language(), "");
    control.SetLanguage("vbSCRIPT");
    EXPECT_EQ(control.Language(), "VBScript");
}

TEST(ScriptControl, AChangeOfLanguageStartsAfresh) {
    ScriptControl control;
    control.SetLanguage("VBScript");
    control.AddCode("Function f\r\nf = 1\r\nEnd Function");
    control.SetLanguage("VBScript");
    EXPECT_EQ(NumberOf([&] { control.Run("f"); }), 0);
    control.SetLanguage("JScript");
    EXPECT_EQ(NumberOf([&] { control.Run("f"); }), numbers::InvalidCall);
}

TEST(ScriptControl, JScriptUsesTheDictionary) {
    ScriptControl control;
    control.SetLanguage("JScript");
    EXPECT_EQ(
        control.Eval("var d = new ActiveXObject('Scripting.Dictionary'); d.Add('k', 5); d.add('j', 6);"
                     "var t = ''; for (var e = new Enumerator(d); !e.atEnd(); e.moveNext()) t += e.item();"
                     "t + d('k') + d.Item('j') + d.Count + new VBArray(d.Keys()).toArray().join()"),
        Value("kj562k,j"));
    EXPECT_EQ(NumberOf([&] { control.Eval("new ActiveXObject('VBScript.RegExp')"); }),
              numbers::CannotCreateObject);
    EXPECT_EQ(NumberOf([&] { control.Eval("d.Add('k', 1)"); }), numbers::KeyAlreadyInUse);
}

TEST(ScriptControl, DictionariesOfJScriptThatHoldOneAnotherGoWithTheirEngine) {
    ScriptControl control;
    const auto hold = [&](const ObjectRef& held) {
        control.SetLanguage("JScript");
        control.AddObject("held", held);
        control.AddCode(
            "var d = new ActiveXObject('Scripting.Dictionary'); d.Add('own', d); d.Add('held', held);");
    };
    hold(MakeObject<Alive>());
    EXPECT_EQ(Alive::count, 1);
    control.Reset();
    EXPECT_EQ(Alive::count, 0);
    hold(MakeObject<Alive>());
    control.SetLanguage("VBScript");
    EXPECT_EQ(Alive::count, 0);
}

TEST(ScriptControl, BoxesGoToTheSite) {
    Site site;
    ScriptControl control(&site);
    control.SetLanguage("VBScript");
    control.AddCode("MsgBox \"hello\"");
    EXPECT_EQ(site.said, "hello");
}

} // namespace
} // namespace quillon::adapters
