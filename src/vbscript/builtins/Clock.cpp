#include "vbscript/builtins/Clock.h"

#include <chrono>
#include <ctime>

#include "platform/Conversion.h"

namespace quillon::vbscript {
namespace {

std::tm LocalParts(std::chrono::system_clock::time_point now) {
    const std::time_t seconds = std::chrono::system_clock::to_time_t(now);
    return *std::localtime(&seconds); // scripts run on one thread
}

} // namespace

DateValue LocalNow() {
    const std::tm parts = LocalParts(std::chrono::system_clock::now());
    return conversion::DateOf(parts.tm_year + 1900, parts.tm_mon + 1, parts.tm_mday, parts.tm_hour,
                              parts.tm_min, parts.tm_sec);
}

double SecondsSinceMidnight() {
    const auto now = std::chrono::system_clock::now();
    const std::tm parts = LocalParts(now);
    const auto fraction = now - std::chrono::floor<std::chrono::seconds>(now);
    return parts.tm_hour * 3600 + parts.tm_min * 60 + parts.tm_sec +
           std::chrono::duration<double>(fraction).count();
}

} // namespace quillon::vbscript
