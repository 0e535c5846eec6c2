#include "desktop/bind/Binding.h"

#include <QEvent>
#include <QKeyEvent>

#include <unordered_map>

#include "desktop/bind/Act.h"
#include "desktop/bind/Keys.h"
#include "desktop/bind/Text.h"

namespace quillon::desktop {
namespace {

std::unordered_map<const Control*, QWidget*>& Shown() {
    static std::unordered_map<const Control*, QWidget*> shown;
    return shown;
}

} // namespace

Binding::Binding(QWidget& widget, Control& control, Refresh refresh)
    : QObject(&widget)
    , m_widget(widget)
    , m_control(control)
    , m_refresh(std::move(refresh)) {
    Shown()[&control] = &widget;
    widget.setObjectName(NameOf(control));
    widget.installEventFilter(this);
    m_observation = control.Observe([this](ControlChange change) { Write(change); });
    for (const ControlChange change : {ControlChange::Items, ControlChange::State, ControlChange::Selection})
        Write(change);
}

Binding::~Binding() {
    m_control.EndObservation(m_observation);
    const auto found = Shown().find(&m_control);
    if (found != Shown().end() && found->second == &m_widget)
        Shown().erase(found);
}

void Binding::Write(ControlChange change) {
    ++m_writing;
    if (change == ControlChange::State) {
        m_widget.setEnabled(m_control.Enabled());
        // A new widget is shown with its window; until then showing it would make it a window of its own.
        const bool wasHidden = m_widget.isHidden() && m_widget.testAttribute(Qt::WA_WState_ExplicitShowHide);
        if (!m_control.Visible())
            m_widget.hide();
        else if (wasHidden)
            m_widget.show();
        if (!m_control.ToolTip().empty())
            m_widget.setToolTip(Text(m_control.ToolTip()));
    }
    if (m_refresh)
        m_refresh(change);
    if (change == ControlChange::Command)
        m_widget.update();
    --m_writing;
}

QWidget* Binding::WidgetOf(const Control& control) {
    const auto found = Shown().find(&control);
    return found == Shown().end() ? nullptr : found->second;
}

QString Binding::NameOf(const Control& control) {
    const QString name = Text(control.Name());
    return control.Index() < 0 ? name : name + QString::number(control.Index());
}

bool Binding::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::FocusIn:
        if (m_control.OnGotFocus)
            Act(m_control.OnGotFocus);
        break;
    case QEvent::FocusOut:
        if (m_control.OnLostFocus)
            Act(m_control.OnLostFocus);
        break;
    case QEvent::KeyPress:
        if (KeyPressed(static_cast<const QKeyEvent&>(*event)))
            return true;
        break;
    default: break;
    }
    return QObject::eventFilter(watched, event);
}

bool Binding::KeyPressed(const QKeyEvent& event) {
    const auto key = KeyOf(event);
    if (!OnKey || !key)
        return false;
    const auto handler = OnKey; // the act may end this binding
    return handler(*key, ShiftOf(event));
}

} // namespace quillon::desktop
