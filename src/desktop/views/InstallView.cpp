// Installing, removing and analysing the audit structures.
#include "desktop/views/ScreenViews.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QRadioButton>

#include "architecture/frmInstall.h"
#include "desktop/bind/SimpleWidgets.h"
#include "desktop/views/Layout.h"

namespace quillon::desktop {

void BuildInstallView(frmInstall& screen, QMainWindow& window) {
    QVBoxLayout* column = Content(window);
    column->addWidget(NewOption(screen.optOption[frmInstall::Add]));
    QGroupBox* database = NewGroup(screen.fraDatabase);
    auto* boxes = new QGridLayout(database);
    QGroupBox* server = NewGroup(screen.fraServer);
    auto* serverBoxes = new QVBoxLayout(server);
    constexpr std::size_t serverLevel = 1;
    int place = 0;
    for (CheckBox& box : screen.chkAdd) {
        if (box.Index() == serverLevel)
            serverBoxes->addWidget(NewCheckBox(box));
        else {
            boxes->addWidget(NewCheckBox(box), place / 2, place % 2);
            ++place;
        }
    }
    auto* groups = new QVBoxLayout;
    groups->setContentsMargins(24, 0, 0, 8);
    groups->addWidget(database);
    groups->addWidget(server);
    column->addLayout(groups);
    column->addWidget(NewOption(screen.optOption[frmInstall::Remove]));
    // Options of one parent exclude each other; these two are a choice of their own.
    auto* removal = new QWidget;
    auto* removals = new QVBoxLayout(removal);
    removals->setContentsMargins(24, 0, 0, 8);
    for (OptionButton& option : screen.optRemoveDatabase)
        removals->addWidget(NewOption(option));
    QLabel* description = NewLabel(screen.lblRemoveDesc);
    description->setWordWrap(true);
    removals->addWidget(description);
    column->addWidget(removal);
    column->addWidget(NewOption(screen.optOption[frmInstall::Analyze]));
    column->addStretch();
    column->addLayout(
        ButtonRow({NewButton(screen.cmdRun), NewButton(screen.cmdClose), NewButton(screen.cmdHelp)}));
    FitHeight(window, *column, 460);
}

} // namespace quillon::desktop
