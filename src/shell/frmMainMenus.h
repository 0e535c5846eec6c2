// The menus of the main screen: what stands in them, in order. What an entry does is bound in
// frmMainCommands.cpp.
#pragma once

#include "platform/Bars.h"

namespace quillon {

struct frmMainMenus {
    explicit frmMainMenus(Screen& owner)
        : screen(owner) {}

    Screen& screen;

    Menu mnuFile{screen, "mnuFile", "&File"};
    Menu mnuFileConnect{screen, "mnuFileConnect", "(Re) &Connect to Database ...", &mnuFile};
    Menu mnuFileOpenFile{screen, "mnuFileOpenFile", "&Select Audit Architecture", &mnuFile};
    Menu mnuFileSeparator{screen, "mnuFileSeparator", "-", &mnuFile};
    Menu mnuExit{screen, "mnuExit", "&Exit", &mnuFile};

    Menu mnuEdit{screen, "mnuEdit", "&Edit"};
    Menu mnuSelectAll{screen, "mnuSelectAll", "&Select All Fields for All Tables", &mnuEdit};
    Menu mnuUnSelectAll{screen, "mnuUnSelectAll", "&Un-Select All Fields for All Tables", &mnuEdit};
    Menu mnuEditSeparator{screen, "mnuEditSeparator", "-", &mnuEdit};
    Menu mnuSaveProfile{screen, "mnuSaveProfile", "&Save Profile", &mnuEdit};
    Menu mnuRetrieve{screen, "mnuRetrieve", "&Retrieve Profile", &mnuEdit};

    Menu mnuRun{screen, "mnuRun", "&Run"};
    Menu mnuFileGenerateProcs{screen, "mnuFileGenerateProcs", "&Generate Triggers ...", &mnuRun};
    Menu mnuStop{screen, "mnuStop", "&Stop", &mnuRun};

    Menu mnuArchitecture{screen, "mnuArchitecture", "&Architecture"};
    Menu mnuSelectAuditArchitecture{screen, "mnuSelectAuditArchitecture", "&Select Audit Architecture",
                                    &mnuArchitecture};
    Menu mnuTriggerTemplates{screen, "mnuTriggerTemplates", "&Trigger Templates", &mnuArchitecture};
    Menu mnuManageArchitecture{screen, "mnuManageArchitecture", "&Manage Architecture", &mnuArchitecture};
    Menu mnuInstallAuditing{screen, "mnuInstallAuditing", "&Install Auditing", &mnuArchitecture};
    Menu mnuManageTriggers{screen, "mnuManageTriggers", "Manage T&riggers", &mnuArchitecture};
    Menu mnuManageData{screen, "mnuManageData", "Manage &Data", &mnuArchitecture};
    Menu mnuDeleteAuditing{screen, "mnuDeleteAuditing", "Delete &Auditing", &mnuArchitecture};
    Menu mnuUndo{screen, "mnuUndo", "&UnDo", &mnuArchitecture};

    Menu mnuReports{screen, "mnuReports", "Re&ports"};
    Menu mnuReportAggregate{screen, "mnuReportAggregate", "&Aggregate ...", &mnuReports};
    Menu mnuReportStandard{screen, "mnuReportStandard", "&Standard ...", &mnuReports};

    Menu mnuTools{screen, "mnuTools", "&Tools"};
    Menu mnuTemplateEditor{screen, "mnuTemplateEditor", "&Template Editor", &mnuTools};
    Menu mnuOptions{screen, "mnuOptions", "&Options ...", &mnuTools};

    Menu mnuHelp{screen, "mnuHelp", "&Help"};
    Menu mnuHelpContents{screen, "mnuHelpContents", "&Contents ...", &mnuHelp};
    Menu mnuHelpIndex{screen, "mnuHelpIndex", "&Index ...", &mnuHelp};
    Menu mnuSupport{screen, "mnuSupport", "Contact &Support", &mnuHelp};
    Menu mnuTooltips{screen, "mnuTooltips", "&Tip of the Day", &mnuHelp};
    Menu mnuaboutStonemere{screen, "mnuaboutStonemere", "&About Harrowgate Quillon ...", &mnuHelp};

    // --- at the pointer ---
    Menu mnuTablesRightClick{screen, "mnuTablesRightClick", "Tables"};
    Menu mnuViewTableDDL{screen, "mnuViewTableDDL", "&View DDL", &mnuTablesRightClick};
    Menu mnuRefresh{screen, "mnuRefresh", "&Refresh", &mnuTablesRightClick};
    Menu mnuFieldsRightClick{screen, "mnuFieldsRightClick", "Fields"};
    Menu mnuFieldsSelectAll{screen, "mnuFieldsSelectAll", "Select &All", &mnuFieldsRightClick};
    Menu mnuFieldsUnSelectAll{screen, "mnuFieldsUnSelectAll", "&U&n-Select All", &mnuFieldsRightClick};
    Menu mnuTriggersRightClick{screen, "mnuTriggersRightClick", "Triggers"};
    Menu mnuViewTriggerDDL{screen, "mnuViewTriggerDDL", "View DDL", &mnuTriggersRightClick};
};

} // namespace quillon
