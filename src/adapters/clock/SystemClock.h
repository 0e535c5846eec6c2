// The machine's clocks: the local calendar time, and a tick count that no change of the calendar disturbs.
#pragma once

#include "platform/Clock.h"

namespace quillon::adapters {

class SystemClock : public Clock {
  public:
    // To the whole second, as dates of the system are shown.
    DateValue Now() const override;
    std::int64_t TickCount() const override;
};

} // namespace quillon::adapters
