#include "adapters/files/Descriptor.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "adapters/files/SystemFailure.h"

namespace quillon::adapters {
namespace {

template <class Call>
auto Uninterrupted(Call&& call) {
    auto result = call();
    while (result < 0 && errno == EINTR)
        result = call();
    return result;
}

} // namespace

Descriptor::Descriptor(std::string nativePath, int flags, unsigned mode)
    : m_path(std::move(nativePath))
    , m_descriptor(Uninterrupted([&] { return open(m_path.c_str(), flags | O_CLOEXEC, mode); })) {
    if (m_descriptor < 0)
        RaiseSystemFailure(errno, m_path);
    RefuseFolder();
}

Descriptor::Descriptor(int openDescriptor, std::string nativePath)
    : m_path(std::move(nativePath))
    , m_descriptor(openDescriptor) {}

Descriptor::~Descriptor() {
    if (IsOpen())
        close(m_descriptor);
}

// The system opens a folder for reading and fails only at the first read.
void Descriptor::RefuseFolder() {
    struct stat status {};
    if (fstat(m_descriptor, &status) == 0 && S_ISDIR(status.st_mode)) {
        close(m_descriptor);
        m_descriptor = -1;
        RaiseSystemFailure(EISDIR, m_path);
    }
}

std::size_t Descriptor::Size() const noexcept {
    struct stat status {};
    return fstat(m_descriptor, &status) == 0 && status.st_size > 0 ? static_cast<std::size_t>(status.st_size)
                                                                   : 0;
}

std::size_t Descriptor::Read(char* buffer, std::size_t size) {
    const auto count = Uninterrupted([&] { return read(m_descriptor, buffer, size); });
    if (count < 0)
        RaiseSystemFailure(errno, m_path);
    return static_cast<std::size_t>(count);
}

void Descriptor::Write(std::string_view bytes) {
    while (!bytes.empty()) {
        const auto count = Uninterrupted([&] { return write(m_descriptor, bytes.data(), bytes.size()); });
        if (count < 0)
            RaiseSystemFailure(errno, m_path);
        bytes.remove_prefix(static_cast<std::size_t>(count));
    }
}

void Descriptor::Truncate(std::size_t size) {
    if (Uninterrupted([&] { return ftruncate(m_descriptor, static_cast<off_t>(size)); }) < 0)
        RaiseSystemFailure(errno, m_path);
}

void Descriptor::Sync() {
    if (Uninterrupted([&] { return fsync(m_descriptor); }) < 0)
        RaiseSystemFailure(errno, m_path);
}

void Descriptor::Close() {
    if (!IsOpen())
        return;
    // The descriptor is gone even when close reports an error, so it must not be closed again.
    const int result = close(m_descriptor);
    m_descriptor = -1;
    if (result < 0 && errno != EINTR)
        RaiseSystemFailure(errno, m_path);
}

} // namespace quillon::adapters
