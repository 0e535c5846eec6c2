#include "practice/values/StorageForm.h"

#include "practice/values/Operators.h"
#include "practice/values/Support.h"

#include <sqlite3.h>

namespace quillon::practice {
namespace {

class StorageForm : public testing::Test {
  protected:
    void SetUp() override {
        ASSERT_EQ(SQLITE_OK, sqlite3_open(":memory:", &m_database));
        RegisterCollations(m_database);
    }
    void TearDown() override { sqlite3_close(m_database); }

    void Run(const std::string& sql) {
        ASSERT_EQ(SQLITE_OK, sqlite3_exec(m_database, sql.c_str(), nullptr, nullptr, nullptr))
            << sqlite3_errmsg(m_database) << sql;
    }

    void Insert(const Datum& value, const SqlType& type) {
        sqlite3_stmt* statement = nullptr;
        ASSERT_EQ(SQLITE_OK,
                  sqlite3_prepare_v2(m_database, "insert into t values (?)", -1, &statement, nullptr));
        BindDatum(statement, 1, value, type);
        EXPECT_EQ(SQLITE_DONE, sqlite3_step(statement));
        sqlite3_finalize(statement);
    }

    std::vector<std::string> Read(const std::string& sql, const SqlType& type) {
        std::vector<std::string> rows;
        sqlite3_stmt* statement = nullptr;
        EXPECT_EQ(SQLITE_OK, sqlite3_prepare_v2(m_database, sql.c_str(), -1, &statement, nullptr))
            << sqlite3_errmsg(m_database);
        while (sqlite3_step(statement) == SQLITE_ROW) {
            const Datum value = LoadColumn(statement, 0, type);
            rows.push_back(ToText(value, value.Type().IsBinary() ? 1 : noStyle));
        }
        sqlite3_finalize(statement);
        return rows;
    }

    sqlite3* m_database = nullptr;
};

// Each list is in ascending order, so SQLite must give it back as it stands, and its index must find each
// one.
TEST_F(StorageForm, KeepsValuesAndTheirOrder) {
    const std::vector<std::pair<std::string, std::vector<std::string>>> cases = {
        {"bit", {"0", "1"}},
        {"bigint", {"-9223372036854775808", "-1", "0", "9223372036854775807"}},
        {"money", {"-0.02", "0.00", "922337203685477.00"}},
        {"decimal(10,2)", {"-5.50", "0.05", "5.00", "99999999.99"}},
        {"decimal(38,3)",
         {"-99999999999999999999999999999999999.999", "-1.000", "0.001", "12345678901234567890.123"}},
        {"float", {"-1.5", "0.25", "1e+010"}},
        {"date", {"0001-01-01", "1899-12-31", "9999-12-31"}},
        {"time(7)", {"00:00:00.0000000", "23:59:59.9999999"}},
        {"datetime2(7)", {"0001-01-01 00:00:00.0000000", "2020-01-01 00:00:00.0000001"}},
        {"smalldatetime", {"Jan  1 1900 12:00AM", "Jun  6 2079 11:59PM"}},
        {"datetimeoffset(0)",
         {"2020-01-01 10:00:00 +05:00", "2020-01-01 06:00:00 +00:00", "2020-01-01 02:00:00 -05:00"}},
        {"varchar(20)", {"", "apple", "Banana", "cherry"}},
        {"varbinary(4)", {"0x00", "0x0001", "0xFF"}},
        {"uniqueidentifier",
         {"FFFFFFFF-FFFF-FFFF-FFFF-000000000001", "00000000-0000-0000-0000-000000000002"}},
    };
    for (const auto& [declaration, values] : cases) {
        const SqlType type = Type(declaration);
        Run("create table t (c " + SqliteColumnType(type) + "); create index i on t (c)");
        for (auto value = values.rbegin(); value != values.rend(); ++value)
            Insert(Value(declaration, *value), type);
        EXPECT_EQ(values, Read("select c from t order by c", type)) << declaration;
        for (const std::string& value : values)
            EXPECT_EQ(
                std::vector<std::string>{value},
                Read("select c from t where c = " + SqliteLiteral(Value(declaration, value), type), type))
                << declaration;
        Run("drop table t");
    }
}

TEST_F(StorageForm, DatetimeBefore1900KeepsItsClock) {
    const SqlType type = Type("datetime");
    Run("create table t (c INTEGER)");
    Insert(Value("datetime", "1753-01-01T13:30:00.003"), type);
    EXPECT_EQ(std::vector<std::string>{"Jan  1 1753  1:30PM"}, Read("select c from t", type));
}

TEST_F(StorageForm, EqualTextsAndOffsetsFallIntoOneGroup) {
    Run("create table t (c TEXT COLLATE CI_AS)");
    for (const char* text : {"abc", "ABC ",
                             "\xC3\xA0"
                             "bc"})
        Insert(Datum::VarCharOf(text), Type("varchar(10)"));
    EXPECT_EQ(2u, Read("select c from t group by c", Type("varchar(10)")).size());
    Run("drop table t; create table t (c TEXT COLLATE DATETIMEOFFSET)");
    for (const char* text : {"2020-01-01 10:00 +02:00", "2020-01-01 08:00 +00:00"})
        Insert(Value("datetimeoffset", text), Type("datetimeoffset"));
    EXPECT_EQ(1u, Read("select distinct c from t", Type("datetimeoffset")).size());
}

TEST_F(StorageForm, VariantsKeepTheirTypeAndSortByFamily) {
    const SqlType variant = Type("sql_variant");
    Run("create table t (c " + SqliteColumnType(variant) + ")");
    const Datum values[] = {
        Value("datetime", "20200101"), Datum::Float(2),          Datum::Int(10),
        DecimalLiteral("9.5"),         Datum::NVarCharOf("x;y"), Value("varbinary(3)", "0x010203")};
    for (const Datum& value : values)
        Insert(value, variant);
    const std::vector<std::string> expected = {"0x010203", "x;y", "9.5", "10", "2", "Jan  1 2020 12:00AM"};
    EXPECT_EQ(expected, Read("select c from t order by c", variant));
}

TEST(Collation, OrdersByLetterThenAccentThenCase) {
    const Collation& insensitive = *DefaultCollation();
    const Collation& sensitive = *FindCollation("latin1_general_cs_as");
    EXPECT_EQ(0, insensitive.Compare("Stra\xC3\x9F"
                                     "e",
                                     "STRASSE"));
    EXPECT_NE(0, insensitive.Compare("resume", "r\xC3\xA9sum\xC3\xA9"));
    EXPECT_EQ(0, FindCollation("Latin1_General_CI_AI")->Compare("resume", "R\xC3\xA9SUME"));
    EXPECT_LT(insensitive.Compare("r\xC3\xA9sum\xC3\xA9", "resumf"), 0);
    EXPECT_LT(insensitive.Compare("a_b", "a1b"), 0);
    EXPECT_LT(insensitive.Compare("9", "a"), 0);
    EXPECT_EQ(0, insensitive.Compare("\xD0\xB6", "\xD0\x96")); // Cyrillic zhe
    EXPECT_LT(sensitive.Compare("a", "A"), 0);
    EXPECT_LT(sensitive.Compare("A", "b"), 0);
    EXPECT_GT(FindCollation("Latin1_General_BIN2")->Compare("a", "B"), 0);
    EXPECT_EQ(0, BinaryCollation()->Compare("a  ", "a"));
    EXPECT_EQ(nullptr, FindCollation("Latin1_General_XX"));
    EXPECT_EQ(FindCollation("LATIN1_GENERAL_CI_AS"), FindCollation("Latin1_General_CI_AS"));
}

TEST(SqlType, RefusesSizesOutOfRange) {
    EXPECT_EQ(131, ErrorOf([] { Type("varchar(8001)"); }));
    EXPECT_EQ(2717, ErrorOf([] { Type("nvarchar(4001)"); }));
    EXPECT_EQ(1001, ErrorOf([] { Type("char(0)"); }));
    EXPECT_EQ(2750, ErrorOf([] { Type("decimal(39)"); }));
    EXPECT_EQ(192, ErrorOf([] { Type("decimal(5,6)"); }));
    EXPECT_EQ(2716, ErrorOf([] { Type("int(4)"); }));
    EXPECT_EQ("real", Type("float(24)").Declaration());
    EXPECT_EQ(30, TypeFromName("varchar", {}, {}, true)->length);
    EXPECT_FALSE(TypeFromName("nonsense").has_value());
    EXPECT_EQ(6, Type("datetime2(0)").StorageBytes());
    EXPECT_EQ(10, Type("datetimeoffset").StorageBytes());
}

TEST(SqlError, EveryMessageIsUniqueAndInOrder) {
    int count = 0;
    const MessageRow* rows = AllMessages(count);
    ASSERT_GT(count, 400);
    for (int index = 1; index < count; ++index)
        EXPECT_LT(rows[index - 1].number, rows[index].number);
    EXPECT_EQ("Invalid column name 'a%1'.", SqlError(207, {"a%1"}).text);
}

} // namespace
} // namespace quillon::practice
