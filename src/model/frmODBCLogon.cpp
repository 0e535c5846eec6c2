#include "model/frmODBCLogon.h"

#include "model/CleanSQLMsg.h"
#include "platform/Catalogue.h"
#include "platform/Failure.h"
#include "platform/FrontEnd.h"
#include "platform/Platform.h"
#include "shell/Session.h"
#include "shell/Settings.h"
#include "shell/Trace.h"
#include "template/TextCase.h"

namespace quillon {
namespace {

constexpr int RememberedServers = 10; // read, however many were written
constexpr const char* CatalogueNote =
    "Attempting to use SQLDMO (sqldmo.dll) Component.  SQLDMO is a required prerequisite of this product";

} // namespace

frmODBCLogon::frmODBCLogon()
    : Screen("frmODBCLogon") {
    SetTitle("MSSQL Server  Login");
    SetCaptions();
    txtPWD.SetPassword(true);
    for (OptionButton& option : optType)
        option.OnClick = [this] { optType_Click(); };
    cmdServers.OnClick = [this] { AvailableServers(); };
    cmdOK.OnClick = [this] { cmdOK_Click(); };
    cmdCancel.OnClick = [this] { cmdCancel_Click(); };
    cmdHelp.OnClick = [] { ThePlatform().frontEnd().Help("login.htm"); };
    cboServer.OnGotFocus = [this] { cboServer.SelectAll(); };
    for (TextBox* box : {&txtUID, &txtPWD})
        box->OnGotFocus = [box] { box->SelectAll(); };
    BindKeys();
}

void frmODBCLogon::SetCaptions() {
    cmdServers.SetCaption("Get list of SQL Servers");
    optType[Windows].SetCaption("Windows Authentication");
    optType[SqlServer].SetCaption("SQL Server Authentication");
    lblUID.SetCaption("&User ID:");
    lblPWD.SetCaption("&Password:");
    cmdOK.SetCaption("OK");
    cmdCancel.SetCaption("Cancel");
    cmdHelp.SetCaption("Help");
}

void frmODBCLogon::BindKeys() {
    cboServer.OnKeyDown = [this](Key key) { DefaultOK(static_cast<int>(key)); };
    for (TextBox* box : {&txtUID, &txtPWD})
        box->OnKeyDown = [this](Key key) { DefaultOK(static_cast<int>(key)); };
    for (Control* control :
         {static_cast<Control*>(&optType[Windows]), static_cast<Control*>(&optType[SqlServer]),
          static_cast<Control*>(&cmdServers)}) {
        control->OnGotFocus = [this] { m_keysAreMine = true; };
        control->OnLostFocus = [this] { m_keysAreMine = false; };
    }
}

std::int32_t frmODBCLogon::LoadDB() {
    return g_objTrace->Procedure("frmODBCLogon.LoadDB", [&] {
        m_cancelled = true;
        ShowModal();
        return m_cancelled ? std::int32_t{1} : m_result;
    });
}

// A setting that cannot be read or used must not keep anyone from logging in: each step is taken for itself.
void frmODBCLogon::Form_Load() {
    m_activated = m_keysAreMine = false;
    bool isIntegrated = true;
    IgnoringFailures([&] { isIntegrated = settings::ReadBoolean(settings::LoginType); });
    optType[isIntegrated ? Windows : SqlServer].SetValue(true);
    optType_Click();
    IgnoringFailures([&] { txtUID.SetText(settings::Read(settings::UserId)); });
    IgnoringFailures([&] { txtPWD.SetText(settings::Read(settings::Password)); });
    LoadServers();
    IgnoringFailures([&] { SelectServer(settings::Read(settings::Server)); });
}

void frmODBCLogon::LoadServers() {
    cboServer.Clear();
    cboServer.SetText("");
    for (int number = 1; number <= RememberedServers; ++number)
        IgnoringFailures([&] {
            const std::string name = settings::ReadServer(number);
            if (!name.empty() && !HasServer(name))
                cboServer.AddItem(name);
        });
}

bool frmODBCLogon::HasServer(const std::string& name) const {
    return std::ranges::find(cboServer.Items(), name, &ComboBox::Item::Text) != cboServer.Items().end();
}

void frmODBCLogon::SelectServer(const std::string& name) {
    const auto& items = cboServer.Items();
    const auto found =
        std::ranges::find_if(items, [&](const auto& item) { return EqualFolded(item.Text, name); });
    if (found != items.end())
        cboServer.SetListIndex(static_cast<int>(found - items.begin()));
}

void frmODBCLogon::optType_Click() {
    g_objTrace->Procedure("frmODBCLogon.optType_Click", [&] {
        const bool needsUser = optType[SqlServer].Value();
        for (Control* control : {static_cast<Control*>(&lblUID), static_cast<Control*>(&txtUID),
                                 static_cast<Control*>(&lblPWD), static_cast<Control*>(&txtPWD)})
            control->SetEnabled(needsUser);
    });
}

void frmODBCLogon::DefaultOK(int keyCode) {
    if (keyCode == static_cast<int>(Key::Enter))
        cmdOK_Click();
    else if (keyCode == static_cast<int>(Key::Escape))
        cmdCancel_Click();
}

void frmODBCLogon::Form_KeyDown(Key key, int /*shift*/) {
    if (m_keysAreMine)
        DefaultOK(static_cast<int>(key));
}

bool frmODBCLogon::ValidateForm() {
    return g_objTrace->Procedure("frmODBCLogon.ValidateForm", [&] {
        constexpr const char* title = "Missing Connection Information";
        FrontEnd& frontEnd = ThePlatform().frontEnd();
        if (cboServer.Text().empty()) {
            frontEnd.Message("Server name is required", title, Icon::Warning);
            cboServer.SetFocus();
            return false;
        }
        if (optType[SqlServer].Value() && txtUID.Text().empty()) {
            frontEnd.Message("User name is required", title, Icon::Warning);
            if (txtUID.Enabled())
                txtUID.SetFocus();
            return false;
        }
        return true;
    });
}

void frmODBCLogon::cmdOK_Click() {
    g_objTrace->Procedure("frmODBCLogon - cmdOK_Click", [&] {
        FrontEnd& frontEnd = ThePlatform().frontEnd();
        frontEnd.SetPointer(Pointer::Hourglass);
        if (ValidateForm()) {
            // A refused login is an answer to the user, not a failure of the program.
            try {
                Connect();
                Publish();
                Remember();
                m_cancelled = false;
                Unload();
            } catch (const std::exception& failure) {
                frontEnd.Message("Login Unsuccessful - Check UserName and Password\r\n\r\n" +
                                     CleanSQLMsg(failure.what()),
                                 "Login Failed", Icon::Information);
            }
        }
        frontEnd.SetPointer(Pointer::Default);
    });
}

// A login that fails leaves the session on the server where it is.
void frmODBCLogon::Connect() {
    const auto server = ThePlatform().catalogue().NewServer();
    server->SetOption(true);
    if (optType[Windows].Value()) {
        server->SetLoginSecure(true);
        server->Connect(cboServer.Text());
    } else {
        server->Connect(cboServer.Text(), txtUID.Text(), txtPWD.Text());
    }
    g_objSQLServer = server;
}

void frmODBCLogon::Publish() {
    g_strUser = txtUID.Enabled() ? txtUID.Text() : std::string();
    g_strServer = cboServer.Text();
    g_strPassword = txtPWD.Text();
}

// The server just used stands behind the listed ones, a second time if it is one of them; reading leaves
// doubles out.
void frmODBCLogon::Remember() {
    settings::Write(optType[Windows].Value() ? "1" : "0", settings::LoginType);
    settings::Write(cboServer.Text(), settings::Server);
    settings::Write(txtUID.Text(), settings::UserId);
    settings::Write(txtPWD.Text(), settings::Password);
    int number = 0;
    for (const auto& item : cboServer.Items())
        settings::WriteServer(item.Text, ++number);
    settings::WriteServer(cboServer.Text(), ++number);
}

void frmODBCLogon::cmdCancel_Click() {
    g_objTrace->Procedure("frmODBCLogon.cmdCancel_Click", [&] { Unload(); });
}

void frmODBCLogon::AvailableServers() {
    g_objTrace->Procedure("frmODBCLogon.AvailableServers", [&] {
        FrontEnd& frontEnd = ThePlatform().frontEnd();
        g_objTrace->SetNote(CatalogueNote);
        frontEnd.SetPointer(Pointer::Hourglass);
        // The platform owns the library; the session only names it.
        g_objSQLDMOApp =
            std::shared_ptr<catalogue::Library>(std::shared_ptr<void>(), &ThePlatform().catalogue());
        const auto names = g_objSQLDMOApp->ListAvailableSQLServers();
        const std::string before = cboServer.Text();
        cboServer.Clear();
        for (const auto& name : names)
            if (!name.empty() && !HasServer(name))
                cboServer.AddItem(name);
        SelectServer(before);
        frontEnd.SetPointer(Pointer::Default);
        cboServer.SetFocus();
        cboServer.DropDown();
    });
}

} // namespace quillon
