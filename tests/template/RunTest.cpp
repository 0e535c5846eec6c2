// The run of a template: the order of its steps, what it leaves in editors and files, and what each kind of
// failure reports, marks and spares, with the host that users have.
#include "RunTest.h"

#include "support/FakeScriptHost.h"

namespace quillon::tests {
namespace {

using Log = std::vector<std::string>;

class Run : public RunTest {};
class Batch : public RunTest {};

TEST_F(Run, TakesItsStepsInOrder) {
    FakeScript script{plan, Value("made"), {}};
    const Platform faked(PlatformServices{
        .frontEnd = &frontEnd,
        .files = &files,
        .settings = &settings,
        .newScriptHost = [&] { return std::make_unique<FakeScriptHost>(script); },
    });
    Form().Load();
    g_objAudit->Includes()->Add("a.vbs");
    memory.Contents["\\p\\a.vbs"] = "\xEF\xBB\xBFone\ntwo";
    plan.Log.clear();
    RunTest::Run("x");
    std::erase_if(plan.Log, [](const std::string& entry) {
        return entry.starts_with("FileWriter") || entry.starts_with("LineReader") ||
               entry.starts_with("Files.ApplicationFolder");
    });
    const std::string body = "Function ReturnThis()\r\nDim strVar \r\nstrVar = strVar  & \"x\"\r\n"
                             "strVar = strVar  &  vbCrlf\r\n\r\nReturnThis = strVar\r\nEnd Function";
    EXPECT_EQ(plan.Log, (Log{"Files.OpenOutput \\app\\template.txt", "Files.ChangeFolder \\p",
                             "ScriptHost.Reset", "ScriptHost.SetLanguage VBScript",
                             "ScriptHost.AddObject objAudit", "ScriptHost.AddObject CodeBox",
                             "Files.ReadAll \\app\\template.txt", "Files.OpenOutput \\app\\output.txt",
                             "Files.OpenInput a.vbs", "ScriptHost.AddCode one\r\ntwo\r\n",
                             "ScriptHost.AddCode " + body, "ScriptHost.Run ReturnThis"}));
    EXPECT_EQ(Source(), "one\r\ntwo\r\n" + body);
    EXPECT_EQ(Results(), "made");
    EXPECT_EQ(Form().Tabstrip1.Selected(), frmTemplate::ResultsTab);
    EXPECT_EQ(Form().stbStatus.Panel(2), "Scripting Language: VBScript  ");
    EXPECT_EQ(frontEnd.CurrentPointer(), Pointer::Hourglass); // whoever ends the flow sets it back
}

TEST_F(Run, GivesTheScriptsTextInBothForms) {
    constexpr const char* text = "-- {% objAudit.Print objAudit.Database.ActiveTable.Name %}\nGO\n";
    EXPECT_EQ(RunTest::Run(text), 0);
    EXPECT_EQ(Results(), "-- Country\r\nGO\r\n");
    EXPECT_EQ(memory.Contents["\\app\\template.txt"], text);
    UseJScript();
    EXPECT_EQ(RunTest::Run(text), 0);
    EXPECT_EQ(Results(), "-- Country\nGO\n");
    EXPECT_EQ(Form().stbStatus.Panel(2), "Scripting Language: JScript  ");
}

TEST_F(Run, StartsEachTimeFromAnEmptyHost) {
    RunTest::Run("{% Kept = Kept & \"x\" %}{% objAudit.Print Kept %}");
    EXPECT_EQ(RunTest::Run("a{% objAudit.Print Kept %}"), 0);
    EXPECT_EQ(Results(), "a\r\n");
}

TEST_F(Run, ATemplateWithNothingToSayReturnsTheEmptyText) {
    EXPECT_EQ(RunTest::Run("{% x = 1 %}"), 0);
    EXPECT_EQ(Results(), "");
    EXPECT_EQ(Form().Tabstrip1.Selected(), frmTemplate::ResultsTab);
}

TEST_F(Run, LeavesTheModifiedStateAsItWas) {
    for (const bool modified : {true, false})
        for (const char* text : {"a", "{% x = %}"}) {
            Form().Load();
            Tab(frmTemplate::TemplateTab).SetText(text);
            Tab(frmTemplate::TemplateTab).SetModified(modified);
            if (text[0] == '{')
                ExpectScriptError("Error Number: 1023\r\nError Description: Expected expression\r\n"
                                  "Error Line: 3\r\nError Text: x = ");
            Form().ProcessTemplate();
            EXPECT_EQ(Tab(frmTemplate::TemplateTab).Modified(), modified) << text;
        }
}

TEST_F(Run, GivesScriptsTheEditorThatIsInFront) {
    Form().Load();
    Tab(frmTemplate::IncludeTab).SetText("of the include tab");
    Form().Tabstrip1.Select(frmTemplate::IncludeTab);
    EXPECT_EQ(RunTest::Run("{% objAudit.Print CodeBox.Text %}"), 0);
    EXPECT_EQ(Results(), "of the include tab");
}

// A setting that names JScript does not change the translator's form: the host is given text that it rejects.
TEST_F(Run, TheSettingAloneSwitchesTheHostAlone) {
    settings.Set("ScriptingLanguage", "1");
    Form().Load();
    Tab(frmTemplate::TemplateTab).SetText("a");
    ExpectScriptError(
        "Error Number: 1004\r\nError Description: Syntax error: the text looks like VBScript, but "
        "the language is JScript\r\nError Line: 1\r\nError Text: Function ReturnThis()");
    EXPECT_NE(Form().ProcessTemplate(), 0);
    EXPECT_EQ(MarkedLine(), "Function ReturnThis()");
}

// --- what goes wrong in a script ---

struct Fault {
    std::string name;
    bool jscript;
    const char* text;   // the template
    const char* number; // and description, as reported
    const char* marked; // the line of the script that is to be looked at
};

void PrintTo(const Fault& fault, std::ostream* out) {
    *out << fault.text;
}

class ScriptFault : public RunTest, public testing::WithParamInterface<Fault> {
  protected:
    // Runs the template and looks at everything that a failure leaves.
    void Check(int includeLines) {
        const Fault& fault = GetParam();
        if (fault.jscript)
            UseJScript();
        Form().Load();
        Tab(frmTemplate::ResultsTab).SetText("of an earlier run");
        const std::string line(fault.marked);
        ExpectScriptError(std::string("Error Number: ") + fault.number +
                          "\r\nError Line: " + std::to_string(LineInScript) + "\r\nError Text: " + line);
        const std::string number(fault.number, std::string_view(fault.number).find('\r'));
        EXPECT_EQ(std::to_string(RunTest::Run(fault.text)), number);
        EXPECT_EQ(MarkedLine(), line);
        EXPECT_EQ(Tab(frmTemplate::ScriptTab).HighlightedLine(), includeLines + LineInScript - 1);
        EXPECT_EQ(Tab(frmTemplate::ScriptTab).CaretLine(), includeLines + LineInScript - 1);
        EXPECT_EQ(Form().Tabstrip1.Selected(), frmTemplate::ScriptTab);
        EXPECT_EQ(Tab(frmTemplate::TemplateTab).Text(), fault.text);
        EXPECT_EQ(Results(), "");
    }

    // All templates have the fault behind one literal line: three lines of the script in VBScript form, which
    // begins with two lines, or JScript's, which begins with four.
    int LineInScript = GetParam().jscript ? 7 : 5;
};

TEST_P(ScriptFault, IsReportedAndMarked) {
    Check(0);
}

TEST_P(ScriptFault, IsMarkedBehindTheIncludes) {
    Include("first.inc", GetParam().jscript ? "// one\nfunction f() { return 1; }" : "' one\nx = 1");
    Include("second.inc", GetParam().jscript ? "// two" : "' two");
    Check(3);
}

INSTANTIATE_TEST_SUITE_P(
    Faults, ScriptFault,
    testing::Values(
        Fault{"Syntax", false, "a\n{% If x Than %}\nb", "1017\r\nError Description: Expected 'Then'",
              "If x Than "},
        Fault{"RunTime", false, "a\n{% x = 1 / 0 %}\nb", "11\r\nError Description: Division by zero",
              "x = 1 / 0 "},
        Fault{"ReadOnly", false, "a\n{% objAudit.Database.Name = \"x\" %}\nb",
              "451\r\nError Description: Property is Read-Only: Name", "objAudit.Database.Name = \"x\" "},
        Fault{"UnknownMember", false, "a\n{% objAudit.Remove 1 %}\nb",
              "438\r\nError Description: Object doesn't support this property or method: 'Remove'",
              "objAudit.Remove 1 "},
        Fault{"Syntax", true, "a\n{% if (x { %}\nb", "1006\r\nError Description: Expected ')'", "if (x { "},
        Fault{"RunTime", true, "a\n{% nowhere.x = 1; %}\nb",
              "5009\r\nError Description: 'nowhere' is undefined", "nowhere.x = 1; "},
        Fault{"ReadOnly", true, "a\n{% objAudit.Database.Name = \"x\"; %}\nb",
              "451\r\nError Description: Property is Read-Only: Name", "objAudit.Database.Name = \"x\"; "},
        Fault{"UnknownMember", true, "a\n{% objAudit.Remove(1); %}\nb",
              "438\r\nError Description: Object doesn't support this property or method",
              "objAudit.Remove(1); "}),
    [](const auto& row) { return (row.param.jscript ? "JScript" : "VBScript") + row.param.name; });

// --- what goes wrong elsewhere ---

TEST_F(Run, AMissingIncludeIsSaidAndTheRunGoesOn) {
    for (const bool jscript : {false, true}) {
        if (jscript)
            UseJScript();
        g_objAudit->Includes()->Clear();
        Include("first.inc",
                jscript ? "function One() { return 'one'; }" : "Function One\nOne = \"one\"\nEnd Function");
        g_objAudit->Includes()->Add("missing.inc");
        Include("third.inc", "never read");
        frontEnd.ExpectMessage("Include File: missing.inc not found", "Template Error", Icon::Warning);
        EXPECT_EQ(RunTest::Run("{% objAudit.Print One() %}"), 0);
        EXPECT_EQ(Results(), "one");
        EXPECT_TRUE(Source().starts_with(jscript ? "function One()" : "Function One")) << Source();
        EXPECT_EQ(Source().find("never read"), std::string::npos);
    }
}

// The host has nothing to say of a file that cannot be read; its report is what is shown all the same.
TEST_F(Run, AnIncludeThatCannotBeReadEndsTheRun) {
    for (const bool jscript : {false, true}) {
        if (jscript)
            UseJScript();
        g_objAudit->Includes()->Clear();
        Include("first.inc", jscript ? "// one" : "' one");
        Include("second.inc", "x");
        plan.FailAt("Files.OpenInput", 2, Failure(numbers::PathFileAccess));
        ExpectScriptError("Error Number: 0\r\nError Description: \r\nError Line: 0\r\n");
        EXPECT_EQ(RunTest::Run("a"), numbers::PathFileAccess);
        EXPECT_EQ(Source(), jscript ? "// one\r\n" : "' one\r\n");
        EXPECT_EQ(Results(), "");
    }
}

// The line of a fault inside an include counts from the include text's start, yet is looked for behind it:
// beyond the end of what is shown, nothing is marked and the tab stays.
TEST_F(Run, AFaultInsideAnIncludeIsReportedWithItsOwnLine) {
    Include("bad.inc", "x = 1\ny = 1\nx = )");
    Form().Load();
    Form().Tabstrip1.Select(frmTemplate::IncludeTab);
    ExpectScriptError("Error Number: 1023\r\nError Description: Expected expression\r\nError Line: 3\r\n"
                      "Error Text: x = )");
    EXPECT_EQ(RunTest::Run("a"), 1023);
    EXPECT_EQ(Source(), "x = 1\r\ny = 1\r\nx = )\r\n");
    EXPECT_EQ(MarkedLine(), "(none)");
    EXPECT_EQ(Form().Tabstrip1.Selected(), frmTemplate::IncludeTab);
}

TEST_F(Run, WhatIsNotTheScriptsShowsTheHostsLastState) {
    Form().Load();
    const std::pair<const char*, std::int32_t> faults[] = {{"Files.OpenOutput", numbers::DiskFull},
                                                           {"Files.ChangeFolder", numbers::PathNotFound}};
    for (const auto& [operation, number] : faults) {
        plan.FailAt(operation, 1, Failure(number));
        ExpectScriptError("Error Number: 0\r\nError Description: \r\nError Line: 0\r\n");
        EXPECT_EQ(RunTest::Run("a"), number) << operation;
        EXPECT_EQ(Results(), "");
    }
    ExpectScriptError("Error Number: 0\r\nError Description: \r\nError Line: 0\r\n");
    EXPECT_EQ(RunTest::Run("{% strVar = Null %}"), numbers::InvalidUseOfNull); // no text to show
    settings.Set("ScriptingLanguage", "7");
    ExpectScriptError("Error Number: 0\r\nError Description: \r\nError Line: 0\r\n");
    EXPECT_EQ(RunTest::Run("a"), numbers::InvalidPropertyValue);
}

// The translator reports for itself; the run goes on with the empty body that it gave.
TEST_F(Run, ATranslationThatFailsIsReportedOnceAndGivesNothing) {
    Form().Load();
    const std::pair<const char*, int> faults[] = {{"Files.ReadAll", 1}, {"FileWriter.Write", 2}};
    for (const auto& [operation, nth] : faults) {
        plan.FailAt(operation, nth, Failure(numbers::DiskFull));
        frontEnd.ExpectFailure("Disk full");
        EXPECT_EQ(RunTest::Run("a"), 0) << operation;
        EXPECT_EQ(Results(), "") << operation;
        EXPECT_EQ(frontEnd.Failures().back().Procedures,
                  (Log{"frmTemplate.ProcessTemplate", "basNewTemplate.ProcessFile"}));
    }
}

TEST_F(Run, WithoutAModelTheRunFailsAsAnyOther) {
    Form().Load();
    g_objAudit.reset();
    ExpectScriptError("Error Number: 0\r\nError Description: \r\nError Line: 0\r\n");
    EXPECT_EQ(RunTest::Run("a"), numbers::ObjectNotSet);
}

// Top-level code of an include may add to the very list that is being read.
TEST_F(Run, IncludesAddedByAnIncludeCountFromTheNextRunOn) {
    Include("first.inc", "For i = 1 To 40\nobjAudit.Include \"more.inc\" & i\nNext");
    Include("second.inc", "y = 1");
    EXPECT_EQ(RunTest::Run("a"), 0);
    EXPECT_EQ(g_objAudit->Includes()->Count(), 42);
    EXPECT_EQ(Source().find("more.inc1 "), std::string::npos);
}

// --- one table of a generation run ---

TEST_F(Batch, AppendsOneResultAfterTheOther) {
    UseProfile("{% objAudit.Print objAudit.Database.ActiveTable.Name %}");
    memory.Contents["\\app\\triggers.sql"] = "of an earlier run";
    g_objAudit->Database()->SetActiveTable(g_objAudit->Database()->Tables()->Item(1));
    EXPECT_EQ(Form().ProcessTemplateBatch(true, "dbo.Country"), 0);
    g_objAudit->Database()->SetActiveTable(g_objAudit->Database()->Tables()->Item(2));
    EXPECT_EQ(Form().ProcessTemplateBatch(false, "dbo.Order"), 0);
    EXPECT_EQ(memory.Contents["\\app\\triggers.sql"], "Country\r\nOrder\r\n");
    EXPECT_EQ(g_objTrace->Note(), "");
    EXPECT_FALSE(Form().IsVisible());
}

TEST_F(Batch, TakesTheTemplateFromTheProfileEachTime) {
    UseProfile("profile");
    Form().Load();
    Tab(frmTemplate::TemplateTab).Type("typed meanwhile");
    EXPECT_EQ(Form().ProcessTemplateBatch(true, "dbo.Country"), 0);
    EXPECT_EQ(Results(), "profile\r\n");
}

TEST_F(Batch, AnEmptyResultIsOneLineEnd) {
    UseProfile("{% x = 1 %}");
    EXPECT_EQ(Form().ProcessTemplateBatch(true, "dbo.Country"), 0);
    EXPECT_EQ(memory.Contents["\\app\\triggers.sql"], "\r\n");
}

TEST_F(Batch, ACancelledTableWritesNothing) {
    UseProfile("{% objAudit.Cancel %}text");
    memory.Contents["\\app\\triggers.sql"] = "of an earlier run";
    EXPECT_EQ(Form().ProcessTemplateBatch(true, "dbo.Country"), 0);
    EXPECT_EQ(memory.Contents["\\app\\triggers.sql"], "of an earlier run");
    EXPECT_EQ(g_objTrace->Note(), "");
}

TEST_F(Batch, AFailureShowsTheEditorAndKeepsTheOldFile) {
    UseProfile("{% x = 1 / 0 %}");
    memory.Contents["\\app\\triggers.sql"] = "of an earlier run";
    Form().Load();
    Form().grxProperties.SetItemCount(1);
    ExpectScriptError("Error Number: 11\r\nError Description: Division by zero\r\nError Line: 3\r\n"
                      "Error Text: x = 1 / 0 ");
    frontEnd.ExpectShow("frmTemplate");
    EXPECT_EQ(Form().ProcessTemplateBatch(true, "dbo.Country"), 11);
    EXPECT_EQ(memory.Contents["\\app\\triggers.sql"], "of an earlier run");
    EXPECT_TRUE(Form().IsVisible());
    EXPECT_EQ(Form().grxProperties.Row(), 1);
}

TEST_F(Batch, WithoutAProfileNothingIsRun) {
    g_strArchFile.clear();
    frontEnd.ExpectFailure("No template selected");
    EXPECT_EQ(Form().ProcessTemplateBatch(true, "dbo.Country"), 0);
    EXPECT_EQ(frontEnd.Failures().back().Number, static_cast<double>(static_cast<std::int32_t>(0x80040096)));
    EXPECT_FALSE(Exists("\\app\\template.txt"));
}

TEST_F(Batch, AProfileThatWasNeverReadHasAnEmptyTemplate) {
    EXPECT_EQ(Form().ProcessTemplateBatch(true, "dbo.Country"), 0);
    EXPECT_EQ(memory.Contents["\\app\\triggers.sql"], "\r\n");
}

// The note says what a failure before the output would come from; then what is written.
TEST_F(Batch, NotesGoWithAFailureOfTheOutput) {
    UseProfile("a");
    memory.Contents["\\app\\triggers.sql"] = "of an earlier run";
    plan.FailAt("Files.Delete", 1, Failure(numbers::PermissionDenied));
    frontEnd.ExpectFailure("Permission denied");
    EXPECT_EQ(Form().ProcessTemplateBatch(true, "dbo.Country"), 0);
    EXPECT_EQ(frontEnd.Failures().back().Note,
              "If ActiveX Error 429 occurs you need Microsoft XML Parser version 3.0 which is a required "
              "component of Quillon");
    plan.FailAt("Files.OpenAppend", 1, Failure(numbers::DiskFull));
    frontEnd.ExpectFailure("Disk full");
    EXPECT_EQ(Form().ProcessTemplateBatch(false, "dbo.Country"), 0);
    EXPECT_EQ(frontEnd.Failures().back().Note, "Opening File for output dbo.Country");
}

} // namespace
} // namespace quillon::tests
