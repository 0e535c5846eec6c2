// The window of one screen: its title, its keys, its closing. What stands in it is made by the screen's view.
#pragma once

#include <QMainWindow>

#include <functional>

#include "platform/Screen.h"

namespace quillon::desktop {

class ScreenWindow : public QMainWindow {
  public:
    explicit ScreenWindow(Screen& screen, QWidget* parent = nullptr);
    ~ScreenWindow() override;

    Screen& Shown() const { return m_screen; }
    void ShowTitle();
    // The window of the screen that a widget stands in, none if it stands in no screen.
    static ScreenWindow* Of(QWidget* widget);
    // A key pressed anywhere in the window, before the widget that has the focus gets it; true takes it.
    bool KeyPressed(QWidget& focus, const QKeyEvent& event);

  protected:
    // Escape that nothing in the window has taken leaves a modal screen.
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    bool event(QEvent* event) override;

  private:
    void FocusContent();

    Screen& m_screen;
};

} // namespace quillon::desktop
