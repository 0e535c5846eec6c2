#include "console/ConsoleSession.h"

#include "adapters/files/UserFolders.h"
#include "shell/Application.h"
#include "shell/Trace.h"

namespace quillon::console {

ConsoleSession::ConsoleSession(ConsoleFrontEnd& frontEnd)
    : m_settings(adapters::UserConfigFolder())
    , m_platform({.frontEnd = &frontEnd, .files = &m_files, .settings = &m_settings, .clock = &m_clock}) {
    g_objTrace = std::make_unique<Trace>();
    g_objTrace->SetApplication(TheApplication());
}

ConsoleSession::~ConsoleSession() {
    g_objTrace.reset();
}

void ConsoleSession::Run(const std::string& procedure, const std::function<void()>& command) {
    g_objTrace->Procedure(procedure, command);
}

} // namespace quillon::console
