// Named script runs into one log, and the screen that shows it.
#include "ExecutionTest.h"
#include "execution/basExecScript.h"
#include "execution/frmScriptResults.h"
#include "platform/Editor.h"

namespace quillon::tests {
namespace {

class RunLogTest : public ExecutionTest {
  protected:
    RunLogTest() {
        g_strServer = "PRACTICE";
        g_strDatabase = "pubs";
        g_strUser = "ann";
        g_strPassword = "p;w";
        data.Answer("\r\nUSE [pubs]\r\n", {});
    }

    RunLog Run(std::string script, const char* name = "First") {
        RunLog log;
        basExecScript::ProcScript(script, name, log);
        wrapped = script;
        return log;
    }

    std::string wrapped;
};

TEST_F(RunLogTest, ARunIsHeaderResultsAndAnEmptyLine) {
    data.Answer("SELECT 1 n\r\n", {{One("n", "1")}});
    EXPECT_EQ(Run("SELECT 1 n"), (Lines{"Running 'First' script...", Padded("n"), std::string(30, '-'),
                                        Padded("1") + " ", "(1 row(s) affected)", ""}));
    EXPECT_EQ(wrapped, "SELECT 1 n\r\nGO\r\nUSE [pubs]\r\nGO");
    EXPECT_EQ(data.Data().Opened,
              Lines{"Driver={SQL Server};Server=PRACTICE;Database=pubs;Uid=ann;Pwd=p;w;"});
}

TEST_F(RunLogTest, AMissingScriptConnectsAndSaysSo) {
    EXPECT_EQ(Run(""), (Lines{"Running 'First' script...", "'First' script is missing", ""}));
    EXPECT_EQ(data.Data().Opened.size(), 1u);
    EXPECT_TRUE(data.Data().Statements.empty());
}

TEST_F(RunLogTest, ALoginThatFailsLeavesTheHeaderAloneAndTheNextRunGoesAhead) {
    plan.FailAt("Connection.Open", 1, Failure(numbers::LoginFailed, "Login failed"));
    frontEnd.ExpectFailure("Login failed");
    EXPECT_EQ(Run("x"), Lines{"Running 'First' script..."});
    data.Answer("x\r\n", {});
    EXPECT_EQ(Run("x"), (Lines{"Running 'First' script...", ""}));
}

TEST_F(RunLogTest, EveryNamedRunHasAConnectionOfItsOwn) {
    data.Answer("x\r\n", {});
    Run("x", "First");
    Run("x", "Second");
    EXPECT_EQ(plan.Calls("DataAccess.NewConnection"), 2);
}

class ResultsScreenTest : public ExecutionTest {
  protected:
    frmScriptResults screen;
};

void RegisterOutput() {
    EditorLanguage output;
    output.Name = "output";
    Editor::RegisterLanguage(output);
}

TEST_F(ResultsScreenTest, ShowsTheLinesAndRegistersTheLanguageWhenItIsMissing) {
    int registrations = 0;
    TheRoads().RegisterLanguages = [&](bool force) {
        EXPECT_TRUE(force);
        ++registrations;
        RegisterOutput();
    };
    frontEnd.SetPointer(Pointer::Hourglass);
    frontEnd.ExpectModal("frmScriptResults", [&](Screen&) {
        EXPECT_EQ(screen.cdmResults.Text(), "one\r\ntwo\r\n");
        EXPECT_EQ(screen.cdmResults.Language(), "output");
        EXPECT_TRUE(screen.cdmResults.ColorSyntax());
        EXPECT_TRUE(screen.cdmResults.ReadOnly());
        EXPECT_EQ(screen.stbStatus.Panel(1), "Lines: 3  ");
        EXPECT_EQ(screen.stbStatus.Panel(2), "Line: 1 ");
        screen.cdmResults.Select({1, 0}, {1, 2});
        EXPECT_EQ(screen.stbStatus.Panel(2), "Line: 2 ");
        screen.KeyDown(Key::Enter);
        EXPECT_FALSE(screen.IsVisible());
    });
    screen.ShowScriptResults({"one", "two"});
    EXPECT_EQ(frontEnd.CurrentPointer(), Pointer::Default);
    frontEnd.ExpectModal("frmScriptResults", [](Screen& shown) { shown.KeyDown(Key::Escape); });
    screen.ShowScriptResults({});
    EXPECT_EQ(screen.cdmResults.Text(), "");
    EXPECT_EQ(registrations, 1);
    const std::vector<std::pair<int, std::uint32_t>> colours{
        {6, 0x800080}, {16, 0x400000}, {20, 255}, {24, 16384}, {22, 0x400000}, {15, 128}, {14, 0xFFFFFF}};
    EXPECT_EQ(screen.cdmResults.Colors(), colours); // not twice, after two showings
}

TEST_F(ResultsScreenTest, ClosingHidesSoThatTheScreenStays) {
    RegisterOutput();
    frontEnd.ExpectModal("frmScriptResults", [](Screen& shown) {
        EXPECT_FALSE(shown.Unload());
        EXPECT_FALSE(shown.IsVisible());
    });
    screen.ShowScriptResults({"x"});
    EXPECT_TRUE(screen.IsLoaded());
}

} // namespace
} // namespace quillon::tests
