// The store: what a commit keeps, what a rollback takes back, who waits for whom.
#include "practice/storage/Sqlite.h"
#include "practice/storage/StoreSession.h"
#include "practice/storage/SystemDatabases.h"
#include "practice/values/SqlError.h"

#include <gtest/gtest.h>

#include <random>
#include <thread>

namespace quillon::practice {
namespace {

class StoreTest : public ::testing::Test {
  protected:
    StoreTest() {
        std::random_device chance;
        m_folder = std::filesystem::temp_directory_path() / ("quillon-store-" + std::to_string(chance()));
        std::filesystem::create_directories(m_folder);
        Reopen();
    }
    ~StoreTest() override {
        m_store.reset();
        std::filesystem::remove_all(m_folder);
    }
    void Reopen() {
        m_store.reset();
        m_store = std::make_unique<Store>(StoreOptions{m_folder, false});
    }
    Store& Shared() { return *m_store; }

    // A table of one int column in master.
    std::shared_ptr<Table> MakeTable(const std::string& name) {
        auto table = std::make_shared<Table>();
        table->id = Shared().NextObjectId();
        table->database = masterDatabase;
        table->name = name;
        table->storage = "main.t" + std::to_string(table->id);
        Column column;
        column.id = table->lastColumnId = 1;
        column.name = "n";
        column.type = SimpleType(TypeId::Int);
        column.identity = Identity{1, 1};
        table->columns.push_back(column);
        table->created = table->modified = CurrentMoment();
        return table;
    }
    static void Create(StoreSession& session, const std::shared_ptr<Table>& table) {
        const auto mark = session.BeginStatement(StoreSession::Writes::Data);
        CreateTableStorage(session.Connection(), *table);
        session.Change([&](CatalogueEditor& editor) { editor.Put(table); });
        session.EndStatement(mark);
    }
    static void Insert(StoreSession& session, const Table& table, int value) {
        const auto mark = session.BeginStatement(StoreSession::Writes::Data);
        Prepared(session.Connection(), "INSERT INTO " + table.storage + " VALUES(?)").Bind(1, value).Run();
        session.EndStatement(mark);
    }
    static std::int64_t Count(StoreSession& session, const Table& table) {
        Prepared count(session.Connection(), "SELECT count(*) FROM " + table.storage);
        count.Step();
        return count.Integer(0);
    }
    static int ErrorOf(const std::function<void()>& act) {
        try {
            act();
        } catch (const SqlError& error) {
            return error.number;
        }
        return 0;
    }

  private:
    std::filesystem::path m_folder;
    std::unique_ptr<Store> m_store;
};

TEST_F(StoreTest, DefinitionsAndRowsOutliveTheServer) {
    {
        StoreSession session(Shared(), 51);
        const auto table = MakeTable("Kept");
        CheckConstraint check;
        check.id = Shared().NextObjectId();
        check.name = "CK_Kept";
        check.text = "([n]>(0))";
        table->checks.push_back(check);
        Create(session, table);
        session.Begin();
        Insert(session, *table, 7);
        session.NoteIdentity(table->id);
        Shared().Identities().Set(table->id, 7);
        session.Commit();
    }
    Reopen();
    StoreSession session(Shared(), 51);
    const auto object = session.View()->FindObject(masterDatabase, dboSchema, "KEPT");
    const auto table = std::dynamic_pointer_cast<const Table>(object);
    ASSERT_NE(table, nullptr);
    EXPECT_EQ(Count(session, *table), 1);
    EXPECT_EQ(Shared().Identities().Last(table->id), 7);
    ASSERT_EQ(table->checks.size(), 1U);
    EXPECT_EQ(table->checks[0].text, "([n]>(0))");
    EXPECT_TRUE(table->columns[0].identity.has_value());
    const Database* master = session.View()->FindDatabase("MASTER");
    ASSERT_NE(master, nullptr);
    EXPECT_NE(master->FindName(dboSchema, "ck_kept"), nullptr);
}

TEST_F(StoreTest, NamesCompareByTheCollationOfTheirDatabase) {
    constexpr DatabaseId cased = msdbDatabase + 1;
    ObjectId small = 0;
    ObjectId great = 0;
    {
        StoreSession session(Shared(), 51);
        const auto mark = session.BeginStatement(StoreSession::Writes::Data);
        session.Change([&](CatalogueEditor& editor) {
            editor.AddDatabase(MakeDatabase(cased, "cased", FindCollation("Latin1_General_CS_AS")));
        });
        session.EndStatement(mark);
        for (const auto& [name, id] : {std::pair("t", &small), std::pair("T", &great)}) {
            const auto table = MakeTable(name);
            table->database = cased;
            table->columns[0].name = name;
            *id = table->id;
            Create(session, table);
        }
    }
    Reopen();
    StoreSession session(Shared(), 51);
    const auto found = [&](const char* name) {
        const auto object = session.View()->FindObject(cased, dboSchema, name);
        return object ? object->id : 0;
    };
    EXPECT_EQ(found("t"), small);
    EXPECT_EQ(found("T"), great);
    EXPECT_EQ(session.View()->FindDatabase("CASED")->FindSchema("DBO"), nullptr);
    EXPECT_EQ(session.View()->FindTable(great)->FindColumn("t"), nullptr);
    const auto mark = session.BeginStatement(StoreSession::Writes::Data);
    session.Change([&](CatalogueEditor& editor) {
        editor.Drop(small);
        editor.Collate(cased, DefaultCollation());
    });
    session.EndStatement(mark);
    EXPECT_EQ(found("t"), great);
    EXPECT_NE(session.View()->FindTable(great)->FindColumn("t"), nullptr);
}

TEST_F(StoreTest, RollbackTakesDefinitionsBack) {
    StoreSession session(Shared(), 51);
    StoreSession other(Shared(), 52);
    session.Begin();
    const auto table = MakeTable("Gone");
    Create(session, table);
    EXPECT_NE(session.View()->FindTable(table->id), nullptr);
    EXPECT_EQ(other.View()->FindTable(table->id), nullptr) << "not committed yet";
    session.Rollback();
    EXPECT_EQ(session.View()->FindTable(table->id), nullptr);
    EXPECT_THROW(Count(session, *table), StoreFailure);
}

TEST_F(StoreTest, SavepointsTakeBackWhatCameAfter) {
    StoreSession session(Shared(), 51);
    const auto table = MakeTable("Points");
    Create(session, table);
    session.Begin("outer");
    session.Save("before"); // before anything was written
    Insert(session, *table, 1);
    session.Save("middle");
    Insert(session, *table, 2);
    const auto late = MakeTable("Late");
    Create(session, late);
    session.Rollback("MIDDLE");
    EXPECT_EQ(Count(session, *table), 1);
    EXPECT_EQ(session.View()->FindTable(late->id), nullptr);
    session.Rollback("before");
    EXPECT_EQ(Count(session, *table), 0);
    EXPECT_EQ(session.TransactionCount(), 1);
    EXPECT_EQ(ErrorOf([&] { session.Rollback("nowhere"); }), 6401);
    Insert(session, *table, 3);
    session.Commit();
    EXPECT_EQ(Count(session, *table), 1);
}

TEST_F(StoreTest, CountsNestedTransactions) {
    StoreSession session(Shared(), 51);
    const auto table = MakeTable("Nested");
    Create(session, table);
    EXPECT_EQ(ErrorOf([&] { session.Commit(); }), 3902);
    EXPECT_EQ(ErrorOf([&] { session.Rollback(); }), 3903);
    EXPECT_EQ(ErrorOf([&] { session.Save("s"); }), 628);
    session.Begin();
    session.Begin();
    Insert(session, *table, 1);
    session.Commit();
    EXPECT_EQ(session.TransactionCount(), 1);
    session.Rollback();
    EXPECT_EQ(Count(session, *table), 0);
    session.Begin();
    session.Doom();
    EXPECT_EQ(ErrorOf([&] { session.Commit(); }), 3930);
    EXPECT_EQ(ErrorOf([&] { session.BeginStatement(StoreSession::Writes::Data); }), 3930);
    session.Rollback();
    EXPECT_FALSE(session.Doomed());
}

TEST_F(StoreTest, AFailedStatementLeavesTheRestOfItsTransaction) {
    StoreSession session(Shared(), 51);
    const auto table = MakeTable("Partly");
    Create(session, table);
    session.Begin();
    Insert(session, *table, 1);
    const auto mark = session.BeginStatement(StoreSession::Writes::Data);
    Prepared(session.Connection(), "INSERT INTO " + table->storage + " VALUES(2)").Run();
    session.UndoStatement(mark);
    session.Commit();
    EXPECT_EQ(Count(session, *table), 1);
}

TEST_F(StoreTest, AStatementLearnsThatItsTransactionIsGone) {
    StoreSession session(Shared(), 51);
    const auto mark = session.BeginStatement(StoreSession::Writes::Data);
    EXPECT_EQ(session.TransactionCount(), 1) << "inside of a statement there is a transaction";
    session.Rollback();
    EXPECT_FALSE(session.EndStatement(mark));
    EXPECT_EQ(session.TransactionCount(), 0);
}

TEST_F(StoreTest, TableVariablesOutliveARollback) {
    StoreSession session(Shared(), 51);
    const auto variable = MakeTable("@v");
    variable->storage = "temp.t" + std::to_string(variable->id);
    variable->temporary = variable->variable = true;
    session.Begin();
    const auto table = MakeTable("Base");
    Create(session, table);
    CreateTableStorage(session.Connection(), *variable);
    session.Temporary().Put(variable, 0);
    const auto mark = session.BeginStatement(StoreSession::Writes::Variables);
    Prepared(session.Connection(), "INSERT INTO " + variable->storage + " VALUES(5)").Run();
    session.EndStatement(mark);
    session.Rollback();
    EXPECT_EQ(Count(session, *variable), 1);
    EXPECT_NE(session.Temporary().Find(variable->id), nullptr);
}

TEST_F(StoreTest, OneWriterAtATimeAndReadersSeeWhatIsCommitted) {
    StoreSession writer(Shared(), 51);
    StoreSession other(Shared(), 52);
    const auto table = MakeTable("Busy");
    Create(writer, table);
    writer.Begin();
    Insert(writer, *table, 1);
    ASSERT_EQ(Shared().AllLocks().List().size(), 1U);
    EXPECT_EQ(Shared().AllLocks().List().front().session, 51);
    EXPECT_EQ(Count(other, *table), 0);
    other.SetLockTimeout(0);
    EXPECT_EQ(ErrorOf([&] { Insert(other, *table, 2); }), 1222);
    other.SetLockTimeout(-1);
    std::thread waiting([&] { Insert(other, *table, 2); });
    writer.Commit();
    waiting.join();
    EXPECT_EQ(Count(writer, *table), 2);
    EXPECT_TRUE(Shared().AllLocks().List().empty());
}

TEST_F(StoreTest, AnInterruptEndsTheWaitForTheLock) {
    StoreSession writer(Shared(), 51);
    StoreSession other(Shared(), 52);
    const auto table = MakeTable("Wait");
    Create(writer, table);
    writer.Begin();
    Insert(writer, *table, 1);
    bool interrupted = false;
    std::thread waiting([&] {
        try {
            Insert(other, *table, 2);
        } catch (const Interrupted&) {
            interrupted = true;
        }
    });
    other.Interrupt();
    waiting.join();
    EXPECT_TRUE(interrupted);
    writer.Commit();
    other.ClearInterrupt();
    Insert(other, *table, 3);
    EXPECT_EQ(Count(other, *table), 2);
}

TEST_F(StoreTest, IdentityNumbersAreNotGivenBack) {
    IdentityCounters counters;
    const Identity identity{10, 5};
    EXPECT_EQ(counters.Last(1), std::nullopt);
    EXPECT_EQ(counters.Next(1, identity), 10);
    EXPECT_EQ(counters.Next(1, identity), 15);
    counters.Follow(1, identity, 12);
    EXPECT_EQ(counters.Next(1, identity), 20);
    counters.Follow(1, identity, 100);
    EXPECT_EQ(counters.Next(1, identity), 105);
    counters.Set(1, INT64_MAX);
    EXPECT_EQ(counters.Next(1, identity), std::nullopt);
}

} // namespace
} // namespace quillon::practice
