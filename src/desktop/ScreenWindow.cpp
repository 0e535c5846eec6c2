#include "desktop/ScreenWindow.h"

#include <QCloseEvent>
#include <QPushButton>
#include <QScreen>
#include <QToolButton>

#include "desktop/Icons.h"
#include "desktop/Memory.h"
#include "desktop/Views.h"
#include "desktop/bind/Act.h"
#include "desktop/bind/Keys.h"
#include "desktop/bind/Text.h"

namespace quillon::desktop {

ScreenWindow::ScreenWindow(Screen& screen, QWidget* parent)
    : QMainWindow(parent, parent == nullptr ? Qt::Window : Qt::Dialog)
    , m_screen(screen) {
    setObjectName(Text(screen.Name()));
    setWindowIcon(IconOf("quillon"));
    ShowTitle();
    BuildView(screen, *this);
    if (testAttribute(Qt::WA_Resized)) // by its view; others are as large as their content needs
        resize(size().boundedTo(QWidget::screen()->availableGeometry().size() * 0.96));
    Memory::Instance().Restore(*this);
    FocusContent();
    screen.View = this;
}

// Not the tool bar, which comes first, unless the screen has chosen for itself.
void ScreenWindow::FocusContent() {
    QWidget* first = centralWidget();
    if (focusWidget() != nullptr || first == nullptr)
        return;
    const auto takesFocus = [](const QWidget& widget) {
        return widget.isEnabledTo(nullptr) && (widget.focusPolicy() & Qt::TabFocus) != 0;
    };
    for (QWidget* widget = first; widget != this; widget = widget->nextInFocusChain())
        if (takesFocus(*widget) && (widget == first || first->isAncestorOf(widget)))
            return widget->setFocus();
}

ScreenWindow::~ScreenWindow() {
    Memory::Instance().Keep(*this);
    // The widgets end while the window is still whole: they may look for it.
    delete takeCentralWidget();
    m_screen.View = nullptr;
}

void ScreenWindow::ShowTitle() {
    setWindowTitle(Text(m_screen.Title()));
}

// The guide and the boxes of a screen are windows of their own, although they are its children.
ScreenWindow* ScreenWindow::Of(QWidget* widget) {
    return widget == nullptr ? nullptr : dynamic_cast<ScreenWindow*>(widget->window());
}

bool ScreenWindow::KeyPressed(QWidget& focus, const QKeyEvent& event) {
    const auto key = KeyOf(event);
    if (!key)
        return false;
    // A button that has the focus is pressed by Enter, whatever the screen's own Enter does.
    const bool isButton = dynamic_cast<QPushButton*>(&focus) || dynamic_cast<QToolButton*>(&focus);
    if (isButton && key == Key::Enter) {
        static_cast<QAbstractButton&>(focus).click();
        return true;
    }
    Act([&] { m_screen.KeyDown(*key, ShiftOf(event)); });
    return !m_screen.IsVisible();
}

void ScreenWindow::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape && isModal())
        close();
    else
        QMainWindow::keyPressEvent(event);
}

void ScreenWindow::closeEvent(QCloseEvent* event) {
    event->ignore(); // unloading hides the window, if the screen lets itself be unloaded
    Act([this] { m_screen.Unload(); });
}

bool ScreenWindow::event(QEvent* event) {
    const bool handled = QMainWindow::event(event);
    if (event->type() == QEvent::WindowActivate && m_screen.IsVisible())
        Act([this] { m_screen.Activate(); });
    return handled;
}

} // namespace quillon::desktop
