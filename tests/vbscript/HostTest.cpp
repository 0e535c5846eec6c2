// The host's contract: languages, errors, the module, stopping, limits.

#include <gtest/gtest.h>

#include "HostObjects.h"
#include "platform/Conversion.h"
#include "vbscript/VbScriptHost.h"

namespace quillon::vbscript::tests {
namespace {

class Host : public testing::Test {
  protected:
    void SetUp() override { host.SetLanguage("VBScript"); }

    // The number of the failure that `work` raises; 0 for none.
    template <class Work>
    static std::int32_t NumberOf(Work work) {
        try {
            work();
        } catch (const Failure& failure) {
            return failure.number();
        }
        return 0;
    }
    std::string TextOf(std::string_view expression) { return conversion::ToText(host.Eval(expression)); }

    VbScriptHost host;
};

TEST_F(Host, NothingWorksBeforeTheLanguageIsSet) {
    VbScriptHost fresh;
    EXPECT_EQ(fresh.Language(), "");
    EXPECT_NE(NumberOf([&] { fresh.AddCode("x = 1"); }), 0);
    EXPECT_NE(NumberOf([&] { fresh.Eval("1"); }), 0);
    EXPECT_NE(NumberOf([&] { fresh.Run("f"); }), 0);
    EXPECT_NE(NumberOf([&] { fresh.AddObject("o", MakeHostObject()); }), 0);
    EXPECT_EQ(NumberOf([&] { fresh.SetLanguage("JScript"); }), numbers::InvalidPropertyValue);
    fresh.SetLanguage("vbscript");
    EXPECT_EQ(fresh.Language(), "VBScript");
    EXPECT_EQ(fresh.Eval("1 + 1"), Value(std::int16_t{2}));
}

TEST_F(Host, ResetForgetsCodeAndObjectsAndKeepsTheLanguage) {
    host.AddObject("o", MakeHostObject());
    host.AddCode("x = 1 : Function F : F = 2 : End Function");
    host.Reset();
    EXPECT_EQ(host.Language(), "VBScript");
    EXPECT_TRUE(host.Eval("x").IsEmpty());
    EXPECT_TRUE(host.Eval("o").IsEmpty());
    EXPECT_EQ(NumberOf([&] { host.Run("F"); }), numbers::InvalidCall);
}

TEST_F(Host, LongTextsMayHaveAnyNumberOfCallsAndMembers) {
    host.AddCode("Function One(x) : One = 1 : End Function\nClass A : Public p : End Class\n"
                 "Set o = New A : Set d = New A");
    std::string text;
    for (int line = 0; line < 40000; ++line)
        text += line % 2 != 0 ? "o.p = o.p + One(o)\n" : "d.p = d.p + One(1)\n";
    host.AddCode(text);
    EXPECT_EQ(TextOf("o.p + d.p"), "40000");
}

TEST_F(Host, TextsJoinOneModuleAndLaterDefinitionsReplaceEarlierOnes) {
    host.AddCode("Dim shared : shared = 5 : Function F : F = G() : End Function");
    host.AddCode("Function G : G = shared : End Function");
    EXPECT_EQ(host.Run("F"), Value(std::int16_t{5}));
    host.AddCode("Function G : G = shared * 2 : End Function");
    EXPECT_EQ(host.Run("f"), Value(std::int16_t{10}));
    host.AddCode("Dim shared");
    EXPECT_EQ(host.Run("G"), Value(std::int16_t{10}));
}

TEST_F(Host, AFunctionOfTheModuleHidesOneOfTheLanguage) {
    host.AddCode("Function F : F = Trim(\" a \") : End Function");
    EXPECT_EQ(host.Run("F"), Value("a"));
    host.AddCode("Function Trim(x) : Trim = \"own\" : End Function");
    EXPECT_EQ(host.Run("F"), Value("own"));
    host.Reset();
    host.AddCode("Function F : F = Trim(\" a \") : End Function");
    EXPECT_EQ(host.Run("F"), Value("a"));
}

TEST_F(Host, AnIncludedFunctionIsFoundWithAndWithoutBrackets) {
    host.AddCode("Function Header : Header = \"h\" : End Function");
    host.AddCode("Function F : Dim s : s = Header & Header() : F = Pass(Header) & s : End Function\n"
                 "Function Pass(x) : Pass = x : End Function");
    EXPECT_EQ(host.Run("F"), Value("hhh"));
}

TEST_F(Host, ArgumentsAndResultsCross) {
    host.AddCode("Function Join3(a, b, c) : Join3 = a & \"-\" & b & \"-\" & TypeName(c) : End Function");
    Value arguments[] = {Value("x"), Value(std::int32_t{7}), Value(MakeHostObject())};
    EXPECT_EQ(host.Run("Join3", arguments), Value("x-7-Host"));
    EXPECT_EQ(NumberOf([&] { host.Run("Join3", std::span(arguments).first(2)); }),
              numbers::WrongArgumentCount);
    const Value array = host.Eval("Array(1, \"\xC3\xA4\")");
    EXPECT_EQ(array.As<std::shared_ptr<const ArrayValue>>()->elements[1], Value("\xC3\xA4"));
    EXPECT_EQ(host.Eval("Len(\"\xC3\xA4\xF0\x9F\x98\x80\")"), Value(std::int32_t{3}));
}

TEST_F(Host, CompileErrorsComeFromAddCodeWithTheirPlace) {
    EXPECT_EQ(NumberOf([&] { host.AddCode("x = 1\r\nIf x = 1\r\ny = 2"); }), numbers::ExpectedThen);
    const ScriptError& error = host.Error();
    EXPECT_EQ(error.Number, 1017);
    EXPECT_EQ(error.Description, "Expected 'Then'");
    EXPECT_EQ(error.Line, 2);
    EXPECT_EQ(error.Column, 8);
    EXPECT_EQ(error.Text, "If x = 1");
    EXPECT_EQ(error.Source, "Microsoft VBScript compilation error");
    EXPECT_TRUE(host.Eval("x").IsEmpty()) << "nothing of the text has run";
}

TEST_F(Host, RunTimeErrorsComeFromRunWithTheirPlace) {
    host.AddCode("Function F(n)\r\n  Dim x\r\n  x = 1: x = 10 / n\r\n  F = x\r\nEnd Function");
    Value zero[] = {Value(std::int16_t{0})};
    EXPECT_EQ(NumberOf([&] { host.Run("F", zero); }), 11);
    const ScriptError& error = host.Error();
    EXPECT_EQ(error.Number, 11);
    EXPECT_EQ(error.Description, "Division by zero");
    EXPECT_EQ(error.Line, 3);
    EXPECT_EQ(error.Column, 9);
    EXPECT_EQ(error.Text, "  x = 1: x = 10 / n");
    EXPECT_EQ(error.Source, "Microsoft VBScript runtime error");
}

TEST_F(Host, ErrorIsOneObjectClearedByTheNextSuccess) {
    const ScriptError* error = &host.Error();
    EXPECT_EQ(NumberOf([&] { host.Eval("1 / 0"); }), 11);
    EXPECT_EQ(error, &host.Error());
    EXPECT_EQ(error->Number, 11);
    host.Eval("1");
    EXPECT_EQ(error->Number, 0);
    EXPECT_EQ(error->Line, 0);
    EXPECT_EQ(error->Description, "");
}

TEST_F(Host, AnUnknownProcedureLeavesErrorEmpty) {
    EXPECT_EQ(NumberOf([&] { host.Eval("1 / 0"); }), 11);
    EXPECT_EQ(NumberOf([&] { host.Run("Nosuch"); }), numbers::InvalidCall);
    EXPECT_EQ(host.Error().Number, 0);
}

TEST_F(Host, AFailureLeavesTheHostUsable) {
    host.AddCode("Dim n : n = 1\nSub Fails : n = n + 1 : Err.Raise &H800A000D : End Sub");
    EXPECT_EQ(NumberOf([&] { host.Run("Fails"); }), 13);
    EXPECT_EQ(host.Error().Number, 13) << "the low number, without the facility";
    EXPECT_EQ(NumberOf([&] { host.Run("Fails"); }), 13);
    EXPECT_EQ(host.Eval("n"), Value(std::int16_t{3}));
}

TEST_F(Host, AWriteToAReadOnlyMemberIs451) {
    host.AddObject("o", MakeHostObject());
    EXPECT_EQ(NumberOf([&] { host.AddCode("x = 1\no.ReadOnly = 5"); }), 451);
    EXPECT_TRUE(host.Error().Description.starts_with("Object not a collection: "));
    EXPECT_EQ(host.Error().Line, 2);
}

TEST_F(Host, MembersOfAnObjectBecomeGlobalNames) {
    host.AddObject("o", MakeHostObject(), true);
    host.AddCode("Dim sum, n : n = 4 : sum = Add(1, 2) : Twice n");
    EXPECT_EQ(host.Eval("sum & Name & n"), Value("3quillon8"));
}

// As long as the module itself declares nothing of the name, wherever in it the assignment stands.
TEST_F(Host, AssigningToAGlobalNameOfAMemberSetsTheMember) {
    const ObjectRef object = MakeHostObject();
    host.AddObject("o", object, true);
    host.AddCode("Option Explicit\nName = \"top\"");
    EXPECT_EQ(host.Eval("o.Name"), Value("top"));
    host.AddCode("Sub Inside : Name = \"in\" & Len(Name) : Execute \"Name = Name & 1\" : End Sub");
    host.Run("Inside");
    EXPECT_EQ(host.Eval("o.Name & Name"), Value("in31in31"));
    host.AddCode(
        "Sub Named(Name) : Name = 5 : End Sub\nSub Own : Dim Name : Name = 6 : End Sub\nNamed 1 : Own");
    EXPECT_EQ(host.Eval("o.Name"), Value("in31"));
    host.AddCode("Set Name = o : Grid(1, 2) = 3 : Grid(4) = 5");
    EXPECT_EQ(host.Eval("(o.Name Is o) & Grid(1, 2) & o.Grid(4)"), Value("True35"));
    host.AddCode("Name = \"\"");
    EXPECT_EQ(NumberOf([&] { host.AddCode("x = 1\nReadOnly = 5"); }), 451);
    EXPECT_EQ(host.Error().Line, 2);
    EXPECT_EQ(NumberOf([&] { host.AddCode("Set Name = 5"); }), 424);

    host.AddCode("Dim Name : Name = \"own\"");
    EXPECT_EQ(host.Eval("Name & o.Name"), Value("own"));
    host.Reset();
    host.AddCode("Name = \"top\"");
    EXPECT_EQ(host.Eval("Name"), Value("top")) << "a variable, now that there is no such object";
}

// These statements take variables, and a member is none.
TEST_F(Host, LoopsAndArraysDoNotTakeAMemberForAVariable) {
    const ObjectRef object = MakeHostObject();
    host.AddObject("o", object, true);
    for (const char* statement : {"For Name = 1 To 2 : Next", "For Each Name In Array(1) : Next",
                                  "ReDim Name(3)", "ReDim Preserve Name(3)", "Erase Name"}) {
        EXPECT_EQ(NumberOf([&] { host.AddCode(statement); }), numbers::IllegalAssignment) << statement;
        const std::string within = "Sub s : " + std::string(statement) + " : End Sub";
        host.AddCode(within);
        EXPECT_EQ(NumberOf([&] { host.Run("s"); }), numbers::IllegalAssignment) << within;
        EXPECT_EQ(host.Eval("Name"), Value("quillon"));
    }
    host.AddCode("Dim Name");
    host.AddCode("For Name = 1 To 2 : Next : ReDim list(Name) : n = UBound(list)");
    EXPECT_EQ(host.Eval("Name & n & o.Name"), Value("33quillon"));
}

// What a step costs grows with the texts it works on: a few steps of long work come to the limit too.
TEST_F(Host, LongWorkWithinAStepIsStopped) {
    host.AddCode("Dim s, t, r : s = String(1000000, \"a\") : t = String(1000000, \"a\")\n"
                 "Set r = New RegExp : r.Pattern = \"(a*)*b\"");
    host.SetStepLimit(4'000);
    for (const char* work :
         {"x = UCase(s)", "x = InStr(s, \"b\")", "x = StrComp(s, t)", "x = (s = t)", "x = Split(s, \"aa\")",
          "x = r.Test(s)", "x = IsNumeric(s)", "x = Array(s & t)"}) {
        const std::string loop = "For i = 1 To 1000 : " + std::string(work) + " : Next";
        EXPECT_EQ(NumberOf([&] { host.AddCode(loop); }), numbers::ScriptStopped) << work;
    }
}

// Stops the host from a member of an object that the script calls.
TEST_F(Host, StopEndsAScriptFromWithin) {
    auto* stopper = new FreeObject("Stopper");
    const ObjectRef reference(stopper);
    stopper->Add("Stop", [&](InvokeKind, std::span<Value>) {
        host.Stop();
        return Value();
    });
    host.AddObject("o", reference);
    const auto spin = [&] { host.AddCode("On Error Resume Next\no.Stop\nDo\nLoop"); };
    EXPECT_EQ(NumberOf(spin), numbers::ScriptStopped);
    EXPECT_EQ(host.Error().Number, numbers::ScriptStopped);
    EXPECT_EQ(host.Error().Line, 4);
    EXPECT_EQ(host.Error().Text, "Loop");
    EXPECT_FALSE(host.Error().Description.empty());
    EXPECT_EQ(host.Eval("1 + 1"), Value(std::int16_t{2})) << "the next call runs";
    EXPECT_EQ(host.Error().Number, 0);
}

// The report of an error quotes its line: reading a long one is work in which the request to stop is not met.
TEST_F(Host, StopWithinTheReportOfAnErrorLeavesNothingBehind) {
    auto* failing = new FreeObject("Failing");
    const ObjectRef reference(failing);
    failing->Add("Fail", [&](InvokeKind, std::span<Value>) -> Value {
        host.Stop();
        throw Failure(numbers::TypeMismatch);
    });
    host.AddObject("o", reference);
    auto* counted = new FreeObject("Counted");
    auto alive = std::make_shared<int>(0);
    counted->Add("X", [alive](InvokeKind, std::span<Value>) { return Value(); });
    host.AddObject("p", ObjectRef(counted));
    host.AddCode("Function F : Set F = p : End Function");
    const std::string line = "o.Fail F() '" + std::string(std::size_t{5} << 20, 'x');
    EXPECT_EQ(NumberOf([&] { host.AddCode("On Error Resume Next\n" + line + "\nDo : Loop"); }),
              numbers::ScriptStopped);
    host.AddCode("Set p = Nothing");
    EXPECT_EQ(alive.use_count(), 1) << "the arguments of the call are let go";
}

TEST_F(Host, AStepLimitEndsAnyLoop) {
    host.SetStepLimit(10000);
    for (const char* loop : {"Do : Loop", "While True : Wend", "For i = 1 To 1000000000 : Next",
                             "Do : x = x & Len(x) : Loop While True",
                             "Sub R : For j = 1 To 10 : R : Next : End Sub : On Error Resume Next : R"})
        EXPECT_EQ(NumberOf([&] { host.AddCode(loop); }), numbers::ScriptStopped) << loop;
}

TEST_F(Host, ObjectsHeldByScriptsAreKeptAliveAndLetGo) {
    auto* object = new FreeObject("Counted");
    ObjectRef reference(object);
    auto alive = std::make_shared<int>(0);
    object->Add("X", [alive](InvokeKind, std::span<Value>) { return Value(); });
    host.AddObject("o", reference);
    host.AddCode("Set kept = o : Set o = Nothing");
    reference = ObjectRef();
    EXPECT_EQ(alive.use_count(), 2);
    EXPECT_EQ(TextOf("TypeName(kept)"), "Counted");
    host.Reset();
    EXPECT_EQ(alive.use_count(), 1);
}

TEST_F(Host, AnInstanceOutlivesItsEngine) {
    Value kept;
    {
        VbScriptHost other;
        other.SetLanguage("VBScript");
        other.AddCode(
            "Class C : Public X : Public Me2 : End Class\nSet c1 = New C : Set c1.Me2 = c1 : c1.X = 5");
        kept = other.Eval("c1");
        const ObjectRef object = kept.As<ObjectRef>();
        const std::optional<MemberId> member = object->FindMember("x");
        ASSERT_TRUE(member);
        EXPECT_EQ(object->Invoke(*member, InvokeKind::Get, {}), Value(std::int16_t{5}));
        EXPECT_EQ(object->TypeName(), "C");
    }
    EXPECT_FALSE(kept.As<ObjectRef>()->FindMember("x"));
}

TEST_F(Host, AnInstanceIsAnObjectForItsHolder) {
    host.AddCode("Class C\nPrivate v\nPublic Default Property Get Value(i) : Value = v & i : End Property\n"
                 "Public Property Let Value(i, x) : v = x & i : End Property\nPrivate Sub Hidden : End Sub\n"
                 "Function Fails : Fails = 1 / 0 : End Function\nEnd Class\nSet c1 = New C");
    const ObjectRef object = host.Eval("c1").As<ObjectRef>();
    Value written[] = {Value(std::int16_t{1}), Value("a")};
    object->Invoke(*object->FindMember("VALUE"), InvokeKind::Let, written);
    Value index[] = {Value(std::int16_t{2})};
    EXPECT_EQ(object->Invoke(DefaultMemberId, InvokeKind::Get, index), Value("a12"));
    EXPECT_FALSE(object->FindMember("Hidden"));
    EXPECT_EQ(NumberOf([&] { object->Invoke(*object->FindMember("Fails"), InvokeKind::Get, {}); }), 11);
    EXPECT_EQ(NumberOf([&] { object->Invoke(99, InvokeKind::Get, {}); }), 438);
}

TEST_F(Host, AHostObjectMayCallBack) {
    auto* caller = new FreeObject("Caller");
    const ObjectRef reference(caller);
    caller->Add("Call", [&](InvokeKind, std::span<Value> arguments) { return host.Run("Inner", arguments); });
    host.AddObject("o", reference);
    host.AddCode("Function Inner(x)\n  Inner = 10 / x\nEnd Function\nFunction Outer(x)\n  Outer = o.Call(x) "
                 "+ 1\nEnd Function");
    Value five[] = {Value(std::int16_t{5})};
    EXPECT_EQ(host.Run("Outer", five), Value(3.0));
    Value zero[] = {Value(std::int16_t{0})};
    EXPECT_EQ(NumberOf([&] { host.Run("Outer", zero); }), 11);
    EXPECT_EQ(NumberOf([&] { host.AddCode("Sub S : o.Call2 : End Sub : S"); }), 438);
}

TEST_F(Host, DeepSourceIsRefusedAndNoCrash) {
    const auto repeated = [](std::string_view text, int count) {
        std::string all;
        for (int i = 0; i < count; ++i)
            all += text;
        return all;
    };
    for (const std::string& deep :
         {"x = " + repeated("(", 100000), "x = " + repeated("Not ", 100000), "x = " + repeated("-", 100000),
          repeated("If x Then\n", 100000), repeated("If x Then ", 100000), "x = a" + repeated("(1)", 100000),
          "x = a" + repeated(".b", 100000), repeated("With x\n", 100000), "x = " + repeated("f(", 100000)})
        EXPECT_EQ(NumberOf([&] { host.AddCode(deep); }), numbers::CompileOutOfMemory) << deep.substr(0, 20);
    host.AddCode("x = 1" + repeated(" + 1", 100000) + "\ny = \"\"" + repeated(" & \"a\"", 100000));
    EXPECT_EQ(host.Eval("x & Len(y)"), Value("100001100000"));
    host.AddCode(repeated("x = x + 1 : y = \"text\" & x & \"more\"\n", 20000));
    EXPECT_EQ(host.Eval("x"), Value(std::int32_t{120001}));
}

TEST_F(Host, ManyNamesAndLiteralsAreNoLimit) {
    std::string text = "Function F\n";
    for (int i = 0; i < 20000; ++i)
        text += "s = \"literal " + std::to_string(i) + "\"\n";
    text += "F = s\nEnd Function";
    host.AddCode(text);
    EXPECT_EQ(host.Run("F"), Value("literal 19999"));
}

TEST_F(Host, TheSameTextIsCompiledOnce) {
    const std::string text = "Function F : F = 1 : End Function\nn = n + 1";
    for (int i = 0; i < 3; ++i)
        host.AddCode(text);
    EXPECT_EQ(host.Eval("n"), Value(std::int16_t{3}));
    host.Reset();
    host.AddCode(text);
    EXPECT_EQ(host.Run("F"), Value(std::int16_t{1}));
    EXPECT_EQ(host.Eval("n"), Value(std::int16_t{1}));
}

} // namespace
} // namespace quillon::vbscript::tests
