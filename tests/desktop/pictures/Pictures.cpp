// Takes pictures of every screen as a person meets them on the main job, for docs/pictures. No test: it
// stands in a program of its own, which tools/pictures runs for each palette and scale.
#include "desktop/DesktopFixture.h"

#include <QTest>
#include <QTextBrowser>

#include "desktop/Memory.h"
#include "desktop/Theme.h"
#include "shell/Settings.h"
#include "shell/basMain.h"

namespace quillon::tests {
namespace {

class Pictures : public ServedFixture {
  protected:
    Pictures() {
        const bool isDark = qgetenv("QUILLON_PALETTE") == "dark";
        desktop::Theme::Apply(*qApp, isDark ? desktop::Theme::Choice::Dark : desktop::Theme::Choice::Light);
        settings::Write("1", settings::ShowTips);
    }

    void Take(QWidget& window, const QString& name) {
        QTest::qWait(50);
        const QString file = qEnvironmentVariable("QUILLON_PICTURES") + "/" + name + "-" +
                             (desktop::Theme::Current().isDark ? "dark" : "light") + "-" +
                             QString::number(window.devicePixelRatio() * 100) + ".png";
        const QImage picture =
            window.grab().toImage().convertToFormat(QImage::Format_Indexed8, Qt::ThresholdDither);
        if (!picture.save(file, "PNG", 0))
            throw std::runtime_error("cannot write " + file.toStdString());
    }
    void TakeAndLeave(QWidget& window, const QString& name) {
        Take(window, name);
        QTest::keyClick(&window, Qt::Key_Escape);
    }
    void ExpectPicture(const QString& window, const QString& name) {
        windows.Expect(window, [this, name](QWidget& shown) { TakeAndLeave(shown, name); });
    }

    void LogIn();
    void InstallAll();
    void TickCustomer();
};

void Pictures::LogIn() {
    windows.Expect("frmODBCLogon", [this](QWidget& login) {
        FillLogin(login, Password());
        Take(login, "login");
        Click("cmdOK", login);
    });
    ExpectPicture("frmTip", "tip");
    desktop::Act([] { basMain::Main(); });
    AwaitActive(Main());
    QCoreApplication::processEvents();
    PickDatabase();
}

void Pictures::InstallAll() {
    ExpectPicture("failureReport", "failure-report");
    ExpectPicture("message", "message");
    windows.Expect("frmInstall", [this](QWidget& install) {
        Take(install, "install");
        windows.ExpectMessage("Are you sure you want to run this installation script(s)",
                              "Confirm Operation");
        ExpectPicture("frmScriptResults", "run-log");
        Click("cmdRun", install);
        Click("cmdClose", install);
    });
    Choose(Main(), "mnuInstallAuditing");
}

void Pictures::TickCustomer() {
    for (const char* table : {"Customer", "Order"}) {
        for (const int column : {Insert, Update, Delete})
            ClickCell(Tables(), table, column);
        Click("chkSelectAll", Main());
    }
}

TEST_F(Pictures, OfEveryScreen) {
    LogIn();
    InstallAll();
    TickCustomer();
    windows.ExpectAndLeave("frmScriptResults");
    PressTool("Generate Triggers", Main());
    ClickCell(Tables(), "Customer", Name);
    Take(Main(), "main");

    desktop::Memory::Instance().SetProduction(ServerName(), true);
    windows.Expect("frmODBCLogon", [this](QWidget& login) {
        FillLogin(login, Password());
        Click("cmdOK", login);
    });
    Choose(Main(), "mnuFileConnect");
    PickDatabase();
    Take(Main(), "main-production");

    ExpectPicture("frmDDL", "table-script");
    DoubleClickCell(Tables(), "Customer", Name);
    settings::Write("1", settings::Editor);
    ExpectPicture("frmResults", "script-editor");
    PressTool("Generate Triggers", Main());
    windows.Expect("frmOptions", [this](QWidget& options) {
        Take(options, "options");
        TakeAndLeave(options, "options");
    });
    Choose(Main(), "mnuOptions");
    ExpectPicture("frmAbout", "about");
    Choose(Main(), "mnuaboutStonemere");
}

} // namespace
} // namespace quillon::tests
