// The system, put together: the adapters, the platform made of them, the roads between the rooms, and the
// trace.
//
// One for the process; whoever starts it (the window, the command line) brings the front end. The session's
// process-wide state belongs to it while it lives: leaving gives the model, the connections and the screens
// back before the adapters that carry them.
#pragma once

#include "adapters/catalogue/ServerCatalogue.h"
#include "adapters/clock/SystemClock.h"
#include "adapters/files/DiskFiles.h"
#include "adapters/odbc/OdbcDataAccess.h"
#include "adapters/settings/FileSettings.h"
#include "adapters/xml/Library.h"
#include "platform/Platform.h"

namespace quillon {

class Program {
  public:
    // Raises what DiskFiles raises when this user has no folder for the application's files. The front end
    // outlives the program.
    explicit Program(FrontEnd& frontEnd);
    ~Program();
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

  private:
    adapters::DiskFiles m_files;
    adapters::FileSettings m_settings;
    adapters::SystemClock m_clock;
    adapters::OdbcDataAccess m_dataAccess;
    adapters::ServerCatalogue m_catalogue;
    adapters::XmlLibrary m_xml;
    Platform m_platform;
};

} // namespace quillon
