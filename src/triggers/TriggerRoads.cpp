#include "triggers/TriggerRoads.h"

#include "shell/ScreenInstances.h"
#include "shell/SessionRoads.h"
#include "triggers/frmDDL.h"

namespace quillon {

void OpenTriggerRoads() {
    TheRoads().ShowDDL = [](const std::string& name, const std::string& path) {
        TheScreen<frmDDL>().LoadScript(name, path);
    };
}

} // namespace quillon
