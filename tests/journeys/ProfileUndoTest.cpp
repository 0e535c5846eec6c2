// What the default profile's undo brings back, and what it says about the rest.
#include "journeys/ProfileJourney.h"

#include <random>

namespace quillon::tests {
namespace {

using ProfileUndo = ProfileJourney;

TEST_F(ProfileUndo, EachReasonWhyNotIsTold) {
    Audit({ItemTable, "INSERT INTO dbo.Item VALUES (1, N'a', 1), (2, N'b', 2), (3, N'c', 3), (4, N'd', 4)",
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

TEST_F(ProfileUndo, AnUndoCanBeUndone) {
    Audit({ItemTable, "INSERT INTO dbo.Item VALUES (1, N'a', 1)"}, {"dbo.Item"});
    Run("DELETE FROM dbo.Item");
    UndoAll();
    EXPECT_EQ(AskOne("SELECT COUNT(*) FROM dbo.Item"), "1");
    Stage("SELECT MAX(AUDIT_LOG_TRANSACTION_ID) FROM AUDIT_LOG_TRANSACTIONS");
    EXPECT_EQ(Report(), (Lines{"1|The row is deleted."}));
    RunUndo();
    Commit();
    EXPECT_EQ(AskOne("SELECT COUNT(*) FROM dbo.Item"), "0");
}

// Random statements, then undo of all of them, newest first: every row is what it was.
TEST_F(ProfileUndo, EverythingComesBack) {
    Audit({"CREATE TYPE dbo.Phone FROM varchar(20) NULL", "CREATE TYPE dbo.Moment FROM datetime NULL",
           "CREATE TABLE dbo.R (A int NOT NULL, B nvarchar(10) NOT NULL, F float NULL, D datetime2 NULL, M "
           "money NULL, X "
           "varbinary(20) NULL, V sql_variant NULL, T varchar(max) NULL, G uniqueidentifier NULL, C AS A * "
           "2, Z "
           "datetimeoffset(3) NULL, Y xml NULL, P dbo.Phone NULL, O dbo.Moment NULL, PRIMARY KEY (A, B))",
           "CREATE TABLE dbo.S (ID int IDENTITY(1, 1) PRIMARY KEY, N decimal(20, 6) NULL, K bit NULL, H "
           "char(5) NULL)"},
          {"dbo.R", "dbo.S"});
    std::mt19937 random(20261123);
    const auto number = [&](int most) { return std::to_string(random() % static_cast<unsigned>(most)); };
    const auto variant = [&] {
        static constexpr const char* values[] = {"1.5e0",
                                                 "CONVERT(decimal(9, 4), 12.5)",
                                                 "CONVERT(decimal(30, 15), 0.123456789012345)",
                                                 "CONVERT(numeric(5, 0), 7)",
                                                 "CONVERT(char(4), 'ab')",
                                                 "CONVERT(nchar(3), N'\xC5\xBD')",
                                                 "CONVERT(binary(3), 0x01)",
                                                 "CONVERT(real, 0.1)",
                                                 "CONVERT(smallmoney, 1.25)",
                                                 "CONVERT(datetime2(2), '20240229 10:20:30.45')",
                                                 "CONVERT(datetimeoffset(0), '2024-02-29 10:20:30 -03:00')",
                                                 "CONVERT(time(3), '10:20:30.125')",
                                                 "CONVERT(date, '20240229')",
                                                 "CONVERT(datetime, '20240229 10:20:30.997')",
                                                 "CONVERT(bit, 1)",
                                                 "NEWID()"};
        return "CONVERT(sql_variant, " + std::string(values[random() % std::size(values)]) + ")";
    };
    const auto content = [&] {
        return Ask("SELECT A, B, F, CONVERT(varchar(40), D, 121), M, X, CONVERT(nvarchar(100), V), "
                   "SQL_VARIANT_PROPERTY(V, 'Scale'), T, G, C, CONVERT(varchar(40), Z, 121), "
                   "CONVERT(nvarchar(100), Y), P, "
                   "CONVERT(varchar(40), O, 121) FROM dbo.R ORDER BY A, B");
    };
    for (int i = 0; i < 12; ++i)
        Run("INSERT INTO dbo.R (A, B, F, D, M, X, V, T, G, Z, Y, P, O) VALUES (" + std::to_string(i) +
            ", N'k" + number(9) + "', RAND(" + number(999) + "), SYSDATETIME(), " + number(99) + ".125, 0x0" +
            number(9) + ", " + variant() + ", 't', NEWID(), SYSDATETIMEOFFSET(), N'<a>" + number(9) +
            "<b/></a>', '0" + number(999) + "', GETDATE())");
    Run("INSERT INTO dbo.S (N, K, H) SELECT A * 1.000001, A % 2, B FROM dbo.R");
    Run("DELETE FROM AUDIT_LOG_DATA DELETE FROM AUDIT_LOG_TRANSACTIONS");
    const Lines before = content(), other = Ask("SELECT * FROM dbo.S ORDER BY ID");
    for (int i = 0; i < 60; ++i) {
        const std::string some = " WHERE A % " + std::to_string(2 + random() % 4) + " = " + number(2);
        switch (random() % 8) {
        case 0: Run("UPDATE dbo.R SET F = F * 3.3, T = T + 'é ', D = DATEADD(ms, 7, D)" + some); break;
        case 1:
            Run("UPDATE dbo.R SET V = CASE WHEN A % 3 > 0 THEN " + variant() + " END, M = NULL" + some);
            break;
        case 2: Run("UPDATE dbo.R SET A = A + 100" + some); break;
        case 3: Run("DELETE FROM dbo.R" + some + " AND B < N'k" + number(9) + "'"); break;
        case 4:
            Run("INSERT INTO dbo.R (A, B, X, V) SELECT " + std::to_string(1000 + i) + ", N'" + number(99) +
                "', 0x00, " + variant());
            break;
        case 5:
            Run("UPDATE dbo.S SET N = N / 3, H = 'x'" + std::string(random() % 2 == 0 ? " WHERE K = 1" : ""));
            break;
        case 6:
            Run("UPDATE dbo.R SET Y = N'<c/>', P = P + '-1', Z = DATEADD(hour, 1, Z), O = DATEADD(ms, 10, "
                "O)" +
                some);
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
