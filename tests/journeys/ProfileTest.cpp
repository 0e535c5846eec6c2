// The default profile on a server: what its triggers log and leave alone, and what its undo can and cannot
// bring back.
#include "journeys/Journey.h"

#include <random>

#include "platform/Failure.h"

namespace quillon::tests {
namespace {

class Profile : public Journey {
  protected:
    // Makes the tables, then audits the named ones for everything.
    void Audit(const std::vector<std::string>& ddl, const std::vector<std::string>& tables) {
        for (const std::string& statement : ddl)
            Run(statement);
        Start();
        Pick();
        Install();
        for (const std::string& table : tables)
            Tick(table, true, true, true);
        const std::string log = Execute();
        for (const char* error : {"Server: Msg 1", "Server: Msg 2", "Server: Msg 4"})
            EXPECT_EQ(log.find(error), std::string::npos) << log;
    }

    // "kind|key|column|old|new" in the order of logging.
    Lines Log() {
        return Ask("SELECT CHANGE_KIND, PRIMARY_KEY, COL_NAME, OLD_VALUE, NEW_VALUE FROM AUDIT_LOG_DATA "
                   "ORDER BY AUDIT_LOG_DATA_ID");
    }
    std::string Statements() { return AskOne("SELECT COUNT(*) FROM AUDIT_LOG_TRANSACTIONS"); }

    // --- undo, by the client's calls ---
    void
    Stage(const std::string& transactions = "SELECT AUDIT_LOG_TRANSACTION_ID FROM AUDIT_LOG_TRANSACTIONS") {
        Run("AUDIT_prc_CheckAuditUndo");
        for (const std::string& id : Ask(transactions))
            Run("EXEC AUDIT_prc_AddAuditUndoItem " + id);
    }
    // "status comment" of each item, without those that are alike.
    Lines Report() {
        Lines lines;
        for (const std::string& row : Ask("EXEC AUDIT_prc_GetAuditUndoReport")) {
            const auto comment = row.rfind('|');
            const std::string line = row.substr(row.rfind('|', comment - 1) + 1);
            if (lines.empty() || lines.back() != line)
                lines.push_back(line);
        }
        return lines;
    }
    // Leaves a transaction open, which the server remarks on as an error.
    void RunUndo() { EXPECT_THROW(Run("exec AUDIT_prc_RunUndo"), Failure); }
    void Commit() { EXPECT_THROW(Run("EXEC AUDIT_prc_CommitUndo"), Failure); }
    void UndoAll() {
        Stage();
        Report();
        RunUndo();
        Commit();
    }
};

constexpr const char* Item =
    "CREATE TABLE dbo.Item (ID int NOT NULL PRIMARY KEY, Name nvarchar(20) NULL, Price money NULL)";

TEST_F(Profile, AChangeOfCaseOfBlanksOrFromNullIsAChangeAndNothingElseIs) {
    Audit({Item, "INSERT INTO dbo.Item VALUES (1, N'a', NULL), (2, N'b', 5)"}, {"dbo.Item"});
    Run("UPDATE dbo.Item SET Name = N'A' WHERE ID = 1");
    Run("UPDATE dbo.Item SET Name = N'A ' WHERE ID = 1");
    Run("UPDATE dbo.Item SET Price = 1.5, Name = Name WHERE ID = 1");
    Run("UPDATE dbo.Item SET Price = Price, Name = Name");
    Run("UPDATE dbo.Item SET Name = N'c' WHERE ID = 77");
    EXPECT_EQ(Log(), (Lines{"1|[ID]=1|Name|a|A", "1|[ID]=1|Name|A|A ", "1|[ID]=1|Price|NULL|1.5000"}));
    EXPECT_EQ(Statements(), "3");
}

TEST_F(Profile, TheApplicationSeesNothingOfIt) {
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

TEST_F(Profile, KeysMayChange) {
    Audit({Item, "INSERT INTO dbo.Item VALUES (1, N'a', 1), (2, N'b', 2), (3, N'c', 3)"}, {"dbo.Item"});
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

TEST_F(Profile, NamesOfEveryKind) {
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

TEST_F(Profile, MergeCascadesAndTablesWithoutAKey) {
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

TEST_F(Profile, ACallerNeedsNoRightsOnTheLog) {
    Audit({Item, "CREATE LOGIN clerk WITH PASSWORD = 'Cl3rk-Secret'", "CREATE USER clerk FOR LOGIN clerk",
           "CREATE PROCEDURE dbo.AddItem AS INSERT INTO dbo.Item VALUES (1, N'a', 1)",
           "GRANT EXECUTE ON dbo.AddItem TO clerk"},
          {"dbo.Item"});
    Run("EXECUTE AS USER = 'clerk' EXEC dbo.AddItem REVERT");
    EXPECT_EQ(AskOne("SELECT OBJECT_NAME(SYSOBJ_ID) + ' ' + MODIFIED_BY FROM AUDIT_LOG_TRANSACTIONS"),
              "Item sa");
}

TEST_F(Profile, EachReasonWhyNotIsTold) {
    Audit({Item, "INSERT INTO dbo.Item VALUES (1, N'a', 1), (2, N'b', 2), (3, N'c', 3), (4, N'd', 4)",
           "CREATE TABLE dbo.Part (ID int NOT NULL PRIMARY KEY, Item int NULL REFERENCES dbo.Item (ID))",
           "CREATE TABLE dbo.Slim (ID int NOT NULL PRIMARY KEY, A int NULL)"},
          {"dbo.Item", "dbo.Slim"});
    const auto last = [&] {
        return AskOne("SELECT MAX(AUDIT_LOG_TRANSACTION_ID) FROM AUDIT_LOG_TRANSACTIONS");
    };
    const auto reasons = [&](const std::string& transaction) {
        Stage("SELECT " + transaction);
        Lines lines = Report();
        Run("EXEC AUDIT_prc_RollbackUndo");
        return lines;
    };
    const auto begins = [](const Lines& lines, const char* text) {
        return lines.size() == 1 && lines.front().starts_with(text);
    };
    Run("UPDATE dbo.Item SET Name = N'x' WHERE ID = 1");
    const std::string changed = last();
    Run("UPDATE dbo.Item SET Name = N'y' WHERE ID = 1");
    EXPECT_TRUE(begins(reasons(changed), "0|The value has changed since by sa, 20"));
    Run("UPDATE dbo.Item SET Name = N'x' WHERE ID = 2");
    const std::string gone = last();
    Run("DELETE FROM dbo.Item WHERE ID = 2");
    const std::string deleted = last();
    EXPECT_TRUE(begins(reasons(gone), "0|The row is gone by sa, 20"));
    Run("INSERT INTO dbo.Item VALUES (2, N'again', 2)");
    EXPECT_TRUE(begins(reasons(deleted), "0|The key is taken again by sa, 20"));
    Run("INSERT INTO dbo.Item VALUES (9, N'parent', 2)");
    const std::string parent = last();
    Run("INSERT INTO dbo.Part VALUES (1, 9)");
    EXPECT_EQ(reasons(parent), (Lines{"0|Rows of [dbo].[Part] refer to the row."}));
    Run("INSERT INTO dbo.Slim VALUES (1, 1)");
    Run("DELETE FROM dbo.Slim");
    const std::string slim = last();
    Run("ALTER TABLE dbo.Slim ADD B int NULL");
    EXPECT_EQ(reasons(slim), (Lines{"0|Not enough was logged to insert the row again: column [B]."}));
    Run("ALTER TABLE dbo.Slim DROP COLUMN A");
    EXPECT_NE(AskOne("SELECT 1"), "");
    Stage("SELECT " + slim);
    EXPECT_EQ(Report().front().substr(0, 2), "0|");
    Run("EXEC AUDIT_prc_RollbackUndo");
    // Changes of two transactions of a row are reversed when both are staged.
    Stage("SELECT AUDIT_LOG_TRANSACTION_ID FROM AUDIT_LOG_TRANSACTIONS WHERE AUDIT_LOG_TRANSACTION_ID <= " +
          changed + " + 1");
    EXPECT_EQ(Report(), (Lines{"1|The value is set back."}));
    RunUndo();
    EXPECT_EQ(AskOne("SELECT Name FROM dbo.Item WHERE ID = 1"), "a");
    EXPECT_THROW(Run("EXEC AUDIT_prc_RollbackUndo"), Failure);
    EXPECT_EQ(AskOne("SELECT Name FROM dbo.Item WHERE ID = 1"), "y") << "a rollback leaves nothing half done";
}

TEST_F(Profile, AnUndoCanBeUndone) {
    Audit({Item, "INSERT INTO dbo.Item VALUES (1, N'a', 1)"}, {"dbo.Item"});
    Run("DELETE FROM dbo.Item");
    UndoAll();
    EXPECT_EQ(AskOne("SELECT COUNT(*) FROM dbo.Item"), "1");
    Stage("SELECT MAX(AUDIT_LOG_TRANSACTION_ID) FROM AUDIT_LOG_TRANSACTIONS");
    EXPECT_EQ(Report(), (Lines{"1|The row is deleted."}));
    RunUndo();
    Commit();
    EXPECT_EQ(AskOne("SELECT COUNT(*) FROM dbo.Item"), "0");
}

TEST_F(Profile, ReportsAndPurgeAnswerTheClientsCalls) {
    Audit({Item}, {"dbo.Item"});
    for (int i = 1; i <= 5; ++i)
        Run("INSERT INTO dbo.Item VALUES (" + std::to_string(i) + ", N'n" + std::to_string(i) + "', 1)");
    EXPECT_EQ(
        Ask("AUDIT_prc_StandardReport @TABLE_NAME = NULL, @TABLE_OWNER = NULL, @FIELD_NAME = NULL, "
            "@USER_NAME = NULL, "
            "@DATE_FROM = NULL, @DATE_TO = NULL, @ACTION_ID = NULL, @OLD_VALUE = NULL, @NEW_VALUE = NULL, "
            "@ROW_COUNT = NULL, @HOST_NAME = NULL, @APP_NAME = NULL")
            .size(),
        15u);
    EXPECT_EQ(Ask("AUDIT_prc_StandardReport @TABLE_NAME = 'Item', @TABLE_OWNER = 'dbo', @FIELD_NAME = "
                  "'Name', @USER_NAME = 'dbo', "
                  "@DATE_FROM = '20000101', @DATE_TO = '20990101', @ACTION_ID = '2', @OLD_VALUE = NULL, "
                  "@NEW_VALUE = 'n%', "
                  "@ROW_COUNT = '3', @HOST_NAME = NULL, @APP_NAME = NULL")
                  .size(),
              3u);
    EXPECT_EQ(Ask("SELECT TABLE_NAME, ACTION, COUNT(*) FROM AUDIT_VIEW GROUP BY TABLE_NAME, ACTION"),
              (Lines{"Item|Insert|5"}));
    Run("UPDATE AUDIT_LOG_TRANSACTIONS SET MODIFIED_DATE = DATEADD(month, -2, MODIFIED_DATE) WHERE "
        "AUDIT_LOG_TRANSACTION_ID <= 4");
    Run("EXEC Sales.dbo.AUDIT_prc_Purge_AUDIT_LOG NULL, 1, NULL");
    EXPECT_EQ(Statements(), "5");
    Run("EXEC Sales.dbo.AUDIT_prc_Purge_AUDIT_LOG 1, 3, 3");
    EXPECT_EQ(Statements(), "3");
    Run("EXEC Sales.dbo.AUDIT_prc_Purge_AUDIT_LOG 5, 2, NULL");
    EXPECT_EQ(Ask("SELECT AUDIT_LOG_TRANSACTION_ID FROM AUDIT_LOG_TRANSACTIONS"), (Lines{"5"}));
    EXPECT_EQ(AskOne("SELECT COUNT(*) FROM AUDIT_LOG_DATA"), "3");
}

// Random statements, then undo of all of them, newest first: every row is what it was.
TEST_F(Profile, EverythingComesBack) {
    Audit({"CREATE TABLE dbo.R (A int NOT NULL, B nvarchar(10) NOT NULL, F float NULL, D datetime2 NULL, M "
           "money NULL, "
           "X varbinary(20) NULL, V sql_variant NULL, T varchar(max) NULL, G uniqueidentifier NULL, C AS A * "
           "2, "
           "PRIMARY KEY (A, B))",
           "CREATE TABLE dbo.S (ID int IDENTITY(1, 1) PRIMARY KEY, N decimal(20, 6) NULL, K bit NULL, H "
           "char(5) NULL)"},
          {"dbo.R", "dbo.S"});
    std::mt19937 random(20261123);
    const auto number = [&](int most) { return std::to_string(random() % static_cast<unsigned>(most)); };
    const auto content = [&] {
        return Ask("SELECT A, B, F, CONVERT(varchar(40), D, 121), M, X, CONVERT(nvarchar(100), V), T, G, C "
                   "FROM dbo.R ORDER BY A, B");
    };
    for (int i = 0; i < 12; ++i)
        Run("INSERT INTO dbo.R (A, B, F, D, M, X, V, T, G) VALUES (" + std::to_string(i) + ", N'k" +
            number(9) + "', RAND(" + number(999) + "), SYSDATETIME(), " + number(99) + ".125, 0x0" +
            number(9) + ", " + number(99) + ", 't', NEWID())");
    Run("INSERT INTO dbo.S (N, K, H) SELECT A * 1.000001, A % 2, B FROM dbo.R");
    Run("DELETE FROM AUDIT_LOG_DATA DELETE FROM AUDIT_LOG_TRANSACTIONS");
    const Lines before = content(), other = Ask("SELECT * FROM dbo.S ORDER BY ID");
    for (int i = 0; i < 60; ++i) {
        const std::string some = " WHERE A % " + std::to_string(2 + random() % 4) + " = " + number(2);
        switch (random() % 7) {
        case 0: Run("UPDATE dbo.R SET F = F * 3.3, T = T + 'é ', D = DATEADD(ms, 7, D)" + some); break;
        case 1:
            Run("UPDATE dbo.R SET V = CASE WHEN V IS NULL THEN CONVERT(sql_variant, 1.5e0) END, M = NULL" +
                some);
            break;
        case 2: Run("UPDATE dbo.R SET A = A + 100" + some); break;
        case 3: Run("DELETE FROM dbo.R" + some + " AND B < N'k" + number(9) + "'"); break;
        case 4:
            Run("INSERT INTO dbo.R (A, B, X) SELECT " + std::to_string(1000 + i) + ", N'" + number(99) +
                "', 0x00");
            break;
        case 5:
            Run("UPDATE dbo.S SET N = N / 3, H = 'x'" + std::string(random() % 2 == 0 ? " WHERE K = 1" : ""));
            break;
        default: Run("DELETE FROM dbo.S WHERE ID % 5 = " + number(5)); break;
        }
    }
    EXPECT_NE(content(), before);
    UndoAll();
    EXPECT_EQ(content(), before);
    EXPECT_EQ(Ask("SELECT * FROM dbo.S ORDER BY ID"), other);
}

} // namespace
} // namespace quillon::tests
