// What the server said to a script.
#include "desktop/views/ScreenViews.h"

#include <QStatusBar>

#include "desktop/bind/BarWidgets.h"
#include "desktop/bind/EditorWidget.h"
#include "desktop/views/Layout.h"
#include "execution/frmScriptResults.h"

namespace quillon::desktop {

void BuildScriptResultsView(frmScriptResults& screen, QMainWindow& window) {
    window.resize(860, 560);
    window.setCentralWidget(new EditorWidget(screen.cdmResults));
    ShowPanels(*window.statusBar(), screen.stbStatus, {18, 18, 0});
}

} // namespace quillon::desktop
