// The login screen: what it shows, what it accepts, what it publishes and remembers.
#include "DataTest.h"
#include "model/frmODBCLogon.h"
#include "shell/Settings.h"

namespace quillon::tests {
namespace {

using Type = frmODBCLogon::Type;

class LoginTest : public DataTest {
  protected:
    // Shows the screen, lets the person act, and gives LoadDB's answer.
    std::int32_t Show(std::function<void()> act) {
        frontEnd.ExpectModal("frmODBCLogon", [act](Screen&) { act(); });
        return screen.LoadDB();
    }
    void RememberServers(std::initializer_list<const char*> names) {
        int number = 0;
        for (const char* name : names)
            settings::WriteServer(name, ++number);
    }
    // A login that the server does not know.
    void BeRefused() {
        screen.optType[frmODBCLogon::SqlServer].Click();
        screen.txtUID.SetText("bob");
        frontEnd.ExpectMessage("Login Unsuccessful - Check UserName and Password\r\n\r\n"
                               "Login failed for user 'bob'.",
                               "Login Failed", Icon::Information);
        screen.cmdOK.Click();
    }
    // Leaves the name of an option or box with the focus, as a view tells it.
    static void Focus(Control& control) { control.OnGotFocus(); }

    frmODBCLogon screen;
};

TEST_F(LoginTest, ShowsWhatWasRemembered) {
    settings.Set("logintype", "0");
    settings.Set("uid", "ann");
    settings.Set("pwd", "secret");
    settings.Set("server", "beta");
    RememberServers({"ALPHA", "BETA", "", "ALPHA", "alpha"});
    Show([&] {
        EXPECT_EQ(screen.Title(), "MSSQL Server  Login");
        EXPECT_TRUE(screen.optType[Type::SqlServer].Value());
        EXPECT_TRUE(screen.txtUID.Enabled());
        EXPECT_EQ(screen.txtUID.Text(), "ann");
        EXPECT_EQ(screen.txtPWD.Text(), "secret");
        EXPECT_TRUE(screen.txtPWD.IsPassword());
        EXPECT_EQ(Texts(screen.cboServer), (Lines{"ALPHA", "BETA", "alpha"}));
        EXPECT_EQ(screen.cboServer.Text(), "BETA");
    });
}

TEST_F(LoginTest, WithoutSettingsItAsksForWindowsAuthentication) {
    EXPECT_NE(Show([&] {
                  EXPECT_TRUE(screen.optType[Type::Windows].Value());
                  EXPECT_FALSE(screen.txtUID.Enabled());
                  EXPECT_FALSE(screen.lblPWD.Enabled());
                  EXPECT_EQ(screen.cboServer.Text(), "");
              }),
              0);
}

TEST_F(LoginTest, ASettingThatIsNoBooleanDoesNotStopTheLoad) {
    settings.Set("logintype", "perhaps");
    settings.Set("uid", "ann");
    Show([&] {
        EXPECT_TRUE(screen.optType[Type::Windows].Value());
        EXPECT_EQ(screen.txtUID.Text(), "ann");
    });
}

TEST_F(LoginTest, ReadsTenServersHoweverManyWereWritten) {
    for (int number = 1; number <= 11; ++number)
        settings::WriteServer("S" + std::to_string(number), number);
    Show([&] { EXPECT_EQ(screen.cboServer.Items().size(), 10u); });
}

TEST_F(LoginTest, AsksForWhatIsMissing) {
    Show([&] {
        frontEnd.ExpectMessage("Server name is required", "Missing Connection Information", Icon::Warning);
        screen.cmdOK.Click();
        EXPECT_EQ(frontEnd.Focus(), "cboServer");
        EXPECT_EQ(frontEnd.CurrentPointer(), Pointer::Default);
        screen.cboServer.SetText("PRACTICE");
        screen.optType[Type::SqlServer].Click();
        frontEnd.ExpectMessage("User name is required", "Missing Connection Information", Icon::Warning);
        screen.cmdOK.Click();
        EXPECT_EQ(frontEnd.Focus(), "txtUID");
    });
    EXPECT_EQ(g_objSQLServer, nullptr);
}

TEST_F(LoginTest, AServerLoginPublishesAndRemembers) {
    catalogue.Server().User = "ann";
    RememberServers({"ALPHA", "PRACTICE"});
    const auto answer = Show([&] {
        screen.cboServer.SetText("practice");
        screen.optType[Type::SqlServer].Click();
        screen.txtUID.SetText("ann");
        screen.cmdOK.Click(); // a blank password is allowed
        EXPECT_FALSE(screen.IsVisible());
    });
    EXPECT_EQ(answer, 0);
    EXPECT_EQ(g_strServer, "practice");
    EXPECT_EQ(g_strUser, "ann");
    EXPECT_TRUE(catalogue.Server().IsConnected);
    EXPECT_TRUE(catalogue.Server().Option);
    EXPECT_EQ(settings::Read(settings::LoginType), "0");
    EXPECT_EQ(settings::Read(settings::Server), "practice");
    EXPECT_EQ(settings::Read(settings::UserId), "ann");
    EXPECT_EQ(settings::ReadServer(1), "ALPHA");
    EXPECT_EQ(settings::ReadServer(2), "PRACTICE");
    EXPECT_EQ(settings::ReadServer(3), "practice");
    EXPECT_EQ(settings::ReadServer(4), "");
}

TEST_F(LoginTest, AnIntegratedLoginHasNoUser) {
    settings.Set("uid", "ann");
    settings.Set("pwd", "kept");
    EXPECT_EQ(Show([&] {
                  screen.cboServer.SetText("PRACTICE");
                  screen.cmdOK.Click();
              }),
              0);
    EXPECT_TRUE(catalogue.Server().IsLoginSecure);
    EXPECT_EQ(g_strUser, "");
    EXPECT_EQ(g_strPassword, "kept");
    EXPECT_EQ(settings::Read(settings::LoginType), "1");
    EXPECT_EQ(settings::Read(settings::UserId), "ann");
}

TEST_F(LoginTest, ARefusedLoginIsToldAndCanBeCorrected) {
    settings.Set("server", "former");
    const auto answer = Show([&] {
        screen.cboServer.SetText("PRACTICE");
        BeRefused();
        EXPECT_TRUE(screen.IsVisible());
        EXPECT_EQ(frontEnd.CurrentPointer(), Pointer::Default);
        EXPECT_EQ(g_strServer, "");
        EXPECT_EQ(settings::Read(settings::Server), "former");
        screen.optType[Type::Windows].Click();
        screen.cmdOK.Click();
    });
    EXPECT_EQ(answer, 0);
    EXPECT_EQ(g_strServer, "PRACTICE");
}

// Whoever tries another server and fails works on where they were.
TEST_F(LoginTest, ARefusedLoginLeavesTheSessionOnItsServer) {
    Show([&] {
        screen.cboServer.SetText("PRACTICE");
        screen.cmdOK.Click();
    });
    const auto server = g_objSQLServer;
    Show([&] {
        BeRefused();
        screen.cmdCancel.Click();
    });
    EXPECT_EQ(g_objSQLServer, server);
}

TEST_F(LoginTest, CancelAnswersNonZeroAlsoAfterASuccess) {
    Show([&] {
        screen.cboServer.SetText("PRACTICE");
        screen.cmdOK.Click();
    });
    EXPECT_NE(Show([&] { screen.cmdCancel.Click(); }), 0);
    EXPECT_EQ(g_strServer, "PRACTICE");
}

TEST_F(LoginTest, EnterAndEscapeWorkOnEveryInput) {
    const std::pair<const char*, std::function<void(Key)>> inputs[] = {
        {"txtUID", [&](Key key) { screen.txtUID.OnKeyDown(key); }},
        {"txtPWD", [&](Key key) { screen.txtPWD.OnKeyDown(key); }},
        {"cboServer", [&](Key key) { screen.cboServer.OnKeyDown(key); }},
        {"optType",
         [&](Key key) {
             Focus(screen.optType[Type::SqlServer]);
             screen.KeyDown(key);
         }},
        {"cmdServers",
         [&](Key key) {
             Focus(screen.cmdServers);
             screen.KeyDown(key);
         }},
    };
    for (const auto& [name, press] : inputs) {
        EXPECT_NE(Show([&] {
                      press(Key::Tab);
                      EXPECT_TRUE(screen.IsVisible()) << name;
                      press(Key::Escape);
                      EXPECT_FALSE(screen.IsVisible()) << name;
                  }),
                  0);
        EXPECT_EQ(Show([&] {
                      screen.cboServer.SetText("PRACTICE");
                      press(Key::Enter);
                  }),
                  0)
            << name;
    }
}

// A key on a button of its own is that button's.
TEST_F(LoginTest, EnterOnCancelIsNotOk) {
    Show([&] {
        Focus(screen.cmdServers);
        screen.cmdServers.OnLostFocus();
        screen.cboServer.SetText("PRACTICE");
        screen.KeyDown(Key::Enter);
        EXPECT_TRUE(screen.IsVisible());
    });
}

TEST_F(LoginTest, ListsTheServersOfTheNetwork) {
    catalogue.Servers = {"ONE", "", "TWO", "ONE"};
    Show([&] {
        screen.cboServer.SetText("two");
        screen.cmdServers.Click();
        EXPECT_EQ(Texts(screen.cboServer), (Lines{"ONE", "TWO"}));
        EXPECT_EQ(screen.cboServer.Text(), "TWO");
        EXPECT_EQ(screen.cboServer.DropDowns(), 1);
        EXPECT_EQ(frontEnd.Focus(), "cboServer");
    });
    EXPECT_NE(g_objSQLDMOApp, nullptr);
}

TEST_F(LoginTest, ANetworkThatCannotBeSearchedIsReportedWithItsNote) {
    plan.FailAlways("Library.ListAvailableSQLServers", Failure(numbers::CannotCreateObject));
    Show([&] {
        frontEnd.ExpectFailure("");
        screen.cmdServers.Click();
    });
    EXPECT_EQ(LastNote(),
              "Attempting to use SQLDMO (sqldmo.dll) Component.  SQLDMO is a required prerequisite of "
              "this product");
}

} // namespace
} // namespace quillon::tests
