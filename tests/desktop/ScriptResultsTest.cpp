#include "desktop/DesktopFixture.h"

#include <QLabel>
#include <QTest>

#include "desktop/bind/EditorWidget.h"
#include "execution/frmScriptResults.h"
#include "shell/ScreenInstances.h"

namespace quillon::tests {
namespace {

class ScriptResults : public DesktopFixture {
  protected:
    void Show(const RunLog& log, WindowScript::Visit visit) {
        windows.Expect("frmScriptResults", std::move(visit));
        TheScreen<frmScriptResults>().ShowScriptResults(log);
    }
    static desktop::EditorWidget& Log(QWidget& window) {
        return Find<desktop::EditorWidget>("cdmResults", window);
    }
    static int StyleAt(desktop::EditorWidget& editor, int position) {
        return static_cast<int>(
            editor.SendScintilla(QsciScintilla::SCI_GETSTYLEAT, static_cast<unsigned long>(position)));
    }
};

TEST_F(ScriptResults, TheLogIsReadNotWritten) {
    Show({"Running 'DDL' script...", "", "(3 row(s) affected)"}, [](QWidget& window) {
        EXPECT_EQ(window.windowTitle(), "Script Execution Results");
        const QString shown = Log(window).text();
        EXPECT_EQ(shown, "Running 'DDL' script...\r\n\r\n(3 row(s) affected)\r\n");
        QTest::keyClicks(&Log(window), "x");
        EXPECT_EQ(Log(window).text(), shown);
        EXPECT_EQ(Find<QLabel>("panel1", window).text(), "Lines: 4");
        Log(window).setCursorPosition(2, 0);
        EXPECT_EQ(Find<QLabel>("panel2", window).text(), "Line: 3");
        Press(Qt::Key_Return);
    });
}

TEST_F(ScriptResults, WhatTheServerComplainsOfStandsOut) {
    Show({"plain", "Server: Msg 208"}, [](QWidget& window) {
        Log(window).recolor();
        EXPECT_NE(StyleAt(Log(window), 0), StyleAt(Log(window), 8));
        Press(Qt::Key_Escape);
    });
}

TEST_F(ScriptResults, EveryWayOutEndsTheCallAndTheNextLogIsANewOne) {
    const WindowScript::Visit waysOut[] = {
        [](QWidget&) { Press(Qt::Key_Return); },
        [](QWidget&) { Press(Qt::Key_Escape); },
        [](QWidget& window) { window.close(); },
    };
    for (const auto& leave : waysOut)
        Show({"one"}, [&](QWidget& window) {
            EXPECT_EQ(Log(window).text(), "one\r\n");
            leave(window);
        });
    Show({}, [](QWidget& window) {
        EXPECT_EQ(Log(window).text(), "");
        window.close();
    });
}

} // namespace
} // namespace quillon::tests
