// A settings store in memory.
#pragma once

#include <string>
#include <vector>

#include "platform/SettingsStore.h"

namespace quillon::tests {

class MemorySettings : public SettingsStore {
  public:
    struct Entry {
        std::string Application, Section, Key, Value;
    };
    std::vector<Entry> Entries;       // in the order of their first writing
    std::vector<std::string> Written; // keys in the order of writing

    // Puts a value into the system's own section, as an earlier session would have left it.
    void Set(const std::string& key, const std::string& value);
    // From the system's own section, empty when missing.
    std::string Get(const std::string& key) const;

    std::optional<std::string> Read(const std::string& application, const std::string& section,
                                    const std::string& key) const override;
    void Write(const std::string& application, const std::string& section, const std::string& key,
               const std::string& value) override;
};

} // namespace quillon::tests
