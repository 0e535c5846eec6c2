// The generation run: the user's ticks become audit triggers, one table after another, and the script is
// handed on.
#include <algorithm>
#include <limits>

#include "model/AuditObj.h"
#include "model/basDbaseFunctions.h"
#include "platform/Failure.h"
#include "platform/FailureNumbers.h"
#include "platform/Files.h"
#include "platform/FrontEnd.h"
#include "platform/Platform.h"
#include "shell/CreateOutput.h"
#include "shell/ScreenInstances.h"
#include "shell/Session.h"
#include "shell/Trace.h"
#include "shell/frmMain.h"
#include "template/basStringFunctions.h"
#include "template/frmTemplate.h"

namespace quillon {

// A failure in here leaves progress, text and pointer as they are; the next run clears them.
void frmMain::Process() {
    g_objTrace->Procedure("frmMain.Process", [&] {
        if (m_bolNoDatabase)
            DatabaseNotSelected();
        else if (HasArchitecture() && ProcessValidation())
            GenerateTriggers();
        ProgressBar1.SetValue(0);
        stbStatus.SetPanel(ProgressPanel, "");
        cmdBreak.SetVisible(false);
        g_bolStop = false;
        ThePlatform().frontEnd().SetPointer(Pointer::Default);
    });
}

// The database as a whole is looked at, not each table: columns here and operations there pass, and the run
// then finds no table to do.
bool frmMain::ProcessValidation() {
    return g_objTrace->Procedure("frmMain.ProcessValidation", [&] {
        constexpr const char* nothingTicked = "No Fields Selected for Audit";
        FrontEnd& frontEnd = ThePlatform().frontEnd();
        const auto& tables = *TheModel().Database()->Tables();
        if (std::ranges::none_of(tables,
                                 [](const auto& table) { return table->IsOneFieldSelectedForAudit(); })) {
            frontEnd.Message("At least one field must be selected for Auditing", nothingTicked,
                             Icon::Warning);
            return false;
        }
        if (std::ranges::none_of(tables,
                                 [](const auto& table) { return table->IsOneAuditOperationSelected(); })) {
            frontEnd.Message("At least one table must be selected for Auditing", nothingTicked,
                             Icon::Warning);
            return false;
        }
        if (basStringFunctions::Trim(txtTemplate.Text()).empty()) {
            frontEnd.Message("A valid Architecture Profile file (*.qlnx) must be selected",
                             "Missing Architecture Profile", Icon::Warning);
            txtTemplate.SetFocus();
            return false;
        }
        return true;
    });
}

void frmMain::GenerateTriggers() {
    ThePlatform().frontEnd().SetPointer(Pointer::Hourglass);
    cmdBreak.SetVisible(true);
    // No run writes this file any more; one that older runs left behind must not be taken for this run's.
    g_strOutputFile = ThePlatform().files().ApplicationFolder() + "\\Audit_Triggers.sql";
    basDbaseFunctions::KillAFile(g_strOutputFile);
    Repaint();
    grxTables.Redraw();
    ProgressBar1.SetValue(0);
    stbStatus.SetPanel(ProgressPanel, "Creating Triggers ...");
    ProgressBar1.SetMaximum(g_objAudit->Database()->AuditedTableCount());
    if (GenerateTables() && !g_bolStop)
        basDbaseFunctions::CreateOutput();
}

// False when a template failed; the user has been told then.
bool frmMain::GenerateTables() {
    const auto model = g_objAudit;
    const auto database = model->Database();
    std::int16_t counter = 0;
    for (const auto& table : *database->Tables()) {
        ThePlatform().frontEnd().DoEvents();
        // A script made of two databases would be worse than none.
        if (g_objAudit != model)
            throw Failure(numbers::ObjectNotSet, "The database was changed while its triggers were made");
        if (model->Cancelled()) {
            model->SetCancelled(false);
            break;
        }
        if (!table->IsSelectedForAudit())
            continue;
        if (counter == std::numeric_limits<std::int16_t>::max())
            throw Failure(numbers::Overflow);
        basDbaseFunctions::SetFirstLast(++counter, *table);
        const std::string name = table->Owner() + "." + table->Name();
        database->SetActiveTable(table);
        if (g_bolStop)
            break;
        if (TheScreen<frmTemplate>().ProcessTemplateBatch(ProgressBar1.Value() == 0, name) != 0)
            return false;
        ProgressBar1.SetValue(ProgressBar1.Value() + 1);
        stbStatus.SetPanel(ProgressPanel, "Creating Trigger(s) for " + name);
    }
    return true;
}

} // namespace quillon
