// Takes pictures of every screen as a person meets them on the main job, for docs/pictures. No test: it
// stands in a program of its own, which tools/pictures runs for each palette and scale.
#include "desktop/DesktopFixture.h"

#include <QHash>
#include <QImage>
#include <QTest>

#include <algorithm>

#include "desktop/Memory.h"
#include "desktop/Theme.h"
#include "shell/ScreenInstances.h"
#include "shell/Settings.h"
#include "shell/basMain.h"
#include "template/frmIncludes.h"

namespace quillon::tests {
namespace {

// With the 256 colours that are seen most, so that a picture stays small and looks the same.
QImage InFewColours(const QImage& picture) {
    QHash<QRgb, int> seen;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            ++seen[picture.pixel(x, y)];
    QList<QRgb> colours = seen.keys();
    std::ranges::sort(colours, [&seen](QRgb one, QRgb other) { return seen[one] > seen[other]; });
    colours.resize(std::min<qsizetype>(colours.size(), 256));
    return picture.convertToFormat(QImage::Format_Indexed8, colours, Qt::ThresholdDither);
}

class Pictures : public ServedFixture {
  protected:
    Pictures() {
        const bool isDark = qgetenv("QUILLON_PALETTE") == "dark";
        desktop::Theme::Apply(*qApp, isDark ? desktop::Theme::Choice::Dark : desktop::Theme::Choice::Light);
        settings::Write("1", settings::ShowTips);
    }

    // The offscreen desktop is small; a large window gets the size that it has on a person's.
    void Take(QWidget& window, const QString& name, const QSize& size = {}) {
        if (size.isValid())
            window.resize(size);
        QTest::qWait(50);
        const QString file = qEnvironmentVariable("QUILLON_PICTURES") + "/" + name + "-" +
                             (desktop::Theme::Current().isDark ? "dark" : "light") + "-" +
                             QString::number(window.devicePixelRatio() * 100) + ".png";
        const QImage picture = window.grab().toImage().convertToFormat(QImage::Format_RGB32);
        if (!InFewColours(picture).save(file, "PNG", 0))
            throw std::runtime_error("cannot write " + file.toStdString());
    }
    void ExpectPicture(const QString& window, const QString& name, const QSize& size = {}) {
        windows.Expect(window, [this, name, size](QWidget& shown) {
            Take(shown, name, size);
            QTest::keyClick(&shown, Qt::Key_Escape);
        });
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
        ExpectPicture("frmScriptResults", "run-log", {860, 560});
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
    Take(Main(), "main", {1280, 800});

    desktop::Memory::Instance().SetProduction(ServerName(), true);
    windows.Expect("frmODBCLogon", [this](QWidget& login) {
        FillLogin(login, Password());
        Click("cmdOK", login);
    });
    Choose(Main(), "mnuFileConnect");
    PickDatabase();
    Take(Main(), "main-production", {1280, 800});

    ExpectPicture("frmDDL", "table-script", {820, 600});
    DoubleClickCell(Tables(), "Customer", Name);
    settings::Write("1", settings::Editor);
    TickCustomer();
    ExpectPicture("frmResults", "script-editor", {920, 640});
    PressTool("Generate Triggers", Main());
    ExpectPicture("frmOptions", "options");
    Choose(Main(), "mnuOptions");
    ExpectPicture("frmIncludes", "includes");
    TheScreen<frmIncludes>().LoadIncludes();
    ExpectPicture("frmAbout", "about");
    Choose(Main(), "mnuaboutStonemere");
}

} // namespace
} // namespace quillon::tests
