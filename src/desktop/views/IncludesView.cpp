// The include files of the profile.
#include "desktop/views/ScreenViews.h"

#include <QRadioButton>
#include <QTreeWidget>

#include "desktop/bind/ListWidgets.h"
#include "desktop/bind/SimpleWidgets.h"
#include "desktop/views/Layout.h"
#include "template/frmIncludes.h"

namespace quillon::desktop {

void BuildIncludesView(frmIncludes& screen, QMainWindow& window) {
    window.resize(640, 420);
    QVBoxLayout* column = Content(window);
    auto* row = new QHBoxLayout;
    row->addWidget(NewListView(screen.lstIncludes), 1);
    auto* buttons = new QVBoxLayout;
    for (Button* button : {&screen.cmdAdd, &screen.cmdDelete, &screen.cmdRefresh})
        buttons->addWidget(NewButton(*button));
    buttons->addStretch();
    row->addLayout(buttons);
    column->addLayout(row, 1);
    for (OptionButton& option : screen.optFileOptions)
        column->addWidget(NewOption(option));
    column->addLayout(
        ButtonRow({NewButton(screen.cmdSave), NewButton(screen.cmdCancel), NewButton(screen.cmdHelp)}));
}

} // namespace quillon::desktop
