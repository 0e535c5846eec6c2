#include "desktop/DesktopFixture.h"

#include <QComboBox>
#include <QSettings>
#include <QTest>

#include "shell/Settings.h"
#include "shell/basMain.h"

namespace quillon::tests {

using desktop::Act;

DesktopFixture::DesktopFixture() {
    desktop::ForgetEnd();
    QSettings(QSettings::IniFormat, QSettings::UserScope, "quillon", "desktop").clear();
    settings::Write("0", settings::ShowTips);
    settings::Write("2", settings::Editor);
}

DesktopFixture::~DesktopFixture() {
    frontEnd.CloseAll();
}

void ServedFixture::FillLogin(QWidget& login, const QString& password) {
    Type(Find("cboServer", login), ServerName());
    Click("optType1", login);
    Type(Find("txtUID", login), "sa");
    Type(Find("txtPWD", login), password);
}

void ServedFixture::Start() {
    windows.Expect("frmODBCLogon", [this](QWidget& login) {
        FillLogin(login, Password());
        Click("cmdOK", login);
    });
    Act([] { basMain::Main(); });
    AwaitActive(Main());
    QCoreApplication::processEvents();
}

void ServedFixture::PickDatabase(const QString& name) {
    Pick(Find<QComboBox>("cboDatabase", Main()), name);
}

void ServedFixture::Install() {
    windows.ExpectFailure("Could not find stored procedure 'AUDIT_prc_Analyze'");
    windows.ExpectAndLeave("message");
    windows.Expect("frmInstall", [this](QWidget& install) {
        windows.ExpectMessage("Are you sure you want to run this installation script(s)",
                              "Confirm Operation");
        windows.ExpectAndLeave("frmScriptResults");
        Click("cmdRun", install);
        Click("cmdClose", install);
    });
    Choose(Main(), "mnuInstallAuditing");
}

} // namespace quillon::tests
