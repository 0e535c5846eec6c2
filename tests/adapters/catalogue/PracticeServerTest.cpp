// The catalogue of a running server: what the tree tells of tables and triggers, scripts that run, and how
// few questions it takes.
#include "adapters/catalogue/ServerCatalogue.h"

#include <gtest/gtest.h>

#include "adapters/odbc/OdbcDataAccess.h"
#include "platform/Failure.h"
#include "platform/FailureNumbers.h"
#include "platform/Object.h"
#include "practice/support/ServerProcess.h"

namespace quillon::tests {
namespace {

constexpr const char* Tables[] = {
    "CREATE TABLE kind (kind char(2) NOT NULL CONSTRAINT PK_kind PRIMARY KEY, name nvarchar(40) NULL)",
    "CREATE TABLE thing (id int IDENTITY(10, 5) NOT NULL, kind char(2) NOT NULL CONSTRAINT DF_kind DEFAULT "
    "('aa'), "
    "price decimal(10, 2) NULL, amount int NOT NULL CONSTRAINT CK_amount CHECK (amount >= 0), "
    "total AS (price * amount), mark uniqueidentifier NULL, note varchar(max) NULL, "
    "CONSTRAINT PK_thing PRIMARY KEY NONCLUSTERED (id), CONSTRAINT UQ_thing UNIQUE CLUSTERED (kind, mark), "
    "CONSTRAINT FK_thing FOREIGN KEY (kind) REFERENCES kind (kind) ON DELETE CASCADE)",
    "CREATE TRIGGER trg_thing ON thing FOR INSERT, DELETE AS PRINT 'fired'",
};

class PracticeServerTest : public testing::Test {
  protected:
    PracticeServerTest() {
        connection->Open("Data Source=" + name + ";User ID=sa;Password=" + process.Password() + ";");
        Run("CREATE DATABASE things");
        Run("USE things");
        for (const char* statement : Tables)
            Run(statement);
        server->Connect(name, "sa", process.Password());
    }
    void Run(const std::string& text) {
        const auto command = access.NewCommand();
        command->SetActiveConnection(connection);
        command->SetCommandText(text);
        command->Execute();
    }
    // Runs a script of the catalogue batch by batch, each of which ends in a line GO.
    void RunScript(const std::string& script) {
        constexpr std::string_view end = "\r\nGO\r\n";
        for (std::size_t at = 0, next = 0; (next = script.find(end, at)) != std::string::npos;
             at = next + end.size())
            Run(script.substr(at, next - at));
    }
    catalogue::Database& Things() { return server->DatabaseNamed("THINGS"); }
    catalogue::Trigger& Trigger() { return Things().TableNamed("dbo.thing").TriggerNamed("dbo.trg_thing"); }

    practice::testing::ServerProcess process{QUILLON_BIN_DIR};
    const std::string name = "127.0.0.1," + std::to_string(process.Port());
    adapters::OdbcDataAccess access;
    data::ConnectionRef connection = access.NewConnection();
    adapters::ServerCatalogue library;
    std::shared_ptr<catalogue::Server> server = library.NewServer();
};

TEST_F(PracticeServerTest, ColumnsCarryWhatTheServerKnows) {
    catalogue::Table& thing = Things().TableNamed("thing");
    EXPECT_EQ(thing.Owner(), "dbo");
    EXPECT_FALSE(thing.SystemObject());
    const auto& columns = thing.Columns();
    ASSERT_EQ(columns.size(), 7u);
    EXPECT_TRUE(columns[0].Identity && columns[0].InPrimaryKey);
    EXPECT_EQ(columns[0].Keys, std::vector<std::string>{"PK_thing"});
    EXPECT_EQ(columns[1].Keys, (std::vector<std::string>{"UQ_thing", "FK_thing"}));
    EXPECT_EQ(columns[1].DriDefaultText, "('aa')");
    EXPECT_FALSE(columns[1].AllowNulls);
    EXPECT_EQ(columns[2].Datatype, "decimal");
    EXPECT_EQ(columns[2].NumericPrecision, 10);
    EXPECT_EQ(columns[2].NumericScale, 2);
    EXPECT_EQ(columns[6].Length, -1);
    EXPECT_EQ(Things().TableNamed("dbo.KIND").Columns()[1].Length, 80);
}

TEST_F(PracticeServerTest, TheScriptOfATableMakesItAgain) {
    const std::string script = Things().TableNamed("thing").Script(catalogue::ScriptDefault);
    for (const char* part :
         {"IDENTITY(10, 5)", "[total] AS ", "UNIQUE CLUSTERED ([kind], [mark])", "ON DELETE CASCADE",
          "CONSTRAINT [DF_kind] DEFAULT ('aa')", "CONSTRAINT [CK_amount] CHECK "})
        EXPECT_NE(script.find(part), std::string::npos) << script;
    Run("DROP TABLE thing");
    RunScript(script);
    Things().Refresh();
    EXPECT_EQ(Things().TableNamed("thing").Script(catalogue::ScriptDefault), script);
}

TEST_F(PracticeServerTest, ATriggerIsToldScriptedSwitchedAndRemoved) {
    EXPECT_EQ(Trigger().Type(), catalogue::TriggerInsert | catalogue::TriggerDelete);
    EXPECT_TRUE(Trigger().Enabled());
    EXPECT_NE(Trigger().Script(catalogue::ScriptDefault).find(Tables[2]), std::string::npos);
    Trigger().SetEnabled(false);
    Things().Refresh();
    EXPECT_FALSE(Trigger().Enabled());
    const std::string guarded =
        Trigger().Script(catalogue::ScriptIncludeHeaders | catalogue::ScriptIncludeIfNotExists |
                         catalogue::ScriptPrimaryObject | catalogue::ScriptDrops);
    EXPECT_TRUE(guarded.starts_with("/****** Object:  Trigger [dbo].[trg_thing] ******/\r\nIF EXISTS "));
    for (int round = 0; round < 2; ++round)
        RunScript(guarded);
    Run("DROP TRIGGER trg_thing");
    RunScript(guarded);
    Things().Refresh();
    EXPECT_TRUE(Trigger().Enabled());
    Trigger().Remove();
    EXPECT_EQ(Things().TableNamed("thing").TriggerCount(), 0u);
    Things().Refresh();
    EXPECT_EQ(Things().TableNamed("thing").TriggerCount(), 0u);
}

TEST_F(PracticeServerTest, ADatabaseTakesAHandfulOfQuestions) {
    for (int table = 0; table < 40; ++table)
        Run("CREATE TABLE t" + std::to_string(table) + " (id int NOT NULL PRIMARY KEY, a int NULL)");
    catalogue::Database& database = Things();
    std::size_t columns = 0;
    for (std::size_t index = 0; index < database.TableCount(); ++index) {
        catalogue::Table& table = database.TableAt(index);
        columns += table.Columns().size();
        EXPECT_FALSE(table.Script(catalogue::ScriptDefault).empty());
        table.TriggerCount();
    }
    EXPECT_EQ(columns, 89u);
    EXPECT_LE(library.RoundTrips(), 15u);
}

TEST_F(PracticeServerTest, NamesThatDifferInCaseAloneAreTwo) {
    Run("CREATE DATABASE cased COLLATE Latin1_General_CS_AS");
    Run("USE cased");
    for (const char* statement :
         {"CREATE TABLE t (a int NOT NULL CONSTRAINT pk PRIMARY KEY, A int NULL CONSTRAINT ck CHECK (A > 0))",
          "CREATE TABLE T (b int NOT NULL CONSTRAINT fk REFERENCES t (a), B AS (b + 1))",
          "CREATE TRIGGER g ON t AFTER INSERT AS PRINT 'small'",
          "CREATE TRIGGER G ON T AFTER DELETE AS PRINT 'great'"})
        Run(statement);
    const auto later = library.NewServer();
    later->Connect(name, "sa", process.Password());
    catalogue::Database& cased = later->DatabaseNamed("cased");
    const auto scriptOf = [&](const char* table) {
        return cased.TableNamed(table).Script(catalogue::ScriptDefault);
    };
    ASSERT_EQ(cased.TableCount(), 2u);
    EXPECT_EQ(cased.TableNamed("dbo.t").Columns()[1].Name, "A");
    EXPECT_EQ(cased.TableNamed("dbo.T").Columns()[1].Name, "B");
    EXPECT_EQ(cased.TableNamed("dbo.t").TriggerNamed("dbo.g").Type(), catalogue::TriggerInsert);
    EXPECT_EQ(cased.TableNamed("dbo.T").TriggerNamed("dbo.G").Type(), catalogue::TriggerDelete);
    const std::string great = scriptOf("dbo.T");
    const std::string small = scriptOf("dbo.t");
    EXPECT_NE(great.find("REFERENCES [dbo].[t] ([a])"), std::string::npos) << great;
    Run("DROP TABLE T");
    Run("DROP TABLE t");
    RunScript(small);
    RunScript(great);
    cased.Refresh();
    EXPECT_EQ(scriptOf("dbo.t"), small);
    EXPECT_EQ(scriptOf("dbo.T"), great);
}

TEST_F(PracticeServerTest, WhatIsNotThereIsTold) {
    const auto numberOf = [](auto&& action) {
        try {
            action();
        } catch (const Failure& failure) {
            return failure.number();
        }
        return std::int32_t{0};
    };
    EXPECT_EQ(numberOf([&] { server->DatabaseNamed("none"); }), numbers::ItemNotFound);
    EXPECT_EQ(numberOf([&] { Things().TableNamed("none"); }), numbers::ItemNotFound);
    EXPECT_EQ(numberOf([&] { Things().ProcedureOwner("none"); }), numbers::ItemNotFound);
    EXPECT_EQ(numberOf([&] { server->Jobs(); }), numbers::ActionNotSupported);
    server->DisConnect();
    EXPECT_EQ(numberOf([&] { server->DatabaseCount(); }), numbers::ObjectClosed);
}

TEST_F(PracticeServerTest, ADatabaseThatWasDroppedMeanwhileIsAFailureAndTheServerStaysUsable) {
    catalogue::Database& things = Things();
    EXPECT_EQ(things.TableCount(), 2u);
    Run("USE master");
    Run("DROP DATABASE things"); // which the catalogue's own connection does not keep
    EXPECT_THROW(things.Refresh(), Failure);
    EXPECT_THROW(things.TableAt(0), Failure);
    EXPECT_NO_THROW(server->DatabaseNamed("master").TableCount());
}

} // namespace
} // namespace quillon::tests
