// The main job, end to end, with the mouse.
#include "desktop/DesktopFixture.h"

#include <QLabel>
#include <QProgressBar>
#include <QTest>
#include <QTimer>

#include "architecture/clsQlnTemplate.h"
#include "desktop/bind/EditorWidget.h"
#include "model/AuditObj.h"
#include "shell/Session.h"
#include "shell/Settings.h"

namespace quillon::tests {
namespace {

class Job : public ServedFixture {
  protected:
    void StartOnSales() {
        Start();
        PickDatabase();
    }
    void TickCountry() {
        for (const int column : {Insert, Update, Delete})
            ClickCell(Tables(), "Country", column);
        Click("chkSelectAll", Main());
    }
    // Every column and operation of every table.
    void ClickAll() {
        for (const char* box : {"chkAll", "chkAllTables", "chkSelectAll"})
            Click(box, Main());
    }
    // Generates; the person reads the run log and closes it.
    QString Execute() {
        QString log;
        windows.Expect("frmScriptResults", [&log](QWidget& results) {
            log = Find<desktop::EditorWidget>("cdmResults", results).text();
            QTest::keyClick(&Find("cdmResults", results), Qt::Key_Return);
        });
        PressTool("Generate Triggers", Main());
        return log;
    }
    std::string Script() const { return home.folder.Read("app/triggers.sql"); }
};

TEST_F(Job, FromTheLoginToTheTriggersInTheGrid) {
    StartOnSales();
    Install();
    TickCountry();
    const QString log = Execute();
    EXPECT_TRUE(log.contains("Running 'Audit Triggers' script...")) << log.toStdString();
    EXPECT_FALSE(log.contains("Server: Msg 1")) << log.toStdString();
    ClickCell(Tables(), "Country", Name);
    EXPECT_EQ(Names(Triggers()).size(), 3);
    EXPECT_TRUE(Names(Triggers()).contains("AUDIT_Insert_Country"));
    const QModelIndex audited = Tables().currentIndex().siblingAtColumn(Audited);
    EXPECT_FALSE(audited.data(Qt::DecorationRole).value<QIcon>().isNull());

    // A trigger's box switches it on the server, at once.
    ClickCell(Triggers(), "AUDIT_Insert_Country", 0);
    EXPECT_FALSE(IsTicked(Triggers(), "AUDIT_Insert_Country", 0));
    PickDatabase(); // reads everything anew
    ClickCell(Tables(), "Country", Name);
    EXPECT_FALSE(IsTicked(Triggers(), "AUDIT_Insert_Country", 0));
    EXPECT_TRUE(IsTicked(Triggers(), "AUDIT_Update_Country", 0));
    EXPECT_TRUE(IsTicked(Tables(), "Country", Insert)); // the selection was kept
}

TEST_F(Job, ARunWithoutTheStructuresSaysSoInItsLog) {
    StartOnSales();
    TickCountry();
    EXPECT_TRUE(Execute().contains("The audit structures are not installed"));
    EXPECT_TRUE(Names(Triggers()).isEmpty());
}

TEST_F(Job, NothingTickedIsRefused) {
    StartOnSales();
    windows.ExpectMessage("At least one field must be selected for Auditing", "No Fields Selected for Audit");
    PressTool("Generate Triggers", Main());
    Click("chkSelectAll", Main());
    windows.ExpectMessage("At least one table must be selected for Auditing", "No Fields Selected for Audit");
    PressTool("Generate Triggers", Main());
    EXPECT_EQ(frontEnd.CurrentPointer(), Pointer::Default);
}

// The button is there only while a run is at work; the run ends between two tables and hands nothing on.
TEST_F(Job, TheStopButtonEndsTheRun) {
    StartOnSales();
    g_objArch->SetTemplateText("-- {% objAudit.Print objAudit.Database.ActiveTable.Name %}\r\n");
    ClickAll();
    EXPECT_FALSE(Find("cmdBreak", Main()).isVisible());
    bool isPressed = false;
    QTimer watch;
    QObject::connect(&watch, &QTimer::timeout, [&] {
        if (isPressed || Find<QProgressBar>("ProgressBar1", Main()).value() < 1)
            return;
        isPressed = true;
        EXPECT_TRUE(Find("ProgressBar1", Main()).isVisible());
        EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::BusyCursor);
        Click("cmdBreak", Main());
    });
    watch.start(0);
    PressTool("Generate Triggers", Main());
    EXPECT_TRUE(isPressed);
    const auto made = Script().find("-- ");
    EXPECT_NE(made, std::string::npos);
    EXPECT_LT(std::ranges::count(Script(), '-') / 2, Names(Tables()).size());
    EXPECT_FALSE(Find("cmdBreak", Main()).isVisible());
    EXPECT_FALSE(Find("ProgressBar1", Main()).isVisible());
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_F(Job, AnInstallationThatIsNotConfirmedChangesNothing) {
    StartOnSales();
    windows.ExpectFailure("Could not find stored procedure");
    windows.ExpectAndLeave("message");
    windows.Expect("frmInstall", [this](QWidget& install) {
        windows.ExpectAndLeave("message"); // "Are you sure ...": Escape is its Cancel, not the screen's
        windows.ExpectFailure("Could not find stored procedure");
        windows.ExpectAndLeave("message");
        Click("cmdRun", install);
        ASSERT_TRUE(install.isVisible());
        install.close();
    });
    Choose(Main(), "mnuInstallAuditing");
}

} // namespace
} // namespace quillon::tests
