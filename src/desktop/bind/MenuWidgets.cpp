#include <QAction>
#include <QCursor>
#include <QMenu>
#include <QMenuBar>

#include "desktop/bind/Act.h"
#include "desktop/bind/BarWidgets.h"
#include "desktop/bind/Text.h"

namespace quillon::desktop {
namespace {

// The bond between a menu entry and its action; menus are no widgets of their own, so they have no Binding.
class EntryBond : public QObject {
  public:
    EntryBond(QObject& owner, Menu& entry, std::function<void()> write)
        : QObject(&owner)
        , m_entry(entry)
        , m_observation(entry.Observe([write](ControlChange) { write(); })) {
        write();
    }
    ~EntryBond() override { m_entry.EndObservation(m_observation); }

  private:
    Menu& m_entry;
    std::size_t m_observation;
};

// Captions are padded with a tab and perhaps a key's name; the key itself is the action's.
QString CaptionOf(const Menu& entry) {
    return Text(entry.Caption()).section('\t', 0, 0).trimmed();
}

void AddEntries(QMenu& widget, Menu& menu);

void AddEntry(QMenu& widget, Menu& entry) {
    if (entry.IsSeparator()) {
        widget.addSeparator();
        return;
    }
    if (!entry.Entries().empty()) {
        QMenu* below = widget.addMenu(CaptionOf(entry));
        AddEntries(*below, entry);
        return;
    }
    QAction* action = widget.addAction(CaptionOf(entry));
    action->setObjectName(Text(entry.Name()));
    QObject::connect(action, &QAction::triggered, [&entry] { Act([&entry] { entry.Click(); }); });
    new EntryBond(*action, entry, [action, &entry] {
        action->setText(CaptionOf(entry));
        action->setShortcut(QKeySequence(Text(entry.Shortcut())));
        action->setEnabled(entry.Enabled());
        action->setVisible(entry.Visible());
        action->setCheckable(entry.IsTicked() || action->isCheckable());
        action->setChecked(entry.IsTicked());
    });
}

void AddEntries(QMenu& widget, Menu& menu) {
    for (Menu* entry : menu.Entries())
        AddEntry(widget, *entry);
}

} // namespace

void ShowMenuBar(QMenuBar& widget, const Screen& screen) {
    for (Control* control : screen.Controls()) {
        auto* menu = dynamic_cast<Menu*>(control);
        if (menu == nullptr || menu->ParentMenu() != nullptr || menu->IsPopUp() || menu->Entries().empty())
            continue;
        QMenu* shown = widget.addMenu(CaptionOf(*menu));
        shown->setObjectName(Text(menu->Name()));
        AddEntries(*shown, *menu);
    }
}

void PopUp(Menu& menu, QWidget* parent) {
    QMenu shown(parent);
    shown.setObjectName(Text(menu.Name()));
    AddEntries(shown, menu);
    shown.exec(QCursor::pos());
}

} // namespace quillon::desktop
