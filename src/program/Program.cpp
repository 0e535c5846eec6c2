#include "program/Program.h"

#include "adapters/files/NativePath.h"
#include "adapters/files/UserFolders.h"
#include "adapters/script/ScriptControl.h"
#include "architecture/ArchitectureRoads.h"
#include "architecture/clsQlnTemplate.h"
#include "architecture/frmInstall.h"
#include "execution/frmResults.h"
#include "execution/frmScriptResults.h"
#include "model/AuditObj.h"
#include "model/ModelRoads.h"
#include "model/frmODBCLogon.h"
#include "platform/FrontEnd.h"
#include "platform/ScriptHost.h"
#include "program/ScriptBoxes.h"
#include "shell/Application.h"
#include "shell/ScreenInstances.h"
#include "shell/Session.h"
#include "shell/Settings.h"
#include "shell/ShellRoads.h"
#include "shell/Trace.h"
#include "shell/frmAbout.h"
#include "shell/frmMain.h"
#include "shell/frmOptions.h"
#include "shell/frmTip.h"
#include "template/TemplateRoads.h"
#include "template/frmIncludes.h"
#include "template/frmTemplate.h"
#include "triggers/TriggerRoads.h"
#include "triggers/frmDDL.h"

namespace quillon {
namespace {

void OpenRoads() {
    OpenShellRoads();
    OpenModelRoads();
    OpenTemplateRoads();
    OpenArchitectureRoads();
    OpenTriggerRoads();
}

// A user without the default profile gets the one that came with the program; one that is there is the user's
// own.
void ProvideDefaultProfile(Files& files) {
    g_objTrace->Procedure("Program.ProvideDefaultProfile", [&] {
        const std::string own = files.ApplicationFolder() + "\\" + settings::DefaultArch.Default;
        if (files.Exists(own))
            return;
        const std::string folder = adapters::FromNative(adapters::ExecutableFolder());
        for (const char* place : {"\\", "\\..\\share\\quillon\\"})
            if (const std::string shipped = folder + place + settings::DefaultArch.Default;
                files.Exists(shipped)) {
                files.Replace(own, files.ReadAll(shipped));
                return;
            }
    });
}

template <class... Screens>
void ForgetScreens() {
    (ForgetScreen<Screens>(), ...);
}

} // namespace

Program::Program(FrontEnd& frontEnd)
    : m_settings(adapters::UserConfigFolder())
    , m_platform(
          {.frontEnd = &frontEnd,
           .files = &m_files,
           .settings = &m_settings,
           .clock = &m_clock,
           .dataAccess = &m_dataAccess,
           .catalogue = &m_catalogue,
           .xml = &m_xml,
           .newScriptHost = [] { return std::make_unique<adapters::ScriptControl>(&TheScriptBoxes()); }}) {
    g_objTrace = std::make_unique<Trace>();
    g_objTrace->SetApplication(TheApplication());
    OpenRoads();
    ProvideDefaultProfile(m_files);
}

Program::~Program() {
    ForgetScreens<frmTemplate, frmIncludes, frmInstall, frmResults, frmScriptResults, frmDDL, frmOptions,
                  frmTip, frmAbout, frmODBCLogon, frmMain>();
    settings::ForgetProcessValues();
    EndSession();
    g_objTrace.reset();
}

} // namespace quillon
