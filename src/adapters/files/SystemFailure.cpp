#include "adapters/files/SystemFailure.h"

#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <system_error>

#include "platform/Failure.h"
#include "platform/FailureNumbers.h"

namespace quillon::adapters {
namespace {

bool FolderExists(const std::string& nativePath) {
    const std::size_t separator = nativePath.rfind('/');
    if (separator == std::string::npos || separator == 0)
        return true;
    struct stat status {};
    return stat(nativePath.substr(0, separator).c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

std::int32_t NumberOf(int error, const std::string& nativePath) {
    switch (error) {
    case ENOENT: return FolderExists(nativePath) ? numbers::FileNotFound : numbers::PathNotFound;
    case ENOTDIR: return numbers::PathNotFound;
    case EACCES:
    case EPERM:
    case ETXTBSY:
    case EBUSY: return numbers::PermissionDenied;
    case EISDIR:
    case EROFS:
    case EEXIST:
    case ENOTEMPTY:
    case ELOOP: return numbers::PathFileAccess;
    case ENOSPC:
    case EDQUOT:
    case EFBIG: return numbers::DiskFull;
    case ENAMETOOLONG:
    case EINVAL:
    case EILSEQ: return numbers::BadFileNameOrNumber;
    case ENOMEM: return numbers::OutOfMemory;
    default: return numbers::DeviceIoError;
    }
}

// For people, so a name that cannot be told in the system's form is told as it is.
std::string Shown(std::string nativePath) {
    std::ranges::replace(nativePath, '/', '\\');
    return nativePath;
}

} // namespace

void RaiseSystemFailure(int error, const std::string& nativePath) {
    const std::int32_t number = NumberOf(error, nativePath);
    std::string description = std::string(FailureText(number)) + ": " + Shown(nativePath);
    if (number == numbers::DeviceIoError)
        description += " (" + std::generic_category().message(error) + ")";
    throw Failure(number, description);
}

} // namespace quillon::adapters
