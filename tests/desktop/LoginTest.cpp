#include "desktop/DesktopFixture.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QProcess>
#include <QTest>

#include "model/frmODBCLogon.h"
#include "shell/ScreenInstances.h"
#include "shell/Session.h"
#include "shell/Settings.h"
#include "shell/basMain.h"
#include "shell/frmMain.h"

namespace quillon::tests {
namespace {

using desktop::Act;
using desktop::IsEnded;

class Login : public ServedFixture {
  protected:
    void RunMain() {
        Act([] { basMain::Main(); });
    }
    // Once the box over it has gone.
    static bool GetsTheFocus(const char* name, const QWidget& login) {
        return QTest::qWaitFor([&] { return Find(name, login).hasFocus(); });
    }
    // Shows the login by itself; 0 when it succeeded.
    int Show(WindowScript::Visit visit) {
        windows.Expect("frmODBCLogon", std::move(visit));
        return TheScreen<frmODBCLogon>().LoadDB();
    }
};

TEST_F(Login, ASuccessOpensTheMainWindowWithTheDatabases) {
    Start();
    auto& databases = Find<QComboBox>("cboDatabase", Main());
    EXPECT_GE(databases.findText("Sales"), 0);
    EXPECT_EQ(databases.placeholderText(), "<Select A Database>");
    EXPECT_TRUE(databases.view()->isVisible()); // the next thing to do lies open
    EXPECT_EQ(Find<QLabel>("panel1", Main()).text(), ServerName());
    EXPECT_EQ(Find<QLabel>("panel3", Main()).text(), "sa");
    EXPECT_EQ(settings::Read(settings::Server), ServerName().toStdString());
    EXPECT_THROW(Window("frmODBCLogon"), std::runtime_error);
}

TEST_F(Login, AWrongPasswordIsToldAndCanBeMended) {
    EXPECT_EQ(Show([this](QWidget& login) {
                  FillLogin(login, "wrong");
                  EXPECT_EQ(Find<QLineEdit>("txtPWD", login).echoMode(), QLineEdit::Password);
                  windows.Expect("message", [](QWidget& box) {
                      EXPECT_EQ(box.windowTitle(), "Login Failed");
                      EXPECT_TRUE(dynamic_cast<QMessageBox&>(box).text().startsWith(
                          "Login Unsuccessful - Check UserName and Password\n\n"));
                      QTest::keyClick(&box, Qt::Key_Return);
                  });
                  Click("cmdOK", login);
                  ASSERT_TRUE(login.isVisible());
                  Type(Find("txtPWD", login), Password());
                  Click("cmdOK", login);
              }),
              0);
}

TEST_F(Login, EveryWayOutAtTheStartEndsTheProgram) {
    const WindowScript::Visit waysOut[] = {
        [](QWidget& login) { Click("cmdCancel", login); },
        [](QWidget& login) { QTest::keyClick(&Find("txtUID", login), Qt::Key_Escape); },
        [](QWidget& login) { QTest::keyClick(&Find("optType0", login), Qt::Key_Escape); },
        [](QWidget& login) { login.close(); },
    };
    settings::Write("0", settings::LoginType);
    for (const auto& wayOut : waysOut) {
        desktop::ForgetEnd();
        ForgetScreen<frmMain>();
        windows.Expect("frmODBCLogon", wayOut);
        RunMain();
        EXPECT_TRUE(IsEnded());
        EXPECT_THROW(Window("frmMain"), std::runtime_error);
    }
}

TEST_F(Login, ACancelledReconnectKeepsTheSession) {
    Start();
    PickDatabase();
    windows.Expect("frmODBCLogon", [](QWidget& login) { Click("cmdCancel", login); });
    Choose(Main(), "mnuFileConnect");
    EXPECT_FALSE(IsEnded());
    EXPECT_FALSE(Names(Tables()).isEmpty());
}

TEST_F(Login, WindowsAuthenticationLocksUserAndPassword) {
    EXPECT_NE(Show([](QWidget& login) {
                  Click("optType1", login);
                  EXPECT_TRUE(Find("txtUID", login).isEnabled());
                  Click("optType0", login);
                  for (const char* name : {"txtUID", "txtPWD", "lblUID", "lblPWD"})
                      EXPECT_FALSE(Find(name, login).isEnabled()) << name;
                  EXPECT_FALSE(Find<QAbstractButton>("optType1", login).isChecked());
                  Click("optType0", login); // a second click leaves the mark where it is
                  EXPECT_TRUE(Find<QAbstractButton>("optType0", login).isChecked());
                  Click("cmdCancel", login);
              }),
              0);
}

TEST_F(Login, WhatIsMissingGetsTheFocus) {
    Show([this](QWidget& login) {
        windows.ExpectMessage("Server name is required", "Missing Connection Information");
        Click("cmdOK", login);
        EXPECT_TRUE(GetsTheFocus("cboServer", login));
        Type(Find("cboServer", login), "somewhere");
        Click("optType1", login);
        windows.ExpectMessage("User name is required", "Missing Connection Information");
        QTest::keyClick(&Find("cboServer", login), Qt::Key_Return);
        EXPECT_TRUE(GetsTheFocus("txtUID", login));
        Click("cmdCancel", login);
    });
}

TEST_F(Login, ServersUsedBeforeAreOfferedAndEnterLogsIn) {
    settings::WriteServer("earlier", 1);
    EXPECT_EQ(Show([this](QWidget& login) {
                  auto& servers = Find<QComboBox>("cboServer", login);
                  ASSERT_EQ(servers.count(), 1);
                  Pick(servers, "earlier");
                  EXPECT_EQ(servers.currentText(), "earlier");
                  FillLogin(login, Password());
                  QTest::keyClick(&Find("txtPWD", login), Qt::Key_Return);
              }),
              0);
    Show([this](QWidget& login) {
        auto& servers = Find<QComboBox>("cboServer", login);
        EXPECT_EQ(servers.currentText(), ServerName());
        EXPECT_EQ(servers.count(), 2);
        Click("cmdCancel", login);
    });
}

TEST_F(Login, AMarkedServerStandsInARibbonOverTheMainWindow) {
    windows.Expect("frmODBCLogon", [this](QWidget& login) {
        FillLogin(login, Password());
        Click("productionMark", login);
        Type(Find("cboServer", login), "another");
        EXPECT_FALSE(Find<QCheckBox>("productionMark", login).isChecked());
        Type(Find("cboServer", login), ServerName());
        EXPECT_TRUE(Find<QCheckBox>("productionMark", login).isChecked());
        Click("cmdOK", login);
    });
    RunMain();
    QWidget& ribbon = Find("production", Main());
    EXPECT_TRUE(ribbon.isVisible());
    EXPECT_TRUE(ribbon.findChild<QLabel*>()->text().contains(ServerName()));
}

// Not with the server of this test: the program starts one of its own.
TEST_F(Login, ThePracticeServerComesByOneButton) {
    EXPECT_EQ(Show([](QWidget& login) {
                  Click("practiceServer", login);
                  EXPECT_TRUE(Find<QComboBox>("cboServer", login).currentText().startsWith("127.0.0.1,"));
                  EXPECT_TRUE(Find("cmdOK", login).hasFocus());
                  QTest::keyClick(&Find("cmdOK", login), Qt::Key_Return);
              }),
              0);
    EXPECT_TRUE(g_objSQLServer != nullptr);
    for (auto* process : qApp->findChildren<QProcess*>()) {
        process->terminate();
        EXPECT_TRUE(process->waitForFinished());
    }
}

} // namespace
} // namespace quillon::tests
