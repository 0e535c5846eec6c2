#include "shell/basMain.h"

#include "platform/Files.h"
#include "platform/FrontEnd.h"
#include "platform/Platform.h"
#include "shell/Application.h"
#include "shell/ScreenInstances.h"
#include "shell/Session.h"
#include "shell/SessionRoads.h"
#include "shell/Trace.h"
#include "shell/frmMain.h"

namespace quillon::basMain {
namespace {

void SetUpTrace(const std::string& applicationFolder) {
    g_objTrace->SetFolder(applicationFolder + "\\");
    g_objTrace->SetOption(true);
    g_objTrace->SetApplication(TheApplication());
    g_objTrace->SetMailAddress(BugReportAddress);
}

} // namespace

void Main() {
    g_objTrace = std::make_unique<Trace>();
    g_objTrace->Procedure("basMain - Form_Load", [] {
        const std::string folder = ThePlatform().files().ApplicationFolder();
        SetUpTrace(folder);
        g_strExceptionFile = folder + "\\exception.txt";
        // Scripts and the editor can name objAudit before any database is loaded.
        g_objAudit = TheRoads().NewAuditObj();
        TheRoads().RegisterLanguages(false);
        TheScreen<frmMain>().Show();
        ThePlatform().frontEnd().SetPointer(Pointer::Default);
    });
}

} // namespace quillon::basMain
