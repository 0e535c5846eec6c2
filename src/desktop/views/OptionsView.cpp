// The options: one panel a tab. The appearance is the window's own and takes effect at once.
#include "desktop/views/ScreenViews.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QRadioButton>
#include <QTabBar>

#include "desktop/Memory.h"
#include "desktop/bind/Binding.h"
#include "desktop/bind/ListWidgets.h"
#include "desktop/bind/SimpleWidgets.h"
#include "desktop/views/Layout.h"
#include "shell/frmOptions.h"

namespace quillon::desktop {
namespace {

QWidget* WidgetFor(Control& control) {
    if (auto* label = dynamic_cast<Label*>(&control)) {
        QLabel* widget = NewLabel(*label);
        widget->setWordWrap(true);
        return widget;
    }
    if (auto* box = dynamic_cast<TextBox*>(&control))
        return NewTextBox(*box);
    if (auto* box = dynamic_cast<CheckBox*>(&control))
        return NewCheckBox(*box);
    if (auto* option = dynamic_cast<OptionButton*>(&control))
        return NewOption(*option);
    return NewButton(dynamic_cast<Button&>(control));
}

// A panel's frame comes first and holds the rest; a button stands beside the text box that it fills.
QWidget* NewPanel(frmOptions& screen, std::size_t number) {
    const std::vector<Control*> controls = screen.OnPanel(number);
    auto* panel = new QWidget;
    auto* around = new QVBoxLayout(panel);
    around->setContentsMargins(0, 8, 0, 8);
    QGroupBox* group = NewGroup(dynamic_cast<Frame&>(*controls.front()));
    around->addWidget(group);
    around->addStretch();
    auto* column = new QVBoxLayout(group);
    column->setContentsMargins(14, 14, 14, 14);
    QHBoxLayout* row = nullptr;
    for (auto control = controls.begin() + 1; control != controls.end(); ++control) {
        if (dynamic_cast<Button*>(*control) == nullptr) {
            row = new QHBoxLayout;
            column->addLayout(row);
        }
        row->addWidget(WidgetFor(**control));
    }
    new Binding(*panel, screen.picOptions[number], [panel, &screen, number](ControlChange) {
        panel->setVisible(screen.picOptions[number].Visible());
    });
    return panel;
}

QHBoxLayout* NewAppearance() {
    auto* box = new QComboBox;
    box->setObjectName("appearance");
    box->addItems({"As the desktop", "Light", "Dark"});
    box->setCurrentIndex(static_cast<int>(Memory::Instance().Appearance()));
    QObject::connect(box, &QComboBox::activated, box, [](int index) {
        const auto choice = static_cast<Theme::Choice>(index);
        Memory::Instance().SetAppearance(choice);
        Theme::Apply(*qApp, choice);
    });
    auto* label = new QLabel("&Appearance of the windows:");
    label->setBuddy(box);
    auto* row = new QHBoxLayout;
    row->addWidget(label);
    row->addWidget(box);
    row->addStretch();
    return row;
}

} // namespace

void BuildOptionsView(frmOptions& screen, QMainWindow& window) {
    window.resize(560, 380);
    QVBoxLayout* column = Content(window);
    column->addWidget(NewTabStrip(screen.tbsOptions));
    // One place for all panels, as high as the highest: the window must not change with the tab.
    auto* place = new QWidget;
    auto* panels = new QVBoxLayout(place);
    panels->setContentsMargins(0, 0, 0, 0);
    int height = 0;
    for (std::size_t panel = 0; panel < frmOptions::Panels; ++panel) {
        QWidget* shown = NewPanel(screen, panel);
        panels->addWidget(shown);
        height = std::max(height, shown->sizeHint().height());
    }
    place->setMinimumHeight(height);
    column->addWidget(place, 1);
    column->addLayout(NewAppearance());
    column->addLayout(ButtonRow({NewButton(screen.cmdOK), NewButton(screen.cmdCancel)}));
}

} // namespace quillon::desktop
