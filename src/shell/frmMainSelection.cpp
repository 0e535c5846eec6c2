// The check boxes of the main screen: operations for all tables, columns for one table or all.
#include "model/AuditObj.h"
#include "platform/FrontEnd.h"
#include "platform/Platform.h"
#include "shell/Session.h"
#include "shell/Trace.h"
#include "shell/frmMain.h"

namespace quillon {
namespace {

CheckBox::State StateOf(bool isTicked) {
    return isTicked ? CheckBox::Ticked : CheckBox::Unticked;
}

void TickFields(mdTable& table, bool isChecked) {
    for (const auto& field : *table.Fields())
        field->SetIsChecked(isChecked);
}

} // namespace

void frmMain::SetSelectionCaptions() {
    chkInsert.SetCaption("Insert");
    chkUpdate.SetCaption("Update");
    chkDelete.SetCaption("Delete");
    chkAll.SetCaption("All Operations");
    chkSelectAll.SetCaption("&Select All");
    chkUnselectAll.SetCaption("&Un-Select All");
    chkAllTables.SetCaption("&All Tables");
}

void frmMain::BindSelection() {
    chkInsert.OnClick = [this] { SetOperation(chkInsert, &mdTable::SetAudit4Insert); };
    chkUpdate.OnClick = [this] { SetOperation(chkUpdate, &mdTable::SetAudit4Update); };
    chkDelete.OnClick = [this] { SetOperation(chkDelete, &mdTable::SetAudit4Delete); };
    chkAll.OnClick = [this] { chkAll_Click(); };
    chkSelectAll.OnClick = [this] { chkSelect_Click(chkSelectAll, true); };
    chkUnselectAll.OnClick = [this] { chkSelect_Click(chkUnselectAll, false); };
}

void frmMain::SetOperation(const CheckBox& box, void (mdTable::*operation)(bool)) {
    g_objTrace->Procedure("frmMain." + box.Name() + "_Click", [&] {
        // Before a database is picked there is nothing to tick.
        if (g_objAudit)
            for (const auto& table : *g_objAudit->Database()->Tables())
                ((*table).*operation)(box.IsTicked());
        grxTables.Refetch();
        if (!m_bolInCheckAll)
            CheckAuditCheckBoxStatus();
    });
}

void frmMain::CheckAuditCheckBoxStatus() {
    g_objTrace->Procedure("frmMain.CheckAuditCheckBoxStatus", [&] {
        m_bolInCheckStatus = true;
        const int sum = chkDelete.Value() + chkInsert.Value() + chkUpdate.Value();
        chkAll.SetValue(sum == 0 ? CheckBox::Unticked : sum == 3 ? CheckBox::Ticked : CheckBox::Greyed);
        m_bolInCheckStatus = false;
    });
}

void frmMain::chkAll_Click() {
    g_objTrace->Procedure("frmMain.chkAll_Click", [&] {
        if (m_bolInCheckStatus)
            return;
        m_bolInCheckAll = true;
        for (CheckBox* box : {&chkDelete, &chkUpdate, &chkInsert})
            box->SetValue(chkAll.Value());
        m_bolInCheckAll = false;
    });
}

// The box that was clicked stays ticked, its partner is cleared: a click that would clear it changes nothing.
void frmMain::chkSelect_Click(const CheckBox& box, bool isChecked) {
    g_objTrace->Procedure("frmMain." + box.Name() + "_Click", [&] {
        if (m_bolInSelect)
            return;
        if (box.IsTicked() && chkAllTables.IsTicked())
            SelectAllFieldsAllTables(isChecked);
        else if (box.IsTicked())
            SelectFields(isChecked);
        ShowSelectBoxes(isChecked);
    });
}

void frmMain::ShowSelectBoxes(bool isChecked) {
    m_bolInSelect = true;
    chkSelectAll.SetValue(StateOf(isChecked));
    chkUnselectAll.SetValue(StateOf(!isChecked));
    m_bolInSelect = false;
}

void frmMain::SelectFields(bool isChecked) {
    g_objTrace->Procedure("frmMain.SelectFields", [&] {
        if (m_bolInSelect || grxTables.ItemCount() == 0)
            return;
        m_bolInSelect = true;
        TickFields(CurrentTable(), isChecked);
        grxFields.Refetch();
        grxTables.Redraw();
        ShowSelectBoxes(isChecked);
    });
}

void frmMain::SelectAll(bool isChecked) {
    g_objTrace->Procedure("frmMain.SelectAll", [&] {
        FrontEnd& frontEnd = ThePlatform().frontEnd();
        frontEnd.SetPointer(Pointer::Hourglass);
        if (grxFields.ItemCount() > 0 && grxTables.ItemCount() > 0) {
            TickFields(CurrentTable(), isChecked);
            RefetchGrid(grxFields, isChecked);
            grxTables.Redraw();
        }
        frontEnd.SetPointer(Pointer::Default);
    });
}

void frmMain::SelectAllFieldsAllTables(bool isChecked) {
    g_objTrace->Procedure("frmMain.SelectAllFieldsAllTables", [&] {
        if (m_bolNoDatabase)
            return DatabaseNotSelected();
        FrontEnd& frontEnd = ThePlatform().frontEnd();
        frontEnd.SetPointer(Pointer::Hourglass);
        for (const auto& table : *TheModel().Database()->Tables())
            TickFields(*table, isChecked);
        grxFields.Refetch();
        grxTables.Refetch();
        frontEnd.SetPointer(Pointer::Default);
    });
}

} // namespace quillon
