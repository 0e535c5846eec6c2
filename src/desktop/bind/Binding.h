// The bond between one widget and the control it shows.
//
// The control is the truth: the binding watches it and has the widget painted again; what a person does goes
// to the control, never around it. A binding belongs to its widget and ends with it; the widget goes before
// the screen that owns the control.
#pragma once

#include <QObject>
#include <QWidget>

#include <functional>

#include "platform/Control.h"
#include "platform/Screen.h"

class QKeyEvent;

namespace quillon::desktop {

class Binding : public QObject {
  public:
    // Writes the control's state into the widget; called at once for everything, then for each change.
    using Refresh = std::function<void(ControlChange)>;

    // The widget gets the control's name (and, in a control array, its index) as object name.
    Binding(QWidget& widget, Control& control, Refresh refresh = {});
    ~Binding() override;

    // True while the widget is written from the control: its signals are no acts of a person then.
    bool IsWriting() const noexcept { return m_writing > 0; }
    void Write(ControlChange change);

    // Keys pressed in the widget, before the widget sees them; true takes the key.
    std::function<bool(Key key, int shift)> OnKey;

    // The widget that shows a control, none if it is not shown.
    static QWidget* WidgetOf(const Control& control);
    static QString NameOf(const Control& control);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    bool KeyPressed(const QKeyEvent& event);

    QWidget& m_widget;
    Control& m_control;
    Refresh m_refresh;
    std::size_t m_observation = 0;
    int m_writing = 0;
};

} // namespace quillon::desktop
