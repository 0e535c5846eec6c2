// The catalogue snapshot: what is taken, written and read again stands in for the server it came from; what
// is no snapshot is refused with the reason.
#include <gtest/gtest.h>

#include "adapters/snapshot/SnapshotLibrary.h"
#include "platform/Failure.h"
#include "platform/FailureNumbers.h"
#include "platform/Object.h"
#include "support/FailureNumberOf.h"
#include "support/FakeCatalogue.h"
#include "support/FaultyCatalogue.h"

namespace quillon::tests {
namespace {

// A database with something of everything.
FakeDatabase& Filled(FakeServer& server) {
    FakeDatabase& database = server.AddDatabase("Sales");
    database.DatabaseOwner = "owner \"q\"";
    FakeTable& table = database.AddTable("dbo", "Country");
    table.ScriptText = "CREATE TABLE [Country]\r\n(\r\n)\r\nGO\r\n";
    table.Created = {45350}; // 28 February 2024
    auto& key = table.AddColumn("Code", "char", 2);
    key.InPrimaryKey = true;
    key.Keys = {"PK_Country", "UQ_Country"};
    auto& amount = table.AddColumn("Größe 漢", "decimal", 9);
    amount.NumericPrecision = 12;
    amount.NumericScale = 4;
    amount.AllowNulls = true;
    amount.DriDefaultText = "((0))";
    auto& row = table.AddColumn("row", "int", 4);
    row.Identity = row.IsRowGuidCol = true;
    row.Default = "dbo.zero";
    table.AddColumn("note", "varchar", -1);
    auto& trigger = table.AddTrigger("dbo", "trg", 5, "CREATE TRIGGER trg ...");
    trigger.BodyText = "body";
    trigger.IsEnabled = false;
    trigger.Created = {45351};
    database.AddTable("dbo", "sysx").IsSystem = true;
    database.Procedures = {{"proc", "ann"}};
    return database;
}

void ExpectSameColumns(const std::vector<catalogue::Column>& read,
                       const std::vector<catalogue::Column>& written) {
    ASSERT_EQ(read.size(), written.size());
    for (std::size_t i = 0; i < read.size(); ++i) {
        const auto properties = [](const catalogue::Column& c) {
            return std::tie(c.Name, c.Datatype, c.Length, c.NumericPrecision, c.NumericScale, c.AllowNulls,
                            c.Identity, c.InPrimaryKey, c.IsRowGuidCol, c.Default, c.DriDefaultText, c.Keys);
        };
        EXPECT_EQ(properties(read[i]), properties(written[i])) << written[i].Name;
    }
}

class SnapshotTest : public testing::Test {
  protected:
    // A connected server that stands for the snapshot of the database.
    std::shared_ptr<catalogue::Server> Standing() {
        const auto text =
            adapters::WriteSnapshot(adapters::TakeSnapshot(database, "PRACTICE", {"proc", "missing"}));
        const auto server = adapters::SnapshotLibrary(adapters::ReadSnapshot(text)).NewServer();
        server->Connect("anything", "", "");
        return server;
    }
    FakeLibrary library;
    FakeDatabase& database = Filled(library.Server());
};

TEST_F(SnapshotTest, StandsInForTheServerItCameFrom) {
    const auto server = Standing();
    EXPECT_EQ(server->Name(), "PRACTICE");
    ASSERT_EQ(server->DatabaseCount(), 1u);
    catalogue::Database& read = server->DatabaseNamed("SALES");
    EXPECT_EQ(read.Owner(), "owner \"q\"");
    ASSERT_EQ(read.TableCount(), 2u);
    EXPECT_TRUE(read.TableAt(1).SystemObject());
    EXPECT_EQ(read.ProcedureOwner("PROC"), "ann");
    EXPECT_EQ(FailureNumberOf([&] { read.ProcedureOwner("missing"); }), numbers::ItemNotFound);

    catalogue::Table& table = read.TableNamed("DBO.country");
    EXPECT_EQ(&table, &read.TableNamed("Country"));
    EXPECT_EQ(table.Script(catalogue::ScriptDefault), "CREATE TABLE [Country]\r\n(\r\n)\r\nGO\r\n");
    EXPECT_EQ(table.CreateDate(), (DateValue{45350}));
    ExpectSameColumns(table.Columns(), database.Tables[0]->ColumnList);
    ASSERT_EQ(table.TriggerCount(), 1u);
    catalogue::Trigger& trigger = table.TriggerNamed("dbo.TRG");
    EXPECT_EQ(trigger.Type(), 5);
    EXPECT_FALSE(trigger.Enabled());
    EXPECT_EQ(trigger.Script(4) + trigger.Text(), "CREATE TRIGGER trg ...body");
    EXPECT_EQ(trigger.CreateDate(), (DateValue{45351}));
}

TEST_F(SnapshotTest, CannotBeChangedAndHasNoJobs) {
    const auto server = Standing();
    auto& trigger = server->DatabaseAt(0).TableAt(0).TriggerAt(0);
    EXPECT_EQ(FailureNumberOf([&] { trigger.SetEnabled(true); }), numbers::PermissionDenied);
    EXPECT_EQ(FailureNumberOf([&] { trigger.Remove(); }), numbers::PermissionDenied);
    EXPECT_EQ(FailureNumberOf([&] { server->Jobs(); }), numbers::ActionNotSupported);
    server->DisConnect();
    EXPECT_EQ(FailureNumberOf([&] { server->DatabaseNamed("Sales"); }), numbers::ItemNotFound);
}

TEST_F(SnapshotTest, TakingOneFailsWithTheCatalogue) {
    FaultPlan plan;
    FaultyLibrary faulty(library, plan);
    const auto server = faulty.NewServer();
    for (const char* operation : {"Database.TableCount", "Table.Columns", "Table.Script", "Trigger.Text"}) {
        plan.FailAt(operation, 1, Failure(numbers::LinkBroken));
        EXPECT_EQ(FailureNumberOf([&] { adapters::TakeSnapshot(server->DatabaseAt(0), "P", {}); }),
                  numbers::LinkBroken)
            << operation;
    }
}

TEST_F(SnapshotTest, WhatIsLeftOutIsTakenForGranted) {
    const auto snapshot = adapters::ReadSnapshot(
        R"({"snapshot": 1, "later": [1], "database": {"name": "d"},
            "tables": [{"name": "t", "owner": "o", "columns": [{"name": "c", "type": "int", "color": "red"}]}]})");
    ASSERT_EQ(snapshot.tables.size(), 1u);
    catalogue::Column column;
    column.Name = "c";
    column.Datatype = "int";
    ExpectSameColumns(snapshot.tables[0].columns, {column});
    EXPECT_FALSE(snapshot.tables[0].system);
}

TEST_F(SnapshotTest, RefusesWhatIsNone) {
    const auto column = [](const std::string& member) {
        return R"({"snapshot": 1, "database": {"name": "d"}, "tables": [{"name": "t", "owner": "o",
                   "columns": [{"name": "c", "type": "int", )" +
               member + "}]}]}";
    };
    const std::pair<std::string, std::string> cases[] = {
        {"", "parse error"},
        {"{", "parse error"},
        {"[]", "no catalogue snapshot"},
        {"null", "no catalogue snapshot"},
        {R"({"snapshot": 2})", "no catalogue snapshot of version 1"},
        {R"({"snapshot": "1"})", "snapshot"},
        {R"({"snapshot": 1})", "database"},
        {R"({"snapshot": 1, "database": 7, "tables": []})", "at()"},
        {R"({"snapshot": 1, "database": {"name": "d"}})", "tables"},
        {R"({"snapshot": 1, "database": {"name": "d"}, "tables": [{"name": "t"}]})", "owner"},
        {R"({"snapshot": 1, "database": {"name": "d"}, "tables": [{"name": "t", "owner": "o", "created": "x"}]})",
         "\"x\" is no date"},
        {R"({"snapshot": 1, "database": {"name": "d"}, "tables": {"name": "t"}})", "\"tables\" is no list"},
        {column(R"("length": "8")"), "length"},
        {column("\"nullable\": " + std::string(100000, '[') + std::string(100000, ']')), "nullable"},
        {column(R"("length": 2147483648)"), "length"},
        {column(R"("length": 1e300)"), "length"},
        {column(R"("scale": 1.5)"), "scale"},
        {column(R"("nullable": 1)"), "nullable"},
        {column(R"("keys": [1])"), "keys"},
        {"{\"snapshot\": 1, \"database\": {\"name\": \"caf\xE9\"}}", "UTF-8"},
        {std::string(200000, '['), "parse error"},
        {"{\"snapshot\": \"" + std::string(1 << 20, 'x') + "\"", "parse error"},
    };
    for (const auto& [text, reason] : cases) {
        try {
            adapters::ReadSnapshot(text);
            ADD_FAILURE() << text.substr(0, 200);
        } catch (const Failure& failure) {
            EXPECT_EQ(failure.number(), numbers::InvalidCall);
            EXPECT_NE(failure.description().find(reason), std::string::npos)
                << text.substr(0, 200) << ": " << failure.description().substr(0, 300);
            EXPECT_LT(failure.description().size(), 400u);
        }
    }
}

} // namespace
} // namespace quillon::tests
