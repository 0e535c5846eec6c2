#include <QAbstractItemView>
#include <QComboBox>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTimer>
#include <QWheelEvent>

#include "desktop/bind/Act.h"
#include "desktop/bind/Binding.h"
#include "desktop/bind/ListWidgets.h"
#include "desktop/bind/Text.h"

namespace quillon::desktop {
namespace {

void ShowItems(QComboBox& widget, const ComboBox& box) {
    widget.clear();
    for (const auto& item : box.Items())
        widget.addItem(Text(item.Text));
}

void ShowText(QComboBox& widget, const ComboBox& box) {
    widget.setCurrentIndex(box.ListIndex());
    if (widget.isEditable() && widget.currentText() != Text(box.Text()))
        widget.setEditText(Text(box.Text()));
    // A drop-down list may hold a text that is no entry, such as an invitation to pick one.
    if (!widget.isEditable())
        widget.setPlaceholderText(Text(box.Text()));
}

// A list may be asked to open while its screen is still loading, or stands behind another one: it opens once
// its window is the one that a person works in.
class ListOpener : public QObject {
  public:
    explicit ListOpener(QComboBox& box)
        : QObject(&box)
        , m_box(box) {}

    void Open() {
        m_isWished = true;
        m_box.window()->installEventFilter(this);
        QTimer::singleShot(0, this, [this] { OpenNow(); });
    }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::WindowActivate)
            QTimer::singleShot(0, this, [this] { OpenNow(); });
        return QObject::eventFilter(watched, event);
    }

  private:
    void OpenNow() {
        if (!m_isWished || !m_box.isVisible() || !m_box.isActiveWindow())
            return;
        m_isWished = false;
        m_box.setFocus();
        m_box.showPopup();
    }

    QComboBox& m_box;
    bool m_isWished = false;
};

// Picking an entry may be dear: with the keyboard one looks through the open list and picks by Enter.
class PickingComboBox : public QComboBox {
  protected:
    void keyPressEvent(QKeyEvent* event) override {
        const bool isMove = event->key() == Qt::Key_Up || event->key() == Qt::Key_Down;
        const bool isName = !isEditable() && !event->text().isEmpty() && event->text().at(0).isPrint() &&
                            event->modifiers().testFlag(Qt::NoModifier);
        if (!isMove && !isName)
            return QComboBox::keyPressEvent(event);
        showPopup();
        if (isName)
            QCoreApplication::sendEvent(view(), event);
    }
    void wheelEvent(QWheelEvent* event) override { event->ignore(); }
};

QComboBox* NewBox(ComboBox& box, bool takesTyping) {
    auto* widget = new PickingComboBox;
    auto* opener = new ListOpener(*widget);
    widget->setInsertPolicy(QComboBox::NoInsert);
    auto* binding = new Binding(
        *widget, box, [widget, opener, &box, takesTyping, opened = 0](ControlChange change) mutable {
            const bool isEditable = takesTyping && !box.IsDropDownList();
            if (change == ControlChange::State && widget->isEditable() != isEditable)
                widget->setEditable(isEditable);
            if (change == ControlChange::Items)
                ShowItems(*widget, box);
            ShowText(*widget, box);
            if (change == ControlChange::Selection && widget->lineEdit() != nullptr)
                widget->lineEdit()->selectAll();
            if (box.DropDowns() != opened) {
                opened = box.DropDowns();
                opener->Open();
            }
        });
    QObject::connect(widget, &QComboBox::activated,
                     [&box](int index) { Act([&box, index] { box.Pick(index); }); });
    QObject::connect(widget, &QComboBox::editTextChanged, [binding, &box](const QString& text) {
        if (!binding->IsWriting())
            Act([&] { box.SetText(Text(text)); });
    });
    binding->OnKey = [widget, &box](Key key, int) {
        if (widget->view()->isVisible())
            return false;
        if (box.OnKeyDown)
            Act([&] { box.OnKeyDown(key); });
        return key == Key::Enter || key == Key::Escape;
    };
    return widget;
}

} // namespace

QComboBox* NewComboBox(ComboBox& box) {
    return NewBox(box, true);
}

QComboBox* NewPickBox(ComboBox& box) {
    return NewBox(box, false);
}

} // namespace quillon::desktop
