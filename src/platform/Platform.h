// The services that the system runs on, gathered by whoever starts it.
//
// Used by: every room, through ThePlatform(). Set by: the composition roots (desktop/, console/) before
// anything else runs, and by tests. The Platform refers to its services and owns none; they outlive it.
// Asking for a service that was not given is a fault of the composition root and throws std::logic_error.
#pragma once

#include <functional>
#include <memory>

namespace quillon {

class Clock;
class Files;
class FrontEnd;
class ScriptHost;
class SettingsStore;
class SpreadsheetLibrary;
class XmlLibrary;
namespace catalogue {
class Library;
}
namespace data {
class DataAccess;
}

struct PlatformServices {
    FrontEnd* frontEnd = nullptr;
    Files* files = nullptr;
    SettingsStore* settings = nullptr;
    Clock* clock = nullptr;
    data::DataAccess* dataAccess = nullptr;
    catalogue::Library* catalogue = nullptr;
    XmlLibrary* xml = nullptr;
    SpreadsheetLibrary* spreadsheets = nullptr;
    std::function<std::unique_ptr<ScriptHost>()> newScriptHost = nullptr;
};

class Platform {
  public:
    explicit Platform(PlatformServices services);
    // Makes this the platform that ThePlatform() gives, until it is destroyed; then the former one is back.
    ~Platform();
    Platform(const Platform&) = delete;
    Platform& operator=(const Platform&) = delete;

    FrontEnd& frontEnd() const;
    Files& files() const;
    SettingsStore& settings() const;
    Clock& clock() const;
    data::DataAccess& dataAccess() const;
    catalogue::Library& catalogue() const;
    XmlLibrary& xml() const;
    SpreadsheetLibrary& spreadsheets() const;
    std::unique_ptr<ScriptHost> NewScriptHost() const;
    bool HasFrontEnd() const { return m_services.frontEnd != nullptr; }

  private:
    PlatformServices m_services;
    Platform* m_former;
};

// std::logic_error when none is set.
Platform& ThePlatform();

// FrontEnd::WaitFor of the platform; where there is no front end the work is just done.
void WaitFor(const std::function<void()>& work);

} // namespace quillon
