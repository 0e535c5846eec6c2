#include "adapters/settings/FileLock.h"

#include <fcntl.h>
#include <sys/file.h>

#include <cerrno>
#include <thread>

#include "adapters/files/SystemFailure.h"

namespace quillon::adapters {

FileLock::FileLock(const std::string& nativePath, std::chrono::milliseconds wait)
    : m_file(nativePath, O_RDWR | O_CREAT, 0600) {
    constexpr std::chrono::milliseconds Step{5};
    const auto deadline = std::chrono::steady_clock::now() + wait;
    while (flock(m_file.number(), LOCK_EX | LOCK_NB) < 0) {
        if (errno != EWOULDBLOCK && errno != EINTR)
            RaiseSystemFailure(errno, nativePath);
        if (std::chrono::steady_clock::now() >= deadline)
            RaiseSystemFailure(EBUSY, nativePath);
        std::this_thread::sleep_for(Step);
    }
}

} // namespace quillon::adapters
