// The script editor.
#include "desktop/views/ScreenViews.h"

#include <QCheckBox>
#include <QMenuBar>
#include <QStatusBar>
#include <QToolBar>

#include "desktop/Icons.h"
#include "desktop/bind/BarWidgets.h"
#include "desktop/bind/EditorWidget.h"
#include "desktop/bind/SimpleWidgets.h"
#include "desktop/views/Layout.h"
#include "execution/frmResults.h"

namespace quillon::desktop {

void BuildResultsView(frmResults& screen, QMainWindow& window) {
    window.resize(920, 640);
    ShowMenuBar(*window.menuBar(), screen);
    window.addToolBar(NewToolBar(screen.asxToolbar1, IconOf));
    QVBoxLayout* column = Content(window, 8);
    column->addWidget(new EditorWidget(screen.cdmCodeMax), 1);
    auto* row = new QHBoxLayout;
    row->addWidget(NewCheckBox(screen.chkLeftMargin));
    row->addWidget(NewCheckBox(screen.chkShowLineNumbers));
    row->addLayout(ButtonRow({NewButton(screen.cmdOK), NewButton(screen.cmdCancel)}));
    column->addLayout(row);
    ShowPanels(*window.statusBar(), screen.stbStatus, {18, 18, 0});
}

} // namespace quillon::desktop
