#include "desktop/Views.h"

#include "architecture/frmInstall.h"
#include "desktop/views/ScreenViews.h"
#include "execution/frmResults.h"
#include "execution/frmScriptResults.h"
#include "model/frmODBCLogon.h"
#include "platform/Failure.h"
#include "platform/FailureNumbers.h"
#include "shell/frmAbout.h"
#include "shell/frmMain.h"
#include "shell/frmOptions.h"
#include "shell/frmTip.h"
#include "template/frmIncludes.h"
#include "triggers/frmDDL.h"

namespace quillon::desktop {
namespace {

// True when the screen is of the view's class.
template <class ScreenClass>
bool BuildAs(Screen& screen, QMainWindow& window, void (*build)(ScreenClass&, QMainWindow&)) {
    auto* known = dynamic_cast<ScreenClass*>(&screen);
    if (known != nullptr)
        build(*known, window);
    return known != nullptr;
}

} // namespace

void BuildView(Screen& screen, QMainWindow& window) {
    const bool isBuilt =
        BuildAs(screen, window, BuildMainView) || BuildAs(screen, window, BuildLoginView) ||
        BuildAs(screen, window, BuildOptionsView) || BuildAs(screen, window, BuildInstallView) ||
        BuildAs(screen, window, BuildIncludesView) || BuildAs(screen, window, BuildScriptResultsView) ||
        BuildAs(screen, window, BuildResultsView) || BuildAs(screen, window, BuildDdlView) ||
        BuildAs(screen, window, BuildTipView) || BuildAs(screen, window, BuildAboutView);
    if (!isBuilt)
        throw Failure(numbers::ActionNotSupported, screen.Name() + " has no window in this program yet");
}

} // namespace quillon::desktop
