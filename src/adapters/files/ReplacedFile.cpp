#include "adapters/files/ReplacedFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>

#include "adapters/files/FileState.h"
#include "adapters/files/SystemFailure.h"

namespace quillon::adapters {
namespace {

constexpr mode_t PrivateMode = 0600;

std::string FolderOf(const std::string& nativePath) {
    const std::size_t separator = nativePath.rfind('/');
    if (separator == std::string::npos)
        return ".";
    return separator == 0 ? "/" : nativePath.substr(0, separator);
}

// The file itself when the path is a symbolic link to one.
std::string Resolved(const std::string& nativePath) {
    const std::unique_ptr<char, decltype(&std::free)> real(realpath(nativePath.c_str(), nullptr), &std::free);
    return real ? std::string(real.get()) : nativePath;
}

mode_t UsualMode() {
    const mode_t mask = umask(0);
    umask(mask);
    return 0666 & ~mask;
}

mode_t ModeFor(const std::string& target, bool isPrivate) {
    if (isPrivate)
        return PrivateMode;
    struct stat status {};
    return stat(target.c_str(), &status) == 0 ? status.st_mode & 07777 : UsualMode();
}

// A rename is on the disk when its folder is; file systems that cannot do this have done what they can.
void SyncFolder(const std::string& folder) {
    const int descriptor = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0)
        return;
    fsync(descriptor);
    close(descriptor);
}

} // namespace

ReplacedFile::ReplacedFile(const std::string& nativePath, bool isPrivate)
    : m_target(Resolved(nativePath)) {
    if (IsFolder(m_target))
        RaiseSystemFailure(EISDIR, nativePath);
    if (IsFile(m_target) && IsMarkedReadOnly(m_target))
        RaiseSystemFailure(EROFS, nativePath);
    MakeTemporary(isPrivate);
}

ReplacedFile::~ReplacedFile() {
    if (!m_committed && m_temporary)
        unlink(m_temporary->path().c_str());
}

void ReplacedFile::MakeTemporary(bool isPrivate) {
    std::string name = m_target + ".XXXXXX";
    const int descriptor = mkostemp(name.data(), O_CLOEXEC);
    if (descriptor < 0)
        RaiseSystemFailure(errno, m_target);
    m_temporary = std::make_unique<Descriptor>(descriptor, name);
    if (fchmod(descriptor, ModeFor(m_target, isPrivate)) < 0) {
        const int error = errno;
        unlink(name.c_str());
        RaiseSystemFailure(error, m_target);
    }
}

void ReplacedFile::Commit() {
    m_temporary->Sync();
    m_temporary->Close();
    if (std::rename(m_temporary->path().c_str(), m_target.c_str()) < 0)
        RaiseSystemFailure(errno, m_target);
    m_committed = true;
    SyncFolder(FolderOf(m_target));
}

} // namespace quillon::adapters
