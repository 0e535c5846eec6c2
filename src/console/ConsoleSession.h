// One run of the command line: the adapters, the platform made of them, and the trace.
//
// Made by Console.cpp once a command was chosen; the system's process-wide state belongs to it while it
// lives.
#pragma once

#include <functional>
#include <string>

#include "adapters/catalogue/ServerCatalogue.h"
#include "adapters/clock/SystemClock.h"
#include "adapters/files/DiskFiles.h"
#include "adapters/odbc/OdbcDataAccess.h"
#include "adapters/settings/FileSettings.h"
#include "console/ConsoleFrontEnd.h"
#include "platform/Platform.h"

namespace quillon::console {

class ConsoleSession {
  public:
    // Raises what DiskFiles raises when this user has no folder for the application's files.
    explicit ConsoleSession(ConsoleFrontEnd& frontEnd);
    ~ConsoleSession();
    ConsoleSession(const ConsoleSession&) = delete;
    ConsoleSession& operator=(const ConsoleSession&) = delete;

    // Runs a command as a procedure of the system, so that its failures are reported.
    void Run(const std::string& procedure, const std::function<void()>& command);

  private:
    adapters::DiskFiles m_files;
    adapters::FileSettings m_settings;
    adapters::SystemClock m_clock;
    adapters::OdbcDataAccess m_dataAccess;
    adapters::ServerCatalogue m_catalogue;
    Platform m_platform;
};

} // namespace quillon::console
