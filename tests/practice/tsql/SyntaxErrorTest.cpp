// Faults in a text: the number, the words and the line that the person who wrote it needs.
#include "practice/tsql/Parser.h"

#include <gtest/gtest.h>

namespace quillon::practice::tsql {
namespace {

struct Fault {
    const char* text;
    int number;
    int line;
    const char* mentions;
};

void PrintTo(const Fault& fault, std::ostream* out) {
    *out << fault.text;
}

SqlError FirstError(const std::string& text) {
    try {
        ParseBatch(text);
    } catch (const SyntaxErrors& errors) {
        return errors;
    }
    return SqlError::Custom(0, 0, 0, "no error");
}

class SyntaxFault : public testing::TestWithParam<Fault> {};

TEST_P(SyntaxFault, IsToldWithNumberLineAndPlace) {
    const SqlError error = FirstError(GetParam().text);
    EXPECT_EQ(error.number, GetParam().number) << error.text;
    EXPECT_EQ(error.line, GetParam().line);
    EXPECT_NE(error.text.find(GetParam().mentions), std::string::npos) << error.text;
}

const Fault kSyntax[] = {
    {"SELECT * FORM t", 102, 1, "'FORM'"},
    {"SELECT 1\nFROM t\nWHERE a = = 2", 102, 3, "'='"},
    {"SELECT a FROM FROM t", 156, 1, "'FROM'"},
    {"SELECT a,\r\nFROM t", 156, 2, "'FROM'"},
    {"\rSELECT a\rFROM t WHERE", 102, 3, "'WHERE'"},
    {"SELECT * FROM t WHERE a *= b", 102, 1, "'*='"},
    {"RAISERROR 50001 'old form'", 102, 1, "'50001'"},
    {"SELECT 'abc", 105, 1, "'abc'"},
    {"SELECT 1\nSELECT [abc", 105, 2, "'abc'"},
    {"SELECT 1 /* never /* closed */", 113, 1, "*/"},
    {"SELECT []", 1038, 1, ""},
    {"SELECT (1 = 2)", 102, 1, "')'"},
    {"SELECT 1 = 2", 102, 1, "'='"},
    {"IF 1 SELECT 2", 4145, 1, "SELECT"},
    {"SELECT 1 WHERE a AND b = 1", 4145, 1, "AND"},
    {"BEGIN", 102, 1, "BEGIN"},
    {"BEGIN END", 156, 1, "END"},
    {"SELECT 1\nWITH c AS (SELECT 1 AS x) SELECT * FROM c", 319, 2, "with"},
    {"SELECT * FROM t WITH c AS (SELECT 1 AS x) SELECT * FROM c", 336, 1, "'c'"},
    {"SELECT * FROM t WITH (NOSUCHHINT)", 321, 1, "NOSUCHHINT"},
    {"PRINT 1\nGO\nPRINT 2", 102, 2, "'GO'"},
    {"MERGE t USING s ON t.a = s.a WHEN MATCHED THEN DELETE", 10713, 1, ""},
    {"MERGE t USING s ON t.a = s.a WHEN MATCHED THEN INSERT VALUES (1);", 10710, 1, "INSERT"},
    {"SELECT a FROM (DELETE t OUTPUT deleted.a) d UNION SELECT 1", 49999, 1, "DELETE in FROM"},
    {"SELECT (SELECT a FROM t FOR XML PATH, TYPE).value('.', 'int') UNION SELECT 1", 49999, 1,
     "methods of subqueries"},
    {"CREATE TABLE t (a)", 173, 1, "'a'"},
    {"DROP INDEX i", 159, 1, ""},
    {"SET NOSUCH ON", 195, 1, "NOSUCH"},
    {"SELECT * FROM (SELECT a FROM t ORDER BY a) x", 1033, 1, ""},
    {"DECLARE @a int SELECT @a = 1, b FROM t", 141, 1, ""},
    {"SELECT a.b.c.d.e", 117, 1, "3"},
    {"CREATE VIEW db.dbo.v AS SELECT 1 AS a", 166, 1, "VIEW"},
    {"EXEC p @a = 1, 2", 119, 1, "2"},
    {"EXEC p 1 OUTPUT", 179, 1, ""},
};
INSTANTIATE_TEST_SUITE_P(Grammar, SyntaxFault, testing::ValuesIn(kSyntax));

const Fault kWhole[] = {
    {"SELECT 1\nCREATE PROCEDURE p AS SELECT 1", 111, 2, "'CREATE/ALTER PROCEDURE'"},
    {"IF 1 = 1\n  CREATE VIEW v AS SELECT 1 AS a", 111, 2, "'CREATE VIEW'"},
    {"SELECT @nowhere", 137, 1, "\"@nowhere\""},
    {"SET @x = 1\nDECLARE @x int", 137, 1, "@x"},
    {"DECLARE @t TABLE (a int)\nSELECT @t", 137, 2, "@t"},
    {"SELECT * FROM @t", 1087, 1, "@t"},
    {"DECLARE @a int\nDECLARE @A int", 134, 2, "@A"},
    {"RETURN 1", 178, 1, ""},
    {"CREATE TRIGGER g ON t FOR INSERT AS\nRETURN 1", 178, 2, ""},
    {"BREAK", 135, 1, ""},
    {"IF 1 = 1 CONTINUE", 136, 1, ""},
    {"GOTO nowhere", 133, 1, "nowhere"},
    {"a: PRINT 1\nA: PRINT 2", 132, 2, "A"},
    {"PRINT nothing", 128, 1, "nothing"},
    {"INSERT t VALUES (a)", 128, 1, "a"},
    {"CREATE FUNCTION f() RETURNS int AS BEGIN\nINSERT t VALUES (1)\nRETURN 1 END", 443, 2, "INSERT"},
    {"CREATE FUNCTION f() RETURNS int AS BEGIN\nSELECT 1\nRETURN 1 END", 444, 2, ""},
    {"CREATE FUNCTION f() RETURNS int AS BEGIN DECLARE @a int END", 455, 1, ""},
    {"CREATE PROCEDURE p AS\nUSE master", 154, 2, "USE"},
};
INSTANTIATE_TEST_SUITE_P(WholeText, SyntaxFault, testing::ValuesIn(kWhole));

// Where the end of what is refused cannot be told, or variables would be missing without it.
const Fault kRefused[] = {
    {"SELECT 1\nSELECT a AT TIME ZONE 'UTC' FROM t UNION SELECT 1", 49999, 2, "AT TIME ZONE"},
    {"SELECT * FROM t TABLESAMPLE (10 PERCENT)\nDISABLE TRIGGER g ON t", 49999, 1, "TABLESAMPLE"},
    {"CREATE TRIGGER g ON DATABASE FOR CREATE_TABLE AS PRINT 1", 49999, 1, "database"},
    {"DECLARE @d datetime = GETDATE() AT TIME ZONE 'UTC'; SELECT @d", 49999, 1, "AT TIME ZONE"},
    {"IF EXISTS (SELECT * FROM OPENXML(@d, 'x')) PRINT 1", 49999, 1, "OPENXML"},
};
INSTANTIATE_TEST_SUITE_P(Unsupported, SyntaxFault, testing::ValuesIn(kRefused));

class Refusal : public testing::TestWithParam<Fault> {};

// Everything else is refused when it runs, and what stands around it runs.
TEST_P(Refusal, IsOneStatement) {
    const auto batch = ParseBatch(std::string("PRINT 1\n") + GetParam().text + "\nPRINT 2");
    ASSERT_EQ(batch->statements.size(), 3U);
    ASSERT_EQ(batch->statements[1]->kind, StatementKind::Refused);
    EXPECT_EQ(batch->statements[1]->position.line, 2);
    const std::string& text = As<RefusedStatement>(batch->statements[1]).refusal;
    EXPECT_NE(text.find(GetParam().mentions), std::string::npos) << text;
}

const Fault kRefusedAlone[] = {
    {"BACKUP DATABASE x TO DISK = 'y' WITH INIT, STATS = 10", 49999, 2, "BACKUP DATABASE"},
    {"SELECT * FROM t TABLESAMPLE (10 PERCENT);", 49999, 2, "TABLESAMPLE"},
    {"SELECT * FROM OPENXML(@d, 'x') WHERE a IN (SELECT 1);", 49999, 2, "OPENXML"},
    {"CREATE SEQUENCE s START WITH 1;", 49999, 2, "SEQUENCE"},
    {"EXEC ('x') AT linked;", 49999, 2, "AT"},
};
INSTANTIATE_TEST_SUITE_P(AtRunTime, Refusal, testing::ValuesIn(kRefusedAlone));

TEST(SyntaxErrors, EveryUndeclaredVariableIsToldOfAtOnce) {
    try {
        ParseBatch("SELECT @a\nSELECT @b");
        FAIL();
    } catch (const SyntaxErrors& errors) {
        ASSERT_EQ(errors.Others().size(), 1U);
        EXPECT_EQ(errors.Others()[0].line, 2);
    }
}

// A doubled bracket is one character of the name.
TEST(SyntaxErrors, NamesHaveACertainLength) {
    std::string longest;
    for (int index = 0; index < 128; ++index)
        longest += "]]";
    EXPECT_EQ(FirstError("SELECT a AS [" + longest + "]").number, 0);
    const SqlError error = FirstError("SELECT a AS [" + longest + "é]");
    EXPECT_EQ(error.number, 103);
    EXPECT_EQ(error.text, "The identifier that starts with '" + std::string(128, ']') +
                              "' is too long. Maximum length is 128.");
}

TEST(SyntaxErrors, DeepNestingFailsInsteadOfExhaustingTheStack) {
    const auto repeat = [](std::string_view text, int count) {
        std::string all;
        for (int i = 0; i < count; ++i)
            all += text;
        return all;
    };
    const std::string deep[] = {
        "SELECT " + repeat("(", 200000) + "1" + repeat(")", 200000),
        "SELECT 1" + repeat("+1", 200000),
        "SELECT " + repeat("-", 1) + repeat(" -", 200000) + " 1",
        "SELECT 1 WHERE " + repeat("NOT ", 200000) + "1=1",
        "SELECT 1 WHERE 1=1" + repeat(" OR 1=1", 200000),
        "SELECT 1" + repeat(" UNION ALL SELECT 1", 200000),
        "SELECT * FROM t" + repeat(" CROSS JOIN t", 200000),
        repeat("IF 1=1 ", 200000) + "PRINT 1",
        repeat("BEGIN ", 200000) + "PRINT 1" + repeat(" END", 200000),
        "SELECT * FROM " + repeat("(SELECT * FROM ", 100000) + "t" + repeat(") x", 100000),
        "SELECT " + repeat("CASE WHEN 1=1 THEN ", 100000) + "1" + repeat(" END", 100000),
        "SELECT " + repeat("ABS(", 100000) + "1" + repeat(")", 100000),
    };
    for (const std::string& text : deep)
        EXPECT_EQ(FirstError(text).number, 191) << text.substr(0, 60);
}

TEST(SyntaxErrors, ChainsAsLongAsScriptsHaveThemAreTaken) {
    std::string text = "SELECT 'a'";
    for (int i = 0; i < 1000; ++i)
        text += " + 'b'";
    EXPECT_EQ(FirstError(text).number, 0);
}

} // namespace
} // namespace quillon::practice::tsql
