#include "platform/Platform.h"

#include <stdexcept>

#include "platform/FrontEnd.h"
#include "platform/ScriptHost.h"

namespace quillon {
namespace {

Platform*& Current() {
    static Platform* platform = nullptr;
    return platform;
}

template <class Service>
Service& Given(Service* service, const char* name) {
    if (service == nullptr)
        throw std::logic_error(std::string("the platform was started without ") + name);
    return *service;
}

} // namespace

Platform::Platform(PlatformServices services)
    : m_services(std::move(services))
    , m_former(Current()) {
    Current() = this;
}

Platform::~Platform() {
    Current() = m_former;
}

FrontEnd& Platform::frontEnd() const {
    return Given(m_services.frontEnd, "a front end");
}
Files& Platform::files() const {
    return Given(m_services.files, "files");
}
SettingsStore& Platform::settings() const {
    return Given(m_services.settings, "a settings store");
}
Clock& Platform::clock() const {
    return Given(m_services.clock, "a clock");
}
data::DataAccess& Platform::dataAccess() const {
    return Given(m_services.dataAccess, "data access");
}
catalogue::Library& Platform::catalogue() const {
    return Given(m_services.catalogue, "a catalogue");
}
XmlLibrary& Platform::xml() const {
    return Given(m_services.xml, "an XML library");
}
SpreadsheetLibrary& Platform::spreadsheets() const {
    return Given(m_services.spreadsheets, "spreadsheets");
}

std::unique_ptr<ScriptHost> Platform::NewScriptHost() const {
    if (!m_services.newScriptHost)
        throw std::logic_error("the platform was started without a script host");
    return m_services.newScriptHost();
}

Platform& ThePlatform() {
    if (Current() == nullptr)
        throw std::logic_error("no platform is set");
    return *Current();
}

void WaitFor(const std::function<void()>& work) {
    if (Current() != nullptr && Current()->HasFrontEnd())
        Current()->frontEnd().WaitFor(work);
    else
        work();
}

} // namespace quillon
