// The check boxes of the main screen: operations for all tables, columns for one table or all.
#include "FilledSession.h"

namespace quillon::tests {
namespace {

class TicksTest : public FilledSession {
  protected:
    std::string Boxes() {
        std::string text;
        for (const CheckBox* box : {&Main().chkInsert, &Main().chkUpdate, &Main().chkDelete, &Main().chkAll})
            text += std::to_string(box->Value());
        return text;
    }
    std::string Pair() {
        return std::to_string(Main().chkSelectAll.Value()) + std::to_string(Main().chkUnselectAll.Value());
    }
};

TEST_F(TicksTest, TheOperationBoxesSetAllTablesAndAreSummedUp) {
    const struct {
        CheckBox* box;
        const char* boxes; // insert, update, delete, all
        const char* operations;
    } clicks[] = {
        {&Main().chkInsert, "1002", "I-- I-- I--"}, {&Main().chkUpdate, "1102", "IU- IU- IU-"},
        {&Main().chkDelete, "1111", "IUD IUD IUD"}, {&Main().chkUpdate, "1012", "I-D I-D I-D"},
        {&Main().chkAll, "0000", "--- --- ---"}, // a greyed box is cleared by a click
        {&Main().chkAll, "1111", "IUD IUD IUD"},    {&Main().chkAll, "0000", "--- --- ---"},
    };
    for (const auto& [box, boxes, operations] : clicks) {
        box->Click();
        EXPECT_EQ(Boxes(), boxes) << box->Name();
        EXPECT_EQ(Operations(), operations) << box->Name();
    }
    Main().grxTables.EditCell(1, 3, true);
    EXPECT_EQ(Boxes(), "0000"); // the grid is for single tables
    EXPECT_EQ(Operations(), "I-- --- ---");
}

TEST_F(TicksTest, TheSelectBoxesActAsAPairOnTheCurrentTable) {
    Main().chkSelectAll.Click();
    EXPECT_EQ(Ticked(), "Customer.id Customer.name"); // no image
    EXPECT_EQ(Pair(), "10");
    Field("dbo.Customer", "id").SetIsChecked(false);
    Main().chkSelectAll.Click(); // it stays ticked, and nothing is ticked anew
    EXPECT_EQ(Pair(), "10");
    EXPECT_EQ(Ticked(), "Customer.name");
    Main().chkUnselectAll.Click();
    EXPECT_EQ(Pair(), "01");
    EXPECT_EQ(Ticked(), "");
}

TEST_F(TicksTest, WithAllTablesTheSelectBoxesTakeTheWholeDatabase) {
    Main().chkAllTables.Click();
    Main().chkSelectAll.Click();
    EXPECT_EQ(Ticked(), "Customer.id Customer.name Order.id Order.2024");
    EXPECT_FALSE(Table("hr.Letter").IsOneFieldSelectedForAudit());
    Main().chkInsert.Click();
    EXPECT_FALSE(Table("hr.Letter").IsSelectedForAudit()); // none of its columns can be audited
    EXPECT_EQ(g_objAudit->Database()->AuditedTableCount(), 2);
    Main().btnModules.PressKey("unselect");
    EXPECT_EQ(Ticked(), "");
    EXPECT_EQ(Pair(), "01");
    EXPECT_EQ(frontEnd.CurrentPointer(), Pointer::Default);
}

TEST_F(TicksTest, TheContextMenuKeepsTheSelectedRows) {
    Main().grxTables.SetRow(2);
    Main().grxFields.SetRow(1);
    Main().grxFields.SetSelectedRows({2, 1});
    Main().Menus.mnuFieldsSelectAll.Click();
    EXPECT_EQ(Ticked(), "Order.id Order.2024");
    EXPECT_EQ(Main().grxFields.Row(), 2);
    EXPECT_EQ(Main().grxFields.SelectedRows(), (std::vector<int>{2, 1}));
    Main().Menus.mnuFieldsUnSelectAll.Click();
    EXPECT_EQ(Ticked(), "");
    EXPECT_EQ(Pair(), "00"); // the boxes have no part in it
}

TEST_F(TicksTest, TheWholeDatabaseNeedsOne) {
    Main().m_bolNoDatabase = true;
    for (Menu* entry : {&Main().Menus.mnuSelectAll, &Main().Menus.mnuUnSelectAll}) {
        frontEnd.ExpectMessage("Please Select a Database first", "Invalid Operation", Icon::Warning);
        entry->Click();
    }
    Main().m_bolNoDatabase = false;
    Main().Menus.mnuSelectAll.Click();
    EXPECT_EQ(Ticked(), "Customer.id Customer.name Order.id Order.2024");
    Main().Menus.mnuUnSelectAll.Click();
    EXPECT_EQ(Ticked(), "");
}

// Every tick shows at once in the icon in front of the table's name.
TEST_F(TicksTest, TheTablesAreRedrawnAfterEveryTick) {
    int redraws = 0;
    const auto observation = Main().grxTables.Observe([&](ControlChange) { ++redraws; });
    const std::function<void()> acts[] = {
        [&] { Main().grxFields.EditCell(1, 1, true); },   [&] { Main().chkSelectAll.Click(); },
        [&] { Main().Menus.mnuFieldsSelectAll.Click(); }, [&] { Main().Menus.mnuSelectAll.Click(); },
        [&] { Main().grxFields.OnLostFocus(); },
    };
    for (const auto& act : acts) {
        const int before = redraws;
        act();
        EXPECT_GT(redraws, before) << (&act - acts);
    }
    Main().grxTables.EndObservation(observation);
}

} // namespace
} // namespace quillon::tests
