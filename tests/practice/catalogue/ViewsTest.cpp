#include "practice/catalogue/CatalogueViews.h"

#include "practice/storage/StoreSession.h"
#include "practice/values/Convert.h"
#include "practice/values/StorageForm.h"

#include <gmock/gmock.h>
#include <sqlite3.h>

namespace quillon::practice {
namespace {

class Views : public testing::Test {
  protected:
    void SetUp() override {
        m_sources.logins = [] {
            LoginRow sa;
            sa.name = "sa";
            sa.principalId = 1;
            sa.sid = "\x01";
            sa.administrator = true;
            sa.created = sa.modified = {day1900, 0, 0};
            return std::vector<LoginRow>{sa};
        };
        m_sources.sessions = [] {
            SessionRow row;
            row.sessionId = 51;
            row.login = "sa";
            row.database = "msdb";
            row.loginTime = {day1900, 0, 0};
            return std::vector<SessionRow>{row};
        };
        m_sources.serverName = "here";
        RegisterCatalogueSources(m_session.Connection(), m_sources);
    }

    static std::string Select(const SystemView& view, int database) {
        std::string select(view.select);
        const std::pair<std::string_view, std::string> marks[] = {{"{db}", std::to_string(database)},
                                                                  {"{session}", "51"},
                                                                  {"{collation}", "'Latin1_General_CI_AS'"},
                                                                  {"{order}", "CI_AS"}};
        for (const auto& [mark, text] : marks)
            for (std::size_t at = select.find(mark); at != std::string::npos; at = select.find(mark))
                select.replace(at, mark.size(), text);
        return select;
    }

    // Rows of a view as the texts of their values, joined by bars.
    std::vector<std::string> Read(const SystemView& view, const std::vector<std::string_view>& wanted,
                                  int database) {
        std::vector<std::string> rows;
        sqlite3_stmt* statement = nullptr;
        EXPECT_EQ(SQLITE_OK, sqlite3_prepare_v2(m_session.Connection(), Select(view, database).c_str(), -1,
                                                &statement, nullptr))
            << view.name << ": " << sqlite3_errmsg(m_session.Connection());
        EXPECT_EQ(static_cast<int>(view.columns.size()), sqlite3_column_count(statement)) << view.name;
        while (sqlite3_step(statement) == SQLITE_ROW) {
            std::string row;
            for (std::size_t column = 0; column < view.columns.size(); ++column) {
                const Datum value =
                    LoadColumn(statement, static_cast<int>(column), view.columns[column].type);
                EXPECT_FALSE(value.IsNull() && !view.columns[column].nullable)
                    << view.name << ' ' << view.columns[column].name;
                if (std::find(wanted.begin(), wanted.end(), view.columns[column].name) != wanted.end())
                    row += (row.empty() ? "" : "|") + ToText(value);
            }
            rows.push_back(row);
        }
        EXPECT_EQ(SQLITE_OK, sqlite3_finalize(statement))
            << view.name << ": " << sqlite3_errmsg(m_session.Connection());
        return rows;
    }

    std::vector<std::string> Read(const char* schema, const char* name,
                                  const std::vector<std::string_view>& wanted,
                                  int database = masterDatabase) {
        const SystemView* view = CatalogueViews().Find(schema, name, NameRule());
        EXPECT_NE(nullptr, view) << name;
        return view == nullptr ? std::vector<std::string>() : Read(*view, wanted, database);
    }

    std::shared_ptr<Table> MakeTable() {
        auto table = std::make_shared<Table>();
        table->id = m_store.NextObjectId();
        table->database = msdbDatabase;
        table->name = "t";
        table->kind = ObjectKind::Table;
        table->created = table->modified = {day1900, 0, 0};
        Column id;
        id.id = 1;
        id.name = "id";
        id.type = SimpleType(TypeId::Int);
        id.nullable = false;
        id.identity = Identity{10, 5};
        Column note;
        note.id = 2;
        note.name = "note";
        note.type = NVarChar(20);
        table->columns = {id, note};
        Index key;
        key.id = 1;
        key.name = "PK_t";
        key.clustered = key.unique = key.primaryKey = true;
        key.constraint = m_store.NextObjectId();
        key.keys = {{1, false}};
        table->indexes = {key};
        table->defaults = {{m_store.NextObjectId(), "DF_note", 2, "(N'x')", false}};
        return table;
    }

    Store m_store{StoreOptions{{}, true}};
    CatalogueSources m_sources;
    StoreSession m_session{m_store, 51};
};

TEST_F(Views, EveryOneCanBeReadAndHasTheColumnsItDeclares) {
    EXPECT_GT(AllCatalogueViews().size(), 60u);
    for (const SystemView* view : AllCatalogueViews())
        Read(*view, {}, masterDatabase);
}

TEST_F(Views, AreFoundWhereTheDocumentationSaysTheyAre) {
    EXPECT_NE(nullptr, CatalogueViews().Find("", "SysObjects", NameRule()));
    EXPECT_NE(nullptr, CatalogueViews().Find("sys", "sysobjects", NameRule()));
    EXPECT_NE(nullptr, CatalogueViews().Find("dbo", "sysobjects", NameRule()));
    EXPECT_NE(nullptr, CatalogueViews().Find("SYS", "Tables", NameRule()));
    EXPECT_EQ(nullptr, CatalogueViews().Find("", "tables", NameRule()));
    EXPECT_EQ(nullptr, CatalogueViews().Find("sys", "TABLE_CONSTRAINTS", NameRule()));
    EXPECT_NE(nullptr, CatalogueViews().Find("information_schema", "columns", NameRule()));
}

TEST_F(Views, TellOfATable) {
    const auto table = MakeTable();
    const auto mark = m_session.BeginStatement(StoreSession::Writes::Data);
    m_session.Change([&](CatalogueEditor& editor) { editor.Put(table); });
    ASSERT_TRUE(m_session.EndStatement(mark));
    using Rows = std::vector<std::string>;
    EXPECT_EQ(Rows{}, Read("sys", "tables", {"name"}, masterDatabase));
    EXPECT_EQ(Rows{"t|U |USER_TABLE"}, Read("sys", "tables", {"name", "type", "type_desc"}, msdbDatabase));
    EXPECT_EQ((Rows{"id|56|4|0|1", "note|231|40|1|0"}),
              Read("sys", "columns", {"name", "system_type_id", "max_length", "is_nullable", "is_identity"},
                   msdbDatabase));
    EXPECT_EQ((Rows{"id|56|4|1|128|10|0", "note|231|40|2|8|20|NULL"}),
              Read("", "syscolumns", {"name", "xtype", "length", "colid", "status", "prec", "scale"},
                   msdbDatabase));
    EXPECT_EQ((Rows{"t|U ", "PK_t|PK", "DF_note|D "}),
              Read("", "sysobjects", {"name", "xtype"}, msdbDatabase));
    EXPECT_EQ(
        (Rows{"id|NULL|int|NULL|10", "note|(N'x')|nvarchar|20|NULL"}),
        Read("INFORMATION_SCHEMA", "COLUMNS",
             {"COLUMN_NAME", "COLUMN_DEFAULT", "DATA_TYPE", "CHARACTER_MAXIMUM_LENGTH", "NUMERIC_PRECISION"},
             msdbDatabase));
    EXPECT_EQ(Rows{"PK_t|t|id|1"},
              Read("INFORMATION_SCHEMA", "KEY_COLUMN_USAGE",
                   {"CONSTRAINT_NAME", "TABLE_NAME", "COLUMN_NAME", "ORDINAL_POSITION"}, msdbDatabase));
    EXPECT_EQ(Rows{"(N'x')"}, Read("", "syscomments", {"text"}, msdbDatabase));
    EXPECT_EQ(Rows{"10|5"}, Read("sys", "identity_columns", {"seed_value", "increment_value"}, msdbDatabase));
}

TEST_F(Views, UsersOfADatabaseCarryStatusTwo) {
    const auto rows = Read("", "sysusers", {"name", "status", "issqlrole"});
    EXPECT_THAT(rows, testing::Contains("2|dbo|0"));
    EXPECT_THAT(rows, testing::Contains("0|db_owner|1"));
    EXPECT_THAT(rows, testing::Contains("0|guest|0"));
}

TEST_F(Views, TellOfTheServer) {
    EXPECT_EQ((std::vector<std::string>{"master|1", "tempdb|2", "model|3", "msdb|4"}),
              Read("sys", "databases", {"name", "database_id"}));
    EXPECT_EQ(std::vector<std::string>{"51|sa|4"},
              Read("sys", "dm_exec_sessions", {"session_id", "database_id", "login_name"}));
    EXPECT_THAT(Read("sys", "server_principals", {"name", "principal_id"}), testing::Contains("sa|1"));
    EXPECT_THAT(Read("sys", "messages", {"message_id", "severity"}), testing::Contains("8134|16"));
    EXPECT_THAT(Read("sys", "types", {"name", "user_type_id"}), testing::Contains("sysname|256"));
}

} // namespace
} // namespace quillon::practice
