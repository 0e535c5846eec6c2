#include "desktop/bind/BarWidgets.h"

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
    for (const int width : widths) {
        auto* panel = new ElidedLabel;
        panel->setObjectName(QString("panel%1").arg(panels.size() + 1));
        if (width > 0)
            panel->setFixedWidth(panel->fontMetrics().averageCharWidth() * width);
        widget.addWidget(panel, width > 0 ? 0 : 1);
        panels.push_back(panel);
    }
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

QToolBar* NewToolBar(ToolBar& bar, const std::function<QIcon(const std::string&)>& iconOf, bool vertical) {
    auto* widget = new QToolBar;
    widget->setMovable(false);
    widget->setOrientation(vertical ? Qt::Vertical : Qt::Horizontal);
    widget->setToolButtonStyle(vertical ? Qt::ToolButtonTextBesideIcon : Qt::ToolButtonIconOnly);
    widget->setWindowTitle(vertical ? "Module bar" : "Tool bar");
    new Binding(*widget, bar, [widget, &bar, iconOf](ControlChange change) {
        if (change != ControlChange::Items)
            return;
        widget->clear();
        for (std::size_t i = 0; i < bar.Items().size(); ++i) {
            const auto& item = bar.Items()[i];
            if (item.Separator) {
                widget->addSeparator();
                continue;
            }
            QAction* action = widget->addAction(iconOf(item.Icon), Text(item.Caption));
            action->setToolTip(Text(item.ToolTip.empty() ? item.Caption : item.ToolTip));
            action->setEnabled(item.Enabled);
            QObject::connect(action, &QAction::triggered,
                             [&bar, position = i + 1] { Act([&] { bar.Press(position); }); });
            QWidget* button = widget->widgetForAction(action);
            button->setObjectName(QString("%1.%2").arg(Text(bar.Name()), Text(item.Key)));
            button->setFocusPolicy(Qt::TabFocus);
        }
    });
    return widget;
}

} // namespace quillon::desktop
