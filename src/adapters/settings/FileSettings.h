// The settings store in one JSON file of the user's: application, section and key as nested objects, text
// values.
//
// The file and its folder are private to the user, since the store holds a password. Every read looks at the
// file and every write replaces it whole under a lock, so programs that run at once do not lose each other's
// writes, and a crash in the middle of a write leaves the former file. A file that cannot be read or
// understood is a failure (75) of reading and writing alike and is left as it is, for its user to mend or
// move away; an empty file holds no settings. What a later version keeps beside the text values stays.
#pragma once

#include <chrono>
#include <string>

#include "platform/SettingsStore.h"

namespace quillon::adapters {

class FileSettings : public SettingsStore {
  public:
    // The native folder, made at the first write when it is missing; `lockWait` is how long a write waits for
    // another program's.
    explicit FileSettings(std::string folder, std::chrono::milliseconds lockWait = std::chrono::seconds(5));

    std::optional<std::string> Read(const std::string& application, const std::string& section,
                                    const std::string& key) const override;
    void Write(const std::string& application, const std::string& section, const std::string& key,
               const std::string& value) override;

    // Native paths of the file and of the lock beside it.
    const std::string& path() const noexcept { return m_path; }
    std::string LockPath() const { return m_folder + "/settings.lock"; }

  private:
    void Store(const std::string& application, const std::string& section, const std::string& key,
               const std::string& value) const;

    std::string m_folder;
    std::string m_path;
    std::chrono::milliseconds m_lockWait;
};

} // namespace quillon::adapters
