#include "adapters/files/UserFolders.h"

#include <pwd.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>

namespace quillon::adapters {
namespace {

constexpr const char* ProgramFolder = "/quillon";

// Variables that do not hold an absolute path are to be ignored.
std::string FolderVariable(const char* name) {
    const char* value = std::getenv(name);
    return value != nullptr && *value == '/' ? value : "";
}

std::string HomeFolder() {
    const std::string home = FolderVariable("HOME");
    if (!home.empty())
        return home;
    const passwd* user = getpwuid(getuid());
    return user != nullptr && user->pw_dir != nullptr ? user->pw_dir : "";
}

std::string BaseFolder(const char* variable, const char* belowHome) {
    const std::string folder = FolderVariable(variable);
    return folder.empty() ? HomeFolder() + belowHome : folder;
}

} // namespace

std::string UserConfigFolder() {
    return BaseFolder("XDG_CONFIG_HOME", "/.config") + ProgramFolder;
}

std::string UserDataFolder() {
    return BaseFolder("XDG_DATA_HOME", "/.local/share") + ProgramFolder;
}

std::string WantedApplicationFolder() {
    return FolderVariable("QUILLON_HOME");
}

std::string ExecutableFolder() {
    std::error_code error;
    return std::filesystem::read_symlink("/proc/self/exe", error).parent_path().string();
}

} // namespace quillon::adapters
