// The DDL viewer: one object's text after another, read from a file that it leaves alone.
#include <gtest/gtest.h>

#include "platform/Platform.h"
#include "shell/Trace.h"
#include "support/MemoryFiles.h"
#include "support/ScriptedFrontEnd.h"
#include "triggers/frmDDL.h"

namespace quillon::tests {
namespace {

class DdlViewerTest : public testing::Test {
  protected:
    DdlViewerTest() {
        g_objTrace = std::make_unique<Trace>();
        EditorLanguage language;
        language.Name = "sqlfull";
        Editor::RegisterLanguage(language);
        files.Contents["\\app\\sqlscript.sql"] = "CREATE TABLE t\r\n(\r\n)";
    }
    ~DdlViewerTest() override { g_objTrace.reset(); }
    void View(const std::string& path, std::function<void()> act) {
        frontEnd.ExpectModal("frmDDL", [act](Screen&) { act(); });
        screen.LoadScript("dbo.t", path);
    }

    ScriptedFrontEnd frontEnd;
    MemoryFiles files;
    Platform platform{{.frontEnd = &frontEnd, .files = &files}};
    frmDDL screen;
};

TEST_F(DdlViewerTest, ShowsTheFileColouredAndReadOnly) {
    View("\\app\\sqlscript.sql", [&] {
        EXPECT_EQ(screen.Title(), "Script for : dbo.t");
        EXPECT_EQ(screen.cdmCodeMax.Text(), "CREATE TABLE t\r\n(\r\n)");
        EXPECT_EQ(screen.cdmCodeMax.Language(), "sqlfull");
        EXPECT_TRUE(screen.cdmCodeMax.ColorSyntax() && screen.cdmCodeMax.ReadOnly());
        EXPECT_EQ(screen.stbStatus.Panel(1), "Lines: 3  ");
        screen.cdmCodeMax.Select({1, 0}, {2, 1});
        EXPECT_EQ(screen.stbStatus.Panel(2), "Line: 3 ");
        screen.mnuClipboard.Click();
        EXPECT_EQ(frontEnd.Clipboard(), screen.cdmCodeMax.Text());
        EXPECT_EQ(frontEnd.Beeps(), 1);
        screen.cdmCodeMax.OnKeyDown(Key::Escape, NoShift);
        EXPECT_FALSE(screen.IsVisible());
        EXPECT_TRUE(screen.IsLoaded()); // hidden, as long as the main screen does not close
    });
    EXPECT_TRUE(files.Contents.contains("\\app\\sqlscript.sql"));
}

TEST_F(DdlViewerTest, KeepsNothingOfTheTextBefore) {
    View("\\app\\sqlscript.sql", [&] { screen.mnuExit.Click(); });
    files.Contents["\\app\\sqlscript.sql"] = "second";
    View("\\app\\sqlscript.sql", [&] { EXPECT_EQ(screen.cdmCodeMax.Text(), "second"); });
    View("", [&] {
        EXPECT_EQ(screen.cdmCodeMax.Text(), "");
        EXPECT_FALSE(screen.mnuFind.Enabled());
    });
    frontEnd.ExpectModal("frmDDL", [&](Screen&) { EXPECT_EQ(screen.cdmCodeMax.Text(), ""); });
    frontEnd.ExpectFailure("File not found");
    screen.LoadScript("dbo.t", "\\app\\gone.sql");
}

} // namespace
} // namespace quillon::tests
