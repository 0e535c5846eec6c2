// The script editor.
#include "desktop/DesktopFixture.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <QToolButton>

#include "desktop/bind/EditorWidget.h"
#include "execution/frmResults.h"
#include "shell/ScreenInstances.h"
#include "shell/Session.h"
#include "shell/Settings.h"

namespace quillon::tests {
namespace {

class ScriptEditor : public DesktopFixture {
  protected:
    std::string Edit(const std::string& text, WindowScript::Visit visit) {
        windows.Expect("frmResults", std::move(visit));
        return TheScreen<frmResults>().EditElement(text);
    }
    void View(const std::string& name, WindowScript::Visit visit) {
        g_strOutputFile = home.folder.SystemPath("app/" + name);
        windows.Expect("frmResults", std::move(visit));
        TheScreen<frmResults>().ShowModal();
    }
    static desktop::EditorWidget& Text(QWidget& window) {
        return Find<desktop::EditorWidget>("cdmCodeMax", window);
    }
    static bool IsEnabled(QWidget& window, const char* entry) {
        return window.findChild<QAction*>(entry)->isEnabled();
    }
    QString Path(const char* name) const {
        return QString::fromStdString((home.folder.path() / "app" / name).string());
    }
};

TEST_F(ScriptEditor, OkHandsTheTextBackAndCancelTheOldOne) {
    EXPECT_EQ(Edit("SELECT 1",
                   [](QWidget& window) {
                       EXPECT_EQ(window.windowTitle(), "Edit SQL Script");
                       EXPECT_EQ(Text(window).text(), "SELECT 1");
                       Text(window).setCursorPosition(0, 8);
                       QTest::keyClicks(&Text(window), "2");
                       Click("cmdOK", window);
                   }),
              "SELECT 12");
    EXPECT_EQ(Edit("SELECT 1",
                   [](QWidget& window) {
                       QTest::keyClicks(&Text(window), "-- ");
                       EXPECT_EQ(Text(window).text(), "-- SELECT 1");
                       Click("cmdCancel", window);
                   }),
              "SELECT 1");
    EXPECT_EQ(Edit("SELECT 1",
                   [](QWidget& window) {
                       QTest::keyClicks(&Text(window), "-- ");
                       QTest::keyClick(&Text(window), Qt::Key_Escape);
                   }),
              "SELECT 1");
}

TEST_F(ScriptEditor, LettersOfAllAlphabetsAndLineEndsComeThrough) {
    const std::string text = "-- \xC3\x84\xE2\x82\xAC \xF0\x9F\x98\x80\r\nSELECT N'\xC3\xA9'\r\n";
    EXPECT_EQ(Edit(text,
                   [](QWidget& window) {
                       Text(window).setCursorPosition(1, 10);
                       QTest::keyClick(&Text(window), Qt::Key_Return);
                       QTest::keyClick(&Text(window), Qt::Key_Backspace);
                       QTest::keyClicks(&Text(window), "x");
                       Click("cmdOK", window);
                   }),
              "-- \xC3\x84\xE2\x82\xAC \xF0\x9F\x98\x80\r\nSELECT N'\xC3\xA9x'\r\n");
}

TEST_F(ScriptEditor, EditingCommandsWorkAndAreOfferedWhenTheyCan) {
    EXPECT_EQ(Edit("select name from t",
                   [](QWidget& window) {
                       auto& text = Text(window);
                       EXPECT_FALSE(IsEnabled(window, "mnuUndo"));
                       QTest::keyClicks(&text, "x");
                       EXPECT_TRUE(IsEnabled(window, "mnuUndo"));
                       Choose(window, "mnuUndo");
                       EXPECT_EQ(text.text(), "select name from t");
                       Choose(window, "mnuRedo");
                       EXPECT_EQ(text.text(), "xselect name from t");
                       Choose(window, "mnuUndo");
                       text.setSelection(0, 7, 0, 11);
                       Choose(window, "mnuCopy");
                       EXPECT_EQ(QApplication::clipboard()->text(), "name");
                       text.setCursorPosition(0, 18);
                       Choose(window, "mnuPaste");
                       EXPECT_EQ(text.text(), "select name from tname");
                       text.setSelection(0, 0, 0, 7);
                       PressTool("Cut", window);
                       EXPECT_EQ(text.text(), "name from tname");
                       Click("cmdOK", window);
                   }),
              "name from tname");
}

TEST_F(ScriptEditor, FindGoesForwardBackwardAndRound) {
    Edit("one two one two", [this](QWidget& window) {
        auto& text = Text(window);
        const auto column = [&] {
            int line = 0, at = -1, endLine = 0, end = 0;
            text.getSelection(&line, &at, &endLine, &end);
            return at;
        };
        windows.Expect("question", [](QWidget& box) {
            QTest::keyClicks(box.findChild<QLineEdit*>(), "two");
            QTest::keyClick(&box, Qt::Key_Return);
        });
        Choose(window, "mnuFind");
        EXPECT_EQ(column(), 4);
        Choose(window, "mnuFindNext");
        EXPECT_EQ(column(), 12);
        Choose(window, "mnuFindNext");
        EXPECT_EQ(column(), 4);
        Choose(window, "mnuFindPrev");
        EXPECT_EQ(column(), 12);
        Click("cmdCancel", window);
    });
}

TEST_F(ScriptEditor, ReplaceChangesEveryPlace) {
    EXPECT_EQ(Edit("one two one two",
                   [this](QWidget& window) {
                       for (const char* answer : {"one", "three"})
                           windows.Expect("question", [answer](QWidget& box) {
                               Type(*box.findChild<QLineEdit*>(), answer);
                               QTest::keyClick(&box, Qt::Key_Return);
                           });
                       Choose(window, "mnuReplace");
                       Click("cmdOK", window);
                   }),
              "three two three two");
}

TEST_F(ScriptEditor, MarginAndNumbersAreRemembered) {
    constexpr int firstMargin = 0; // where the numbers stand
    Edit("x", [](QWidget& window) {
        EXPECT_GT(Text(window).marginWidth(firstMargin), 0);
        Click("chkShowLineNumbers", window);
        EXPECT_EQ(Text(window).marginWidth(firstMargin), 0);
        Click("chkLeftMargin", window);
        Click("cmdCancel", window);
    });
    EXPECT_EQ(settings::Read(settings::LineNumbers), "0");
    EXPECT_EQ(settings::Read(settings::LeftMargin), "1");
    Edit("x", [](QWidget& window) {
        EXPECT_FALSE(Find<QCheckBox>("chkShowLineNumbers", window).isChecked());
        EXPECT_EQ(Text(window).marginWidth(firstMargin), 0);
        Click("cmdCancel", window);
    });
}

TEST_F(ScriptEditor, AFileIsViewedAndSavedElsewhere) {
    home.folder.Write("app/triggers.sql", "CREATE TRIGGER t\r\n");
    View("triggers.sql", [this](QWidget& window) {
        EXPECT_EQ(window.windowTitle(), "Results: triggers.sql");
        EXPECT_EQ(Text(window).text(), "CREATE TRIGGER t\r\n");
        QTest::keyClicks(&Text(window), "x");
        EXPECT_EQ(Text(window).text(), "CREATE TRIGGER t\r\n");
        EXPECT_FALSE(Find("cmdOK", window).isVisible());
        for (auto* button : window.findChildren<QToolButton*>("asxToolbar1.open"))
            EXPECT_FALSE(button->isEnabled());
        windows.ExpectFile("Save File As", Path("copy.sql"));
        Choose(window, "mnuSaveAs");
        EXPECT_EQ(window.windowTitle(), "Results: copy.sql");
        QTest::keyClick(&Text(window), Qt::Key_Escape);
    });
    EXPECT_EQ(home.folder.Read("app/copy.sql"), "CREATE TRIGGER t\r\n");
}

TEST_F(ScriptEditor, AFileThatIsNotThereIsTold) {
    windows.Expect("frmResults", [](QWidget& window) {
        if (window.isVisible())
            QTest::keyClick(&Text(window), Qt::Key_Escape);
    });
    g_strOutputFile = home.folder.SystemPath("app/gone.sql");
    windows.Expect("message", [](QWidget& box) {
        EXPECT_EQ(box.windowTitle(), "Invalid File Location");
        QTest::keyClick(&box, Qt::Key_Return);
    });
    TheScreen<frmResults>().ShowModal();
}

} // namespace
} // namespace quillon::tests
