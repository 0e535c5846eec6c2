// A person without a mouse: keys go to whatever has the focus, and the focus goes where keys bring it.
#include "desktop/DesktopFixture.h"

#include <QApplication>
#include <QComboBox>
#include <QTest>

#include "shell/basMain.h"

namespace quillon::tests {
namespace {

class Keyboard : public ServedFixture {
  protected:
    void LogIn() {
        windows.Expect("frmODBCLogon", [this](QWidget&) {
            TabTo("cboServer");
            TypeHere(ServerName());
            TabTo("optType1");
            Press(Qt::Key_Space);
            TabTo("txtUID");
            TypeHere("sa");
            TabTo("txtPWD");
            TypeHere(Password());
            Press(Qt::Key_Return);
        });
        desktop::Act([] { basMain::Main(); });
        AwaitActive(Main());
        QCoreApplication::processEvents(); // the list of databases opens
    }
    // Through the menu bar, by mnemonics.
    void ChooseByKeys(Qt::Key menu, Qt::Key entry) {
        Press(menu, Qt::AltModifier);
        if (QApplication::activePopupWidget() == nullptr)
            throw std::runtime_error("no menu opened");
        Press(entry);
    }
};

TEST_F(Keyboard, TheWholeMainJob) {
    LogIn();
    TypeHere("Sales");
    Press(Qt::Key_Return);
    EXPECT_EQ(Main().windowTitle(), "Quillon 0.1 [Sales]");
    EXPECT_TRUE(Tables().hasFocus());

    windows.ExpectAndLeave("failureReport");
    windows.ExpectAndLeave("message");
    windows.Expect("frmInstall", [this](QWidget& install) {
        windows.Expect("message", [](QWidget&) { Press(Qt::Key_Return); });
        windows.Expect("frmScriptResults", [](QWidget&) { Press(Qt::Key_Return); });
        Press(Qt::Key_Return);
        EXPECT_TRUE(install.isVisible());
        Press(Qt::Key_Escape);
    });
    Press(Qt::Key_R, Qt::AltModifier);
    Press(Qt::Key_Right); // from Run to Architecture, whose letter a check box has too
    Press(Qt::Key_I);

    TabTo("grxTables");
    TypeHere("Country");
    EXPECT_EQ(Tables().currentIndex().siblingAtColumn(Name).data(), "Country");
    Press(Qt::Key_Right);
    for (int operation = 0; operation < 3; ++operation) {
        Press(Qt::Key_Right);
        Press(Qt::Key_Space);
    }
    for (const int column : {Insert, Update, Delete})
        EXPECT_TRUE(IsTicked(Tables(), "Country", column));
    TabTo("grxFields");
    Press(Qt::Key_A, Qt::ControlModifier);
    Press(Qt::Key_Space);
    for (const QString& field : Names(Fields()))
        EXPECT_TRUE(IsTicked(Fields(), field, 0)) << field.toStdString();

    windows.Expect("frmScriptResults", [](QWidget&) { Press(Qt::Key_Return); });
    ChooseByKeys(Qt::Key_R, Qt::Key_G);
    EXPECT_EQ(Names(Triggers()).size(), 3);
    TabTo("grxTriggers");
    windows.Expect("frmDDL", [](QWidget& window) {
        EXPECT_TRUE(window.windowTitle().startsWith("Script for : dbo.AUDIT_"));
        Press(Qt::Key_Escape);
    });
    Press(Qt::Key_Return);

    ChooseByKeys(Qt::Key_F, Qt::Key_E);
    EXPECT_TRUE(desktop::IsEnded());
}

// Every control that can be used is on the way of the Tab key, also in a screen with tabs.
TEST_F(Keyboard, TabReachesEverything) {
    LogIn();
    Press(Qt::Key_Escape);
    for (const char* name : {"cboDatabase", "cmdFindTemplate", "chkInsert", "chkAll", "tableFilter",
                             "grxTables", "chkSelectAll", "chkAllTables", "grxFields", "grxTriggers"})
        EXPECT_NO_THROW(TabTo(name)) << name;
    windows.Expect("frmOptions", [](QWidget&) {
        EXPECT_NO_THROW(TabTo("optEditor1"));
        Press(Qt::Key_Down);
        EXPECT_EQ(QApplication::focusWidget()->objectName(), "optEditor2");
        EXPECT_NO_THROW(TabTo("tbsOptions"));
        Press(Qt::Key_Right);
        EXPECT_NO_THROW(TabTo("txtPrefix"));
        EXPECT_NO_THROW(TabTo("cmdCancel"));
        Press(Qt::Key_Return); // a button is pressed by Enter, whatever Enter does elsewhere
    });
    TabTo("asxToolbar1.options");
    Press(Qt::Key_Return);
}

// Up and down look through the databases; only Enter picks one.
TEST_F(Keyboard, TheListOfDatabasesIsPickedByEnter) {
    LogIn();
    auto& databases = Find<QComboBox>("cboDatabase", Main());
    ASSERT_TRUE(databases.view()->isVisible());
    Press(Qt::Key_Escape);
    Press(Qt::Key_Down);
    EXPECT_TRUE(databases.view()->isVisible());
    EXPECT_TRUE(Names(Tables()).isEmpty());
    Press(Qt::Key_Escape);
    EXPECT_TRUE(Names(Tables()).isEmpty());
    Press(Qt::Key_F4);
    TypeHere("Sales");
    Press(Qt::Key_Return);
    EXPECT_FALSE(Names(Tables()).isEmpty());
}

} // namespace
} // namespace quillon::tests
