#include "desktop/WindowManager.h"

#include <QApplication>
#include <QEvent>

namespace quillon::tests {

WindowManager::WindowManager() {
    qApp->installEventFilter(this);
}

bool WindowManager::eventFilter(QObject* watched, QEvent* event) {
    const bool isShown = event->type() == QEvent::Show, isHidden = event->type() == QEvent::Hide;
    if (!watched->isWidgetType() || !(isShown || isHidden))
        return false;
    auto* window = static_cast<QWidget*>(watched);
    if (!window->isWindow() || window->windowType() == Qt::ToolTip)
        return false;
    std::erase_if(m_windows, [window](const auto& each) { return !each || each == window; });
    if (isShown)
        m_windows.push_back(window);
    else if (!m_windows.empty())
        m_windows.back()->activateWindow();
    return false;
}

} // namespace quillon::tests
