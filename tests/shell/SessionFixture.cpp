#include "SessionFixture.h"

#include "model/AuditObj.h"

namespace quillon::tests {

void SessionTest::OpenRoads() {
    SessionRoads& roads = TheRoads();
    roads.NewAuditObj = [this] {
        plan.Ask("NewAuditObj");
        return std::make_shared<AuditObj>();
    };
    roads.LoadDB = [this] {
        plan.Ask("LoadDB");
        return login();
    };
    roads.AvailableDatabases = [this](ComboBox& box) {
        plan.Ask("AvailableDatabases");
        box.SetText(frmMain::SelectADatabase);
        box.Clear();
        for (const char* name : {"pubs", "northwind"})
            box.AddItem(name);
        box.DropDown();
    };
    roads.CreateObjectHeirarchy = [this] {
        plan.Ask("CreateObjectHeirarchy");
        return modelLoads;
    };
    roads.TableCount = [this] { return tables; };
    roads.LoadArchitecture = [this](const std::string& path) { plan.Ask("LoadArchitecture", path); };
    roads.RegisterLanguages = [this](bool force) { plan.Ask("RegisterLanguages", force ? "True" : "False"); };
    roads.SaveProfile = [this] { plan.Ask("SaveProfile"); };
    roads.RetrieveProfile = [this] { plan.Ask("RetrieveProfile"); };
    roads.Load_GridExColumns = [this](frmMain&) { plan.Ask("Load_GridExColumns"); };
    roads.grxTables_Click = [this](frmMain&) { plan.Ask("grxTables_Click"); };
    roads.ShowTip = [this] { plan.Ask("ShowTip"); };
}

void SessionTest::LogIn() {
    memorySettings.Set("logintype", "1");
    memorySettings.Set("server", "PRACTICE");
    Main().mnuFileConnect_Click();
}

void SessionTest::Pick(const std::string& database) {
    const auto& items = Main().cboDatabase.Items();
    const auto found = std::ranges::find(items, database, &ComboBox::Item::Text);
    ASSERT_NE(found, items.end()) << database;
    Main().cboDatabase.Pick(static_cast<int>(found - items.begin()));
}

} // namespace quillon::tests
