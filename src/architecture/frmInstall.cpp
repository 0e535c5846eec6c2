#include "architecture/frmInstall.h"

#include "architecture/basArchAnalyze.h"
#include "architecture/basArchitectureUtils.h"
#include "architecture/basManageArchitechures.h"
#include "execution/frmScriptResults.h"
#include "platform/FrontEnd.h"
#include "platform/Platform.h"
#include "shell/ScreenInstances.h"
#include "shell/Trace.h"
#include "shell/frmMain.h"

namespace quillon {
namespace {

namespace manage = basManageArchitechures;

constexpr const char* boxCaptions[] = {"DDL",
                                       "Handle Identity Increment",
                                       "Audit View",
                                       "Standard Report",
                                       "Aggregate Report",
                                       "Purge Audit Log",
                                       "Transaction UnDo",
                                       "Delete Architecture",
                                       "Analyze Architecture"};

} // namespace

frmInstall::frmInstall()
    : Screen("frmInstall") {
    SetTitle("Install Architechure");
    SetCaptions();
    for (OptionButton& option : optOption)
        option.OnClick = [this] { EnableControls(); };
    cmdRun.OnClick = [this] { cmdRun_Click(); };
    cmdClose.OnClick = [this] { Unload(); };
    cmdHelp.OnClick = [] { ThePlatform().frontEnd().Help("Install.htm"); };
}

void frmInstall::SetCaptions() {
    optOption[Add].SetCaption("Add Architecture Structures to this Database");
    optOption[Remove].SetCaption("&Remove All Architecture Structures");
    optOption[Analyze].SetCaption("&Analyze this database for existance of Auditing structures");
    fraDatabase.SetCaption("Database Level Objects:");
    fraServer.SetCaption("Server Level Objects:");
    for (CheckBox& box : chkAdd)
        box.SetCaption(boxCaptions[box.Index()]);
    optRemoveDatabase[0].SetCaption("This database only");
    optRemoveDatabase[1].SetCaption("Server Level Objects too (Master and TempDB)");
    lblRemoveDesc.SetCaption(
        "Server Level objects include those structures Related to Handling Identity Insert issue with "
        "Triggers.  "
        "These scripts are located in \"Handle Identity Increment\" and affect TempDB and Master Databases.");
    cmdRun.SetCaption("&Run");
    cmdClose.SetCaption("&Close");
    cmdHelp.SetCaption("&Help");
}

void frmInstall::Form_Load() {
    g_objTrace->Procedure("frmInstall.Form_Load", [&] {
        if (!basArchitectureUtils::CheckForArch()) {
            Unload();
            return;
        }
        SetChoices();
        Check2SeeIfObjectsExist();
        EnableControls();
    });
}

// What most people come for: all of it, into this database alone.
void frmInstall::SetChoices() {
    for (const manage::Part& part : manage::Parts())
        chkAdd[part.box].SetValue(part.isServerLevel ? CheckBox::Unticked : CheckBox::Ticked);
    optRemoveDatabase[0].SetValue(true);
    optOption[Add].SetValue(true);
}

void frmInstall::Check2SeeIfObjectsExist() {
    g_objTrace->Procedure("frmInstall.Check2SeeIfObjectsExist", [&] {
        bool canAnalyze = false, canRemove = false;
        basArchAnalyze::Analyze_AnalyzeAndRemove(canAnalyze, canRemove);
        if (!canAnalyze || !canRemove)
            ThePlatform().frontEnd().Message(
                "Missing Architecture structures for this database will \r\n"
                "mean Removing and/or Analysis operations can't be performed\r\n\r\n"
                "To make this functions operations Install the 'Add Architecture ...' scripts",
                "Missing Structures Identified", Icon::Information);
        optOption[Remove].SetEnabled(canRemove);
        optOption[Analyze].SetEnabled(canAnalyze);
    });
}

void frmInstall::EnableControls() {
    for (CheckBox& box : chkAdd)
        box.SetEnabled(optOption[Add].Value());
    for (OptionButton& option : optRemoveDatabase)
        option.SetEnabled(optOption[Remove].Value());
    lblRemoveDesc.SetEnabled(optOption[Remove].Value());
}

void frmInstall::cmdRun_Click() {
    g_objTrace->Procedure("frmInstall.cmdRun_Click", [&] {
        if (optOption[Add].Value()) {
            AddScripts();
            TheScreen<frmMain>().Repaint();
            Check2SeeIfObjectsExist();
        } else if (optOption[Remove].Value()) {
            manage::DeleteArchitecture(false, optRemoveDatabase[1].Value());
            Check2SeeIfObjectsExist();
        } else {
            manage::RunAnalyze();
        }
        optOption[Add].SetValue(true);
    });
}

void frmInstall::AddScripts() {
    g_objTrace->Procedure("frmInstall.AddScripts", [&] {
        FrontEnd& frontEnd = ThePlatform().frontEnd();
        std::vector<const manage::Part*> chosen;
        for (const manage::Part& part : manage::Parts())
            if (chkAdd[part.box].IsTicked())
                chosen.push_back(&part);
        if (chosen.empty()) {
            frontEnd.Message("No Installation scripts were seleted to run", "Invalid Operation",
                             Icon::Warning);
            return;
        }
        if (frontEnd.Message("Are you sure you want to run this installation script(s)", "Confirm Operation",
                             Icon::Question, Buttons::OkCancel) != Answer::Ok)
            return;
        frontEnd.SetPointer(Pointer::Hourglass);
        TheScreen<frmScriptResults>().ShowScriptResults(manage::InstallParts(chosen));
    });
}

void frmInstall::Form_KeyDown(Key key, int /*shift*/) {
    if (key == Key::Enter)
        cmdRun_Click();
    else if (key == Key::Escape)
        Unload();
}

} // namespace quillon
