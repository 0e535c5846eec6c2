// Statements as people and tools write them: each is taken, and taken for what it is.
#include "practice/tsql/Parser.h"

#include <gtest/gtest.h>

namespace quillon::practice::tsql {
namespace {

struct Accepted {
    StatementKind kind;
    const char* text;
};

void PrintTo(const Accepted& accepted, std::ostream* out) {
    *out << accepted.text;
}

class Statements : public testing::TestWithParam<Accepted> {};

TEST_P(Statements, AreTakenWhole) {
    const std::string text = GetParam().text;
    std::unique_ptr<Batch> batch;
    try {
        batch = ParseBatch(text + ";");
    } catch (const SqlError& error) {
        FAIL() << error.number << " " << error.text;
    }
    ASSERT_EQ(batch->statements.size(), 1U);
    EXPECT_EQ(batch->statements[0]->kind, GetParam().kind);
    EXPECT_EQ(batch->Text(batch->statements[0]->text), text);
}

const Accepted kQueries[] = {
    {StatementKind::Select, "SELECT 1"},
    {StatementKind::Select, "SELECT c.precision, precision FROM sys.columns c"},
    {StatementKind::Select,
     "SELECT TOP 10 PERCENT WITH TIES a.*, b AS [x y], 'z' = c, d 'e' FROM t AS a ORDER BY 1 DESC"},
    {StatementKind::Select,
     "SELECT DISTINCT TOP (5) $IDENTITY, t.$ROWGUID FROM dbo.t WITH (NOLOCK, INDEX(i))"},
    {StatementKind::Select, "SELECT * FROM t (NOLOCK) LEFT OUTER JOIN u x (NOLOCK) ON t.a = x.a"},
    {StatementKind::Select, "SELECT * FROM a JOIN b JOIN c ON b.x = c.x ON a.x = b.x"},
    {StatementKind::Select,
     "SELECT * FROM a CROSS JOIN b CROSS APPLY (SELECT TOP 1 * FROM c ORDER BY c.x) d"},
    {StatementKind::Select, "SELECT * FROM (a INNER HASH JOIN b ON a.x = b.x) FULL JOIN c ON 1 = 1"},
    {StatementKind::Select, "SELECT * FROM ((SELECT 1 AS a) UNION (SELECT 2)) x"},
    {StatementKind::Select, "SELECT v.a FROM (VALUES (1, 'a'), (2, 'b')) AS v(a, b)"},
    {StatementKind::Select, "SELECT * FROM dbo.f(1, DEFAULT) AS x, ::fn_helpcollations() y"},
    {StatementKind::Select,
     "SELECT a FROM t UNION ALL SELECT b FROM u EXCEPT SELECT 1 INTERSECT SELECT 2 ORDER BY a"},
    {StatementKind::Select, "(SELECT 1) UNION (SELECT 2)"},
    {StatementKind::Select,
     "WITH a (x) AS (SELECT 1), b AS (SELECT 2 AS y) SELECT * FROM a, b OPTION (MAXRECURSION 0)"},
    {StatementKind::Select,
     "SELECT a, COUNT(*) INTO #t FROM t GROUP BY a, ROLLUP (b, (c, d)) HAVING COUNT(DISTINCT x) > 1"},
    {StatementKind::Select, "SELECT a FROM t GROUP BY a, b WITH CUBE"},
    {StatementKind::Select, "SELECT a FROM t GROUP BY GROUPING SETS ((a, b), a, ())"},
    {StatementKind::Select, "SELECT a FROM t ORDER BY a OFFSET 5 ROWS FETCH NEXT 10 ROWS ONLY"},
    {StatementKind::Select,
     "SELECT SUM(a) OVER (PARTITION BY b ORDER BY c ROWS BETWEEN 1 PRECEDING AND CURRENT ROW) FROM t"},
    {StatementKind::Select, "SELECT STUFF((SELECT ',' + a FROM t FOR XML PATH(''), TYPE), 1, 1, '')"},
    {StatementKind::Select, "SELECT STRING_AGG(a, ',') WITHIN GROUP (ORDER BY a DESC) FROM t"},
    {StatementKind::Select,
     "SELECT CASE a WHEN 1 THEN 'x' ELSE NULL END, CASE WHEN a IS NOT NULL THEN 1 END FROM t"},
    {StatementKind::Select,
     "SELECT 1 WHERE a NOT LIKE '%!%' ESCAPE '!' AND b NOT BETWEEN 1 AND 2 OR NOT c IN (1, 2)"},
    {StatementKind::Select,
     "SELECT 1 WHERE a > ALL (SELECT b FROM t) AND EXISTS (SELECT * FROM u) AND c IN (SELECT 1)"},
    {StatementKind::Select,
     "SELECT CAST(a AS decimal(10, 2)), CONVERT(national character varying(20), b, 120) FROM t"},
    {StatementKind::Select,
     "SELECT TRY_CONVERT(int, 'x'), TRY_CAST('x' AS double precision), {fn UCASE('a')}, {d '2001-01-02'}"},
    {StatementKind::Select, "SELECT PARSE(a AS money USING 'de-DE'), TRY_PARSE('1' AS decimal(5, 2)) FROM t"},
    {StatementKind::Select,
     "SELECT -$1.50, .5, 1., 1e-3, 0x, N'\xc3\xa9''', +~-1, CURRENT_TIMESTAMP, USER, @@ROWCOUNT"},
    {StatementKind::Select,
     "SELECT a COLLATE Latin1_General_CS_AS + LEFT(b, 1), DATEADD(day, 1, c), IIF(1 < > 2, 1, 0) FROM t"},
    {StatementKind::Select, "SELECT \xd0\x98\xd0\xbc\xd1\x8f, [a]]b], \"q\"\"r\" FROM db..t"},
};
INSTANTIATE_TEST_SUITE_P(Queries, Statements, testing::ValuesIn(kQueries));

const Accepted kChanges[] = {
    {StatementKind::Insert, "INSERT t VALUES (1, DEFAULT), (NULL, GETDATE())"},
    {StatementKind::Insert,
     "INSERT INTO dbo.t WITH (TABLOCK) (a, b) OUTPUT inserted.a INTO #x (c) SELECT 1, 2"},
    {StatementKind::Insert, "INSERT t (SELECT 1)"},
    {StatementKind::Insert, "INSERT t (a) EXEC dbo.p @x = 1"},
    {StatementKind::Insert, "INSERT t DEFAULT VALUES"},
    {StatementKind::Insert, "WITH c AS (SELECT 1 AS a) INSERT TOP (1) t SELECT a FROM c"},
    {StatementKind::Update, "UPDATE t SET a = b + 1, c += 2, d = DEFAULT OUTPUT deleted.a, inserted.a FROM t "
                            "JOIN u ON t.x = u.x WHERE 1 = 1"},
    {StatementKind::Update, "UPDATE TOP (10) t SET a = NULL WHERE CURRENT OF c"},
    {StatementKind::Delete, "DELETE t"},
    {StatementKind::Delete,
     "DELETE TOP (5) FROM x OUTPUT deleted.* FROM t AS x WHERE x.a = 1 OPTION (RECOMPILE)"},
    {StatementKind::Merge,
     "MERGE INTO t AS a USING (SELECT 1 AS x) AS b ON a.x = b.x WHEN MATCHED AND a.y = 1 THEN DELETE "
     "WHEN MATCHED THEN UPDATE SET y = 2 WHEN NOT MATCHED THEN INSERT (x) VALUES (b.x) "
     "WHEN NOT MATCHED BY SOURCE THEN DELETE OUTPUT $action, inserted.x"},
    {StatementKind::Truncate, "TRUNCATE TABLE dbo.t"},
};
INSTANTIATE_TEST_SUITE_P(Changes, Statements, testing::ValuesIn(kChanges));

const Accepted kDefinitions[] = {
    {StatementKind::CreateTable,
     "CREATE TABLE [dbo].[t] ([Id] [int] IDENTITY(1,1) NOT FOR REPLICATION NOT NULL, [g] uniqueidentifier "
     "ROWGUIDCOL "
     "CONSTRAINT d DEFAULT (newid()) NOT NULL, n nvarchar(max) COLLATE Latin1_General_CI_AS NULL, c AS (n + "
     "'x') PERSISTED, "
     "timestamp, r int REFERENCES u (a) ON DELETE CASCADE ON UPDATE SET NULL CHECK (r > 0), "
     "CONSTRAINT [PK_t] PRIMARY KEY CLUSTERED ([Id] ASC) WITH (PAD_INDEX = OFF, FILLFACTOR = 90) ON "
     "[PRIMARY], "
     "FOREIGN KEY (r, Id) REFERENCES dbo.v, UNIQUE NONCLUSTERED (n DESC), INDEX i (n)) ON [PRIMARY] "
     "TEXTIMAGE_ON [PRIMARY]"},
    {StatementKind::AlterTable, "ALTER TABLE t WITH NOCHECK ADD a int NULL CONSTRAINT d DEFAULT 0 WITH "
                                "VALUES, CONSTRAINT k CHECK (a > 0)"},
    {StatementKind::AlterTable, "ALTER TABLE t ADD CONSTRAINT d DEFAULT (0) FOR a"},
    {StatementKind::AlterTable, "ALTER TABLE t ALTER COLUMN a varchar(10) COLLATE database_default NOT NULL"},
    {StatementKind::AlterTable, "ALTER TABLE t ALTER COLUMN a DROP ROWGUIDCOL"},
    {StatementKind::AlterTable, "ALTER TABLE t DROP CONSTRAINT IF EXISTS a, COLUMN b, c"},
    {StatementKind::AlterTable, "ALTER TABLE t NOCHECK CONSTRAINT ALL"},
    {StatementKind::AlterTable, "ALTER TABLE t DISABLE TRIGGER a, b"},
    {StatementKind::CreateIndex, "CREATE UNIQUE CLUSTERED INDEX i ON dbo.t (a, b DESC) INCLUDE (c) WHERE a "
                                 "IS NOT NULL WITH (ONLINE = ON) ON [PRIMARY]"},
    {StatementKind::CreateIndex, "CREATE INDEX i ON t (a) WITH FILLFACTOR = 80, PAD_INDEX"},
    {StatementKind::AlterIndex, "ALTER INDEX ALL ON t REBUILD WITH (ONLINE = OFF)"},
    {StatementKind::CreateDatabase, "CREATE DATABASE d ON PRIMARY (NAME = x, FILENAME = 'y', SIZE = 10MB) "
                                    "LOG ON (NAME = z, FILENAME = 'w') COLLATE Latin1_General_CI_AS"},
    {StatementKind::AlterDatabase, "ALTER DATABASE d SET SINGLE_USER WITH ROLLBACK IMMEDIATE"},
    {StatementKind::AlterDatabase,
     "ALTER DATABASE CURRENT SET RECOVERY FULL, COMPATIBILITY_LEVEL = 150, ALLOW_SNAPSHOT_ISOLATION ON"},
    {StatementKind::CreateSchema, "CREATE SCHEMA s AUTHORIZATION dbo"},
    {StatementKind::CreateType, "CREATE TYPE dbo.Flag FROM bit NOT NULL"},
    {StatementKind::CreateView,
     "CREATE VIEW v (a) WITH SCHEMABINDING AS WITH c AS (SELECT 1 AS x) SELECT x FROM c WITH CHECK OPTION"},
    {StatementKind::CreateProcedure, "CREATE OR ALTER PROC p @a int = 1, @b nvarchar(10) = N'x' OUT WITH "
                                     "ENCRYPTION, EXECUTE AS OWNER AS SET NOCOUNT ON; RETURN 1"},
    {StatementKind::CreateFunction,
     "CREATE FUNCTION dbo.f (@a int) RETURNS int WITH RETURNS NULL ON NULL INPUT AS BEGIN RETURN @a + 1 END"},
    {StatementKind::CreateFunction, "CREATE FUNCTION f () RETURNS TABLE AS RETURN (SELECT 1 AS a)"},
    {StatementKind::CreateFunction,
     "CREATE FUNCTION f () RETURNS @t TABLE (a int) AS BEGIN INSERT @t VALUES (1) RETURN END"},
    {StatementKind::CreateTrigger, "CREATE TRIGGER dbo.g ON dbo.t WITH ENCRYPTION AFTER INSERT, UPDATE NOT "
                                   "FOR REPLICATION AS IF UPDATE(a) PRINT 'x'"},
    {StatementKind::CreateTrigger, "ALTER TRIGGER g ON v INSTEAD OF DELETE AS RETURN"},
    {StatementKind::EnableTrigger, "DISABLE TRIGGER dbo.a, b ON dbo.t"},
    {StatementKind::Drop, "DROP TABLE IF EXISTS a, dbo.b"},
    {StatementKind::DropIndex, "DROP INDEX i ON dbo.t, u.j"},
    {StatementKind::DropTrigger, "DROP TRIGGER dbo.g"},
    {StatementKind::CreateLogin,
     "CREATE LOGIN [a b] WITH PASSWORD = N'x', CHECK_POLICY = OFF, DEFAULT_DATABASE = [d]"},
    {StatementKind::AlterLogin, "ALTER LOGIN a WITH PASSWORD = 'x' OLD_PASSWORD = 'y', NAME = b"},
    {StatementKind::CreateUser, "CREATE USER u FOR LOGIN l WITH DEFAULT_SCHEMA = s"},
    {StatementKind::AlterRole, "ALTER ROLE db_owner ADD MEMBER u"},
    {StatementKind::Permission,
     "GRANT SELECT (a), VIEW DEFINITION ON OBJECT::dbo.t TO u, public WITH GRANT OPTION"},
    {StatementKind::Permission, "REVOKE GRANT OPTION FOR EXECUTE ON p FROM u CASCADE"},
    {StatementKind::Permission, "DENY CREATE TABLE TO u"},
};
INSTANTIATE_TEST_SUITE_P(Definitions, Statements, testing::ValuesIn(kDefinitions));

const Accepted kControl[] = {
    {StatementKind::If, "IF 1 = 1 PRINT 'a'; ELSE IF 2 = 2 BEGIN PRINT 'b' END ELSE PRINT 'c'"},
    {StatementKind::While, "WHILE 1 = 1 BEGIN IF 2 = 2 BREAK CONTINUE; END"},
    {StatementKind::TryCatch, "BEGIN TRY; THROW 50001, 'x', 1; END TRY BEGIN CATCH THROW END CATCH"},
    {StatementKind::Label, "done:"},
    {StatementKind::WaitFor, "WAITFOR DELAY '00:00:01'"},
    {StatementKind::Print, "PRINT N'a' + CAST(1 AS varchar)"},
    {StatementKind::RaiseError, "RAISERROR (N'%d %s', 16, -1, 5, NULL) WITH NOWAIT, SETERROR"},
    {StatementKind::DeclareVariables, "DECLARE @a AS int = 1, @b dbo.MyType, @c CURSOR"},
    {StatementKind::Block, "DECLARE @a int, @t TABLE (a int PRIMARY KEY)"},
    {StatementKind::SetOption, "SET ANSI_NULLS, QUOTED_IDENTIFIER ON"},
    {StatementKind::SetOption, "SET TRANSACTION ISOLATION LEVEL READ UNCOMMITTED"},
    {StatementKind::SetOption, "SET IDENTITY_INSERT dbo.t ON"},
    {StatementKind::SetOption, "SET LOCK_TIMEOUT -1"},
    {StatementKind::SetOption, "SET DATEFORMAT dmy"},
    {StatementKind::BeginTransaction, "BEGIN TRAN x WITH MARK 'y'"},
    {StatementKind::CommitTransaction, "COMMIT WORK"},
    {StatementKind::RollbackTransaction, "ROLLBACK"},
    {StatementKind::SaveTransaction, "SAVE TRANSACTION s"},
    {StatementKind::ExecuteProcedure,
     "EXEC master..sp_help 'a', @b = -1, @c = DEFAULT, @d = word WITH RECOMPILE"},
    {StatementKind::ExecuteProcedure, "sp_who"},
    {StatementKind::ExecuteText, "EXECUTE ('a' + N'b') AS USER = 'x'"},
    {StatementKind::ExecuteAs, "EXECUTE AS LOGIN = 'sa'"},
    {StatementKind::DeclareCursor, "DECLARE c INSENSITIVE SCROLL CURSOR FOR SELECT 1 FOR READ ONLY"},
    {StatementKind::DeclareCursor,
     "DECLARE c CURSOR LOCAL FAST_FORWARD FOR WITH x AS (SELECT 1 AS a) SELECT a FROM x ORDER BY a"},
    {StatementKind::FetchCursor, "FETCH ABSOLUTE 5 FROM GLOBAL c"},
    {StatementKind::FetchCursor, "FETCH c"},
    {StatementKind::DeallocateCursor, "DEALLOCATE c"},
    {StatementKind::Use, "USE [a b]"},
    {StatementKind::Dbcc, "DBCC CHECKIDENT ('t', RESEED, 1) WITH NO_INFOMSGS"},
};
INSTANTIATE_TEST_SUITE_P(Control, Statements, testing::ValuesIn(kControl));

} // namespace
} // namespace quillon::practice::tsql
