// What the entries of the menus, the module bar and the tool bar do, and under which guard. Screens that this
// program does not have yet leave their entries visible and disabled.
#include <algorithm>
#include <cctype>

#include "architecture/basArchitectureUtils.h"
#include "architecture/frmInstall.h"
#include "model/basLoadMetaData.h"
#include "platform/FrontEnd.h"
#include "platform/Platform.h"
#include "shell/Application.h"
#include "shell/ScreenInstances.h"
#include "shell/Session.h"
#include "shell/Trace.h"
#include "shell/basProfile.h"
#include "shell/frmAbout.h"
#include "shell/frmMain.h"
#include "shell/frmOptions.h"
#include "shell/frmTip.h"

namespace quillon {
namespace {

struct Module {
    const char* key;
    const char* caption;
    const char* icon;
    bool isThere; // its screen exists
};

// In the order of the bar.
constexpr Module modules[] = {
    {"connect", "Connect", "connect", true},
    {"find", "Select Architecture", "find", true},
    {"install", "Install Auditing", "install", true},
    {"select", "Select All", "select", true},
    {"unselect", "Un-Select All", "unselect", true},
    {"run", "Generate Triggers", "run", true},
    {"templates", "Trigger Templates", "templates", false},
    {"scripts", "Manage Architecture", "scripts", false},
    {"manage triggers", "Manage Triggers", "triggers", false},
    {"manage data", "Manage Data", "data", false},
    {"Delete Auditing", "Delete Auditing", "delete", false},
    {"undo", "UnDo", "undo", false},
    {"standard", "Standard Report", "standard", false},
    {"aggregate", "Aggregate Report", "aggregate", false},
    {"options", "Options", "options", true},
    {"help", "Help", "help", true},
};

struct Tool {
    const char* caption; // none: a separator
    const char* icon;
    bool isThere;
};

// Positions 1 to 18.
constexpr Tool tools[] = {
    {"Select Audit Architecture", "find", true},
    {"Save Profile", "save", true},
    {"Retrieve Profile", "retrieve", true},
    {nullptr, nullptr, false},
    {"(Re) Connect to Database", "connect", true},
    {nullptr, nullptr, false},
    {"Generate Triggers", "run", true},
    {"Stop", "stop", true},
    {nullptr, nullptr, false},
    {"Options", "options", true},
    {nullptr, nullptr, false},
    {"Template Editor", "templates", false},
    {"Delete Auditing", "delete", false},
    {nullptr, nullptr, false},
    {"Standard Report", "standard", false},
    {"Aggregate Report", "aggregate", false},
    {nullptr, nullptr, false},
    {"Help", "help", true},
};

void Stop() {
    g_bolStop = true;
}

std::string Lower(std::string key) {
    std::ranges::transform(key, key.begin(),
                           [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return key;
}

void ShowHelp(const char* topic) {
    ThePlatform().frontEnd().Help(topic);
}

} // namespace

bool frmMain::HasDatabase() {
    if (m_bolNoDatabase)
        DatabaseNotSelected();
    return !m_bolNoDatabase;
}

bool frmMain::HasArchitecture() {
    if (!g_strArchFile.empty())
        return true;
    ThePlatform().frontEnd().Message("You must select a valid audit architecture file first",
                                     "Invalid Operation", Icon::Warning);
    return basArchitectureUtils::OpenArchProfile();
}

void frmMain::Bind(Menu& entry, std::function<void()> command) {
    entry.OnClick = [&entry, command = std::move(command)] {
        g_objTrace->Procedure("frmMain." + entry.Name() + "_Click", command);
    };
}

void frmMain::BindGuarded(Menu& entry, std::function<void()> command) {
    Bind(entry, [this, command = std::move(command)] {
        if (HasDatabase())
            command();
    });
}

void frmMain::ShowCommands() {
    std::vector<ToolBar::Item> items;
    for (const Module& module : modules)
        items.push_back({.Caption = module.caption,
                         .Key = module.key,
                         .Icon = module.icon,
                         .ToolTip = module.caption,
                         .Enabled = module.isThere});
    btnModules.SetItems(std::move(items));
    items.clear();
    for (const Tool& tool : tools)
        if (tool.caption == nullptr)
            items.push_back({.Separator = true});
        else
            items.push_back({.Caption = tool.caption,
                             .Key = tool.icon,
                             .Icon = tool.icon,
                             .ToolTip = tool.caption,
                             .Enabled = tool.isThere});
    asxToolbar1.SetItems(std::move(items));
    for (Menu* menu : {&Menus.mnuTemplateEditor, &Menus.mnuTriggerTemplates, &Menus.mnuManageArchitecture,
                       &Menus.mnuManageTriggers, &Menus.mnuManageData, &Menus.mnuDeleteAuditing,
                       &Menus.mnuUndo, &Menus.mnuReportAggregate, &Menus.mnuReportStandard})
        menu->SetEnabled(false);
    cmdReport.SetEnabled(false);
    for (Menu* menu : {&Menus.mnuTablesRightClick, &Menus.mnuFieldsRightClick, &Menus.mnuTriggersRightClick})
        menu->SetPopUp(true);
    cmdFindTemplate.SetCaption("Select Template");
    cmdBreak.SetCaption("Cancel Processing");
    cmdBreak.SetVisible(false);
    txtTemplate.SetReadOnly(true);
}

void frmMain::BindCommands() {
    ShowCommands();
    BindMenus();
    // A pick by these two asks for no database first, unlike the menu's.
    cmdFindTemplate.OnClick = txtTemplate.OnClick = [] { basArchitectureUtils::OpenArchProfile(); };
    cmdBreak.OnClick = Stop;
    cmdReport.OnClick = [this] { Menus.mnuReportStandard.Click(); };
    btnModules.OnClick = [this](std::size_t, const std::string& key) { PressModule(Lower(key)); };
    asxToolbar1.OnClick = [this](std::size_t position, const std::string&) { PressTool(position); };
}

void frmMain::BindMenus() {
    Menus.mnuFileConnect.OnClick = [this] { mnuFileConnect_Click(); };
    Bind(Menus.mnuExit, [this] { Unload(); });
    BindGuarded(Menus.mnuSelectAuditArchitecture, [] { basArchitectureUtils::OpenArchProfile(); });
    Bind(Menus.mnuFileOpenFile, [this] { Menus.mnuSelectAuditArchitecture.Click(); });
    Bind(Menus.mnuFileGenerateProcs, [this] { Process(); });
    Bind(Menus.mnuStop, Stop);
    Bind(Menus.mnuOptions, [] { TheScreen<frmOptions>().ShowModal(); });
    BindGuarded(Menus.mnuSaveProfile, [] {
        basProfile::SaveProfile();
        ThePlatform().frontEnd().Message("Profile updated", "Status", Icon::Information);
    });
    BindGuarded(Menus.mnuRetrieve, [] { basProfile::RetrieveProfile(); });
    Bind(Menus.mnuSelectAll, [this] { SelectAllFieldsAllTables(true); });
    Bind(Menus.mnuUnSelectAll, [this] { SelectAllFieldsAllTables(false); });
    BindGuarded(Menus.mnuInstallAuditing, [this] {
        if (HasArchitecture())
            TheScreen<frmInstall>().ShowModal();
    });
    Bind(Menus.mnuHelpContents, [] { ShowHelp(""); });
    Bind(Menus.mnuHelpIndex, [] { ShowHelp(""); });
    Bind(Menus.mnuSupport, [] { ThePlatform().frontEnd().OpenWebPage(SupportPage); });
    Bind(Menus.mnuTooltips, [] { TheScreen<frmTip>().ShowModal(); });
    Bind(Menus.mnuaboutStonemere, [] { TheScreen<frmAbout>().ShowModal(); });
    Bind(Menus.mnuFieldsSelectAll, [this] { SelectAll(true); });
    Bind(Menus.mnuFieldsUnSelectAll, [this] { SelectAll(false); });
    Bind(Menus.mnuViewTriggerDDL, [this] { grxTriggers_DblClick(); });
    Bind(Menus.mnuViewTableDDL, [this] { grxTables_DblClick(); });
    Bind(Menus.mnuRefresh, [] { basLoadMetaData::ReloadTriggers(); });
}

// The two bars ask for a database before they ask for the run, which asks again.
void frmMain::ProcessSelection() {
    if (HasDatabase())
        Process();
}

void frmMain::PressModule(const std::string& key) {
    g_objTrace->Procedure("frmMain.btnModules_ItemClick", [&] {
        if (key == "connect")
            mnuFileConnect_Click();
        else if (key == "help")
            ShowHelp("");
        else if (key == "options")
            Menus.mnuOptions.Click();
        else if (key == "select")
            chkSelectAll.SetValue(CheckBox::Ticked);
        else if (key == "unselect")
            chkUnselectAll.SetValue(CheckBox::Ticked);
        else if (key == "run")
            ProcessSelection();
        else if (key == "find")
            Menus.mnuSelectAuditArchitecture.Click();
        else if (key == "install")
            Menus.mnuInstallAuditing.Click();
    });
}

void frmMain::PressTool(std::size_t position) {
    g_objTrace->Procedure("frmMain.asxToolbar1_ButtonClick", [&] {
        switch (position) {
        case 1: Menus.mnuSelectAuditArchitecture.Click(); break;
        case 2: Menus.mnuSaveProfile.Click(); break;
        case 3: Menus.mnuRetrieve.Click(); break;
        case 5: mnuFileConnect_Click(); break;
        case 7: ProcessSelection(); break;
        case 8: Stop(); break;
        case 10: Menus.mnuOptions.Click(); break;
        case 18: ShowHelp("Create Query.htm"); break;
        default: break;
        }
    });
}

} // namespace quillon
