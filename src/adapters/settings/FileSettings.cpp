#include "adapters/settings/FileSettings.h"

#include <algorithm>

#include "adapters/files/FileState.h"
#include "adapters/files/ReadBytes.h"
#include "adapters/files/ReplacedFile.h"
#include "adapters/settings/FileLock.h"
#include "adapters/settings/SettingsDocument.h"
#include "platform/Failure.h"
#include "platform/FailureNumbers.h"

namespace quillon::adapters {
namespace {

// The file in the system's form of a path, as users see paths.
[[noreturn]] void RaiseStoreFailure(std::string nativePath, const char* what, const std::string& reason) {
    std::ranges::replace(nativePath, '/', '\\');
    throw Failure(numbers::PathFileAccess, "The settings file " + nativePath + " could not be " + what +
                                               " and was left as it is: " + reason);
}

// A file that is missing is one that was never written; any other trouble must not look like that.
SettingsDocument Parsed(const std::string& nativePath) {
    std::string text;
    try {
        text = ReadBytes(nativePath);
    } catch (const Failure& failure) {
        if (failure.number() != numbers::FileNotFound && failure.number() != numbers::PathNotFound)
            throw;
    }
    return SettingsDocument(text);
}

} // namespace

FileSettings::FileSettings(std::string folder, std::chrono::milliseconds lockWait)
    : m_folder(std::move(folder))
    , m_path(m_folder + "/settings.json")
    , m_lockWait(lockWait) {}

std::optional<std::string> FileSettings::Read(const std::string& application, const std::string& section,
                                              const std::string& key) const {
    try {
        return Parsed(m_path).Find(application, section, key);
    } catch (const std::exception& error) {
        RaiseStoreFailure(m_path, "read", error.what());
    }
}

void FileSettings::Write(const std::string& application, const std::string& section, const std::string& key,
                         const std::string& value) {
    try {
        Store(application, section, key, value);
    } catch (const std::exception& error) {
        RaiseStoreFailure(m_path, "written", error.what());
    }
}

void FileSettings::Store(const std::string& application, const std::string& section, const std::string& key,
                         const std::string& value) const {
    MakePrivateFolder(m_folder);
    TakeFolderFromOthers(m_folder);
    const FileLock lock(LockPath(), m_lockWait);
    SettingsDocument document = Parsed(m_path);
    document.Set(application, section, key, value);
    ReplacedFile file(m_path, true);
    file.Write(document.Text());
    file.Commit();
}

} // namespace quillon::adapters
