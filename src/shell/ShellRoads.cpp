#include "shell/ShellRoads.h"

#include "shell/ScreenInstances.h"
#include "shell/SessionRoads.h"
#include "shell/basProfile.h"
#include "shell/frmMain.h"
#include "shell/frmTip.h"

namespace quillon {

void OpenShellRoads() {
    SessionRoads& roads = TheRoads();
    roads.SaveProfile = basProfile::SaveOnLeaving;
    roads.RetrieveProfile = [] { basProfile::RetrieveProfile(); };
    roads.Load_GridExColumns = [](frmMain& main) { main.Load_GridExColumns(); };
    roads.ShowTip = [] { TheScreen<frmTip>().ShowModal(); };
    roads.grxTables_Click = [](frmMain& main) { main.grxTables_Click(); };
}

} // namespace quillon
