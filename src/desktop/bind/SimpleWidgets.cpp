#include "desktop/bind/SimpleWidgets.h"

#include <QApplication>
#include <QCheckBox>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>

#include "desktop/bind/Act.h"
#include "desktop/bind/Binding.h"
#include "desktop/bind/Text.h"

namespace quillon::desktop {

QLabel* NewLabel(Label& label, QWidget* buddy) {
    auto* widget = new QLabel;
    widget->setWordWrap(true);
    if (buddy != nullptr) {
        widget->setWordWrap(false);
        widget->setBuddy(buddy);
    }
    new Binding(*widget, label, [widget, &label](ControlChange) { widget->setText(Text(label.Caption())); });
    return widget;
}

QPushButton* NewButton(Button& button) {
    auto* widget = new QPushButton;
    widget->setAutoDefault(false);
    new Binding(*widget, button,
                [widget, &button](ControlChange) { widget->setText(Text(button.Caption())); });
    QObject::connect(widget, &QPushButton::clicked, [&button] { Act([&button] { button.Click(); }); });
    return widget;
}

QCheckBox* NewCheckBox(CheckBox& box) {
    auto* widget = new QCheckBox;
    auto* binding = new Binding(*widget, box, [widget, &box](ControlChange) {
        widget->setText(Text(box.Caption()));
        widget->setCheckState(box.Value() == CheckBox::Greyed ? Qt::PartiallyChecked
                              : box.IsTicked()                ? Qt::Checked
                                                              : Qt::Unchecked);
    });
    QObject::connect(widget, &QCheckBox::clicked, [binding, &box] {
        Act([&box] { box.Click(); });
        // The box of the widget has moved by itself; what counts is what the act has made of it.
        binding->Write(ControlChange::State);
    });
    return widget;
}

namespace {

// An option of the control's group: two groups of one screen may share a parent widget, so the widget's own
// grouping is off, and with it the arrow keys' choosing, which is done here.
class OptionWidget : public QRadioButton {
  public:
    OptionWidget() { setAutoExclusive(false); }

  protected:
    void keyPressEvent(QKeyEvent* event) override {
        QRadioButton::keyPressEvent(event);
        auto* next = dynamic_cast<QRadioButton*>(QApplication::focusWidget());
        if (event->key() != Qt::Key_Space && next != nullptr && next != this)
            next->click();
    }
};

} // namespace

QRadioButton* NewOption(OptionButton& option) {
    auto* widget = new OptionWidget;
    auto* binding = new Binding(*widget, option, [widget, &option](ControlChange) {
        widget->setText(Text(option.Caption()));
        widget->setChecked(option.Value());
    });
    QObject::connect(widget, &QRadioButton::clicked, [binding, &option] {
        Act([&option] { option.Click(); });
        binding->Write(ControlChange::State);
    });
    return widget;
}

namespace {

// Some boxes act when they are clicked: the one that names the profile opens the choice of another.
class TextWidget : public QLineEdit {
  public:
    explicit TextWidget(TextBox& box)
        : m_box(box) {}

  protected:
    void mouseReleaseEvent(QMouseEvent* event) override {
        QLineEdit::mouseReleaseEvent(event);
        if (m_box.OnClick && event->button() == Qt::LeftButton)
            Act(m_box.OnClick);
    }

  private:
    TextBox& m_box;
};

} // namespace

QLineEdit* NewTextBox(TextBox& box) {
    auto* widget = new TextWidget(box);
    auto* binding = new Binding(*widget, box, [widget, &box](ControlChange change) {
        widget->setEchoMode(box.IsPassword() ? QLineEdit::Password : QLineEdit::Normal);
        widget->setReadOnly(box.IsReadOnly());
        if (widget->text() != Text(box.Text()))
            widget->setText(Text(box.Text()));
        if (change == ControlChange::Selection)
            widget->selectAll();
    });
    QObject::connect(widget, &QLineEdit::textEdited, [binding, widget, &box](const QString& text) {
        for (const QChar character : text)
            if (!box.AcceptsKey(character.unicode())) {
                binding->Write(ControlChange::State);
                return;
            }
        Act([&] { box.SetText(Text(text)); });
        if (widget->text() != Text(box.Text()))
            binding->Write(ControlChange::State);
    });
    binding->OnKey = [&box](Key key, int) {
        if (box.OnKeyDown)
            Act([&] { box.OnKeyDown(key); });
        return key == Key::Enter || key == Key::Escape;
    };
    return widget;
}

QGroupBox* NewGroup(Frame& frame) {
    auto* widget = new QGroupBox;
    new Binding(*widget, frame, [widget, &frame](ControlChange) { widget->setTitle(Text(frame.Caption())); });
    return widget;
}

QSpinBox* NewSpinBox(UpDown& upDown) {
    auto* widget = new QSpinBox;
    auto* binding = new Binding(*widget, upDown, [widget, &upDown](ControlChange) {
        widget->setRange(upDown.Minimum(), upDown.Maximum());
        widget->setValue(upDown.Value());
    });
    QObject::connect(widget, &QSpinBox::valueChanged, [binding, &upDown](int value) {
        if (!binding->IsWriting())
            Act([&] { upDown.SetValue(value); });
    });
    return widget;
}

} // namespace quillon::desktop
