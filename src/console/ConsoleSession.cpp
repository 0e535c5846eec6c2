#include "console/ConsoleSession.h"

#include "adapters/files/UserFolders.h"
#include "model/AuditObj.h"
#include "shell/Application.h"
#include "shell/ScreenInstances.h"
#include "shell/Session.h"
#include "shell/Trace.h"
#include "shell/frmMain.h"

namespace quillon::console {

ConsoleSession::ConsoleSession(ConsoleFrontEnd& frontEnd)
    : m_settings(adapters::UserConfigFolder())
    , m_platform({.frontEnd = &frontEnd,
                  .files = &m_files,
                  .settings = &m_settings,
                  .clock = &m_clock,
                  .dataAccess = &m_dataAccess,
                  .catalogue = &m_catalogue}) {
    g_objTrace = std::make_unique<Trace>();
    g_objTrace->SetApplication(TheApplication());
}

// What the commands made goes before the adapters that carry it.
ConsoleSession::~ConsoleSession() {
    g_objAudit.reset();
    g_objConnection.reset();
    g_objSQLServer.reset();
    ForgetScreen<frmMain>();
    g_objTrace.reset();
}

void ConsoleSession::Run(const std::string& procedure, const std::function<void()>& command) {
    g_objTrace->Procedure(procedure, command);
}

} // namespace quillon::console
