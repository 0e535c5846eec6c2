// Tables, columns and triggers: selection, what is asked of the server and when.
#include "ModelTest.h"
#include "support/FakeCatalogue.h"
#include "support/FaultyCatalogue.h"

namespace quillon::tests {
namespace {

using Log = std::vector<std::string>;

class Tables : public ModelTest {
  protected:
    Tables() {
        FakeDatabase& shop = fake.Server().AddDatabase("Shop");
        FakeTable& table = shop.AddTable("dbo", "Orders");
        table.ScriptText = "CREATE TABLE Orders";
        table.AddTrigger("dbo", "foreign", 0, "");
        onServer = &table.AddTrigger("dbo", "tr_ins", 0, "CREATE TRIGGER");
        g_objSQLServer = server;
        g_strDatabase = "Shop";
    }

    std::shared_ptr<mdTrigger> AddTrigger() {
        return orders->Triggers()->Add("tr_ins", "dbo", catalogue::TriggerInsert | catalogue::TriggerDelete,
                                       DateValue{36526}, true, "Orders", "dbo");
    }
    // What was asked of tables and triggers themselves, searches left out; then forgotten.
    Log Asked() {
        Log asked;
        std::ranges::copy_if(plan.Log, std::back_inserter(asked), [](const std::string& entry) {
            return entry.starts_with("Trigger.") || entry.starts_with("Table.Script");
        });
        plan.Log.clear();
        return asked;
    }

    FaultPlan plan;
    FakeLibrary fake;
    FaultyLibrary library{fake, plan};
    std::shared_ptr<catalogue::Server> server = library.NewServer();
    FakeTrigger* onServer = nullptr;
    std::shared_ptr<mdTable> orders = AddTable(*audit, "Orders");
};

TEST_F(Tables, SelectionNeedsAnOperationAndAColumn) {
    mdDatabase& database = *audit->Database();
    orders->SetAudit4Update(true);
    EXPECT_FALSE(orders->IsSelectedForAudit());
    orders->Fields()->Item("note")->SetIsChecked(true);
    EXPECT_TRUE(orders->IsSelectedForAudit());
    EXPECT_EQ(database.AuditedTableCount(), 1);
    orders->SetAudit4Update(false);
    EXPECT_TRUE(orders->IsOneFieldSelectedForAudit());
    EXPECT_FALSE(orders->IsSelectedForAudit());
    EXPECT_EQ(database.AuditedTableCount(), 0);
    for (const auto set : {&mdTable::SetAudit4Insert, &mdTable::SetAudit4Update, &mdTable::SetAudit4Delete}) {
        (*orders.*set)(true);
        EXPECT_TRUE(orders->IsSelectedForAudit());
        (*orders.*set)(false);
    }
}

TEST_F(Tables, LargeObjectsCannotBeSelected) {
    const std::pair<const char*, bool> cases[] = {
        {"text", false}, {"NText", false}, {"IMAGE", false}, {"nvarchar", true},
        {"texts", true}, {"xml", true},    {"", true},       {"ntext ", true},
    };
    for (const auto& [type, selectable] : cases) {
        const auto field = Field("c", type);
        field->SetIsChecked(true);
        EXPECT_EQ(field->IsChecked(), selectable) << type;
        field->SetIsChecked(false);
        EXPECT_FALSE(field->IsChecked()) << type;
    }
}

TEST_F(Tables, ActiveTableIsTheFirstActiveOne) {
    mdDatabase& database = *audit->Database();
    const auto second = AddTable(*audit, "Second");
    const auto third = AddTable(*audit, "Third");
    EXPECT_EQ(database.ActiveTable(), orders); // none active: the first
    database.SetActiveTable(third);
    EXPECT_EQ(database.ActiveTable(), third);
    second->SetIsActiveTable(true); // an earlier one
    EXPECT_EQ(database.ActiveTable(), second);
    database.SetActiveTable(third);
    EXPECT_FALSE(second->IsActiveTable());
    database.SetActiveTable(second); // one after the other, as a run does
    EXPECT_FALSE(third->IsActiveTable());
    EXPECT_EQ(database.ActiveTable(), second);
    const auto foreign = std::make_shared<mdTable>();
    database.SetActiveTable(foreign); // no table of this database
    EXPECT_FALSE(second->IsActiveTable());
    EXPECT_EQ(database.ActiveTable(), orders);
    orders->SetIsActiveTable(true);
    database.SetActiveTable(third);
    EXPECT_FALSE(orders->IsActiveTable());
    database.Tables()->Remove("dbo.Third");
    EXPECT_EQ(database.ActiveTable(), orders);
    EXPECT_EQ(FailureOf([&] { database.SetActiveTable(nullptr); }), numbers::ObjectNotSet);
    database.SetTables(std::make_shared<mdTables>());
    EXPECT_EQ(database.ActiveTable(), nullptr);
    EXPECT_EQ(mdDatabase().ActiveTable(), nullptr);
}

TEST_F(Tables, ScriptsAreAskedOnceAndKept) {
    const auto trigger = AddTrigger();
    EXPECT_EQ(orders->Script(), "CREATE TABLE Orders");
    EXPECT_EQ(trigger->Script(), "CREATE TRIGGER");
    EXPECT_EQ(trigger->Text(), "CREATE TRIGGER");
    EXPECT_EQ(Asked(), (Log{"Table.Script Orders", "Trigger.Script tr_ins", "Trigger.Text tr_ins"}));
    onServer->ScriptText = "ALTERED";
    EXPECT_EQ(orders->Script(), "CREATE TABLE Orders");
    EXPECT_EQ(trigger->Script(), "CREATE TRIGGER");
    EXPECT_EQ(trigger->Text(), "CREATE TRIGGER");
    EXPECT_EQ(Asked(), Log{});
}

TEST_F(Tables, FailedScriptIsAskedAgain) {
    g_strDatabase = "Other";
    EXPECT_EQ(FailureOf([&] { orders->Script(); }), numbers::ItemNotFound);
    g_objSQLServer.reset();
    EXPECT_EQ(FailureOf([&] { orders->Script(); }), numbers::ObjectNotSet);
    g_objSQLServer = server;
    g_strDatabase = "Shop";
    EXPECT_EQ(orders->Script(), "CREATE TABLE Orders");
    const auto trigger = AddTrigger();
    plan.FailAt("Trigger.Text", 1, Failure(numbers::LinkBroken));
    EXPECT_EQ(FailureOf([&] { trigger->Text(); }), numbers::LinkBroken);
    EXPECT_EQ(trigger->Text(), "CREATE TRIGGER");
}

TEST_F(Tables, LoadingATriggerDoesNotTouchTheServer) {
    EXPECT_FALSE(orders->IsAudited());
    const auto trigger = AddTrigger();
    EXPECT_TRUE(orders->IsAudited());
    EXPECT_EQ(Asked(), Log{});
    EXPECT_TRUE(trigger->IsInsert());
    EXPECT_FALSE(trigger->IsUpdate());
    EXPECT_TRUE(trigger->IsDelete());
    EXPECT_EQ(orders->Triggers()->Item("DBO.TR_INS"), trigger);
}

TEST_F(Tables, EnablingWritesThrough) {
    const auto trigger = AddTrigger();
    trigger->SetEnabled(false);
    EXPECT_FALSE(onServer->IsEnabled);
    trigger->SetEnabled(true);
    EXPECT_TRUE(onServer->IsEnabled);
    EXPECT_EQ(onServer->EnabledWrites, 2);
    plan.FailAt("Trigger.SetEnabled", 1, Failure(numbers::DataAccess));
    EXPECT_EQ(FailureOf([&] { trigger->SetEnabled(false); }), numbers::DataAccess);
    EXPECT_FALSE(trigger->Enabled());
    for (const auto forget :
         {&mdTrigger::SetParentName, &mdTrigger::SetParentOwner, &mdTrigger::SetName, &mdTrigger::SetOwner}) {
        mdTrigger partial;
        partial.SetParentName("Orders");
        partial.SetParentOwner("dbo");
        partial.SetName("tr_ins");
        partial.SetOwner("dbo");
        (partial.*forget)({});
        partial.SetEnabled(true);
    }
    EXPECT_EQ(onServer->EnabledWrites, 2);
}

TEST_F(Tables, RemovingATriggerDropsItUnlessToldNotTo) {
    AddTrigger();
    orders->Triggers()->Remove(1, true);
    EXPECT_EQ(orders->Triggers()->Count(), 0);
    EXPECT_EQ(Asked(), Log{});
    AddTrigger();
    orders->Triggers()->Remove("dbo.tr_ins");
    // The server counts all triggers of the table, the model only its own.
    AddTrigger();
    orders->Triggers()->Remove(1);
    EXPECT_EQ(Asked(), (Log{"Trigger.Remove tr_ins", "Trigger.Remove foreign"}));
    AddTrigger();
    EXPECT_EQ(FailureOf([&] { orders->Triggers()->Remove("dbo.tr_ins"); }), numbers::ItemNotFound);
    EXPECT_EQ(orders->Triggers()->Count(), 0);
}

TEST_F(Tables, PathOfTheProfileStaysInStep) {
    mdTemplate path;
    path.SetFilePathAndName("\\home\\ann\\one.qlnx");
    EXPECT_EQ(path.FileNameOnly(), "one.qlnx");
    EXPECT_EQ(path.PathNameOnly(), "\\home\\ann");
    path.SetFileNameOnly("two.qlnx");
    EXPECT_EQ(g_strArchFile, "\\home\\ann\\two.qlnx");
    path.SetPathNameOnly("\\srv");
    EXPECT_EQ(path.FilePathAndName(), "\\srv\\two.qlnx");
    EXPECT_EQ(FailureOf([&] { path.SetFileNameOnly(""); }), numbers::ModelPathEmpty);
    EXPECT_EQ(description, "FileNameOnly property can not be empty");
    EXPECT_EQ(source, "Quillon Object Model");
    EXPECT_EQ(FailureOf([&] { path.SetPathNameOnly(""); }), numbers::ModelPathEmpty);
    EXPECT_EQ(description, "PathNameOnly property can not be empty");
    EXPECT_EQ(g_strArchFile, "\\srv\\two.qlnx");
}

} // namespace
} // namespace quillon::tests
