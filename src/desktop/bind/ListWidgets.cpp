#include "desktop/bind/ListWidgets.h"

#include <QHeaderView>
#include <QSignalBlocker>
#include <QTabBar>
#include <QTreeWidget>

#include "desktop/bind/Act.h"
#include "desktop/bind/Binding.h"
#include "desktop/bind/Text.h"

namespace quillon::desktop {
namespace {

constexpr double twentiethsOfAPointToPixels = 96.0 / 72.0 / 20.0;

// Getting the focus picks no entry, although the toolkit makes the first one current then.
class PickingTree : public QTreeWidget {
  protected:
    void focusInEvent(QFocusEvent* event) override {
        const QSignalBlocker isNoPick(this);
        QTreeWidget::focusInEvent(event);
    }
};

QIcon Picture(const IconLookup& iconOf, const std::string& key) {
    return iconOf && !key.empty() ? iconOf(key) : QIcon();
}

void ShowColumns(QTreeWidget& widget, const ListView& list) {
    QStringList captions;
    for (const auto& column : list.Columns())
        captions << Text(column.Caption);
    widget.setColumnCount(std::max<int>(1, static_cast<int>(captions.size())));
    widget.setHeaderLabels(captions);
    for (std::size_t i = 0; i < list.Columns().size(); ++i)
        if (list.Columns()[i].Width > 0)
            widget.setColumnWidth(static_cast<int>(i),
                                  static_cast<int>(list.Columns()[i].Width * twentiethsOfAPointToPixels));
}

void ShowRows(QTreeWidget& widget, const ListView& list, const IconLookup& iconOf) {
    widget.clear();
    for (const auto& row : list.Rows()) {
        auto* item = new QTreeWidgetItem(&widget);
        item->setText(0, Text(row.Text).trimmed());
        item->setToolTip(0, Text(row.Text).trimmed());
        item->setIcon(0, Picture(iconOf, row.Icon));
        for (std::size_t i = 0; i < row.SubItems.size(); ++i)
            item->setText(static_cast<int>(i) + 1, Text(row.SubItems[i]));
        if (list.HasCheckBoxes())
            item->setCheckState(0, row.Checked ? Qt::Checked : Qt::Unchecked);
    }
}

void ShowSelection(QTreeWidget& widget, const ListView& list) {
    if (list.Current() >= 0)
        widget.setCurrentItem(widget.topLevelItem(list.Current()));
    for (std::size_t i = 0; i < list.Rows().size(); ++i)
        if (auto* item = widget.topLevelItem(static_cast<int>(i)))
            item->setSelected(list.Rows()[i].Selected);
}

} // namespace

QTreeWidget* NewListView(ListView& list, IconLookup iconOf) {
    auto* widget = new PickingTree;
    widget->setRootIsDecorated(false);
    widget->setUniformRowHeights(true);
    widget->setContextMenuPolicy(Qt::CustomContextMenu);
    widget->header()->setSectionsClickable(true);
    auto* binding = new Binding(*widget, list, [widget, &list, iconOf](ControlChange change) {
        if (change == ControlChange::Items) {
            ShowColumns(*widget, list);
            ShowRows(*widget, list, iconOf);
        }
        ShowSelection(*widget, list);
    });
    const auto click = [widget, binding, &list] {
        const int row = widget->indexOfTopLevelItem(widget->currentItem());
        if (!binding->IsWriting() && row >= 0)
            Act([&] { list.Click(static_cast<std::size_t>(row)); });
    };
    QObject::connect(widget, &QTreeWidget::itemClicked, click);
    QObject::connect(widget, &QTreeWidget::currentItemChanged, click);
    QObject::connect(widget, &QTreeWidget::itemDoubleClicked, [&list] { Act([&] { list.DoubleClick(); }); });
    QObject::connect(widget, &QTreeWidget::itemChanged, [widget, binding, &list](QTreeWidgetItem* item) {
        const int row = widget->indexOfTopLevelItem(item);
        if (!binding->IsWriting() && row >= 0 && list.HasCheckBoxes())
            Act([&] { list.SetChecked(static_cast<std::size_t>(row), item->checkState(0) == Qt::Checked); });
    });
    QObject::connect(widget->header(), &QHeaderView::sectionClicked, [&list](int column) {
        Act([&] { list.ClickColumn(static_cast<std::size_t>(column)); });
    });
    QObject::connect(widget, &QWidget::customContextMenuRequested, [&list] {
        if (list.OnRightClick)
            Act(list.OnRightClick);
    });
    binding->OnKey = [&list](Key key, int) {
        Act([&] { list.PressKey(key); });
        return false;
    };
    return widget;
}

QTreeWidget* NewTreeView(TreeView& tree, IconLookup iconOf) {
    auto* widget = new PickingTree;
    widget->setHeaderHidden(true);
    widget->setContextMenuPolicy(Qt::CustomContextMenu);
    constexpr int nodeRole = Qt::UserRole;
    const auto nodes = std::make_shared<std::vector<QTreeWidgetItem*>>();
    auto* binding = new Binding(*widget, tree, [widget, &tree, iconOf, nodes](ControlChange change) {
        if (change == ControlChange::Items) {
            widget->clear();
            nodes->clear();
            for (const auto& node : tree.Nodes()) {
                auto* item = node.Parent < 0
                                 ? new QTreeWidgetItem(widget)
                                 : new QTreeWidgetItem(nodes->at(static_cast<std::size_t>(node.Parent)));
                item->setText(0, Text(node.Text));
                item->setIcon(0, Picture(iconOf, node.Icon));
                item->setData(0, nodeRole, static_cast<int>(nodes->size()));
                nodes->push_back(item);
            }
            widget->expandAll();
        }
        if (tree.Selected() >= 0)
            widget->setCurrentItem(nodes->at(static_cast<std::size_t>(tree.Selected())));
    });
    QObject::connect(widget, &QTreeWidget::currentItemChanged, [binding, &tree](QTreeWidgetItem* item) {
        if (!binding->IsWriting() && item != nullptr)
            Act([&] { tree.Click(item->data(0, nodeRole).toInt()); });
    });
    QObject::connect(widget, &QTreeWidget::itemDoubleClicked, [&tree] { Act([&] { tree.DoubleClick(); }); });
    QObject::connect(widget, &QWidget::customContextMenuRequested, [&tree] {
        if (tree.OnRightClick)
            Act(tree.OnRightClick);
    });
    return widget;
}

QTabBar* NewTabStrip(TabStrip& strip) {
    auto* widget = new QTabBar;
    widget->setExpanding(false);
    auto* binding = new Binding(*widget, strip, [widget, &strip](ControlChange change) {
        if (change == ControlChange::Items) {
            while (widget->count() > 0)
                widget->removeTab(0);
            for (const auto& tab : strip.Tabs())
                widget->setTabToolTip(widget->addTab(Text(tab.Caption)), Text(tab.ToolTip));
        }
        widget->setCurrentIndex(strip.Selected());
    });
    QObject::connect(widget, &QTabBar::currentChanged, [binding, &strip](int tab) {
        if (!binding->IsWriting() && tab >= 0)
            Act([&] { strip.Select(tab); });
    });
    return widget;
}

} // namespace quillon::desktop
