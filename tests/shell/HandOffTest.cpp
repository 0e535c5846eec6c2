// What becomes of a finished script: a query program, the system's own editor, or the server.
#include "FilledSession.h"
#include "execution/frmResults.h"
#include "execution/frmScriptResults.h"
#include "platform/FailureNumbers.h"
#include "shell/CreateOutput.h"

namespace quillon::tests {
namespace {

using Lines = std::vector<std::string>;

constexpr const char* Path = "\\app\\triggers.sql";

class HandOffTest : public FilledSession {
  protected:
    HandOffTest() {
        g_strServer = "PRACTICE";
        memoryFiles.Contents[Path] = "SELECT 1\r\nGO\r\nSELECT 2";
        for (const char* name : {"sqlfull", "output"}) {
            EditorLanguage language;
            language.Name = name;
            Editor::RegisterLanguage(language);
        }
    }
    ~HandOffTest() override {
        ForgetScreen<frmResults>();
        ForgetScreen<frmScriptResults>();
    }
    void HandOff(const char* editor) {
        memorySettings.Set("Editor", editor);
        basDbaseFunctions::CreateOutput();
        EXPECT_EQ(g_strOutputFile, Path);
    }
};

TEST_F(HandOffTest, TheQueryAnalyzerGetsTheLoginOnItsCommandLine) {
    StartLog();
    frontEnd.ExpectProgram("isqlw -S PRACTICE -d Sales -E -f \"\\app\\triggers.sql\"");
    basDbaseFunctions::CreateOutput(); // nothing stored: this is the default
    EXPECT_EQ(plan.Log.back(), "FrontEnd.StartProgram minimised");
    g_strUser = "ann";
    g_strPassword = "s e";
    frontEnd.ExpectProgram("isqlw -S PRACTICE -d Sales -U ann -P s e -f \"\\app\\triggers.sql\"");
    HandOff("0");
}

TEST_F(HandOffTest, AQueryProgramOfTheUsersOwnGetsThePath) {
    memorySettings.Set("QueryProgram", "dbeaver -nosplash -f");
    frontEnd.ExpectProgram("dbeaver -nosplash -f \"/app/triggers.sql\"");
    HandOff("0");
}

TEST_F(HandOffTest, AMissingProgramIsToldWithThePlaceOfTheScript) {
    for (const char* program : {"", "nosuch"}) {
        memorySettings.Set("QueryProgram", program);
        plan.FailAt("FrontEnd.StartProgram", 1, Failure(numbers::FileNotFound));
        frontEnd.ExpectMessage(
            (*program == '\0' ? std::string("Microsoft SQL Server Query-Analyzer (isqlw)") : program) +
                " cannot be started on this machine.\r\n\r\nThe script is complete and lies here:\r\n"
                "\\app\\triggers.sql\r\n\r\nRun it there with a query program of your own, name one in the "
                "setting "
                "QueryProgram, or choose another way in Options, View Scripts with.",
            "Query Program", Icon::Warning);
        HandOff("0");
    }
}

TEST_F(HandOffTest, TheOwnEditorShowsTheFile) {
    frontEnd.ExpectModal("frmResults", [](Screen& screen) {
        EXPECT_EQ(screen.Title(), "Results: triggers.sql");
        EXPECT_EQ(static_cast<frmResults&>(screen).cdmCodeMax.Text(), "SELECT 1\r\nGO\r\nSELECT 2");
    });
    HandOff("1");
}

TEST_F(HandOffTest, AnyOtherNumberRunsTheScriptShowsTheLogAndReadsTheTriggersAnew) {
    FakeTable& customer = *sales.Tables.front();
    data.Answer("SELECT 1\r\n", {{{{}, {}}}});
    data.Answer("\r\nSELECT 2\r\n\r\n", {{{{}, {}}}});
    data.Answer("\r\nUSE [Sales]\r\n", {{{{}, {}}}});
    for (const char* editor : {"2", "7"}) {
        SCOPED_TRACE(editor);
        customer.Triggers.clear();
        Main().ProgressBar1.SetValue(2);
        std::string panel;
        frontEnd.OnDoEvents = [&] {
            if (panel.empty())
                panel = Main().stbStatus.Panel(4) + std::to_string(Main().ProgressBar1.Value());
        };
        frontEnd.ExpectModal("frmScriptResults", [&](Screen& screen) {
            EXPECT_EQ(static_cast<frmScriptResults&>(screen).cdmResults.Text(),
                      "Running 'Audit Triggers' script...\r\n\r\n");
            customer.AddTrigger("dbo", "made", catalogue::TriggerInsert,
                                "<TAG>QUILLON GENERATED - DO NOT REMOVE</TAG>");
        });
        HandOff(editor);
        EXPECT_EQ(panel, "Executing SQL ...0");
        EXPECT_EQ(Table("dbo.Customer").Triggers()->Count(), 1);
        EXPECT_EQ(Main().grxTriggers.ItemCount(), 1);
        EXPECT_EQ(Main().stbStatus.Panel(4), "");
    }
}

TEST_F(HandOffTest, AMissingScriptIsAReportOrABox) {
    memoryFiles.Contents.clear();
    frontEnd.ExpectFailure("File not found");
    HandOff("2");
    frontEnd.ExpectModal("frmResults");
    frontEnd.ExpectMessage(
        "This file:\r\n\r\n\\app\\triggers.sql\r\n\r\n cannot be accessed.  It may already be open",
        "Invalid File Location", Icon::Critical);
    HandOff("1");
    frontEnd.ExpectFailure("Type mismatch");
    HandOff("never");
}

} // namespace
} // namespace quillon::tests
