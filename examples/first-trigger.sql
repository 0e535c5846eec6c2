CREATE TABLE Tour (Id int IDENTITY PRIMARY KEY, Name nvarchar(40) NOT NULL, Credit money NULL)
GO
CREATE TABLE TourLog (Entry int IDENTITY PRIMARY KEY, Action char(1), Id int, OldCredit money NULL, NewCredit money NULL, ByWhom sysname)
GO
CREATE TRIGGER trgTour ON Tour FOR INSERT, UPDATE, DELETE
AS
SET NOCOUNT ON
INSERT INTO TourLog (Action, Id, OldCredit, NewCredit, ByWhom)
SELECT CASE WHEN d.Id IS NULL THEN 'I' WHEN i.Id IS NULL THEN 'D' ELSE 'U' END, COALESCE(i.Id, d.Id), d.Credit, i.Credit, SUSER_SNAME()
FROM inserted i FULL OUTER JOIN deleted d ON d.Id = i.Id
PRINT 'trigger fired'
GO
INSERT INTO Tour (Name, Credit) VALUES (N'Ann', 10), (N'Боб', 20.5)
GO
UPDATE Tour SET Credit = Credit * 2 WHERE Credit > 15
GO
DELETE FROM Tour WHERE Name = N'Ann'
GO
SELECT Action, Id, OldCredit, NewCredit FROM TourLog ORDER BY Entry
GO
