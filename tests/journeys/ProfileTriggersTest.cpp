// What the default profile's triggers log, and what they leave alone.
#include "journeys/ProfileJourney.h"

namespace quillon::tests {
namespace {

using ProfileTriggers = ProfileJourney;

TEST_F(ProfileTriggers, AChangeOfCaseOfBlanksOrFromNullIsAChangeAndNothingElseIs) {
    Audit({ItemTable, "INSERT INTO dbo.Item VALUES (1, N'a', NULL), (2, N'b', 5)"}, {"dbo.Item"});
    Run("UPDATE dbo.Item SET Name = N'A' WHERE ID = 1");
    Run("UPDATE dbo.Item SET Name = N'A ' WHERE ID = 1");
    Run("UPDATE dbo.Item SET Price = 1.5, Name = Name WHERE ID = 1");
    Run("UPDATE dbo.Item SET Price = Price, Name = Name");
    Run("UPDATE dbo.Item SET Name = N'c' WHERE ID = 77");
    EXPECT_EQ(Log(), (Lines{"1|[ID]=1|Name|a|A", "1|[ID]=1|Name|A|A ", "1|[ID]=1|Price|NULL|1.5000"}));
    EXPECT_EQ(Statements(), "3");
}

TEST_F(ProfileTriggers, TheApplicationSeesNothingOfIt) {
    Audit({"CREATE TABLE dbo.Auto (ID int IDENTITY(100, 1) PRIMARY KEY, V int NULL)"}, {"dbo.Auto"});
    EXPECT_EQ(
        Ask("INSERT INTO dbo.Auto (V) VALUES (1) SELECT @@ROWCOUNT, @@IDENTITY, SCOPE_IDENTITY(), @@ERROR"),
        (Lines{"1|100|100|0"}));
    EXPECT_EQ(Ask("UPDATE dbo.Auto SET V = 2 SELECT @@ROWCOUNT, @@IDENTITY"), (Lines{"1|100"}));
    EXPECT_EQ(Ask("SET ROWCOUNT 1 INSERT INTO dbo.Auto (V) SELECT 7 SET ROWCOUNT 0 SELECT @@ROWCOUNT"),
              (Lines{"0"}));
    EXPECT_EQ(Log().size(), 5u) << "a limit of the caller's must not cut the log";
    Run("SET IDENTITY_INSERT dbo.Auto ON INSERT INTO dbo.Auto (ID, V) VALUES (500, 1) SET IDENTITY_INSERT "
        "dbo.Auto OFF");
    EXPECT_EQ(Log().back(), "2|[ID]=500|V|NULL|1");
    Run("SET CONCAT_NULL_YIELDS_NULL OFF SET ANSI_NULLS OFF SET DATEFORMAT ymd UPDATE dbo.Auto SET V = NULL "
        "WHERE ID = 500");
    EXPECT_EQ(Log().back(), "1|[ID]=500|V|1|NULL");
}

TEST_F(ProfileTriggers, KeysMayChange) {
    Audit({ItemTable, "INSERT INTO dbo.Item VALUES (1, N'a', 1), (2, N'b', 2), (3, N'c', 3)"}, {"dbo.Item"});
    Run("UPDATE dbo.Item SET ID = 10 WHERE ID = 1");
    EXPECT_EQ(Log(), (Lines{"1|[ID]=10|ID|1|10"}));
    Run("UPDATE dbo.Item SET ID = ID + 1 WHERE ID < 10");
    EXPECT_EQ(AskOne("SELECT COUNT(*) FROM AUDIT_LOG_DATA WHERE CHANGE_KIND = 2 AND PRIMARY_KEY = '[ID]=4'"),
              "3");
    EXPECT_EQ(AskOne("SELECT COUNT(*) FROM AUDIT_LOG_DATA WHERE CHANGE_KIND = 3 AND PRIMARY_KEY = '[ID]=2'"),
              "3");
    UndoAll();
    EXPECT_EQ(Ask("SELECT ID, Name FROM dbo.Item ORDER BY ID"), (Lines{"1|a", "2|b", "3|c"}));
}

TEST_F(ProfileTriggers, NamesOfEveryKind) {
    const std::string longName(128, 'x');
    Audit({"CREATE TABLE dbo.[a]]b'c\"d] ([k]]1] nvarchar(20) NOT NULL, [v'2 \xC5\xBD] int NULL, PRIMARY KEY "
           "([k]]1]))",
           "CREATE TABLE dbo.[" + longName + "] (ID int NOT NULL PRIMARY KEY)"},
          {"dbo.a]b'c\"d", "dbo." + longName});
    Run("INSERT INTO dbo.[a]]b'c\"d] VALUES (N'it''s], [x]=1', 5)");
    Run("INSERT INTO dbo.[" + longName + "] VALUES (1)");
    EXPECT_EQ(Log(), (Lines{"2|[k]]1]='it''s], [x]=1'|k]1|NULL|it's], [x]=1",
                            "2|[k]]1]='it''s], [x]=1'|v'2 \xC5\xBD|NULL|5", "2|[ID]=1|ID|NULL|1"}));
    UndoAll();
    EXPECT_EQ(AskOne("SELECT COUNT(*) FROM dbo.[a]]b'c\"d]"), "0");
}

TEST_F(ProfileTriggers, MergeCascadesAndTablesWithoutAKey) {
    Audit({"CREATE TABLE dbo.P (ID int NOT NULL PRIMARY KEY)",
           "CREATE TABLE dbo.C (ID int NOT NULL PRIMARY KEY, P int NULL REFERENCES dbo.P (ID) ON DELETE "
           "CASCADE)",
           "CREATE TABLE dbo.Heap (V int NULL)", "INSERT INTO dbo.P VALUES (1), (2)",
           "INSERT INTO dbo.C VALUES (11, 1), (12, 1), (21, 2)", "INSERT INTO dbo.Heap VALUES (1), (1), (2)"},
          {"dbo.P", "dbo.C", "dbo.Heap"});
    Run("MERGE dbo.C AS t USING (SELECT 11 AS ID, 2 AS P UNION ALL SELECT 13, 1) AS s ON t.ID = s.ID "
        "WHEN MATCHED THEN UPDATE SET P = s.P WHEN NOT MATCHED THEN INSERT (ID, P) VALUES (s.ID, s.P);");
    EXPECT_EQ(Statements(), "2");
    Run("DELETE FROM dbo.P WHERE ID = 1");
    EXPECT_EQ(AskOne("SELECT COUNT(*) FROM dbo.C"), "2");
    Run("UPDATE dbo.Heap SET V = 9 WHERE V = 2");
    EXPECT_EQ(Log().back(), "1||V|2|9");
    Stage("SELECT AUDIT_LOG_TRANSACTION_ID FROM AUDIT_LOG_TRANSACTIONS WHERE SYSOBJ_ID <> "
          "OBJECT_ID('dbo.Heap')");
    Report();
    RunUndo();
    Commit();
    EXPECT_EQ(Ask("SELECT ID, P FROM dbo.C ORDER BY ID"), (Lines{"11|1", "12|1", "21|2"}));
    Stage("SELECT AUDIT_LOG_TRANSACTION_ID FROM AUDIT_LOG_TRANSACTIONS WHERE SYSOBJ_ID = "
          "OBJECT_ID('dbo.Heap')");
    EXPECT_EQ(Report(), (Lines{"0|The table has no primary key to find the row by."}));
}

TEST_F(ProfileTriggers, ACallerNeedsNoRightsOnTheLog) {
    Audit({ItemTable, "CREATE LOGIN clerk WITH PASSWORD = 'Cl3rk-Secret'",
           "CREATE USER clerk FOR LOGIN clerk",
           "CREATE PROCEDURE dbo.AddItem AS INSERT INTO dbo.Item VALUES (1, N'a', 1)",
           "GRANT EXECUTE ON dbo.AddItem TO clerk"},
          {"dbo.Item"});
    Run("EXECUTE AS USER = 'clerk' EXEC dbo.AddItem REVERT");
    EXPECT_EQ(AskOne("SELECT OBJECT_NAME(SYSOBJ_ID) + ' ' + MODIFIED_BY FROM AUDIT_LOG_TRANSACTIONS"),
              "Item sa");
}

TEST_F(ProfileTriggers, EveryTypeKeepsAllOfItsValue) {
    Audit({"CREATE TYPE dbo.Moment FROM datetime2(7) NULL",
           "CREATE TABLE dbo.Wide (ID int NOT NULL PRIMARY KEY, F float NULL, R real NULL, M money NULL, D "
           "decimal(20, 6) "
           "NULL, T datetime NULL, T7 datetime2(7) NULL, Z datetimeoffset(3) NULL, B varbinary(8) NULL, G "
           "uniqueidentifier NULL, X xml NULL, V sql_variant NULL, O dbo.Moment NULL, N nvarchar(max) NULL, "
           "A varchar(9) "
           "COLLATE Cyrillic_General_CI_AS NULL, C AS ID + 1, S rowversion)"},
          {"dbo.Wide"});
    Run("INSERT INTO dbo.Wide (ID, F, R, M, D, T, T7, Z, B, G, X, V, O, N, A) VALUES (1, 0.1, 0.1, 1.2345, "
        "1.5, "
        "'20240229 23:59:59.997', '20240229 23:59:59.9999999', '2024-02-29 23:59:59.123 +02:00', 0x00ff, "
        "'6F9619FF-8B86-D011-B42D-00C04FC964FF', N'<a b=\"1\"/>', CONVERT(decimal(9, 3), 1.5), '20240229 "
        "12:00:00.1234567', "
        "REPLICATE(CONVERT(nvarchar(max), N'\xC5\xBD'), 5000), 'a')");
    EXPECT_EQ(
        Ask("SELECT COL_NAME, NEW_VALUE FROM AUDIT_LOG_DATA WHERE COL_NAME NOT IN ('ID', 'N', 'S') ORDER BY "
            "AUDIT_LOG_DATA_ID"),
        (Lines{"F|1.0000000000000001e-001", "R|1.00000001e-001", "M|1.2345", "D|1.500000",
               "T|2024-02-29 23:59:59.997", "T7|2024-02-29 23:59:59.9999999",
               "Z|2024-02-29 23:59:59.123 +02:00", "B|0x00FF", "G|6F9619FF-8B86-D011-B42D-00C04FC964FF",
               "X|<a b=\"1\"/>", "V|decimal:1.500", "O|2024-02-29T12:00:00.1234567", "A|a", "C|2"}));
    EXPECT_EQ(AskOne("SELECT LEN(NEW_VALUE) FROM AUDIT_LOG_DATA WHERE COL_NAME = 'N'"), "5000");
    Run("SET CONCAT_NULL_YIELDS_NULL OFF UPDATE dbo.Wide SET V = NULL, O = NULL, A = NULL");
    EXPECT_EQ(Ask("SELECT COL_NAME, OLD_VALUE, NEW_VALUE FROM AUDIT_LOG_DATA WHERE CHANGE_KIND = 1 ORDER BY "
                  "COL_NAME"),
              (Lines{"A|a|NULL", "O|2024-02-29T12:00:00.1234567|NULL", "V|decimal:1.500|NULL"}))
        << "a row version that moved on says nothing";
}

TEST_F(ProfileTriggers, RowsThatStayTheSameAreNotLoggedWithoutAKeyEither) {
    Audit({"CREATE TABLE dbo.Heap (V int NULL, W nvarchar(9) NULL)",
           "INSERT INTO dbo.Heap VALUES (1, N'a'), (1, N'a'), (2, NULL), (NULL, N'A')"},
          {"dbo.Heap"});
    Run("UPDATE dbo.Heap SET V = V, W = W");
    EXPECT_EQ(Statements(), "0");
    Run("UPDATE dbo.Heap SET V = CASE WHEN V = 2 THEN 3 ELSE V END");
    EXPECT_EQ(Ask("SELECT CHANGE_KIND, COL_NAME, OLD_VALUE, NEW_VALUE FROM AUDIT_LOG_DATA ORDER BY "
                  "CHANGE_KIND, COL_NAME"),
              (Lines{"2|V|NULL|3", "2|W|NULL|NULL", "3|V|2|NULL", "3|W|NULL|NULL"}));
}

TEST_F(ProfileTriggers, TextColumnsAreLeftAloneAndHinderNothing) {
    Audit({"CREATE TABLE dbo.Old (ID int NOT NULL PRIMARY KEY, V int NULL, T text NULL)"}, {"dbo.Old"});
    Run("INSERT INTO dbo.Old VALUES (1, 1, 'x'), (2, 2, 'y')");
    Run("UPDATE dbo.Old SET ID = ID + 10, V = 0");
    EXPECT_EQ(AskOne("SELECT COUNT(*) FROM AUDIT_LOG_DATA WHERE COL_NAME = 'T'"), "0");
    EXPECT_EQ(AskOne("SELECT COUNT(*) FROM AUDIT_LOG_DATA WHERE CHANGE_KIND = 3"), "4");
    EXPECT_EQ(Script().find("SELECT *,"), std::string::npos) << "no trigger may read such a column";
}

// The last identity value is the application's own, by the server's common procedure and without it.
TEST_F(ProfileTriggers, NestedTriggersLeaveTheIdentityAlone) {
    Audit({"CREATE TABLE dbo.Auto (ID int IDENTITY(100, 1) PRIMARY KEY, V int NULL)",
           "CREATE TABLE dbo.Copy (N int IDENTITY(7000, 1) PRIMARY KEY, V int NULL)", ItemTable,
           "CREATE TRIGGER dbo.ToItem ON dbo.Auto AFTER INSERT AS SET NOCOUNT ON INSERT INTO dbo.Item (ID, "
           "Name) SELECT ID, "
           "N'n' FROM inserted"},
          {"dbo.Auto", "dbo.Copy", "dbo.Item"});
    for (const char* common : {"there", "gone"}) {
        const std::string next = common == std::string("there") ? "100" : "101";
        EXPECT_EQ(AskOne("SET CONTEXT_INFO 0x0102 INSERT INTO dbo.Auto (V) VALUES (1) UPDATE dbo.Item SET "
                         "Name = N'm' SELECT "
                         "@@IDENTITY, CONVERT(int, CONVERT(binary(2), CONTEXT_INFO()))"),
                  next + "|258")
            << common;
        Run("USE master IF OBJECT_ID('dbo.AUDIT_prc_gen_Set_Identity') IS NOT NULL DROP PROCEDURE "
            "dbo.AUDIT_prc_gen_Set_Identity USE Sales");
    }
    EXPECT_EQ(
        AskOne("SELECT COUNT(*) FROM AUDIT_LOG_DATA WHERE PRIMARY_KEY = '[ID]=100' AND COL_NAME = 'Name'"),
        "2");
}

TEST_F(ProfileTriggers, PlacesAreKeptAndOnlyAuditTriggersGo) {
    const std::string marker = "/* <TAG>QUILLON GENERATED - DO NOT REMOVE</TAG> */";
    Run(ItemTable);
    Run("CREATE TRIGGER dbo.Former ON dbo.Item AFTER INSERT, UPDATE AS SET NOCOUNT ON " + marker);
    Run("CREATE TRIGGER dbo.Others ON dbo.Item AFTER UPDATE AS SET NOCOUNT ON");
    Run("CREATE TRIGGER dbo.AUDIT_Delete_Item ON dbo.Item AFTER DELETE AS SET NOCOUNT ON");
    Run("EXEC sp_settriggerorder 'dbo.Former', 'First', 'UPDATE' EXEC sp_settriggerorder 'dbo.Others', "
        "'Last', 'UPDATE'");
    Start();
    Pick();
    Install();
    Tick("dbo.Item", true, true, true);
    EXPECT_NE(Execute().find("There is already an object named 'AUDIT_Delete_Item'"), std::string::npos);
    const auto places = [&] {
        return Ask("SELECT t.name, e.type_desc, e.is_first, e.is_last FROM sys.triggers t JOIN "
                   "sys.trigger_events e ON "
                   "e.object_id = t.object_id WHERE t.parent_id = OBJECT_ID('dbo.Item') ORDER BY t.name");
    };
    const Lines kept{"AUDIT_Delete_Item|DELETE|False|False", "AUDIT_Insert_Item|INSERT|False|False",
                     "AUDIT_Update_Item|UPDATE|True|False", "Others|UPDATE|False|True"};
    EXPECT_EQ(places(), kept);
    Execute();
    EXPECT_EQ(places(), kept);
    EXPECT_EQ(AskOne("SELECT OBJECT_DEFINITION(OBJECT_ID('dbo.AUDIT_Delete_Item'))").find("TAG"),
              std::string::npos);
}

} // namespace
} // namespace quillon::tests
