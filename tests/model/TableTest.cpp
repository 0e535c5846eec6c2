// Tables, columns and triggers: selection, what is asked of the server and when.
#include "FakeCatalogue.h"
#include "ModelTest.h"

namespace quillon::tests {
namespace {

using Log = std::vector<std::string>;

class Tables : public ModelTest {
  protected:
    Tables() {
        g_objSQLServer = server;
        g_strDatabase = "Shop";
        FakeTable& table = server->database.tables.emplace_back("dbo", "Orders", log);
        table.triggers.emplace_back("dbo", "foreign", log);
        table.triggers.emplace_back("dbo", "tr_ins", log);
    }

    std::shared_ptr<mdTrigger> AddTrigger() {
        return orders->Triggers()->Add("tr_ins", "dbo", catalogue::TriggerInsert | catalogue::TriggerDelete,
                                       DateValue{36526}, true, "Orders", "dbo");
    }
    FakeTrigger& OnServer() { return server->database.tables[0].triggers[1]; }

    Log log;
    std::shared_ptr<FakeServer> server = std::make_shared<FakeServer>();
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
    database.Tables()->Remove("dbo.Third");
    EXPECT_EQ(database.ActiveTable(), orders);
    EXPECT_EQ(FailureOf([&] { database.SetActiveTable(nullptr); }), numbers::ObjectNotSet);
    database.SetTables(std::make_shared<mdTables>());
    EXPECT_EQ(database.ActiveTable(), nullptr);
    EXPECT_EQ(mdDatabase().ActiveTable(), nullptr);
}

TEST_F(Tables, ScriptsAreAskedOnceAndKept) {
    const auto trigger = AddTrigger();
    EXPECT_TRUE(log.empty());
    EXPECT_EQ(orders->Script(), "CREATE TABLE Orders");
    const std::string script = trigger->Script();
    const std::string text = trigger->Text();
    EXPECT_EQ(log, (Log{"script 4 dbo.Orders", "script 4 dbo.tr_ins", "text dbo.tr_ins"}));
    EXPECT_EQ(orders->Script(), "CREATE TABLE Orders");
    EXPECT_EQ(trigger->Script(), script);
    EXPECT_EQ(trigger->Text(), text);
    EXPECT_EQ(log.size(), 3u);
}

TEST_F(Tables, FailedScriptIsAskedAgain) {
    g_strDatabase = "Other";
    EXPECT_EQ(FailureOf([&] { orders->Script(); }), numbers::ItemNotFound);
    g_objSQLServer.reset();
    EXPECT_EQ(FailureOf([&] { orders->Script(); }), numbers::ObjectNotSet);
    g_objSQLServer = server;
    g_strDatabase = "Shop";
    EXPECT_EQ(orders->Script(), "CREATE TABLE Orders");
}

TEST_F(Tables, LoadingATriggerDoesNotTouchTheServer) {
    EXPECT_FALSE(orders->IsAudited());
    const auto trigger = AddTrigger();
    EXPECT_TRUE(orders->IsAudited());
    EXPECT_TRUE(log.empty());
    EXPECT_TRUE(trigger->IsInsert());
    EXPECT_FALSE(trigger->IsUpdate());
    EXPECT_TRUE(trigger->IsDelete());
    EXPECT_EQ(orders->Triggers()->Item("DBO.TR_INS"), trigger);
}

TEST_F(Tables, EnablingWritesThrough) {
    const auto trigger = AddTrigger();
    trigger->SetEnabled(false);
    trigger->SetEnabled(true);
    EXPECT_EQ(log, (Log{"disable dbo.tr_ins", "enable dbo.tr_ins"}));
    OnServer().refuses = true;
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
    EXPECT_EQ(log.size(), 3u);
}

TEST_F(Tables, RemovingATriggerDropsItUnlessToldNotTo) {
    AddTrigger();
    orders->Triggers()->Remove(1, true);
    EXPECT_EQ(orders->Triggers()->Count(), 0);
    EXPECT_TRUE(log.empty());
    AddTrigger();
    orders->Triggers()->Remove("dbo.tr_ins");
    EXPECT_EQ(log, (Log{"remove dbo.tr_ins"}));
    // The server counts all triggers of the table, the model only its own.
    AddTrigger();
    orders->Triggers()->Remove(1);
    EXPECT_EQ(log.back(), "remove dbo.foreign");
    AddTrigger();
    g_strDatabase = "Other";
    EXPECT_NE(FailureOf([&] { orders->Triggers()->Remove("dbo.tr_ins"); }), 0);
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
