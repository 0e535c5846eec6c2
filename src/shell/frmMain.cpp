#include "shell/frmMain.h"

#include "platform/Catalogue.h"
#include "platform/DataAccess.h"
#include "platform/Files.h"
#include "platform/FrontEnd.h"
#include "platform/Platform.h"
#include "shell/Application.h"
#include "shell/Session.h"
#include "shell/SessionRoads.h"
#include "shell/Settings.h"
#include "shell/Trace.h"
#include "template/basStringFunctions.h"

namespace quillon {

using basStringFunctions::JustFileName;
using basStringFunctions::JustFilePath;

frmMain::frmMain()
    : Screen("frmMain") {
    cboDatabase.OnClick = [this] { cboDatabase_Click(); };
    SetSelectionCaptions();
    BindSelection();
    BindCommands();
}

// --- start ---

void frmMain::Form_Load() {
    g_objTrace->Procedure("frmMain.Form_Load", [&] {
        SetCaption("");
        TheRoads().Load_GridExColumns(*this);
        mnuFileConnect_Click();
        SetMenus();
        RememberDefaultProfile();
        if (settings::ReadLong(settings::ShowTips) == 1)
            TheRoads().ShowTip();
        m_bolNoDatabase = true;
        ThePlatform().frontEnd().SetPointer(Pointer::Default);
    });
}

std::string frmMain::DefaultProfile() {
    const Files& files = ThePlatform().files();
    std::string path = settings::Read(settings::DefaultArch);
    if (!path.empty() && JustFileName(path) == path)
        path = files.ApplicationFolder() + "\\" + path;
    return path.empty() || !files.Exists(path) ? "" : path;
}

// The profile is only remembered here; it is loaded when a database is picked.
void frmMain::RememberDefaultProfile() {
    const std::string path = DefaultProfile();
    if (path.empty())
        return;
    g_strArchFile = path;
    ThePlatform().files().ChangeFolder(JustFilePath(path));
}

void frmMain::Form_Activate() {
    g_objTrace->Procedure("frmMain.Form_Activate",
                          [&] { txtTemplate.SetText(" " + JustFileName(g_strArchFile)); });
}

void frmMain::SetCaption(const std::string& strDatabase) {
    g_objTrace->Procedure("frmMain.SetCaption", [&] {
        const std::string database = strDatabase.empty() ? "" : " [" + strDatabase + "]";
        SetTitle(TheApplication().TitleAndVersion() + database);
    });
}

void frmMain::SetMenus() {
    g_objTrace->Procedure("frmMain.SetMenus", [&] {
        for (Menu* entry : {&Menus.mnuFileConnect, &Menus.mnuFileOpenFile, &Menus.mnuExit,
                            &Menus.mnuFileGenerateProcs, &Menus.mnuStop})
            if (!entry->Caption().ends_with('\t'))
                entry->SetCaption(entry->Caption() + "\t");
    });
}

void frmMain::DatabaseNotSelected() {
    g_objTrace->Procedure("frmMain.DatabaseNotSelected", [&] {
        ThePlatform().frontEnd().Message("Please Select a Database first", "Invalid Operation",
                                         Icon::Warning);
        cboDatabase.SetFocus();
        cboDatabase.DropDown();
    });
}

// --- login ---

void frmMain::mnuFileConnect_Click() {
    g_objTrace->Procedure("frmMain.mnuFileConnect_Click", [&] {
        if (TheRoads().LoadDB() != 0) {
            if (g_bolConnected)
                return;
            ThePlatform().frontEnd().EndProcess();
        }
        stbStatus.SetPanel(DatabasePanel, "");
        ShowServerAndLogin();
        EmptyGrids();
        g_objAudit.reset();
        m_bolNoDatabase = true;
        TheRoads().AvailableDatabases(cboDatabase);
    });
}

void frmMain::ShowServerAndLogin() {
    stbStatus.SetPanel(ServerPanel, "  " + g_strServer);
    stbStatus.SetPanel(LoginPanel, g_strUser.empty() ? "integrated security " : "  " + g_strUser);
}

void frmMain::EmptyGrids() {
    for (Grid* grid : {&grxTables, &grxFields}) {
        grid->SetItemCount(0);
        grid->Refetch();
    }
    grxTriggers.SetItemCount(0);
}

// --- leaving ---

void frmMain::Form_Unload(bool& /*cancel*/) {
    g_objTrace->Procedure("frmMain.Form_Unload", [&] {
        // Nothing may keep the user from leaving: each step is taken whatever became of the one before.
        IgnoringFailures([] { TheRoads().SaveProfile(); });
        if (g_bolConnected)
            IgnoringFailures([] { SessionConnection().Close(); });
        CloseOtherScreens();
        g_objConnection.reset();
        ThePlatform().frontEnd().EndProcess();
    });
}

void frmMain::CloseOtherScreens() {
    // Closing one screen may close another, so each is looked for again before its turn.
    for (Screen* screen : std::vector(OpenScreens()))
        if (std::ranges::find(OpenScreens(), screen) != OpenScreens().end() && screen->Name() != "frmMain")
            IgnoringFailures([screen] { screen->Unload(); });
}

} // namespace quillon
