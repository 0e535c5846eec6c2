#include "support/MemorySettings.h"

#include "support/SameText.h"

namespace quillon::tests {
namespace {

constexpr const char* Application = "Harrowgate";
constexpr const char* Section = "Quillon";

template <class Entries>
auto FindEntry(Entries& entries, const std::string& application, const std::string& section,
               const std::string& key) {
    return std::ranges::find_if(entries, [&](const auto& entry) {
        return SameText(entry.Application, application) && SameText(entry.Section, section) &&
               SameText(entry.Key, key);
    });
}

} // namespace

void MemorySettings::Set(const std::string& key, const std::string& value) {
    Write(Application, Section, key, value);
    Written.pop_back();
}

std::string MemorySettings::Get(const std::string& key) const {
    return Read(Application, Section, key).value_or("");
}

std::optional<std::string> MemorySettings::Read(const std::string& application, const std::string& section,
                                                const std::string& key) const {
    const auto entry = FindEntry(Entries, application, section, key);
    return entry == Entries.end() ? std::nullopt : std::optional(entry->Value);
}

void MemorySettings::Write(const std::string& application, const std::string& section, const std::string& key,
                           const std::string& value) {
    Written.push_back(key);
    const auto entry = FindEntry(Entries, application, section, key);
    if (entry == Entries.end())
        Entries.push_back({application, section, key, value});
    else
        entry->Value = value;
}

} // namespace quillon::tests
