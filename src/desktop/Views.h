// Which view shows which screen. A new screen costs a file in views/ and a line in Views.cpp.
#pragma once

#include "platform/Screen.h"

class QMainWindow;

namespace quillon::desktop {

// Fills the window with the widgets of the screen, each bound to its control. A screen without a view of its
// own raises 445: it has no place in this program yet.
void BuildView(Screen& screen, QMainWindow& window);

} // namespace quillon::desktop
