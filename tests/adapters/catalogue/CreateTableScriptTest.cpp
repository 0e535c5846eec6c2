// The CREATE TABLE of a table: every part in its place, names and lengths as a declaration needs them.
#include <gtest/gtest.h>

#include "adapters/catalogue/NameIndex.h"
#include "adapters/catalogue/ServerTable.h"

namespace quillon::tests {
namespace {

using namespace adapters;

class CreateTableScriptTest : public testing::Test {
  protected:
    catalogue::Column& Add(const char* name, const char* type, std::int32_t length = 4) {
        facts.columns.emplace_back().id = static_cast<std::int32_t>(facts.columns.size());
        catalogue::Column& column = columns.emplace_back();
        column.Name = name;
        column.Datatype = type;
        column.Length = length;
        column.AllowNulls = true;
        return column;
    }
    std::string Script() const { return CreateTableScript("dbo", "t", columns, facts); }
    // The line of the script for the only column.
    std::string Line() const {
        const std::string script = Script();
        const auto begin = script.find('\t') + 1;
        return script.substr(begin, script.find("\r\n", begin) - begin);
    }

    std::vector<catalogue::Column> columns;
    TableFacts facts;
};

TEST_F(CreateTableScriptTest, EveryTypeHasTheArgumentsOfItsDeclaration) {
    const struct {
        const char* type;
        std::int32_t length, precision, scale;
        const char* line;
    } cases[] = {
        {"int", 4, 10, 0, "[c] [int] NULL"},
        {"varchar", 20, 0, 0, "[c] [varchar](20) NULL"},
        {"varchar", -1, 0, 0, "[c] [varchar](max) NULL"},
        {"nvarchar", 100, 0, 0, "[c] [nvarchar](50) NULL"},
        {"nvarchar", -1, 0, 0, "[c] [nvarchar](max) NULL"},
        {"nchar", 20, 0, 0, "[c] [nchar](10) NULL"},
        {"varbinary", 85, 0, 0, "[c] [varbinary](85) NULL"},
        {"decimal", 9, 12, 2, "[c] [decimal](12, 2) NULL"},
        {"datetime2", 8, 27, 7, "[c] [datetime2](7) NULL"},
        {"datetime", 8, 23, 3, "[c] [datetime] NULL"},
        {"money", 8, 19, 4, "[c] [money] NULL"},
        {"text", 16, 0, 0, "[c] [text] NULL"},
        {"sysname", 256, 0, 0, "[c] [sysname] NULL"},
    };
    for (const auto& [type, length, precision, scale, line] : cases) {
        columns.clear();
        facts = {};
        auto& column = Add("c", type, length);
        column.NumericPrecision = precision;
        column.NumericScale = scale;
        EXPECT_EQ(Line(), line);
    }
}

TEST_F(CreateTableScriptTest, AColumnCarriesItsProperties) {
    auto& column = Add("a ]b", "varchar", 5);
    column.AllowNulls = false;
    column.DriDefaultText = "('x')";
    facts.columns[0].defaultName = "DF_t";
    facts.columns[0].collation = "Latin1_General_CI_AS";
    EXPECT_EQ(Line(),
              "[a ]]b] [varchar](5) COLLATE Latin1_General_CI_AS NOT NULL CONSTRAINT [DF_t] DEFAULT ('x')");
}

TEST_F(CreateTableScriptTest, ColumnsOfOtherKinds) {
    Add("id", "decimal", 9).Identity = true;
    columns[0].NumericPrecision = 18;
    facts.columns[0].seed = "100";
    facts.columns[0].increment = "-5";
    EXPECT_EQ(Line(), "[id] [decimal](18, 0) IDENTITY(100, -5) NULL");
    columns.clear();
    facts = {};
    Add("total", "money");
    facts.columns[0].isComputed = facts.columns[0].isPersisted = true;
    facts.columns[0].computation = "([price]*[count])";
    EXPECT_EQ(Line(), "[total] AS ([price]*[count]) PERSISTED");
    columns.clear();
    facts = {};
    Add("phone", "PhoneNumber", 20).IsRowGuidCol = true;
    facts.columns[0].isUserType = true;
    facts.columns[0].typeSchema = "sales";
    facts.columns[0].collation = "Latin1_General_CI_AS";
    EXPECT_EQ(Line(), "[phone] [sales].[PhoneNumber] ROWGUIDCOL NULL");
}

TEST_F(CreateTableScriptTest, KeysChecksAndWhatIsSwitchedOffFollow) {
    Add("id", "int");
    facts.keys = {{1, "PK_t", true, true, {"[id] DESC", "[no]"}}, {2, "UQ_t", false, false, {"[id]"}}};
    facts.foreignKeys = {{3, "FK_t", {"[id]"}, {"[key]"}, "[dbo].[o]", 1, 2, true}};
    facts.checks = {{"CK_t", "([id]>(0))", false}};
    EXPECT_EQ(Script(),
              "CREATE TABLE [dbo].[t] (\r\n"
              "\t[id] [int] NULL,\r\n"
              "\tCONSTRAINT [PK_t] PRIMARY KEY CLUSTERED ([id] DESC, [no]),\r\n"
              "\tCONSTRAINT [UQ_t] UNIQUE NONCLUSTERED ([id]),\r\n"
              "\tCONSTRAINT [FK_t] FOREIGN KEY ([id]) REFERENCES [dbo].[o] ([key]) ON DELETE CASCADE ON "
              "UPDATE SET NULL,\r\n"
              "\tCONSTRAINT [CK_t] CHECK ([id]>(0))\r\n"
              ")\r\nGO\r\n"
              "ALTER TABLE [dbo].[t] NOCHECK CONSTRAINT [FK_t]\r\nGO\r\n");
}

TEST(NameIndexTest, AnExactNameComesBeforeOneInAnotherCase) {
    int upper = 0, lower = 0;
    NameIndex<int> names;
    names.Add("dbo.T", upper);
    names.Add("dbo.t", lower);
    EXPECT_EQ(names.Find("dbo.t"), &lower);
    EXPECT_EQ(names.Find("dbo.T"), &upper);
    EXPECT_EQ(names.Find("DBO.t"), &upper);
    EXPECT_EQ(names.Find("t"), nullptr);
}

} // namespace
} // namespace quillon::tests
