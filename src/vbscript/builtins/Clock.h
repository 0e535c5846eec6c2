// The local wall clock as scripts see it. They can read it, never set it.
#pragma once

#include "platform/Value.h"

namespace quillon::vbscript {

// Whole seconds.
DateValue LocalNow();

// With the fraction of a second.
double SecondsSinceMidnight();

} // namespace quillon::vbscript
