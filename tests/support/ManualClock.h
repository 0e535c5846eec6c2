// A clock that stands still until the test moves it.
#pragma once

#include "platform/Clock.h"

namespace quillon::tests {

class ManualClock : public Clock {
  public:
    DateValue Date{38045.5}; // 28 February 2004, noon
    mutable std::int64_t Ticks = 0;
    std::int64_t TicksPerLook = 0; // how far each look at the tick count moves it, so that waits end

    DateValue Now() const override { return Date; }
    std::int64_t TickCount() const override { return Ticks += TicksPerLook; }
};

} // namespace quillon::tests
