#include "console/StandardOutput.h"

#include <cerrno>
#include <cstdio>

#include "platform/Failure.h"
#include "platform/FailureNumbers.h"

namespace quillon::console {

void WriteStandardOutput(std::string_view text) {
    errno = 0;
    const bool written = std::fwrite(text.data(), 1, text.size(), stdout) == text.size();
    if (!written || std::fflush(stdout) != 0)
        throw Failure(errno == ENOSPC ? numbers::DiskFull : numbers::DeviceIoError);
}

} // namespace quillon::console
