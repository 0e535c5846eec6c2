#include "adapters/clock/SystemClock.h"

#include <chrono>
#include <ctime>

namespace quillon::adapters {

DateValue SystemClock::Now() const {
    using namespace std::chrono;
    constexpr auto Origin = sys_days{year{1899} / December / 30};
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    const auto today = sys_days{year{local.tm_year + 1900} / (local.tm_mon + 1) / local.tm_mday};
    const int seconds = (local.tm_hour * 60 + local.tm_min) * 60 + local.tm_sec;
    return {static_cast<double>((today - Origin).count()) + seconds / 86400.0};
}

std::int64_t SystemClock::TickCount() const {
    using namespace std::chrono;
    return duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
}

} // namespace quillon::adapters
