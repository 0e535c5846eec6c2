// The model as the loader makes it from a catalogue: what is kept, what is left out, stopping, failing.
#include "DataTest.h"
#include "model/basLoadMetaData.h"

namespace quillon::tests {
namespace {

using namespace basLoadMetaData;

const std::string Ours = std::string("CREATE TRIGGER x -- ") + TriggerMarker;

class LoadTest : public DataTest {
  protected:
    LoadTest()
        : database(catalogue.Server().AddDatabase("pubs")) {
        g_objSQLServer = platform.catalogue().NewServer();
        g_strDatabase = "pubs";
        g_strServer = "PRACTICE";
        g_strUser = "ann";
    }
    Lines Tables() const {
        Lines names;
        for (const auto& table : *g_objAudit->Database()->Tables())
            names.push_back(table->Owner() + "." + table->Name());
        return names;
    }
    mdTable& Table(const char* key) { return *g_objAudit->Database()->Tables()->Item(Value(key)); }
    int Triggers(const char* key) { return Table(key).Triggers()->Count(); }

    FakeDatabase& database;
};

TEST_F(LoadTest, FillsTheDatabaseAndItsTables) {
    auto& authors = database.AddTable("dbo", "authors");
    authors.Created = {36526.75};
    database.AddTable("sales", "titles");
    EXPECT_TRUE(CreateObjectHeirarchy());
    const mdDatabase& model = *g_objAudit->Database();
    EXPECT_EQ(model.Name(), "pubs");
    EXPECT_EQ(model.Owner(), "sa");
    EXPECT_EQ(model.Server(), "PRACTICE");
    EXPECT_EQ(model.User(), "ann");
    EXPECT_EQ(model.Connection_String(), "");
    EXPECT_EQ(Tables(), (Lines{"dbo.authors", "sales.titles"}));
    EXPECT_EQ(Table("dbo.authors").CreateDate(), DateValue{36526});
    EXPECT_EQ(frontEnd.Turns(), 2);
    EXPECT_EQ(Main().ProgressBar1.Maximum(), 2);
    EXPECT_EQ(Main().ProgressBar1.Value(), 0);
    EXPECT_EQ(Main().stbStatus.Panel(4), "");
}

TEST_F(LoadTest, LeavesOutSystemTablesAndTheAuditTables) {
    database.AddTable("dbo", "dtproperties").IsSystem = true;
    for (const char* name : {"AUDIT_LOG_DATA", "audit_mine", "AUDITOR", "authors"})
        database.AddTable("dbo", name);
    const struct {
        const char* prefix;
        Lines tables;
    } cases[] = {
        {"AUDIT", {"dbo.audit_mine", "dbo.authors"}},
        {"a", {"dbo.AUDIT_LOG_DATA", "dbo.AUDITOR"}},
        {"", {}},
    };
    for (const auto& [prefix, tables] : cases) {
        settings.Set("AuditTablePrefix", prefix);
        EXPECT_TRUE(CreateObjectHeirarchy()) << prefix;
        EXPECT_EQ(Tables(), tables) << prefix;
        EXPECT_EQ(Main().ProgressBar1.Maximum(), 5) << prefix;
    }
}

TEST_F(LoadTest, ADatabaseWithoutTablesIsLoaded) {
    EXPECT_TRUE(CreateObjectHeirarchy());
    EXPECT_TRUE(Tables().empty());
}

TEST_F(LoadTest, FieldsCarryTheColumnsProperties) {
    auto& table = database.AddTable("dbo", "t");
    auto& id = table.AddColumn("id", "decimal() identity", 9);
    id.NumericPrecision = 12;
    id.NumericScale = 2;
    id.Identity = id.InPrimaryKey = true;
    id.Keys = {"PK_t", "FK_t"};
    auto& note = table.AddColumn("note", "nvarchar", 100);
    note.AllowNulls = true;
    note.DriDefaultText = "('x')";
    auto& guid = table.AddColumn("guid", "uniqueidentifier", 16);
    guid.IsRowGuidCol = true;
    guid.Default = "bound";
    guid.DriDefaultText = "(newid())";
    guid.InPrimaryKey = true;
    table.AddColumn("stamp", " timestamp", 8);
    ASSERT_TRUE(CreateObjectHeirarchy());
    const auto field = [&](const char* name) { return Table("dbo.t").Fields()->Item(Value(name)); };
    EXPECT_EQ(field("id")->SQL_Datatype(), "decimal");
    EXPECT_EQ(field("id")->SQL_Datatype_And_Length(), "decimal(12,2) identity");
    EXPECT_EQ(field("id")->Ordinal_Position(), 0);
    EXPECT_TRUE(field("id")->IsIdentity());
    EXPECT_TRUE(field("id")->IsInPrimaryKey());
    EXPECT_EQ(field("note")->Length(), 50);
    EXPECT_EQ(field("note")->SQL_Datatype_And_Length(), "nvarchar(100)");
    EXPECT_EQ(field("note")->Default(), "('x')");
    EXPECT_TRUE(field("note")->IsNullable());
    EXPECT_EQ(field("guid")->Length(), 50);
    EXPECT_EQ(field("guid")->Default(), "bound");
    EXPECT_TRUE(field("guid")->IsGUID());
    EXPECT_TRUE(field("stamp")->IsTimeStamp());
    EXPECT_EQ(field("stamp")->ParentOwner(), "dbo");

    mdPrimaryKeyFields& keys = *Table("dbo.t").PrimaryKeyFields();
    ASSERT_EQ(keys.Count(), 2);
    const auto key = keys.Item(Value("guid"));
    EXPECT_EQ(key->Default(), "bound");
    EXPECT_EQ(key->Ordinal_Position(), 2);
    EXPECT_EQ(keys.Item(Value("id"))->Keys()->Count(), 2);
    EXPECT_TRUE(IsKey(Table("dbo.t"), "guid"));
    EXPECT_FALSE(IsKey(Table("dbo.t"), "GUID"));
    EXPECT_FALSE(IsKey(Table("dbo.t"), "note"));
}

// A key column's default has no second source.
TEST_F(LoadTest, AKeyColumnHasNoDeclaredDefault) {
    auto& column = database.AddTable("dbo", "t").AddColumn("id", "int");
    column.InPrimaryKey = true;
    column.DriDefaultText = "(0)";
    ASSERT_TRUE(CreateObjectHeirarchy());
    EXPECT_EQ(Table("dbo.t").Fields()->Item(Value("id"))->Default(), "(0)");
    EXPECT_EQ(Table("dbo.t").PrimaryKeyFields()->Item(Value("id"))->Default(), "");
}

TEST_F(LoadTest, DeclarationsAndLengthsFollowTheType) {
    const struct {
        const char* type;
        std::int32_t length;
        const char* declaration;
        double characters;
    } cases[] = {
        {"varchar", 20, "varchar(20)", 20},
        {"nchar", 20, "nchar(20)", 10},
        {"nchar", 5, "nchar(5)", 2.5},
        {"NCHAR", 20, "NCHAR", 20},
        {"sysname", 256, "sysname", 256},
        {"int", 4, "int", 4},
        {"int identity", 4, "int identity", 4},
        {"numeric", 9, "numeric(10,3)", 9},
        {"numeric() identity", 9, "numeric(10,3) identity", 9},
        {"decimal() identity", 9, "decimal(10,3) identity", 9},
        {"Decimal", 9, "Decimal", 9},
        {"uniqueidentifier", 16, "uniqueidentifier", 50},
        {"varchar", -1, "varchar(-1)", -1},
    };
    for (const auto& [type, length, declaration, characters] : cases) {
        EXPECT_EQ(GetSQLDataTypeName(type, length, 10, 3), declaration);
        EXPECT_EQ(GetSQLDatatypeLength(type, length), characters) << type;
    }
}

TEST_F(LoadTest, OnlyTriggersWithTheMarkerAreSeen) {
    auto& table = database.AddTable("dbo", "t");
    auto& ours =
        table.AddTrigger("own", "trgOurs", catalogue::TriggerUpdate | catalogue::TriggerDelete, Ours);
    ours.IsEnabled = false;
    table.AddTrigger("dbo", "trgForeign", catalogue::TriggerInsert, "CREATE TRIGGER y");
    table.AddTrigger("dbo", "trgLower", catalogue::TriggerInsert,
                     "<tag>quillon generated - do not remove</tag>");
    ASSERT_TRUE(CreateObjectHeirarchy());
    ASSERT_EQ(Triggers("dbo.t"), 1);
    const auto trigger = Table("dbo.t").Triggers()->Item(Value("own.trgOurs"));
    EXPECT_FALSE(trigger->Enabled());
    EXPECT_TRUE(trigger->IsUpdate());
    EXPECT_FALSE(trigger->IsInsert());
    EXPECT_EQ(ours.EnabledWrites, 0);
}

TEST_F(LoadTest, StopsBetweenTables) {
    for (const char* name : {"a", "b", "c"})
        database.AddTable("dbo", name);
    frontEnd.OnDoEvents = [&] { g_bolStop = frontEnd.Turns() == 2; };
    EXPECT_FALSE(CreateObjectHeirarchy());
    EXPECT_EQ(Tables(), (Lines{"dbo.a", "dbo.b"}));
    EXPECT_EQ(Main().stbStatus.Panel(4), "");
}

// What a person does in a turn can take the model away, or the catalogue's tables from under the load.
TEST_F(LoadTest, ATurnThatTakesTheModelAwayEndsTheLoad) {
    for (const char* name : {"a", "b", "c"})
        database.AddTable("dbo", name).AddTrigger("dbo", "trg", catalogue::TriggerInsert, Ours);
    frontEnd.OnDoEvents = [&] {
        if (frontEnd.Turns() == 2)
            g_objAudit.reset(); // as a new login does
    };
    EXPECT_FALSE(CreateObjectHeirarchy());
    EXPECT_EQ(g_objAudit, nullptr);
    EXPECT_EQ(Main().stbStatus.Panel(4), "");

    frontEnd.OnDoEvents = {};
    ASSERT_TRUE(CreateObjectHeirarchy());
    const auto former = g_objAudit;
    frontEnd.OnDoEvents = [] { g_objAudit = std::make_shared<AuditObj>(); }; // as a new pick does
    ReloadTriggers();
    EXPECT_EQ(former->Database()->Tables()->Named("dbo.a")->Triggers()->Count(), 1);
    EXPECT_EQ(frontEnd.CurrentPointer(), Pointer::Default);
}

TEST_F(LoadTest, AFailureOnOneTableLeavesTheOthersWhole) {
    for (const char* name : {"a", "b"}) {
        auto& table = database.AddTable("dbo", name);
        table.AddColumn("id", "int");
        table.AddTrigger("dbo", "trg", catalogue::TriggerInsert, Ours);
    }
    plan.FailAt("Table.Columns", 1, Failure(numbers::DataAccess, "no columns"));
    plan.FailAt("Table.TriggerCount", 2, Failure(numbers::DataAccess, "no triggers"));
    frontEnd.ExpectFailure("no columns");
    frontEnd.ExpectFailure("no triggers");
    EXPECT_TRUE(CreateObjectHeirarchy());
    EXPECT_EQ(Table("dbo.a").Fields()->Count(), 0);
    EXPECT_EQ(Triggers("dbo.a"), 1);
    EXPECT_EQ(Table("dbo.b").Fields()->Count(), 1);
    EXPECT_EQ(Triggers("dbo.b"), 0);
}

TEST_F(LoadTest, AFailureOfTheTreeItselfLeavesTheModelHalfBuilt) {
    database.AddTable("dbo", "a");
    database.AddTable("dbo", "b");
    plan.FailAt("Database.TableAt", 3, Failure(numbers::DataAccess, "gone"));
    frontEnd.ExpectFailure("gone");
    EXPECT_FALSE(CreateObjectHeirarchy());
    EXPECT_EQ(Tables(), Lines{"dbo.a"});
    EXPECT_EQ(Main().stbStatus.Panel(4), "Loading MetaData for: dbo.a");
    EXPECT_EQ(Main().ProgressBar1.Value(), 1);
}

TEST_F(LoadTest, ReloadingBringsNewTriggersAndDropsOldOnesInMemoryAlone) {
    auto& a = database.AddTable("dbo", "a");
    auto& old = a.AddTrigger("dbo", "old", catalogue::TriggerInsert, Ours);
    database.AddTable("dbo", "b").AddTrigger("dbo", "kept", catalogue::TriggerInsert, Ours);
    ASSERT_TRUE(CreateObjectHeirarchy());
    old.Remove();
    a.AddTrigger("dbo", "new1", catalogue::TriggerInsert, Ours);
    a.AddTrigger("dbo", "new2", catalogue::TriggerUpdate, Ours);
    ReloadTriggers();
    EXPECT_EQ(Triggers("dbo.a"), 2);
    EXPECT_EQ(Triggers("dbo.b"), 1);
    EXPECT_EQ(database.Tables[1]->Triggers.size(), 1u);
    EXPECT_GE(database.Refreshes, 1);
    EXPECT_EQ(Main().ProgressBar1.Value(), 0);
    EXPECT_EQ(frontEnd.CurrentPointer(), Pointer::Default);
}

TEST_F(LoadTest, AStoppedReloadLeavesTheRestAsItWas) {
    for (const char* name : {"a", "b"})
        database.AddTable("dbo", name).AddTrigger("dbo", "trg", catalogue::TriggerInsert, Ours);
    ASSERT_TRUE(CreateObjectHeirarchy());
    database.Tables[0]->Triggers.clear();
    database.Tables[1]->Triggers.clear();
    frontEnd.OnDoEvents = [] { g_bolStop = true; };
    ReloadTriggers();
    EXPECT_EQ(Triggers("dbo.a"), 0);
    EXPECT_EQ(Triggers("dbo.b"), 1);
    EXPECT_TRUE(g_bolStop);
}

TEST_F(LoadTest, ReloadingNothingHasABarOfOne) {
    ASSERT_TRUE(CreateObjectHeirarchy());
    ReloadTriggers();
    EXPECT_EQ(Main().ProgressBar1.Maximum(), 1);
}

} // namespace
} // namespace quillon::tests
