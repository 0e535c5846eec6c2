#include "shell/Settings.h"

#include <algorithm>
#include <cctype>
#include <map>

#include "platform/Conversion.h"
#include "platform/Platform.h"
#include "platform/SettingsStore.h"

namespace quillon::settings {

namespace {

// Keys are told apart without regard to case, as the store does.
std::map<std::string, std::string>& ProcessValues() {
    static std::map<std::string, std::string> values;
    return values;
}

std::string Lowered(std::string key) {
    std::ranges::transform(key, key.begin(),
                           [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return key;
}

} // namespace

void SetForProcess(const Setting& setting, const std::string& value) {
    ProcessValues()[Lowered(setting.Key)] = value;
}

void ForgetProcessValues() {
    ProcessValues().clear();
}

std::string Read(const std::string& key, const std::string& defaultValue) {
    if (const auto given = ProcessValues().find(Lowered(key)); given != ProcessValues().end())
        return given->second;
    return ThePlatform().settings().Read(Application, Section, key).value_or(defaultValue);
}

void Write(const std::string& value, const std::string& key) {
    ThePlatform().settings().Write(Application, Section, key, value);
}

std::string Read(const Setting& setting) {
    return Read(setting.Key, setting.Default);
}

void Write(const std::string& value, const Setting& setting) {
    Write(value, std::string(setting.Key));
}

std::int32_t ReadLong(const std::string& key, const std::string& defaultValue) {
    return conversion::ToLong(Read(key, defaultValue));
}

std::int32_t ReadLong(const Setting& setting) {
    return ReadLong(setting.Key, setting.Default);
}

bool ReadBoolean(const std::string& key, const std::string& defaultValue) {
    return conversion::ToBoolean(Read(key, defaultValue));
}

bool ReadBoolean(const Setting& setting) {
    return ReadBoolean(setting.Key, setting.Default);
}

std::string ReadServer(int number) {
    const auto name = ThePlatform().settings().Read(Application, ServersSection, std::to_string(number));
    return name.value_or(std::string());
}

void WriteServer(const std::string& name, int number) {
    ThePlatform().settings().Write(Application, ServersSection, std::to_string(number), name);
}

} // namespace quillon::settings
