// The script editor: a viewer of files that can be saved elsewhere, an editor of a profile's scripts.
#include "ExecutionTest.h"
#include "execution/frmResults.h"
#include "shell/Settings.h"
#include "support/MemoryFiles.h"
#include "support/MemorySettings.h"

namespace quillon::tests {
namespace {

class ScriptEditorTest : public testing::Test {
  protected:
    ScriptEditorTest() {
        g_objTrace = std::make_unique<Trace>();
        EditorLanguage language;
        language.Name = "sqlfull";
        Editor::RegisterLanguage(language);
        files.Contents["\\app\\triggers.sql"] = "one\r\ntwo";
        g_strOutputFile = "\\app\\triggers.sql";
    }
    ~ScriptEditorTest() override {
        g_objTrace.reset();
        g_strOutputFile.clear();
    }
    // Shows the file; the act is the person's.
    void View(std::function<void()> act) {
        frontEnd.ExpectModal("frmResults", [act](Screen&) { act(); });
        screen.ShowModal();
    }
    void ExpectSaveAs(std::optional<std::string> path) {
        frontEnd.ExpectFile("Save File As", std::move(path));
    }

    ScriptedFrontEnd frontEnd;
    MemoryFiles files;
    MemorySettings settings;
    Platform platform{{.frontEnd = &frontEnd, .files = &files, .settings = &settings}};
    frmResults screen;
};

TEST_F(ScriptEditorTest, AFileIsShownReadOnlyAndNothingIsAskedAtItsClose) {
    View([&] {
        EXPECT_EQ(screen.Title(), "Results: triggers.sql");
        EXPECT_EQ(screen.cdmCodeMax.Text(), "one\r\ntwo");
        EXPECT_EQ(screen.cdmCodeMax.Language(), "sqlfull");
        EXPECT_TRUE(screen.cdmCodeMax.ColorSyntax());
        EXPECT_TRUE(screen.cdmCodeMax.ReadOnly());
        EXPECT_TRUE(screen.cdmCodeMax.LineNumbers());
        EXPECT_FALSE(screen.cdmCodeMax.LeftMargin());
        EXPECT_FALSE(screen.cmdOK.Visible() || screen.cmdCancel.Visible());
        EXPECT_EQ(screen.stbStatus.Panel(1), "Total Lines: 2  ");
        EXPECT_EQ(screen.stbStatus.Panel(3), "Path: \\app\\triggers.sql ");
        screen.cdmCodeMax.Select({1, 0}, {1, 2});
        EXPECT_EQ(screen.stbStatus.Panel(1), "Lines: 2  ");
        EXPECT_EQ(screen.stbStatus.Panel(2), "Line: 2 ");
        screen.mnuOpen.Click();
        screen.asxToolbar1.Press(1);
        screen.cdmCodeMax.OnKeyDown(Key::Escape, NoShift);
        EXPECT_FALSE(screen.IsLoaded());
    });
}

TEST_F(ScriptEditorTest, TheBoxesSwitchTheEditorAndAreKept) {
    settings.Set("linenumbers", "0");
    settings.Set("leftmargin", "1");
    View([&] {
        EXPECT_FALSE(screen.cdmCodeMax.LineNumbers());
        EXPECT_TRUE(screen.cdmCodeMax.LeftMargin());
        screen.chkShowLineNumbers.Click();
        screen.chkLeftMargin.Click();
        EXPECT_TRUE(screen.cdmCodeMax.LineNumbers());
        EXPECT_FALSE(screen.cdmCodeMax.LeftMargin());
    });
    EXPECT_EQ(settings.Get("linenumbers"), "1");
    EXPECT_EQ(settings.Get("leftmargin"), "0");
}

TEST_F(ScriptEditorTest, SavingGoesToThePathOrAsksForOne) {
    View([&] {
        files.Contents["\\app\\triggers.sql"] = "lost meanwhile";
        screen.asxToolbar1.Press(2);
        EXPECT_EQ(files.Contents["\\app\\triggers.sql"], "one\r\ntwo");
        ExpectSaveAs(std::nullopt);
        screen.mnuSaveAs.Click();
        ExpectSaveAs("\\home\\mine.sql");
        screen.mnuSaveAs.Click();
        EXPECT_EQ(files.Contents["\\home\\mine.sql"], "one\r\ntwo");
        EXPECT_EQ(screen.Title(), "Results: mine.sql");
        files.Contents["\\home\\mine.sql"].clear();
        screen.mnuSave.Click();
        EXPECT_EQ(files.Contents["\\home\\mine.sql"], "one\r\ntwo");
    });
    EXPECT_EQ(frontEnd.LastFileDialog().Filter, "All Files (*.*)|*.*|sql Files(*.sql)|*.sql|");
}

TEST_F(ScriptEditorTest, TheSystemsScratchFileIsNeverSavedOver) {
    g_strOutputFile = "\\app\\sqlscript.sql";
    files.Contents[g_strOutputFile] = "CREATE TRIGGER";
    View([&] {
        ExpectSaveAs("\\home\\kept.sql");
        screen.mnuSave.Click();
    });
    EXPECT_EQ(files.Contents["\\home\\kept.sql"], "CREATE TRIGGER");
}

TEST_F(ScriptEditorTest, AReadOnlyFileIsShownAndItsSavingRefused) {
    files.ReadOnly.insert("\\app\\triggers.sql");
    View([&] {
        EXPECT_EQ(screen.Title(), "Results: triggers.sql (Read Only)");
        EXPECT_FALSE(screen.mnuSave.Enabled());
        frontEnd.ExpectMessage("File is Read Only", "Read Only", Icon::Critical);
        screen.asxToolbar1.Press(2);
    });
}

TEST_F(ScriptEditorTest, AFileThatCannotBeReadShowsNothingOfTheOneBefore) {
    View([] {});
    g_strOutputFile = "\\app\\gone.sql";
    frontEnd.ExpectModal("frmResults", [&](Screen&) { EXPECT_EQ(screen.cdmCodeMax.Text(), ""); });
    frontEnd.ExpectMessage(
        "This file:\r\n\r\n\\app\\gone.sql\r\n\r\n cannot be accessed.  It may already be open",
        "Invalid File Location", Icon::Critical);
    screen.ShowModal();
}

// A modified file is only possible where something else than a person changed it; the question is there all
// the same.
TEST_F(ScriptEditorTest, AModifiedFileAsksBeforeItCloses) {
    const std::string question = "File has changed - do you want to save before closing?";
    for (const Answer answer : {Answer::Yes, Answer::No}) {
        files.Contents["\\app\\triggers.sql"] = "old";
        View([&] {
            screen.cdmCodeMax.SetReadOnly(false);
            screen.cdmCodeMax.Type("new");
            frontEnd.ExpectMessage(question, "Save confirmation", Icon::Question, Buttons::YesNo, answer);
        });
        EXPECT_EQ(files.Contents["\\app\\triggers.sql"], answer == Answer::Yes ? "new" : "old");
        EXPECT_FALSE(screen.cdmCodeMax.Modified());
    }
}

TEST_F(ScriptEditorTest, AnElementComesBackOnOkAlone) {
    const struct {
        const char* way;
        std::function<void()> close;
        const char* result;
    } ways[] = {
        {"OK", [&] { screen.cmdOK.Click(); }, "typed"},
        {"Cancel", [&] { screen.cmdCancel.Click(); }, "given"},
        {"Escape", [&] { screen.cdmCodeMax.OnKeyDown(Key::Escape, NoShift); }, "given"},
        {"close box", [] {}, "given"},
    };
    for (const auto& [way, close, result] : ways) {
        SCOPED_TRACE(way);
        frontEnd.ExpectModal("frmResults", [&](Screen&) {
            EXPECT_EQ(screen.Title(), "Edit SQL Script");
            EXPECT_FALSE(screen.cdmCodeMax.ReadOnly());
            EXPECT_TRUE(screen.cmdOK.Visible() && screen.cmdCancel.Visible());
            screen.cdmCodeMax.Type("typed");
            close();
        });
        EXPECT_EQ(screen.EditElement("given"), result);
    }
    View([&] { EXPECT_TRUE(screen.cdmCodeMax.ReadOnly()); }); // the mode is over
}

TEST_F(ScriptEditorTest, AnElementCanBeTakenFromAFile) {
    files.Contents["\\home\\part.sql"] = "from the file";
    frontEnd.ExpectModal("frmResults", [&](Screen&) {
        frontEnd.ExpectFile("Open File", std::nullopt);
        screen.asxToolbar1.Press(1);
        EXPECT_EQ(screen.cdmCodeMax.Text(), "given");
        frontEnd.ExpectFile("Open File", "\\home\\part.sql");
        screen.mnuOpen.Click();
        screen.cmdOK.Click();
    });
    EXPECT_EQ(screen.EditElement("given"), "from the file");
}

} // namespace
} // namespace quillon::tests
