#include "architecture/basArchitectureUtils.h"

#include "architecture/clsQlnTemplate.h"
#include "platform/FrontEnd.h"
#include "platform/Platform.h"
#include "shell/ScreenInstances.h"
#include "shell/Session.h"
#include "shell/Trace.h"
#include "shell/frmMain.h"
#include "template/basFileDlg.h"
#include "template/basStringFunctions.h"

namespace quillon::basArchitectureUtils {

clsQlnTemplate& TheProfile() {
    if (!g_objArch)
        g_objArch = std::make_shared<clsQlnTemplate>();
    return *g_objArch;
}

bool LoadProfile(const std::string& path) {
    return TheProfile().Load(path);
}

bool CheckForArch() {
    return g_objTrace->Procedure("basArchitectureUtils.CheckForArch", [] {
        if (TheProfile().IsLoaded())
            return true;
        if (!g_strArchFile.empty())
            return LoadProfile(g_strArchFile);
        ThePlatform().frontEnd().Message("You must select a valid audit architecture file first",
                                         "Invalid Operation", Icon::Warning);
        return OpenArchProfile();
    });
}

bool OpenArchProfile() {
    return g_objTrace->Procedure("basArchitectureUtils.OpenArchProfile", [] {
        const auto path = basFileDlg::ShowProfileDialog(basFileDlg::Mode::Open);
        if (!path)
            return false;
        TheScreen<frmMain>().txtTemplate.SetText(" " + basStringFunctions::JustFileName(*path));
        return LoadProfile(*path);
    });
}

} // namespace quillon::basArchitectureUtils
