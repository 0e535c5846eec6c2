#include "desktop/bind/Keys.h"

#include <QKeyEvent>

namespace quillon::desktop {

std::optional<Key> KeyOf(const QKeyEvent& event) {
    switch (event.key()) {
    case Qt::Key_Backspace: return Key::Backspace;
    case Qt::Key_Tab:
    case Qt::Key_Backtab: return Key::Tab;
    case Qt::Key_Return:
    case Qt::Key_Enter: return Key::Enter;
    case Qt::Key_Escape: return Key::Escape;
    case Qt::Key_Space: return Key::Space;
    case Qt::Key_Left: return Key::Left;
    case Qt::Key_Up: return Key::Up;
    case Qt::Key_Right: return Key::Right;
    case Qt::Key_Down: return Key::Down;
    case Qt::Key_Delete: return Key::Delete;
    case Qt::Key_F1: return Key::F1;
    case Qt::Key_F4: return Key::F4;
    case Qt::Key_F5: return Key::F5;
    default: return std::nullopt;
    }
}

int ShiftOf(const QKeyEvent& event) {
    int shift = NoShift;
    if (event.modifiers().testFlag(Qt::ShiftModifier))
        shift |= ShiftDown;
    if (event.modifiers().testFlag(Qt::ControlModifier))
        shift |= ControlDown;
    if (event.modifiers().testFlag(Qt::AltModifier))
        shift |= AltDown;
    return shift;
}

} // namespace quillon::desktop
