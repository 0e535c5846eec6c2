// Keys as the screens count them.
#pragma once

#include <optional>

#include "platform/Screen.h"

class QKeyEvent;

namespace quillon::desktop {

// None for a key that no screen knows.
std::optional<Key> KeyOf(const QKeyEvent& event);
// Shift states as a bit set of Shift.
int ShiftOf(const QKeyEvent& event);

} // namespace quillon::desktop
