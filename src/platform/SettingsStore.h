// The per-user store of preferences: application, section, key; text values.
//
// Used by: shell/Settings.h alone (everything else goes through its wrappers), and the login's list of
// servers. Implemented by: adapters/settings (one file, private to its user, replaced whole or not at all).
// Application, section and key compare without regard to case; the first spelling written stays.
// Failures: 75 when the store cannot be read or written; the former contents stay.
#pragma once

#include <optional>
#include <string>

namespace quillon {

class SettingsStore {
  public:
    virtual ~SettingsStore() = default;
    // None for a key that was never written.
    virtual std::optional<std::string> Read(const std::string& application, const std::string& section,
                                            const std::string& key) const = 0;
    virtual void Write(const std::string& application, const std::string& section, const std::string& key,
                       const std::string& value) = 0;
};

} // namespace quillon
