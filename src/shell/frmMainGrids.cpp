// The three grids of the main screen: tables, and the columns and triggers of the current one. They hold no
// data: each asks the model for a row when it needs one and reports edits back.
#include "model/AuditObj.h"
#include "model/ServerObjects.h"
#include "model/basLoadMetaData.h"
#include "platform/Conversion.h"
#include "platform/Files.h"
#include "platform/FrontEnd.h"
#include "platform/Platform.h"
#include "shell/Session.h"
#include "shell/SessionRoads.h"
#include "shell/Trace.h"
#include "shell/frmMain.h"
#include "template/basStringFunctions.h"

namespace quillon {
namespace {

using Column = Grid::Column;
using Kind = Grid::ColumnKind;

enum Icon : int { NoIcon, PlainIcon, TickedIcon, YesIcon, NoNullIcon };

Column Text(const char* name, Grid::SortKind sort = Grid::SortKind::Text) {
    return {.Caption = name, .Key = name, .Sort = sort};
}
Column Tick(const char* name) {
    return {.Caption = name, .Key = name, .Kind = Kind::Check, .Editable = true};
}
Column Picture(const char* name) {
    return {.Caption = name, .Key = name, .Kind = Kind::Icon};
}

mdTables& Tables() {
    return *TheModel().Database()->Tables();
}

std::string Cell(Grid& grid, int column) {
    return conversion::ToText(grid.CellValue(grid.Row(), column));
}

std::string TrimmedCell(Grid& grid, int column) {
    return std::string(basStringFunctions::Trim(Cell(grid, column)));
}

// Icons are decoration: whatever goes wrong while one is looked up, the cell has none.
template <class Fetch>
std::function<int(int, int)> Icons(Fetch fetch) {
    return [fetch](int row, int column) {
        int icon = NoIcon;
        IgnoringFailures([&] { icon = fetch(row, column); });
        return icon;
    };
}

} // namespace

void frmMain::Load_GridExColumns() {
    g_objTrace->Procedure("frmMain.Load_GridExColumns", [&] {
        grxTables.SetColumns({Text("Table"), Text("Owner"), Tick("Insert"), Tick("Update"), Tick("Delete"),
                              Picture("Audited")});
        grxFields.SetColumns({Tick("Audit"), Text("Field"), Text("Datatype"), Picture("Nullable")});
        grxFields.SetMultiSelect(true);
        grxTriggers.SetColumns({Tick("Enabled"), Text("Name"), Text("Owner"),
                                Text("Created", Grid::SortKind::Date), Picture("I"), Picture("U"),
                                Picture("D")});
        BindTables();
        BindFields();
        BindTriggers();
    });
}

void frmMain::BindTables() {
    grxTables.ReadRow = [](int row) -> std::vector<Value> {
        mdTable& table = *Tables().At(row);
        return {table.Name(), table.Owner(), table.Audit4Insert(), table.Audit4Update(),
                table.Audit4Delete()};
    };
    grxTables.UnboundUpdate = [](int row, const std::vector<Value>& values) {
        g_objTrace->Procedure("frmMain.grxTables_UnboundUpdate", [&] {
            mdTable& table = *Tables().At(row);
            table.SetAudit4Insert(conversion::ToBoolean(values.at(2)));
            table.SetAudit4Update(conversion::ToBoolean(values.at(3)));
            table.SetAudit4Delete(conversion::ToBoolean(values.at(4)));
        });
    };
    grxTables.OnAfterColUpdate = [this](int column) {
        g_objTrace->Procedure("frmMain.grxTables_AfterColUpdate", [&] {
            mdTable& table = CurrentTable();
            const bool isTicked = conversion::ToBoolean(grxTables.CellValue(grxTables.Row(), column));
            switch (column) {
            case 3: table.SetAudit4Insert(isTicked); break;
            case 4: table.SetAudit4Update(isTicked); break;
            case 5: table.SetAudit4Delete(isTicked); break;
            default: break;
            }
        });
    };
    grxTables.FetchIcon = Icons([](int row, int column) -> int {
        mdTable& table = *Tables().At(row);
        if (column == 1)
            return table.IsOneFieldSelectedForAudit() ? TickedIcon : PlainIcon;
        return column == 6 && table.IsAudited() ? YesIcon : NoIcon;
    });
    grxTables.OnClick = grxTables.OnSelectionChange = [this] { grxTables_Click(); };
    grxTables.OnDoubleClick = [this] { grxTables_DblClick(); };
    grxTables.OnKeyDown = [this](Key key) {
        if (key == Key::Enter)
            grxTables_DblClick();
    };
    grxTables.OnRightClick = [this] { ThePlatform().frontEnd().PopUpMenu(Menus.mnuTablesRightClick); };
}

void frmMain::BindFields() {
    grxFields.ReadRow = [this](int row) -> std::vector<Value> {
        const mdFields& fields = *CurrentTable().Fields();
        if (row > fields.Count())
            return {};
        const mdField& field = *fields.At(row);
        return {field.IsChecked(), field.Name(), field.SQL_Datatype(), field.IsNullable()};
    };
    grxFields.FetchIcon = Icons([this](int row, int column) -> int {
        mdTable& table = CurrentTable();
        const mdField& field = *table.Fields()->At(row);
        if (column == 2)
            return basLoadMetaData::IsKey(table, field.Name()) ? TickedIcon : PlainIcon;
        return column == 4 ? (field.IsNullable() ? YesIcon : NoNullIcon) : NoIcon;
    });
    grxFields.OnClick = [this] { grxFields_Click(); };
    grxFields.OnLostFocus = [this] { grxTables.Redraw(); };
    grxFields.OnRightClick = [this] { ThePlatform().frontEnd().PopUpMenu(Menus.mnuFieldsRightClick); };
}

void frmMain::BindTriggers() {
    grxTriggers.ReadRow = [this](int row) -> std::vector<Value> {
        const mdTriggers& triggers = *CurrentTable().Triggers();
        if (row > triggers.Count())
            return {};
        const mdTrigger& trigger = *triggers.At(row);
        return {trigger.Enabled(), trigger.Name(), trigger.Owner(), trigger.CreateDate()};
    };
    grxTriggers.FetchIcon = Icons([this](int row, int column) -> int {
        const mdTrigger& trigger = *CurrentTable().Triggers()->At(row);
        const bool isMarked = (column == 5 && trigger.IsInsert()) || (column == 6 && trigger.IsUpdate()) ||
                              (column == 7 && trigger.IsDelete());
        return isMarked ? YesIcon : NoIcon;
    });
    grxTriggers.OnClick = [this] { grxTriggers_Click(); };
    grxTriggers.OnDoubleClick = [this] { grxTriggers_DblClick(); };
    grxTriggers.OnKeyDown = [this](Key key) {
        if (key == Key::Enter)
            grxTriggers_DblClick();
    };
    grxTriggers.OnRightClick = [this] { ThePlatform().frontEnd().PopUpMenu(Menus.mnuTriggersRightClick); };
}

std::string frmMain::GetOwnObjectFromForm() {
    return QualifiedName(TrimmedCell(grxTables, 2), TrimmedCell(grxTables, 1));
}

std::string frmMain::GetOwnTriggerFromForm() {
    return QualifiedName(TrimmedCell(grxTriggers, 3), TrimmedCell(grxTriggers, 2));
}

mdTable& frmMain::CurrentTable() {
    return *Tables().Named(GetOwnObjectFromForm());
}

void frmMain::grxTables_Click() {
    g_objTrace->Procedure("frmMain.grxTables_Click", [&] {
        if (grxTables.ItemCount() == 0)
            return;
        const std::string name = Cell(grxTables, 1);
        // Only the name is compared: two tables of one name under different owners show the first one's rows.
        if (name == m_strCurrentTable)
            return;
        m_strCurrentTable = name;
        if (!m_bolLoading) {
            m_bolInSelect = true;
            chkUnselectAll.SetValue(CheckBox::Unticked);
            chkSelectAll.SetValue(CheckBox::Unticked);
            if (!basStringFunctions::Trim(name).empty())
                ShowCurrentTable();
        }
        m_bolInSelect = false;
    });
}

// The pointer is left alone by a call that comes while it is the hourglass already.
void frmMain::ShowCurrentTable() {
    TheModel().Database()->SetActiveTable(Tables().Named(GetOwnObjectFromForm()));
    FrontEnd& frontEnd = ThePlatform().frontEnd();
    const bool isIdle = frontEnd.CurrentPointer() == Pointer::Default;
    if (isIdle)
        frontEnd.SetPointer(Pointer::Hourglass);
    grxFields.SetItemCount(CurrentTable().Fields()->Count());
    grxFields.Refetch();
    ShowTriggers();
    if (isIdle)
        frontEnd.SetPointer(Pointer::Default);
}

void frmMain::ShowTriggers() {
    grxTriggers.SetItemCount(grxTables.ItemCount() == 0 ? 0 : CurrentTable().Triggers()->Count());
    grxTriggers.Refetch();
}

// A column that cannot be audited keeps its tick on the screen until the grid is read anew; the model refused
// it.
void frmMain::grxFields_Click() {
    g_objTrace->Procedure("frmMain.grxFields_Click", [&] {
        if (grxFields.ItemCount() == 0)
            return;
        mdField& field = *CurrentTable().Fields()->Named(Cell(grxFields, 2));
        field.SetIsChecked(conversion::ToBoolean(grxFields.CellValue(grxFields.Row(), 1)));
        grxTables.Redraw();
    });
}

void frmMain::grxTriggers_Click() {
    g_objTrace->Procedure("frmMain.grxTriggers_Click", [&] {
        if (grxTriggers.ItemCount() == 0)
            return;
        mdTrigger& trigger = *CurrentTable().Triggers()->Named(GetOwnTriggerFromForm());
        trigger.SetEnabled(conversion::ToBoolean(grxTriggers.CellValue(grxTriggers.Row(), 1)));
    });
}

// What the catalogue says now, not what the model remembers.
void frmMain::grxTables_DblClick() {
    g_objTrace->Procedure("frmMain.grxTables_DblClick", [&] {
        if (grxTables.ItemCount() == 0)
            return;
        ThePlatform().frontEnd().SetPointer(Pointer::Hourglass);
        const std::string owner = TrimmedCell(grxTables, 2), name = TrimmedCell(grxTables, 1);
        ShowScript(TableOnServer(owner, name).Script(catalogue::ScriptDefault), QualifiedName(owner, name));
    });
}

void frmMain::grxTriggers_DblClick() {
    g_objTrace->Procedure("frmMain.grxTriggers_DblClick", [&] {
        if (grxTriggers.ItemCount() == 0)
            return;
        ThePlatform().frontEnd().SetPointer(Pointer::Hourglass);
        const std::string owner = TrimmedCell(grxTriggers, 3), name = TrimmedCell(grxTriggers, 2);
        auto& trigger = TriggerOnServer(TrimmedCell(grxTables, 2), TrimmedCell(grxTables, 1), owner, name);
        ShowScript(trigger.Script(catalogue::ScriptDefault), QualifiedName(owner, name));
    });
}

void frmMain::ShowScript(const std::string& script, const std::string& name) {
    Files& files = ThePlatform().files();
    g_strOutputFile = files.ApplicationFolder() + "\\sqlscript.sql";
    const std::string text = script.substr(0, script.find_last_not_of("\r\n") + 1);
    const auto file = files.OpenOutput(g_strOutputFile);
    file->WriteLine(basStringFunctions::Trim(text));
    file->Close();
    ThePlatform().frontEnd().SetPointer(Pointer::Default);
    TheRoads().ShowDDL(name, g_strOutputFile);
}

void frmMain::RefetchGrid(Grid& grid, bool keepsSelection) {
    g_objTrace->Procedure("frmMain.RefetchGrid", [&] {
        const std::vector<int> selected = grid.SelectedRows();
        grid.Refetch();
        if (!keepsSelection || selected.empty())
            return;
        grid.SetRow(selected.front());
        grid.SetSelectedRows(selected);
    });
}

} // namespace quillon
