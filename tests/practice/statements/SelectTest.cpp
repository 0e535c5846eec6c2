// Queries: what names mean, how types meet, what comes out.
#include "Batches.h"

namespace quillon::practice::test {

class SelectTest : public BatchTest {
  protected:
    SelectTest() {
        Run("CREATE TABLE dbo.Person(Id int NOT NULL PRIMARY KEY, Name nvarchar(20) NOT NULL, Boss int NULL,"
            " Pay decimal(10, 2) NULL, Born datetime NULL)\n"
            "INSERT Person VALUES (1, N'Ann', NULL, 100.50, '19700102'), (2, N'Bob', 1, 80, '19800203'),"
            " (3, N'cid', 1, 60.25, NULL), (4, N'Dan', 2, NULL, '20000405')");
    }
};

TEST_F(SelectTest, AnswersQueries) {
    const Answer answers[] = {
        {"SELECT 1 + 2 * 3, 7 / 2, 7 % 3, 7 / 2.0", "7|3|1|3.500000"},
        {"SELECT Name FROM Person WHERE Name = 'ANN '", "Ann"},
        {"SELECT Id, Name FROM Person ORDER BY Name DESC", "4|Dan\n3|cid\n2|Bob\n1|Ann"},
        {"SELECT p.Name, b.Name FROM Person p LEFT JOIN Person AS b ON b.Id = p.Boss ORDER BY p.Id",
         "Ann|NULL\nBob|Ann\ncid|Ann\nDan|Bob"},
        {"SELECT Boss, COUNT(*), SUM(Pay), AVG(Id) FROM Person GROUP BY Boss HAVING COUNT(*) > 0 ORDER BY "
         "Boss",
         "NULL|1|100.50|1\n1|2|140.25|2\n2|1|NULL|4\n"
         "Warning: Null value is eliminated by an aggregate or other SET operation."},
        {"SELECT COUNT(*), COUNT(Boss), MAX(Name) FROM Person WHERE Id > 10", "0|0|NULL"},
        {"SELECT TOP 2 Name FROM Person ORDER BY Pay DESC", "Ann\nBob"},
        {"SELECT TOP 50 PERCENT Id FROM Person ORDER BY Id", "1\n2"},
        {"SELECT TOP 1 WITH TIES Boss FROM Person WHERE Boss IS NOT NULL ORDER BY Boss", "1\n1"},
        {"SELECT Id FROM Person ORDER BY Id OFFSET 1 ROWS FETCH NEXT 2 ROWS ONLY", "2\n3"},
        {"SELECT DISTINCT Boss FROM Person ORDER BY Boss", "NULL\n1\n2"},
        {"SELECT Name FROM Person WHERE Boss IN (SELECT Id FROM Person WHERE Name LIKE 'a%') ORDER BY Id",
         "Bob\ncid"},
        {"SELECT Name FROM Person p WHERE EXISTS (SELECT 1 FROM Person WHERE Boss = p.Id) ORDER BY Id",
         "Ann\nBob"},
        {"SELECT (SELECT MAX(Id) FROM Person WHERE Boss = p.Id) FROM Person p ORDER BY Id",
         "3\n4\nNULL\nNULL"},
        {"SELECT Id FROM Person WHERE Id > ALL (SELECT Boss FROM Person WHERE Boss IS NOT NULL) ORDER BY Id",
         "3\n4"},
        {"SELECT 1 UNION SELECT 2 UNION ALL SELECT 2 ORDER BY 1", "1\n2\n2"},
        {"SELECT Id FROM Person EXCEPT SELECT Boss FROM Person ORDER BY Id", "3\n4"},
        {"WITH Up(Id, Depth) AS (SELECT Id, 0 FROM Person WHERE Boss IS NULL UNION ALL SELECT p.Id, Depth + "
         "1 FROM"
         " Person p JOIN Up ON Up.Id = p.Boss) SELECT Id, Depth FROM Up ORDER BY Id",
         "1|0\n2|1\n3|1\n4|2"},
        {"SELECT ROW_NUMBER() OVER (ORDER BY Id DESC), SUM(Id) OVER (PARTITION BY Boss ORDER BY Id) FROM "
         "Person"
         " ORDER BY Id",
         "4|1\n3|2\n2|5\n1|4"},
        {"SELECT CASE WHEN Pay > 70 THEN 'high' WHEN Pay IS NULL THEN 'none' ELSE 'low' END FROM Person "
         "ORDER BY Id",
         "high\nhigh\nlow\nnone"},
        {"SELECT COALESCE(NULL, Boss, 7), ISNULL(Boss, -1), NULLIF(Id, 2) FROM Person ORDER BY Id",
         "7|-1|1\n1|1|NULL\n1|1|3\n2|2|4"},
        {"SELECT x.a FROM (VALUES (1, 'x'), (2, 'y')) AS x(a, b) WHERE b = 'Y'", "2"},
        {"SELECT 'a' + NULL, N'x' + 'y' + CAST(1 AS varchar(5))", "NULL|xy1"},
        {"SELECT CAST('12' AS int) + 1, CONVERT(varchar(10), Born, 112) FROM Person WHERE Id = 1",
         "13|19700102"},
        {"DECLARE @s nvarchar(100) = N''; SELECT @s = @s + Name + N',' FROM Person ORDER BY Name DESC; "
         "SELECT @s",
         "Dan,cid,Bob,Ann,"},
        {"SELECT STUFF((SELECT ',' + Name FROM Person ORDER BY Id FOR XML PATH('')), 1, 1, '')",
         "Ann,Bob,cid,Dan"},
        {"SELECT Id INTO #copy FROM Person WHERE Id < 3; SELECT SUM(Id) FROM #copy; DROP TABLE #copy", "3"},
        {"SELECT p.Id FROM Person p, Person q WHERE p.Id = q.Boss AND q.Name = 'dan'", "2"},
        {"SELECT UPPER(Name) COLLATE Latin1_General_CS_AS FROM Person WHERE Name COLLATE "
         "Latin1_General_CS_AS = 'cid'",
         "CID"},
    };
    for (const Answer& answer : answers)
        EXPECT_EQ(Run(answer.batch), answer.lines) << answer.batch;
}

TEST_F(SelectTest, RefusesWhatDoesNotBind) {
    const Answer answers[] = {
        {"SELECT Nobody FROM Person", "Msg 207: Invalid column name 'Nobody'."},
        {"SELECT * FROM Nothing", "Msg 208: Invalid object name 'Nothing'."},
        {"SELECT Id FROM Person p JOIN Person q ON p.Id = q.Id", "Msg 209: Ambiguous column name 'Id'."},
        {"SELECT z.Id FROM Person p", "Msg 4104: The multi-part identifier \"z.Id\" could not be bound."},
        {"SELECT Name, COUNT(*) FROM Person", "Msg 8120: Column 'Person.Name' is invalid in the select list "
                                              "because it is not contained in either an "
                                              "aggregate function or the GROUP BY clause."},
        {"SELECT (SELECT Id FROM Person)", "Msg 512: Subquery returned more than 1 value. This is not "
                                           "permitted when the subquery follows =, !=, <, "
                                           "<= , >, >= or when the subquery is used as an expression."},
        {"SELECT 1 / 0", "Msg 8134: Divide by zero error encountered."},
        {"SELECT 2147483647 + 1",
         "Msg 8115: Arithmetic overflow error converting expression to data type int."},
        {"WITH r(n) AS (SELECT 1 UNION ALL SELECT n + 1 FROM r) SELECT MAX(n) FROM r",
         "Msg 530: The statement terminated. The maximum recursion 100 has been exhausted before statement "
         "completion."},
    };
    for (const Answer& answer : answers)
        EXPECT_EQ(Run(answer.batch), answer.lines) << answer.batch;
}

TEST_F(SelectTest, AppliesWhatDependsOnTheLeftSide) {
    Run("CREATE FUNCTION dbo.Next(@x int) RETURNS TABLE AS RETURN (SELECT @x AS x, @x + 1 AS y)");
    Run("CREATE FUNCTION dbo.Below(@boss int, @word varchar(5) = 'dflt') RETURNS @r TABLE(Id int, Word "
        "varchar(9)) AS"
        " BEGIN INSERT @r SELECT Id, @word FROM dbo.Person WHERE Boss = @boss; RETURN END");
    Run("CREATE FUNCTION dbo.Depth(@id int) RETURNS int AS BEGIN DECLARE @boss int = (SELECT Boss FROM "
        "dbo.Person"
        " WHERE Id = @id); IF @boss IS NULL RETURN 0; RETURN 1 + dbo.Depth(@boss) END");
    const Answer answers[] = {
        {"SELECT * FROM dbo.Next(4)", "4|5"},
        {"SELECT p.Id, f.y FROM Person p CROSS APPLY dbo.Next(p.Id * 10) f WHERE p.Id < 3 ORDER BY p.Id",
         "1|11\n2|21"},
        {"SELECT p.Name, b.Name FROM Person p OUTER APPLY (SELECT TOP 1 Name FROM Person q WHERE q.Boss = "
         "p.Id ORDER BY"
         " q.Id) b ORDER BY p.Id",
         "Ann|Bob\nBob|Dan\ncid|NULL\nDan|NULL"},
        {"DECLARE @w varchar(5) = 'id'; SELECT u.k, u.v FROM Person p CROSS APPLY (VALUES (@w, CAST(p.Id AS"
         " varchar(9))), ('name', p.Name)) u(k, v) WHERE p.Id = 2",
         "id|2\nname|Bob"},
        {"SELECT Id, Word FROM dbo.Below(1, 'w') ORDER BY Id", "2|w\n3|w"},
        {"SELECT p.Id, b.Id, b.Word FROM Person p CROSS APPLY dbo.Below(p.Id, DEFAULT) b ORDER BY b.Id",
         "1|2|dflt\n1|3|dflt\n2|4|dflt"},
        {"SELECT Id, dbo.Depth(Id) FROM Person ORDER BY Id", "1|0\n2|1\n3|1\n4|2"},
        {"SELECT (SELECT SUM(b.Id) FROM (SELECT p.Id AS i) k CROSS APPLY dbo.Below(k.i, '') b) FROM Person p "
         "ORDER BY"
         " p.Id",
         "5\n4\nNULL\nNULL"},
    };
    for (const Answer& answer : answers)
        EXPECT_EQ(Run(answer.batch), answer.lines) << answer.batch;
}

TEST_F(SelectTest, AFunctionThatOtherServersHaveIsRefusedByName) {
    EXPECT_EQ(Run("SELECT json_value('{}', '$.a')"),
              "Msg 49999: Feature 'JSON_VALUE' is not supported by the practice server.");
    EXPECT_EQ(Run("SELECT PERCENTILE_CONT(0.5) WITHIN GROUP (ORDER BY 1) OVER ()"),
              "Msg 49999: Feature 'PERCENTILE_CONT' is not supported by the practice server.");
    EXPECT_EQ(Run("SELECT nobodys(1)"), "Msg 195: 'nobodys' is not a recognized built-in function name.");
}

} // namespace quillon::practice::test
