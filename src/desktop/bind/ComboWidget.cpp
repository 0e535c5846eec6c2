#include <QAbstractItemView>
#include <QComboBox>
#include <QLineEdit>
#include <QTimer>

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

void OpenList(QComboBox& widget) {
    // Once the window stands: the list may be asked to open while the screen is still loading.
    QTimer::singleShot(0, &widget, [&widget] {
        if (widget.isVisible() && widget.isActiveWindow())
            widget.showPopup();
    });
}

} // namespace

QComboBox* NewComboBox(ComboBox& box) {
    auto* widget = new QComboBox;
    widget->setInsertPolicy(QComboBox::NoInsert);
    widget->setEditable(!box.IsDropDownList());
    auto* binding =
        new Binding(*widget, box, [widget, &box, opened = box.DropDowns()](ControlChange change) mutable {
            if (change == ControlChange::State && widget->isEditable() == box.IsDropDownList())
                widget->setEditable(!box.IsDropDownList());
            if (change == ControlChange::Items)
                ShowItems(*widget, box);
            ShowText(*widget, box);
            if (change == ControlChange::Selection && widget->lineEdit() != nullptr)
                widget->lineEdit()->selectAll();
            if (box.DropDowns() != opened) {
                opened = box.DropDowns();
                OpenList(*widget);
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

} // namespace quillon::desktop
