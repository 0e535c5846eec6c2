#include "adapters/files/FileState.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "adapters/files/SystemFailure.h"

namespace quillon::adapters {
namespace {

bool Status(const std::string& nativePath, struct stat& status) {
    return stat(nativePath.c_str(), &status) == 0;
}

bool IsAllowed(const std::string& nativePath, int mode) {
    return faccessat(AT_FDCWD, nativePath.c_str(), mode, AT_EACCESS) == 0;
}

} // namespace

bool IsFile(const std::string& nativePath) {
    struct stat status {};
    return Status(nativePath, status) && !S_ISDIR(status.st_mode);
}

bool IsFolder(const std::string& nativePath) {
    struct stat status {};
    return Status(nativePath, status) && S_ISDIR(status.st_mode);
}

bool IsMarkedReadOnly(const std::string& nativePath) {
    struct stat status {};
    if (!Status(nativePath, status))
        return false;
    // The mark counts also for a user whom it does not bind.
    return (status.st_mode & 0222) == 0 || !IsAllowed(nativePath, W_OK);
}

bool IsWritableFolder(const std::string& nativePath) {
    return IsFolder(nativePath) && IsAllowed(nativePath, W_OK | X_OK);
}

void MakePrivateFolder(const std::string& nativePath) {
    if (IsFolder(nativePath))
        return;
    const std::size_t separator = nativePath.rfind('/');
    if (separator != std::string::npos && separator > 0)
        MakePrivateFolder(nativePath.substr(0, separator));
    if (mkdir(nativePath.c_str(), 0700) == 0)
        return;
    const int error = errno;
    if (!IsFolder(nativePath)) // another process may have made it at this moment
        RaiseSystemFailure(error, nativePath);
}

void TakeFolderFromOthers(const std::string& nativePath) {
    struct stat status {};
    if (Status(nativePath, status) && status.st_uid == geteuid() && (status.st_mode & 0077) != 0 &&
        chmod(nativePath.c_str(), 0700) < 0)
        RaiseSystemFailure(errno, nativePath);
}

} // namespace quillon::adapters
