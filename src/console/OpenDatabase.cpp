#include "console/OpenDatabase.h"

#include "adapters/files/NativePath.h"
#include "adapters/snapshot/SnapshotLibrary.h"
#include "architecture/basArchitectureUtils.h"
#include "console/ServerOptions.h"
#include "model/AuditObj.h"
#include "model/basLoadMetaData.h"
#include "platform/Failure.h"
#include "platform/FailureNumbers.h"
#include "platform/Files.h"
#include "platform/Platform.h"
#include "shell/ScreenInstances.h"
#include "shell/Session.h"
#include "shell/SessionRoads.h"
#include "shell/Settings.h"
#include "shell/frmMain.h"

namespace quillon::console {
namespace {

void UseProfile(const std::string& profile) {
    g_strArchFile = profile.empty() ? frmMain::DefaultProfile() : PathGiven(profile);
    if (profile.empty())
        return;
    if (!ThePlatform().files().Exists(g_strArchFile))
        throw Failure(numbers::FileNotFound, "File not found: " + profile);
}

// The main screen connects the catalogue by what the last login stored; here the options are the login.
void UseLogin() {
    settings::SetForProcess(settings::LoginType, g_strUser.empty() ? "1" : "0");
    settings::SetForProcess(settings::Server, g_strServer);
    settings::SetForProcess(settings::UserId, g_strUser);
    settings::SetForProcess(settings::Password, g_strPassword);
}

frmMain& NewMain() {
    g_objAudit = std::make_shared<AuditObj>();
    TheRoads().RegisterLanguages(false);
    frmMain& main = TheScreen<frmMain>();
    main.Load_GridExColumns();
    return main;
}

frmMain* Opened(frmMain& main) {
    if (main.m_bolNoDatabase && g_bolStop)
        throw Failure(numbers::InvalidCall, "Stopped");
    return main.m_bolNoDatabase ? nullptr : &main;
}

} // namespace

std::string PathGiven(const std::string& path) {
    if (path.empty())
        return path;
    const std::string own = adapters::FromNative(path);
    return own.starts_with('\\') ? own : ThePlatform().files().CurrentFolder() + "\\" + own;
}

frmMain* OpenDatabase(const CLI::App& app, const std::string& profile) {
    frmMain& main = NewMain();
    UseProfile(profile);
    LogInToDatabase(app);
    UseLogin();
    main.cboDatabase.AddItem(g_strDatabase);
    g_strDatabase.clear(); // none is open yet, and so no selection is to be saved
    main.cboDatabase.Pick(0);
    return Opened(main);
}

frmMain* OpenSnapshot(const std::string& snapshot, const std::string& profile) {
    frmMain& main = NewMain();
    UseProfile(profile);
    adapters::SnapshotLibrary library(
        adapters::ReadSnapshot(ThePlatform().files().ReadAll(PathGiven(snapshot))));
    g_objSQLServer = library.NewServer();
    g_objSQLServer->Connect("", "", "");
    g_strServer = g_objSQLServer->Name();
    g_strDatabase = g_objSQLServer->DatabaseAt(0).Name();
    main.m_bolNoDatabase = !basLoadMetaData::CreateObjectHeirarchy();
    if (!main.m_bolNoDatabase && !g_strArchFile.empty() && basArchitectureUtils::LoadProfile(g_strArchFile))
        main.txtTemplate.SetText(profile);
    return Opened(main);
}

} // namespace quillon::console
