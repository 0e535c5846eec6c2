#include "console/StandardOutput.h"

#include <cerrno>
#include <cstdio>

#include "platform/Failure.h"
#include "platform/FailureNumbers.h"

namespace quillon::console {
namespace {

void Require(bool succeeded) {
    if (!succeeded)
        throw Failure(errno == ENOSPC ? numbers::DiskFull : numbers::DeviceIoError);
}

} // namespace

void WriteStandardOutput(std::string_view text) {
    Require(std::fwrite(text.data(), 1, text.size(), stdout) == text.size());
}

void FlushStandardOutput() {
    Require(std::fflush(stdout) == 0);
}

} // namespace quillon::console
