// Triggers: when they fire, what they see, how they nest, what their errors and rollbacks do.
#include "Batches.h"

namespace quillon::practice::test {

class TriggerTest : public BatchTest {
  protected:
    TriggerTest() {
        Run("CREATE TABLE T(Id int PRIMARY KEY, A int NULL, B varchar(10) NULL)\n"
            "CREATE TABLE L(Nr int IDENTITY PRIMARY KEY, Text varchar(100))\n"
            "INSERT T VALUES (1, 10, 'x'), (2, 20, 'y')");
    }
    std::string Log() { return Run("SELECT Text FROM L ORDER BY Nr; DELETE L"); }
};

TEST_F(TriggerTest, FireOnceAStatementWithTheRowsOfIt) {
    Run("CREATE TRIGGER trAll ON T AFTER INSERT, UPDATE, DELETE AS\n"
        "INSERT L SELECT 'i' + CAST(COUNT(*) AS varchar(5)) FROM inserted\n"
        "INSERT L SELECT 'd' + CAST(COUNT(*) AS varchar(5)) FROM deleted");
    Run("INSERT T VALUES (3, 30, 'z'), (4, 40, 'w')");
    EXPECT_EQ(Log(), "i2\nd0");
    Run("UPDATE T SET A = A + 1 WHERE Id < 4");
    EXPECT_EQ(Log(), "i3\nd3");
    Run("DELETE T WHERE Id = 99");
    EXPECT_EQ(Log(), "i0\nd0") << "for no rows too";
    EXPECT_EQ(RunCounted("SET NOCOUNT OFF; DELETE T WHERE Id > 2"), "(1)\n(1)\n(2)");
}

TEST_F(TriggerTest, TellWhichColumnsWereSet) {
    Run("CREATE TRIGGER trU ON T FOR UPDATE AS\n"
        "IF UPDATE(A) INSERT L VALUES ('A')\n"
        "IF UPDATE(B) INSERT L VALUES ('B')\n"
        "INSERT L SELECT CONVERT(varchar(10), COLUMNS_UPDATED(), 1)\n"
        "INSERT L SELECT d.B + '>' + i.B FROM inserted i JOIN deleted d ON d.Id = i.Id WHERE i.B <> d.B");
    Run("UPDATE T SET B = B + '1' WHERE Id = 1");
    EXPECT_EQ(Log(), "B\n0x04\nx>x1");
    Run("UPDATE T SET A = 1, B = B");
    EXPECT_EQ(Log(), "A\nB\n0x06");
}

TEST_F(TriggerTest, FireInTheirOrderUnlessDisabled) {
    for (const char* name : {"one", "two", "three"})
        Run(std::string("CREATE TRIGGER ") + name + " ON T FOR INSERT AS INSERT L VALUES ('" + name + "')");
    Run("EXEC sp_settriggerorder 'three', 'first', 'INSERT'; EXEC sp_settriggerorder 'one', 'last', "
        "'INSERT'");
    Run("INSERT T(Id) VALUES (5)");
    EXPECT_EQ(Log(), "three\ntwo\none");
    Run("DISABLE TRIGGER two ON T");
    Run("ALTER TABLE T DISABLE TRIGGER three");
    Run("INSERT T(Id) VALUES (6)");
    EXPECT_EQ(Log(), "one");
    Run("ENABLE TRIGGER ALL ON T");
    Run("DROP TRIGGER one");
    Run("INSERT T(Id) VALUES (7)");
    EXPECT_EQ(Log(), "three\ntwo");
}

TEST_F(TriggerTest, ARollbackEndsTheBatch) {
    Run("CREATE TRIGGER trStop ON T FOR DELETE AS IF EXISTS (SELECT * FROM deleted WHERE Id = 2) ROLLBACK");
    EXPECT_EQ(Run("DELETE T; PRINT 'not reached'"),
              "Msg 3609: The transaction ended in the trigger. The batch has been aborted.");
    EXPECT_EQ(Run("SELECT COUNT(*), @@TRANCOUNT FROM T"), "2|0");
    EXPECT_EQ(Run("BEGIN TRAN; INSERT T(Id) VALUES (3); DELETE T WHERE Id = 2"),
              "Msg 3609: The transaction ended in the trigger. The batch has been aborted.");
    EXPECT_EQ(Run("SELECT COUNT(*), @@TRANCOUNT FROM T"), "2|0") << "the whole transaction went";
}

TEST_F(TriggerTest, AnErrorUndoesTheStatement) {
    Run("CREATE TRIGGER trBad ON T FOR UPDATE AS BEGIN INSERT L VALUES ('seen'); DECLARE @x int = 1 / 0 END");
    EXPECT_EQ(Run("UPDATE T SET A = 99"), "Msg 8134: Divide by zero error encountered.");
    EXPECT_EQ(Run("SELECT SUM(A) FROM T; SELECT COUNT(*) FROM L"), "30\n0");
}

TEST_F(TriggerTest, NestButDoNotFireThemselves) {
    Run("CREATE TABLE U(Id int)");
    Run("CREATE TRIGGER trT ON T FOR INSERT AS INSERT U SELECT Id FROM inserted; INSERT L VALUES ('T ' + "
        "CAST(TRIGGER_NESTLEVEL() AS varchar(5))); UPDATE T SET A = 5 WHERE Id = 1; IF (SELECT COUNT(*) FROM "
        "T) < 9"
        " INSERT T(Id) SELECT MAX(Id) + 1 FROM T");
    Run("CREATE TRIGGER trU ON U FOR INSERT AS INSERT L VALUES ('U ' + CAST(TRIGGER_NESTLEVEL() AS "
        "varchar(5)))");
    Run("INSERT T(Id) VALUES (3)");
    EXPECT_EQ(Log(), "U 2\nT 1");
    EXPECT_EQ(Run("SELECT COUNT(*) FROM T"), "4") << "the insert inside did not fire it again";
}

TEST_F(TriggerTest, InsteadOfTakesTheStatementOver) {
    Run("CREATE TRIGGER trIn ON T INSTEAD OF INSERT AS INSERT T SELECT Id + 100, A, B FROM inserted");
    Run("CREATE TRIGGER trUp ON T INSTEAD OF UPDATE AS INSERT L SELECT CAST(d.A AS varchar(5)) + '>' + "
        "CAST(i.A AS"
        " varchar(5)) FROM inserted i JOIN deleted d ON d.Id = i.Id");
    Run("INSERT T VALUES (7, 70, 'q'); UPDATE T SET A = A * 2 WHERE Id < 3");
    EXPECT_EQ(Log(), "10>20\n20>40");
    EXPECT_EQ(Run("SELECT Id, A FROM T ORDER BY Id"), "1|10\n2|20\n107|70");
    Run("CREATE VIEW V AS SELECT t.Id, l.Text FROM T t LEFT JOIN L l ON l.Nr = t.Id");
    EXPECT_EQ(Run("DELETE V").substr(0, 9), "Msg 4405:");
    Run("CREATE TRIGGER trV ON V INSTEAD OF DELETE AS DELETE T WHERE Id IN (SELECT Id FROM deleted)");
    EXPECT_EQ(RunCounted("DELETE V WHERE Id = 107"), "(1)\n(1)");
    EXPECT_EQ(Run("SELECT COUNT(*) FROM T"), "2");
}

TEST_F(TriggerTest, CascadesFireTheTriggersOfTheirTables) {
    Run("CREATE TABLE K(Id int PRIMARY KEY, TId int REFERENCES T(Id) ON DELETE CASCADE); INSERT K VALUES (1, "
        "1), (2, 1)");
    Run("CREATE TRIGGER trK ON K FOR DELETE AS INSERT L SELECT 'K' + CAST(COUNT(*) AS varchar(5)) FROM "
        "deleted");
    Run("CREATE TRIGGER trT ON T FOR DELETE AS INSERT L SELECT 'T' + CAST(COUNT(*) AS varchar(5)) FROM "
        "deleted");
    Run("DELETE T WHERE Id = 1");
    EXPECT_EQ(Log(), "K2\nT1");
}

} // namespace quillon::practice::test
