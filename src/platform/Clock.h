// Time as the system asks for it.
//
// Used by: the waiting helper, the schedule editor's start values, the undo screen's date pickers, failure
// reports.
#pragma once

#include <cstdint>

#include "platform/Value.h"

namespace quillon {

class Clock {
  public:
    virtual ~Clock() = default;
    // Local date and time.
    virtual DateValue Now() const = 0;
    // Milliseconds since some fixed moment; never runs backwards.
    virtual std::int64_t TickCount() const = 0;
};

} // namespace quillon
