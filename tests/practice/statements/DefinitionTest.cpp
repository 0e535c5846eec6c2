// Definitions: what they make, alter, drop and refuse; and that a rollback takes them back.
#include "Batches.h"

namespace quillon::practice::test {

class DefinitionTest : public BatchTest {
  protected:
    void Expect(std::initializer_list<Answer> answers) {
        for (const Answer& answer : answers)
            EXPECT_EQ(Run(answer.batch), answer.lines) << answer.batch;
    }
};

TEST_F(DefinitionTest, TablesCanBeAltered) {
    Run("CREATE TABLE T(a int NOT NULL, b varchar(5) NULL); INSERT T VALUES (1, 'x'), (2, NULL)");
    Expect({
        {"ALTER TABLE T ADD c int NOT NULL CONSTRAINT DF_c DEFAULT 7, d int NULL DEFAULT 3, e AS a + 1;", ""},
        {"SELECT a, b, c, d, e FROM T", "1|x|7|NULL|2\n2|NULL|7|NULL|3"},
        {"ALTER TABLE T ADD f int NOT NULL",
         "Msg 4901: ALTER TABLE only allows columns to be added that can contain nulls, or have a DEFAULT "
         "definition "
         "specified, or the column being added is an identity or timestamp column, or alternatively if none "
         "of the "
         "previous conditions are satisfied the table must be empty to allow addition of this column. Column "
         "'f' "
         "cannot be added to non-empty table 'T' because it does not satisfy these conditions."},
        {"ALTER TABLE T ALTER COLUMN b varchar(5) NOT NULL",
         "Msg 515: Cannot insert the value NULL into column 'b', table 'Work.dbo.T'; column does not allow "
         "nulls. "
         "UPDATE fails."},
        {"ALTER TABLE T ALTER COLUMN a varchar(8) NOT NULL",
         "Msg 5074: The column 'e' is dependent on column 'a'.\n"
         "Msg 4922: ALTER TABLE ALTER COLUMN a failed because one or more objects access this column."},
        {"ALTER TABLE T DROP COLUMN e; ALTER TABLE T ALTER COLUMN a varchar(8) NOT NULL; SELECT a + '!' FROM "
         "T",
         "1!\n2!"},
        {"ALTER TABLE T ADD CONSTRAINT PK_T PRIMARY KEY (a); INSERT T(a) VALUES ('1')",
         "Msg 2627: Violation of PRIMARY KEY constraint 'PK_T'. Cannot insert duplicate key in object "
         "'dbo.T'. The "
         "duplicate key value is (1)."},
        {"ALTER TABLE T ADD CONSTRAINT CK_T CHECK (c > 10)",
         "Msg 547: The ALTER TABLE statement conflicted with the CHECK constraint \"CK_T\". The conflict "
         "occurred in "
         "database \"Work\", table \"dbo.T\", column 'c'."},
        {"ALTER TABLE T WITH NOCHECK ADD CONSTRAINT CK_T CHECK (c > 10); UPDATE T SET c = 11 WHERE a = '1'; "
         "SELECT c"
         " FROM T ORDER BY a",
         "11\n7"},
        {"ALTER TABLE T NOCHECK CONSTRAINT CK_T; INSERT T(a, c) VALUES ('9', 1); SELECT COUNT(*) FROM T",
         "3"},
        {"ALTER TABLE T DROP CONSTRAINT CK_T, DF_c; ALTER TABLE T DROP COLUMN c; SELECT * FROM T WHERE a = "
         "'9'",
         "9|NULL|3"},
        {"ALTER TABLE T DROP COLUMN zz",
         "Msg 4924: ALTER TABLE DROP COLUMN failed because column 'zz' does not exist in table 'T'."},
        {"EXEC sp_rename 'T.b', 'bb', 'COLUMN'; SELECT bb FROM T WHERE a = '1'",
         "Caution: Changing any part of an object name could break scripts and stored procedures.\nx"},
    });
}

TEST_F(DefinitionTest, NamesAreTakenOnce) {
    Expect({
        {"CREATE TABLE A(i int CONSTRAINT c1 PRIMARY KEY); CREATE TABLE a(i int)",
         "Msg 2714: There is already an object named 'a' in the database."},
        {"CREATE TABLE B(i int CONSTRAINT c1 PRIMARY KEY)",
         "Msg 2714: There is already an object named 'c1' in the database."},
        {"CREATE TABLE B(i int, I int)", "Msg 2705: Column names in each table must be unique. Column name "
                                         "'I' in table 'B' is specified more than "
                                         "once."},
        {"CREATE TABLE nowhere.B(i int)", "Msg 2760: The specified schema name \"nowhere\" either does not "
                                          "exist or you do not have permission to use "
                                          "it."},
        {"DROP TABLE zz",
         "Msg 3701: Cannot drop the table 'zz', because it does not exist or you do not have permission."},
        {"DROP TABLE IF EXISTS zz, A; SELECT OBJECT_ID('A')", "NULL"},
        {"CREATE DATABASE Work",
         "Msg 1801: Database 'Work' already exists. Choose a different database name."},
        {"USE nowhere",
         "Msg 911: Database 'nowhere' does not exist. Make sure that the name is entered correctly."},
    });
}

TEST_F(DefinitionTest, WhatIsReferredToCannotGo) {
    Run("CREATE TABLE P(i int PRIMARY KEY); CREATE TABLE C(p int CONSTRAINT FK_C REFERENCES P)");
    Expect({
        {"DROP TABLE P",
         "Msg 3726: Could not drop object 'P' because it is referenced by a FOREIGN KEY constraint."},
        {"TRUNCATE TABLE P",
         "Msg 4712: Cannot truncate table 'P' because it is being referenced by a FOREIGN KEY constraint."},
        {"ALTER TABLE C ADD CONSTRAINT x FOREIGN KEY (p) REFERENCES C(p)",
         "Msg 1776: There are no primary or candidate keys in the referenced table 'C' that match the "
         "referencing "
         "column list in the foreign key 'x'.\n"
         "Msg 1750: Could not create constraint or index. See previous errors."},
        {"DROP TABLE C; DROP TABLE P; SELECT COUNT(*) FROM sys.tables", "0"},
    });
}

TEST_F(DefinitionTest, ARollbackTakesThemBack) {
    Expect({
        {"BEGIN TRAN; CREATE TABLE R(i int); INSERT R VALUES (1); ROLLBACK; SELECT * FROM R",
         "Msg 208: Invalid object name 'R'."},
        {"CREATE TABLE R(i int); INSERT R VALUES (5); BEGIN TRAN; DROP TABLE R; ROLLBACK; SELECT * FROM R",
         "5"},
        {"BEGIN TRAN; ALTER TABLE R ADD j int NULL; SAVE TRAN s; ALTER TABLE R ADD k int NULL; ROLLBACK TRAN "
         "s; COMMIT;"
         " SELECT * FROM R",
         "5|NULL"},
    });
}

TEST_F(DefinitionTest, ModulesKeepTheirTextAsACreate) {
    Expect({
        {"CREATE VIEW V AS SELECT 1 AS a\nGO\nALTER VIEW V AS SELECT 2 AS a, 3 AS b\nGO\nSELECT a, b FROM V",
         "2|3"},
        {"SELECT OBJECT_DEFINITION(OBJECT_ID('V'))", "CREATE VIEW V AS SELECT 2 AS a, 3 AS b"},
        {"CREATE OR ALTER VIEW V AS SELECT x FROM nowhere", "Msg 208: Invalid object name 'nowhere'."},
        {"CREATE PROCEDURE Q AS SELECT * FROM later", ""},
        {"EXEC Q", "Msg 208: Invalid object name 'later'."},
        {"ALTER PROCEDURE QQ AS SELECT 1", "Msg 208: Invalid object name 'QQ'."},
        {"DROP VIEW V; DROP PROCEDURE Q; DROP FUNCTION IF EXISTS f; EXEC Q",
         "Msg 2812: Could not find stored procedure 'Q'."},
    });
}

TEST_F(DefinitionTest, OtherSessionsSeeThemOnceTheyAreCommitted) {
    const std::unique_ptr<SqlSession> other = Server().Open();
    Run("CREATE TABLE S(i int); INSERT S VALUES (1)");
    EXPECT_EQ(Run(*other, "SELECT i FROM S"), "1");
    Run("ALTER TABLE S ADD j int NULL");
    EXPECT_EQ(Run(*other, "SELECT * FROM S"), "1|NULL");
    Run("BEGIN TRAN; INSERT S VALUES (2, 2); CREATE TABLE S2(i int)");
    EXPECT_EQ(Run(*other, "SELECT COUNT(*) FROM S; SELECT OBJECT_ID('S2')"), "1\nNULL");
    EXPECT_EQ(Run(*other, "SET LOCK_TIMEOUT 0; INSERT S VALUES (3, 3)"),
              "Msg 1222: Lock request time out period exceeded.");
    Run("COMMIT; DROP TABLE S2");
    EXPECT_EQ(Run(*other, "SELECT COUNT(*) FROM S"), "2");
}

} // namespace quillon::practice::test
