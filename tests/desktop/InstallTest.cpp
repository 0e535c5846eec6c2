#include "desktop/DesktopFixture.h"

#include <QCheckBox>
#include <QRadioButton>
#include <QTest>

#include "desktop/bind/EditorWidget.h"

namespace quillon::tests {
namespace {

class InstallScreen : public ServedFixture {
  protected:
    void StartOnSales() {
        Start();
        PickDatabase();
    }
    // On a database that has the structures, so that nothing is told first.
    void Show(WindowScript::Visit visit) {
        windows.Expect("frmInstall", std::move(visit));
        Choose(Main(), "mnuInstallAuditing");
    }
    void ExpectLog(const QString& part) {
        windows.Expect("frmScriptResults", [part](QWidget& results) {
            const QString log = Find<desktop::EditorWidget>("cdmResults", results).text();
            EXPECT_TRUE(log.contains(part)) << log.toStdString();
            QTest::keyClick(&results, Qt::Key_Escape);
        });
    }
};

// Without structures neither removal nor analysis can be chosen; with them both can.
TEST_F(InstallScreen, TheWholeProfileIsInstalledAnalysedAndRemoved) {
    StartOnSales();
    Install();
    Show([this](QWidget& install) {
        EXPECT_TRUE(Find<QRadioButton>("optOption0", install).isChecked());
        Click("optOption2", install);
        EXPECT_FALSE(Find("chkAdd0", install).isEnabled());
        ExpectLog("Running 'Analyze' script...");
        Click("cmdRun", install);
        EXPECT_TRUE(Find<QRadioButton>("optOption0", install).isChecked()); // back to the first choice

        Click("optOption1", install);
        EXPECT_TRUE(Find("optRemoveDatabase0", install).isEnabled());
        EXPECT_TRUE(Find<QRadioButton>("optRemoveDatabase0", install).isChecked());
        windows.ExpectMessage("Are you sure that you want to drop all auditing structures from this database",
                              "Confirm Operation");
        ExpectLog("Deleting Procedure AUDIT_prc_DeleteArchitecture");
        windows.ExpectFailure("Could not find stored procedure");
        windows.ExpectAndLeave("message");
        Click("cmdRun", install);
        EXPECT_FALSE(Find("optOption1", install).isEnabled());
        Click("cmdClose", install);
    });
}

TEST_F(InstallScreen, TheScriptsTickedAreTheOnesRun) {
    StartOnSales();
    Install();
    Show([this](QWidget& install) {
        for (int box = 0; box < 9; ++box)
            if (auto& each = Find<QCheckBox>("chkAdd" + QString::number(box), install); each.isChecked())
                Click(each);
        windows.ExpectMessage("No Installation scripts were seleted to run", "Invalid Operation");
        Click("cmdRun", install);
        Click("chkAdd2", install);
        windows.ExpectMessage("Are you sure you want to run this installation script(s)",
                              "Confirm Operation");
        windows.Expect("frmScriptResults", [](QWidget& results) {
            const QString log = Find<desktop::EditorWidget>("cdmResults", results).text();
            EXPECT_TRUE(log.contains("'Views'"));
            EXPECT_FALSE(log.contains("'DDL'"));
            Press(Qt::Key_Return);
        });
        Find("chkAdd2", install).setFocus();
        Press(Qt::Key_Return); // Enter runs, wherever the focus is
        ASSERT_TRUE(install.isVisible());
        Press(Qt::Key_Escape);
    });
}

} // namespace
} // namespace quillon::tests
