// The script of a table or a trigger, to be read.
#include "desktop/views/ScreenViews.h"

#include <QMenuBar>
#include <QStatusBar>
#include <QToolBar>

#include "desktop/Icons.h"
#include "desktop/bind/BarWidgets.h"
#include "desktop/bind/EditorWidget.h"
#include "desktop/views/Layout.h"
#include "triggers/frmDDL.h"

namespace quillon::desktop {

void BuildDdlView(frmDDL& screen, QMainWindow& window) {
    window.resize(820, 600);
    ShowMenuBar(*window.menuBar(), screen);
    window.addToolBar(NewToolBar(screen.asxToolbar1, IconOf));
    window.setCentralWidget(new EditorWidget(screen.cdmCodeMax));
    ShowPanels(*window.statusBar(), screen.stbStatus, {18, 18, 0});
}

} // namespace quillon::desktop
