#include "architecture/basManageArchitechures.h"

#include "architecture/basArchitectureUtils.h"
#include "execution/basExecScript.h"
#include "execution/frmScriptResults.h"
#include "platform/FrontEnd.h"
#include "platform/Platform.h"
#include "shell/ScreenInstances.h"
#include "shell/Trace.h"

namespace quillon::basManageArchitechures {
namespace {

using Profile = clsQlnTemplate;

constexpr Part parts[] = {
    {"DDL", 0, "ddl", &Profile::SCRIPT_DDL},
    {"Identity", 1, "identity", &Profile::SCRIPT_IDENTITY, true},
    {"Views", 2, "views", &Profile::Script_Views},
    {"Reporting SP Aggregate", 4, "aggregate", &Profile::Script_ReportingSPAggregate},
    {"Reporting SP Standard", 3, "standard", &Profile::Script_ReportingSPStandard},
    {"Delete Data SP", 5, "purge", &Profile::Script_DeleteDataSP},
    {"UndoSPs", 6, "undo", &Profile::Script_UndoSPs},
    {"Delete Architecture", 7, "delete", &Profile::Script_DeleteQlnarchitecture},
    {"Analyze", 8, "analyze", &Profile::SCRIPT_ANALYZE},
};

void Run(std::string script, const std::string& name, RunLog& log) {
    basExecScript::ProcScript(script, name, log);
}

} // namespace

std::span<const Part> Parts() {
    return parts;
}

RunLog InstallParts(std::span<const Part* const> chosen) {
    const Profile& profile = basArchitectureUtils::TheProfile();
    RunLog log;
    for (const Part* part : chosen)
        Run((profile.*part->script)(), part->name, log);
    return log;
}

RunLog Analyze() {
    RunLog log;
    Run("Exec AUDIT_prc_Analyze NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL \r\nGO", "Analyze", log);
    return log;
}

void RunAnalyze() {
    g_objTrace->Procedure("basManageArchitechures.RunAnalyze", [] {
        ThePlatform().frontEnd().SetPointer(Pointer::Hourglass);
        TheScreen<frmScriptResults>().ShowScriptResults(Analyze());
    });
}

void DeleteArchitecture(bool isSilent, bool serverLevelToo) {
    g_objTrace->Procedure("basManageArchitechures.DeleteArchitecture", [&] {
        if (!isSilent && ThePlatform().frontEnd().Message(
                             "Are you sure that you want to drop all auditing structures from this database",
                             "Confirm Operation", Icon::Question, Buttons::OkCancel) != Answer::Ok)
            return;
        RunLog log;
        Run(std::string("Exec AUDIT_prc_DeleteArchitecture ") + (serverLevelToo ? "1" : "0") + "\r\nGO\r\n",
            "Delete QlnA rchitecture", log);
        Run("DROP PROCEDURE AUDIT_prc_DeleteArchitecture\r\nGO",
            "Deleting Procedure AUDIT_prc_DeleteArchitecture", log);
        TheScreen<frmScriptResults>().ShowScriptResults(log);
    });
}

} // namespace quillon::basManageArchitechures
