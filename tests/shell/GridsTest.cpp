// The three grids: what they show, what an edit does to the model and the server, what a double click opens.
#include "FilledSession.h"
#include "model/basLoadMetaData.h"
#include "platform/Conversion.h"
#include "platform/FailureNumbers.h"

namespace quillon::tests {
namespace {

using Lines = std::vector<std::string>;

class GridsTest : public FilledSession {
  protected:
    GridsTest()
        : customer(*sales.Tables.front())
        , trigger(customer.AddTrigger("audit", "AUDIT_Update_Customer", catalogue::TriggerUpdate, "")) {
        AddTriggerToModel("AUDIT_Update_Customer", catalogue::TriggerUpdate);
        Show();
    }
    static void AddTriggerToModel(const char* name, std::int16_t type) {
        Table("dbo.Customer").Triggers()->Add(name, "audit", type, DateValue{36527}, true, "Customer", "dbo");
    }
    static Lines Captions(const Grid& grid) {
        Lines captions;
        for (const auto& column : grid.Columns()) {
            EXPECT_EQ(column.Caption, column.Key);
            captions.push_back(column.Caption);
        }
        return captions;
    }
    static Lines Row(Grid& grid, int row, int columns) {
        Lines cells;
        for (int column = 1; column <= columns; ++column)
            cells.push_back(conversion::ToText(grid.CellValue(row, column)));
        return cells;
    }
    static std::string IconsOf(const Grid& grid, int row) {
        std::string icons;
        for (int column = 1; column <= static_cast<int>(grid.Columns().size()); ++column)
            icons += std::to_string(grid.CellIcon(row, column));
        return icons;
    }

    FakeTable& customer;
    FakeTrigger& trigger;
};

TEST_F(GridsTest, ShowTheModelInColumnsAndIcons) {
    EXPECT_EQ(Captions(Main().grxTables), (Lines{"Table", "Owner", "Insert", "Update", "Delete", "Audited"}));
    EXPECT_EQ(Captions(Main().grxFields), (Lines{"Audit", "Field", "Datatype", "Nullable"}));
    EXPECT_EQ(Captions(Main().grxTriggers), (Lines{"Enabled", "Name", "Owner", "Created", "I", "U", "D"}));

    Table("dbo.Order").SetAudit4Update(true);
    Field("dbo.Order", "2024").SetIsChecked(true);
    EXPECT_EQ(Row(Main().grxTables, 2, 5), (Lines{"Order", "dbo", "False", "True", "False"}));
    EXPECT_EQ(IconsOf(Main().grxTables, 1), "100003"); // nothing ticked, but triggers
    EXPECT_EQ(IconsOf(Main().grxTables, 2), "200000"); // a column ticked, no triggers
    EXPECT_EQ(IconsOf(Main().grxTables, 9), "000000");

    auto key = std::make_shared<mdPrimaryKeyField>();
    key->SetName("id");
    Table("dbo.Customer").PrimaryKeyFields()->Add(key);
    Field("dbo.Customer", "name").SetIsNullable(true);
    EXPECT_EQ(Row(Main().grxFields, 2, 3), (Lines{"False", "name", "nvarchar"}));
    EXPECT_EQ(IconsOf(Main().grxFields, 1), "0204");
    EXPECT_EQ(IconsOf(Main().grxFields, 2), "0103");

    EXPECT_EQ(Row(Main().grxTriggers, 1, 4), (Lines{"True", "AUDIT_Update_Customer", "audit", "1/2/2000"}));
    EXPECT_EQ(IconsOf(Main().grxTriggers, 1), "0000030");
}

TEST_F(GridsTest, ATickInACellGoesToTheModel) {
    Main().grxTables.EditCell(2, 3, true);
    Main().grxTables.EditCell(2, 5, true);
    Main().grxTables.EditCell(1, 4, true);
    Main().grxTables.EditCell(2, 3, false);
    EXPECT_EQ(Operations(), "-U- --D ---");

    Main().grxTables.SetRow(2);
    Main().grxFields.EditCell(2, 1, true); // a column named by digits alone
    Main().grxTables.SetRow(1);
    Main().grxFields.EditCell(1, 1, true);
    EXPECT_EQ(Ticked(), "Customer.id Order.2024");
}

TEST_F(GridsTest, AnImageIsRefusedInTheModelAndShowsItsTickUntilTheGridIsReadAnew) {
    Main().grxFields.EditCell(3, 1, true);
    EXPECT_EQ(Ticked(), "");
    Main().grxFields.CellValue(1, 1); // another row is painted
    EXPECT_EQ(Row(Main().grxFields, 3, 2), (Lines{"True", "photo"}));
    Main().grxFields.Refetch();
    EXPECT_EQ(Row(Main().grxFields, 3, 2), (Lines{"False", "photo"}));
}

TEST_F(GridsTest, AnotherRowShowsItsTableAndClearsTheSelectBoxes) {
    EXPECT_EQ(Main().grxFields.ItemCount(), 3);
    EXPECT_EQ(Main().grxTriggers.ItemCount(), 1);
    Main().chkSelectAll.Click();
    Main().grxTables.SetRow(2);
    EXPECT_FALSE(Main().chkSelectAll.IsTicked());
    EXPECT_EQ(g_objAudit->Database()->ActiveTable()->Name(), "Order");
    EXPECT_EQ(Main().grxFields.ItemCount(), 2);
    EXPECT_EQ(Main().grxTriggers.ItemCount(), 0);
    EXPECT_EQ(Row(Main().grxFields, 1, 2), (Lines{"False", "id"}));
    EXPECT_EQ(Ticked(), "Customer.id Customer.name");
    EXPECT_EQ(frontEnd.CurrentPointer(), Pointer::Default);
}

// Only names are compared, and nothing is read while a database is being picked.
TEST_F(GridsTest, TheSameNameAndALoadLeaveTheOtherGridsAlone) {
    const int read = Main().grxFields.Generation();
    Main().grxTables_Click();
    Main().m_bolLoading = true;
    Main().grxTables.SetRow(2);
    EXPECT_EQ(Main().m_strCurrentTable, "Order");
    EXPECT_EQ(Main().grxFields.Generation(), read);
    EXPECT_EQ(g_objAudit->Database()->ActiveTable()->Name(), "Customer");
}

TEST_F(GridsTest, TheCursorIsLeftAloneWhileItIsTheHourglass) {
    StartLog();
    Main().grxTables.SetRow(2);
    EXPECT_EQ(plan.Log, (Lines{"FrontEnd.SetPointer Hourglass", "FrontEnd.SetPointer Default"}));
    frontEnd.SetPointer(Pointer::Hourglass);
    StartLog();
    Main().grxTables.SetRow(1);
    EXPECT_EQ(plan.Log, Lines{});
}

// A run leaves another table active; the grids still show, and act on, the table of the current row.
TEST_F(GridsTest, FollowTheCurrentRowAndNotTheActiveTable) {
    g_objAudit->Database()->SetActiveTable(Tables().Named("hr.Letter"));
    AddTriggerToModel("AUDIT_Insert_Customer", catalogue::TriggerInsert);
    basLoadMetaData::ReloadTriggers(); // what a run ends with; the server knows no trigger of ours
    EXPECT_EQ(Main().grxTriggers.ItemCount(), 0);
    Main().grxFields.Refetch();
    EXPECT_EQ(Row(Main().grxFields, 2, 2), (Lines{"False", "name"}));
    trigger.ScriptText = basLoadMetaData::TriggerMarker;
    basLoadMetaData::ReloadTriggers();
    EXPECT_EQ(Main().grxTriggers.ItemCount(), 1);
    EXPECT_EQ(Row(Main().grxTriggers, 1, 2), (Lines{"True", "AUDIT_Update_Customer"}));
}

TEST_F(GridsTest, AClickOnATriggerSwitchesItOnTheServerAtOnce) {
    Main().grxTriggers.EditCell(1, 1, false);
    EXPECT_FALSE(trigger.IsEnabled);
    EXPECT_EQ(trigger.EnabledWrites, 1);
    plan.FailAt("Trigger.SetEnabled", 1, Failure(numbers::DataAccess, "permission denied"));
    frontEnd.ExpectFailure("permission denied");
    Main().grxTriggers.EditCell(1, 1, true);
    EXPECT_FALSE(trigger.IsEnabled);
}

TEST_F(GridsTest, ADoubleClickShowsTheScriptOfTheServerWithoutItsLastLineEnds) {
    customer.ScriptText = " CREATE TABLE Customer (\r\n id int) \r\n\n\r";
    trigger.ScriptText = "CREATE TRIGGER x";
    Lines shown;
    TheRoads().ShowDDL = [&](const std::string& name, const std::string& path) {
        EXPECT_EQ(path, "\\app\\sqlscript.sql");
        EXPECT_EQ(g_strOutputFile, path);
        EXPECT_EQ(frontEnd.CurrentPointer(), Pointer::Default);
        shown.push_back(name + ": " + memoryFiles.Contents[path]);
    };
    Main().grxTables.DoubleClick();
    Main().Menus.mnuViewTableDDL.Click();
    Main().grxTriggers.PressKey(Key::Enter);
    Main().Menus.mnuViewTriggerDDL.Click();
    EXPECT_EQ(shown, (Lines{"dbo.Customer: CREATE TABLE Customer (\r\n id int)\r\n",
                            "dbo.Customer: CREATE TABLE Customer (\r\n id int)\r\n",
                            "audit.AUDIT_Update_Customer: CREATE TRIGGER x\r\n",
                            "audit.AUDIT_Update_Customer: CREATE TRIGGER x\r\n"}));
    EXPECT_EQ(customer.ScriptReads, 2); // asked for anew each time
}

TEST_F(GridsTest, TheRightButtonOpensEachGridsMenu) {
    for (const auto& [grid, menu] : {std::pair{&Main().grxTables, "mnuTablesRightClick"},
                                     {&Main().grxFields, "mnuFieldsRightClick"},
                                     {&Main().grxTriggers, "mnuTriggersRightClick"}}) {
        frontEnd.ExpectPopUp(menu);
        grid->RightClick(1);
    }
}

TEST_F(GridsTest, InADatabaseWithoutTablesClicksDoNothing) {
    tables = 0;
    memorySettings.Set("logintype", "1");
    memorySettings.Set("Server", "PRACTICE");
    TheRoads().CreateObjectHeirarchy = [] {
        g_objAudit = std::make_shared<AuditObj>();
        return true;
    };
    TheRoads().grxTables_Click = [](frmMain& main) { main.grxTables_Click(); };
    Main().cboDatabase.AddItem("pubs");
    Pick("pubs");
    for (Grid* grid : {&Main().grxTables, &Main().grxFields, &Main().grxTriggers}) {
        EXPECT_EQ(grid->ItemCount(), 0) << grid->Name();
        grid->ClickCell(1, 1);
        grid->DoubleClick();
        grid->PressKey(Key::Enter);
        grid->EditCell(1, 1, true);
    }
    Main().chkSelectAll.Click();
    Main().chkInsert.Click();
    Main().Menus.mnuFieldsSelectAll.Click();
    EXPECT_TRUE(frontEnd.Failures().empty());
}

TEST_F(GridsTest, WithoutAModelARefreshIsAReport) {
    g_objAudit.reset();
    frontEnd.ExpectFailure("Object variable not set");
    Main().Menus.mnuRefresh.Click();
    EXPECT_EQ(frontEnd.Failures().back().Procedures,
              (Lines{"frmMain.mnuRefresh_Click", "basLoadMetaData.ReloadTriggers"}));
}

} // namespace
} // namespace quillon::tests
