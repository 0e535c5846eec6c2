#include "desktop/bind/BarWidgets.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QStatusBar>
#include <QToolBar>
#include <QToolButton>

#include "desktop/bind/Act.h"
#include "desktop/bind/Binding.h"
#include "desktop/bind/ElidedLabel.h"
#include "desktop/bind/Text.h"

namespace quillon::desktop {

void ShowPanels(QStatusBar& widget, StatusBar& bar, const std::vector<int>& widths) {
    std::vector<ElidedLabel*> panels;
    auto* row = new QWidget;
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(8, 0, 0, 0);
    layout->setSpacing(12);
    for (const int width : widths) {
        auto* panel = new ElidedLabel;
        panel->setObjectName(QString("panel%1").arg(panels.size() + 1));
        if (width > 0) {
            panel->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred);
            panel->setFixedWidth(panel->fontMetrics().averageCharWidth() * width);
        }
        layout->addWidget(panel, width > 0 ? 0 : 1);
        panels.push_back(panel);
    }
    widget.addWidget(row, 1);
    new Binding(widget, bar, [panels, &bar](ControlChange) {
        for (std::size_t i = 0; i < panels.size(); ++i)
            panels[i]->SetFullText(Text(bar.Panel(i + 1)).trimmed());
    });
}

QProgressBar* NewProgressBar(ProgressBar& bar) {
    auto* widget = new QProgressBar;
    widget->setTextVisible(false);
    QSizePolicy policy = widget->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    widget->setSizePolicy(policy);
    new Binding(*widget, bar, [widget, &bar](ControlChange) {
        widget->setMaximum(bar.Maximum());
        widget->setValue(bar.Value());
        widget->setVisible(bar.Value() > 0 && bar.Visible());
    });
    return widget;
}

namespace {

QToolButton* NewToolButton(QToolBar& widget, ToolBar& bar, std::size_t place, const QIcon& icon) {
    const auto& item = bar.Items()[place];
    auto* button = new QToolButton;
    button->setObjectName(QString("%1.%2").arg(Text(bar.Name()), Text(item.Key)));
    button->setIcon(icon);
    button->setIconSize(widget.iconSize());
    button->setText(Text(item.Caption));
    button->setToolButtonStyle(widget.toolButtonStyle());
    QString tip = Text(item.ToolTip.empty() ? item.Caption : item.ToolTip);
    tip.replace(0, 1, tip.left(1).toUpper());
    button->setToolTip(tip);
    button->setAccessibleName(Text(item.Caption.empty() ? item.ToolTip : item.Caption));
    button->setEnabled(item.Enabled);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus);
    if (widget.orientation() == Qt::Vertical)
        button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    QObject::connect(button, &QToolButton::clicked,
                     [&bar, position = place + 1] { Act([&] { bar.Press(position); }); });
    widget.addWidget(button);
    return button;
}

} // namespace

QToolBar* NewToolBar(ToolBar& bar, const std::function<QIcon(const std::string&)>& iconOf, bool vertical) {
    auto* widget = new QToolBar;
    widget->setMovable(false);
    widget->setOrientation(vertical ? Qt::Vertical : Qt::Horizontal);
    widget->setToolButtonStyle(vertical ? Qt::ToolButtonTextBesideIcon : Qt::ToolButtonIconOnly);
    widget->setWindowTitle(vertical ? "Module bar" : "Tool bar");
    const auto buttons = std::make_shared<std::vector<QToolButton*>>(); // none for a separator
    new Binding(*widget, bar, [widget, &bar, iconOf, buttons](ControlChange change) {
        if (change != ControlChange::Items) {
            for (std::size_t i = 0; i < buttons->size(); ++i)
                if (QToolButton* button = buttons->at(i))
                    button->setEnabled(bar.Items()[i].Enabled);
            return;
        }
        widget->clear();
        buttons->assign(bar.Items().size(), nullptr);
        for (std::size_t i = 0; i < bar.Items().size(); ++i) {
            const auto& item = bar.Items()[i];
            if (item.Separator) {
                widget->addSeparator();
                continue;
            }
            buttons->at(i) = NewToolButton(*widget, bar, i, iconOf(item.Icon));
        }
    });
    return widget;
}

} // namespace quillon::desktop
