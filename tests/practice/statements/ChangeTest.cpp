// INSERT, UPDATE, DELETE, MERGE: constraints, identity, keys, OUTPUT; nothing of a failed statement stays.
#include "Batches.h"

namespace quillon::practice::test {

class ChangeTest : public BatchTest {
  protected:
    ChangeTest() {
        Run("CREATE TABLE dbo.P(Id int IDENTITY(10,5) NOT NULL CONSTRAINT PK_P PRIMARY KEY,"
            " Name varchar(10) NOT NULL CONSTRAINT UQ_P UNIQUE,"
            " Qty int NOT NULL CONSTRAINT DF_Q DEFAULT 1 CONSTRAINT CK_Q CHECK (Qty > 0),"
            " Total AS Qty * 2, Kept AS Qty + 1 PERSISTED, Ver rowversion)\n"
            "CREATE TABLE dbo.C(Id int PRIMARY KEY, PId int NULL CONSTRAINT FK_C REFERENCES dbo.P(Id)"
            " ON DELETE CASCADE, Txt nvarchar(5))\n"
            "CREATE TABLE dbo.G(Id int PRIMARY KEY, CId int NULL CONSTRAINT FK_G REFERENCES dbo.C(Id)"
            " ON DELETE SET NULL ON UPDATE CASCADE)\n"
            "INSERT P(Name) VALUES ('a'), ('b'), ('c')\n"
            "INSERT C VALUES (1, 10, N'x'), (2, 15, N'y'), (3, NULL, N'z')\n"
            "INSERT G VALUES (1, 1), (2, 2)");
    }
    void Expect(std::initializer_list<Answer> answers) {
        for (const Answer& answer : answers)
            EXPECT_EQ(Run(answer.batch), answer.lines) << answer.batch;
    }
};

TEST_F(ChangeTest, FillsInWhatIsNotGiven) {
    EXPECT_EQ(Run("SELECT Id, Name, Qty, Total, Kept FROM P"), "10|a|1|2|2\n15|b|1|2|2\n20|c|1|2|2");
    EXPECT_EQ(Run("INSERT P(Name, Qty) VALUES ('d', DEFAULT), ('e', 4); SELECT @@IDENTITY, SCOPE_IDENTITY(),"
                  " @@ROWCOUNT; SELECT Total, Kept FROM P WHERE Name = 'e'"),
              "30|30|2\n8|5");
    EXPECT_EQ(Run("DECLARE @v binary(8) = (SELECT Ver FROM P WHERE Name = 'a'); UPDATE P SET Qty = 2 WHERE "
                  "Name = 'a';"
                  " SELECT CASE WHEN Ver > @v THEN 'newer' ELSE 'older' END, Kept FROM P WHERE Name = 'a'"),
              "newer|3");
}

TEST_F(ChangeTest, RefusesRowsThatBreakARule) {
    Expect({
        {"INSERT P(Name) VALUES ('x'), ('A ')", "Msg 2627: Violation of UNIQUE KEY constraint 'UQ_P'. Cannot "
                                                "insert duplicate key in object 'dbo.P'. The "
                                                "duplicate key value is (A )."},
        {"INSERT P(Name, Qty) VALUES ('d', 0)", "Msg 547: The INSERT statement conflicted with the CHECK "
                                                "constraint \"CK_Q\". The conflict occurred in "
                                                "database \"Work\", table \"dbo.P\", column 'Qty'."},
        {"UPDATE P SET Qty = -1 WHERE Name = 'a'", "Msg 547: The UPDATE statement conflicted with the CHECK "
                                                   "constraint \"CK_Q\". The conflict occurred in "
                                                   "database \"Work\", table \"dbo.P\", column 'Qty'."},
        {"INSERT P(Name) VALUES (NULL)", "Msg 515: Cannot insert the value NULL into column 'Name', table "
                                         "'Work.dbo.P'; column does not allow nulls. "
                                         "INSERT fails."},
        {"INSERT P(Name) VALUES ('much too long')", "Msg 2628: String or binary data would be truncated in "
                                                    "table 'Work.dbo.P', column 'Name'. Truncated value: "
                                                    "'much too l'."},
        {"INSERT P(Id, Name) VALUES (1, 'e')", "Msg 544: Cannot insert explicit value for identity column in "
                                               "table 'P' when IDENTITY_INSERT is set to OFF."},
        {"UPDATE P SET Id = 3", "Msg 8102: Cannot update identity column 'Id'."},
        {"UPDATE P SET Total = 3", "Msg 271: The column \"Total\" cannot be modified because it is either a "
                                   "computed column or is the result of "
                                   "a UNION operator."},
        {"UPDATE P SET Ver = 0x1", "Msg 272: Cannot update a timestamp column."},
        {"INSERT P(Name, Nope) VALUES ('z', 1)", "Msg 207: Invalid column name 'Nope'."},
        {"INSERT C VALUES (4, 11, N'w')", "Msg 547: The INSERT statement conflicted with the FOREIGN KEY "
                                          "constraint \"FK_C\". The conflict occurred in "
                                          "database \"Work\", table \"dbo.P\", column 'Id'."},
        {"SELECT COUNT(*), MAX(Qty) FROM P", "3|1"},
    });
}

TEST_F(ChangeTest, UniqueIndexesTellTheirKeyAndAllowOneNull) {
    Run("CREATE UNIQUE INDEX ix_C ON C(PId, Txt)");
    Expect({
        {"INSERT C VALUES (5, 10, N'X')", "Msg 2601: Cannot insert duplicate key row in object 'dbo.C' with "
                                          "unique index 'ix_C'. The duplicate key "
                                          "value is (10, X)."},
        {"INSERT C VALUES (6, NULL, N'Z')", "Msg 2601: Cannot insert duplicate key row in object 'dbo.C' "
                                            "with unique index 'ix_C'. The duplicate key "
                                            "value is (<NULL>, Z)."},
        {"CREATE UNIQUE INDEX ix_Q ON P(Qty)",
         "Msg 1505: The CREATE UNIQUE INDEX statement terminated because a duplicate key was found for the "
         "object name "
         "'dbo.P' and the index name 'ix_Q'. The duplicate key value is (1)."},
    });
}

TEST_F(ChangeTest, KeysMayChangePlacesWithinAStatement) {
    EXPECT_EQ(Run("UPDATE C SET Id = 4 - Id WHERE Id < 4; SELECT Id, Txt FROM C ORDER BY Id"),
              "1|z\n2|y\n3|x");
    EXPECT_EQ(Run("SELECT Id, CId FROM G ORDER BY Id"), "1|1\n2|2")
        << "keys that are still there stay referred to";
}

TEST_F(ChangeTest, CascadesFollowTheirKeys) {
    EXPECT_EQ(Run("UPDATE C SET Id = 77 WHERE Id = 2; SELECT CId FROM G WHERE Id = 2"), "77");
    EXPECT_EQ(RunCounted("DELETE P WHERE Id = 10"), "(1)");
    EXPECT_EQ(Run("SELECT Id FROM C ORDER BY Id; SELECT Id, CId FROM G ORDER BY Id"), "3\n77\n1|NULL\n2|77");
    Run("CREATE TABLE N(P int REFERENCES P(Id)); INSERT N VALUES (15)");
    EXPECT_EQ(Run("DELETE P").substr(0, 63),
              "Msg 547: The DELETE statement conflicted with the REFERENCE con");
    EXPECT_EQ(Run("SELECT COUNT(*) FROM P"), "2");
}

TEST_F(ChangeTest, IdentityInsertGivesNumbersByHand) {
    Expect({
        {"SET IDENTITY_INSERT P ON; INSERT P(Id, Name) VALUES (100, 'e'); INSERT P(Name) VALUES ('f')",
         "Msg 545: Explicit value must be specified for identity column in table 'P' either when "
         "IDENTITY_INSERT is "
         "set to ON or when a replication user is inserting into a NOT FOR REPLICATION identity column."},
        {"SET IDENTITY_INSERT P OFF; INSERT P(Name) VALUES ('f'); SELECT MAX(Id) FROM P", "105"},
        {"BEGIN TRAN; INSERT P(Name) VALUES ('g'); ROLLBACK; INSERT P(Name) VALUES ('h'); SELECT MAX(Id) "
         "FROM P",
         "115"},
    });
}

TEST_F(ChangeTest, OutputShowsBothSides) {
    Expect({
        {"UPDATE P SET Qty = Qty + 1 OUTPUT deleted.Qty, inserted.Qty, inserted.Name WHERE Id < 20",
         "1|2|a\n1|2|b"},
        {"DELETE C OUTPUT deleted.* WHERE Id = 3", "3|NULL|z"},
        {"DECLARE @t TABLE(Id int, N varchar(10)); INSERT P(Name) OUTPUT inserted.Id, inserted.Name INTO @t "
         "VALUES"
         " ('o'); SELECT * FROM @t",
         "25|o"},
        {"MERGE P AS t USING (VALUES ('a', 7), ('n', 8)) AS s(Name, Qty) ON t.Name = s.Name WHEN MATCHED "
         "THEN UPDATE"
         " SET Qty = s.Qty WHEN NOT MATCHED THEN INSERT (Name, Qty) VALUES (s.Name, s.Qty) WHEN NOT MATCHED "
         "BY SOURCE"
         " AND t.Name = 'c' THEN DELETE OUTPUT $action, inserted.Name, deleted.Name;",
         "DELETE|NULL|c\nUPDATE|a|a\nINSERT|n|NULL"},
        {"SELECT Name, Qty FROM P ORDER BY Name", "a|7\nb|2\nn|8\no|1"},
    });
}

TEST_F(ChangeTest, OutputOfOtherTablesIsRefusedByNameAndNothingChanges) {
    for (const char* batch :
         {"UPDATE x SET a = 2 OUTPUT inserted.a, s.b FROM @t x JOIN @s s ON s.b = x.a",
          "DELETE x OUTPUT s.b FROM @t x JOIN @s s ON s.b = x.a",
          "MERGE @t AS x USING @s AS s ON s.b = x.a WHEN MATCHED THEN DELETE OUTPUT $action, s.b;"})
        EXPECT_EQ(
            Run(std::string("DECLARE @t table (a int), @s table (b int); INSERT @t VALUES (1); INSERT @s "
                            "VALUES (1);\nBEGIN TRY\n") +
                batch + "\nEND TRY BEGIN CATCH PRINT ERROR_NUMBER() END CATCH SELECT a FROM @t"),
            "49999\n1")
            << batch;
    EXPECT_EQ(Run("DECLARE @t table (a int); INSERT @t OUTPUT s.b VALUES (1)").substr(0, 8), "Msg 4104");
}

TEST_F(ChangeTest, ChangesThroughJoinsViewsAndCommonTables) {
    Run("CREATE VIEW V AS SELECT Id AS Nr, Txt FROM C WHERE Id < 50");
    Expect({
        {"UPDATE p SET Qty = 9 FROM P AS p JOIN C ON C.PId = p.Id WHERE C.Txt = N'x'; SELECT Qty FROM P "
         "WHERE Id = 10",
         "9"},
        {"UPDATE V SET Txt = N'v' WHERE Nr = 3; INSERT V(Nr, Txt) VALUES (8, N'w'); DELETE V WHERE Nr = 1;"
         " SELECT Id, Txt FROM C ORDER BY Id",
         "2|y\n3|v\n8|w"},
        {"WITH Numbered AS (SELECT Id, ROW_NUMBER() OVER (ORDER BY Id) AS n FROM C) DELETE Numbered WHERE n "
         "> 1;"
         " SELECT Id FROM C",
         "2"},
        {"DELETE TOP (1) FROM P WHERE Id > 10; SELECT COUNT(*) FROM P", "2"},
        {"DECLARE @last int = 0; UPDATE P SET @last = Qty = Qty + 1; SELECT @last", "2"},
        {"INSERT C SELECT Id + 100, NULL, Name FROM P; SELECT COUNT(*) FROM C", "2"},
    });
}

} // namespace quillon::practice::test
