#include "desktop/DesktopFixture.h"

#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QTest>

#include "desktop/bind/EditorWidget.h"
#include "shell/ScreenInstances.h"
#include "triggers/frmDDL.h"

namespace quillon::tests {
namespace {

class DdlViewer : public ServedFixture {
  protected:
    static desktop::EditorWidget& Script(QWidget& window) {
        return Find<desktop::EditorWidget>("cdmCodeMax", window);
    }
};

TEST_F(DdlViewer, ADoubleClickOrEnterShowsTheTablesScript) {
    Start();
    PickDatabase();
    const WindowScript::Visit look = [](QWidget& window) {
        EXPECT_EQ(window.windowTitle(), "Script for : dbo.Country");
        const QString text = Script(window).text();
        EXPECT_TRUE(text.contains("CREATE TABLE [dbo].[Country]", Qt::CaseInsensitive)) << text.toStdString();
        EXPECT_TRUE(Script(window).isReadOnly());
        EXPECT_EQ(Find<QLabel>("panel1", window).text(), "Lines: " + QString::number(Script(window).lines()));
        QTest::keyClick(&Script(window), Qt::Key_Escape);
    };
    windows.Expect("frmDDL", look);
    DoubleClickCell(Tables(), "Country", Name);
    windows.Expect("frmDDL", look);
    QTest::keyClick(&Tables(), Qt::Key_Return);
    EXPECT_EQ(frontEnd.CurrentPointer(), Pointer::Default);
    // A double click on a box is two ticks, not a wish for the script.
    DoubleClickCell(Tables(), "Country", Insert);
}

TEST_F(DdlViewer, TheWholeScriptGoesToTheClipboard) {
    home.folder.Write("app/sqlscript.sql", "CREATE VIEW v\r\nAS SELECT 1\r\n");
    windows.Expect("frmDDL", [](QWidget& window) {
        Choose(window, "mnuClipboard");
        EXPECT_EQ(QApplication::clipboard()->text().remove('\r'), "CREATE VIEW v\nAS SELECT 1\n");
        Choose(window, "mnuExit");
    });
    TheScreen<frmDDL>().LoadScript("dbo.v", home.folder.SystemPath("app/sqlscript.sql"));
}

TEST_F(DdlViewer, AnEmptyPathShowsAnEmptyViewer) {
    windows.Expect("frmDDL", [](QWidget& window) {
        EXPECT_EQ(Script(window).text(), "");
        EXPECT_THROW(Choose(window, "mnuClipboard"), std::runtime_error);
        window.close();
    });
    TheScreen<frmDDL>().LoadScript("dbo.nothing", "");
}

} // namespace
} // namespace quillon::tests
