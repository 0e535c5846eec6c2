// Picking a database: the transition that everything else waits for. The order is the contract: the selection
// of the database being left is saved before anything changes, and the flags are set last.
#include "platform/Catalogue.h"
#include "platform/DataAccess.h"
#include "platform/FailureNumbers.h"
#include "platform/FrontEnd.h"
#include "platform/Platform.h"
#include "shell/ConnectionString.h"
#include "shell/Session.h"
#include "shell/SessionRoads.h"
#include "shell/Settings.h"
#include "shell/Trace.h"
#include "shell/frmMain.h"
#include "template/basStringFunctions.h"

namespace quillon {

void frmMain::cboDatabase_Click() {
    g_objTrace->Procedure("frmMain.cboDatabase_Click", [&] {
        FrontEnd& frontEnd = ThePlatform().frontEnd();
        frontEnd.SetPointer(Pointer::Hourglass);
        g_bolStop = false;
        TheRoads().SaveProfile();
        m_bolLoading = true;
        if (cboDatabase.Text() != SelectADatabase)
            PickDatabase();
        m_bolLoading = false;
        frontEnd.SetPointer(Pointer::Default);
    });
}

void frmMain::PickDatabase() {
    Repaint();
    ConnectCatalogue();
    OpenData();
    ShowDatabase();
    // The rows of the former database must not be read from the new model, which grows while the screen
    // shows.
    EmptyGrids();
    if (!TheRoads().CreateObjectHeirarchy())
        return;
    // The model stands before the profile is read; the profile publishes itself to the model.
    if (!g_strArchFile.empty()) {
        TheRoads().LoadArchitecture(g_strArchFile);
        txtTemplate.SetText(basStringFunctions::JustFileName(g_strArchFile));
    }
    ShowModel();
}

// Built from the stored settings, not from the session: they are what the last successful login wrote.
void frmMain::ConnectCatalogue() {
    if (!g_objSQLServer)
        throw Failure(numbers::ObjectNotSet);
    g_objSQLServer->DisConnect();
    if (settings::ReadBoolean("logintype", "")) {
        g_objSQLServer->SetLoginSecure(true);
        g_objSQLServer->Connect(settings::Read("Server", ""));
    } else {
        const std::string server = settings::Read("Server", "");
        const std::string user = settings::Read(settings::UserId);
        g_objSQLServer->Connect(server, user, settings::Read(settings::Password));
    }
}

void frmMain::OpenData() {
    const std::string connectionString =
        AdoConnectionString(g_strServer, cboDatabase.Text(), g_strUser, g_strPassword);
    data::Connection& connection = SessionConnection();
    // An earlier pick may have closed the connection and failed to open it again; closing it twice would fail
    // and leave the user without a way back.
    if (g_bolConnected && connection.State() == data::ObjectState::Open)
        connection.Close();
    connection.Open(connectionString, "", "", data::OptionUnspecified);
    g_strDatabase = connection.DefaultDatabase();
    SetCaption(g_strDatabase);
    g_bolConnected = true;
}

void frmMain::ShowDatabase() {
    stbStatus.SetPanel(DatabasePanel, "  " + g_strDatabase);
    ShowServerAndLogin();
}

void frmMain::ShowModel() {
    grxTables.SetItemCount(TheRoads().TableCount());
    grxTables.Refetch();
    TheRoads().RetrieveProfile();
    grxTables.SetFocus();
    m_bolLoading = false;
    m_bolNoDatabase = false;
    m_strCurrentTable = ResetTableName;
    TheRoads().grxTables_Click(*this);
    grxTables.Redraw();
}

} // namespace quillon
