#include "practice/catalogue/SampleScript.h"

namespace quillon::practice {

const std::string_view sampleDefinitions = R"sql(CREATE DATABASE Sales
GO
USE Sales
GO
CREATE SCHEMA Stock
GO
CREATE DEFAULT dbo.Unknown AS 'unknown'
GO
CREATE TABLE dbo.Country (
    CountryCode char(2) NOT NULL CONSTRAINT PK_Country PRIMARY KEY,
    CountryName nvarchar(60) NOT NULL CONSTRAINT UQ_Country_CountryName UNIQUE,
    Currency char(3) NULL
)
GO
CREATE TABLE dbo.Customer (
    CustomerID int IDENTITY(1, 1) NOT NULL CONSTRAINT PK_Customer PRIMARY KEY CLUSTERED,
    CustomerName nvarchar(80) NOT NULL,
    City nvarchar(40) NULL,
    CountryCode char(2) NULL CONSTRAINT FK_Customer_Country REFERENCES dbo.Country (CountryCode) ON UPDATE CASCADE
        ON DELETE SET NULL,
    Email varchar(100) COLLATE Latin1_General_CS_AS NULL,
    CreditLimit money NOT NULL CONSTRAINT DF_Customer_CreditLimit DEFAULT (1000),
    Rating tinyint NOT NULL CONSTRAINT DF_Customer_Rating DEFAULT (3)
        CONSTRAINT CK_Customer_Rating CHECK (Rating BETWEEN 1 AND 5),
    IsActive bit NOT NULL CONSTRAINT DF_Customer_IsActive DEFAULT (1),
    CreatedOn datetime NOT NULL CONSTRAINT DF_Customer_CreatedOn DEFAULT (getdate()),
    Notes ntext NULL,
    Segment varchar(20) NULL
)
GO
EXEC sp_bindefault 'dbo.Unknown', 'dbo.Customer.Segment'
GO
CREATE INDEX IX_Customer_Name ON dbo.Customer (CustomerName, City DESC)
GO
CREATE TABLE dbo.Employee (
    EmployeeGuid uniqueidentifier ROWGUIDCOL NOT NULL CONSTRAINT DF_Employee_Guid DEFAULT (newid())
        CONSTRAINT PK_Employee PRIMARY KEY NONCLUSTERED,
    FirstName nvarchar(30) NOT NULL,
    LastName nvarchar(40) NOT NULL,
    FullName AS (FirstName + N' ' + LastName),
    HiredOn smalldatetime NULL,
    BornOn date NULL,
    Salary decimal(12, 2) NULL,
    Photo image NULL,
    Manager uniqueidentifier NULL CONSTRAINT FK_Employee_Manager REFERENCES dbo.Employee (EmployeeGuid)
)
GO
CREATE TABLE Stock.Product (
    ProductID decimal(18, 0) IDENTITY(1000, 10) NOT NULL CONSTRAINT PK_Product PRIMARY KEY,
    ProductCode varchar(15) NOT NULL CONSTRAINT UQ_Product_Code UNIQUE,
    ProductName nvarchar(100) NOT NULL,
    Description text NULL,
    Price smallmoney NOT NULL CONSTRAINT CK_Product_Price CHECK (Price >= 0),
    Weight real NULL,
    Discontinued bit NOT NULL CONSTRAINT DF_Product_Discontinued DEFAULT (0),
    Version rowversion NOT NULL
)
GO
CREATE TABLE Stock.Warehouse (
    WarehouseCode nchar(4) NOT NULL,
    Zone smallint NOT NULL,
    WarehouseName nvarchar(50) NULL,
    CONSTRAINT PK_Warehouse PRIMARY KEY (WarehouseCode, Zone)
)
GO
CREATE TABLE Stock.Level (
    WarehouseCode nchar(4) NOT NULL,
    Zone smallint NOT NULL,
    ProductID decimal(18, 0) NOT NULL CONSTRAINT FK_Level_Product REFERENCES Stock.Product (ProductID),
    Quantity int NOT NULL CONSTRAINT DF_Level_Quantity DEFAULT (0),
    CountedAt datetime2(3) NULL,
    CONSTRAINT PK_Level PRIMARY KEY (WarehouseCode, Zone, ProductID),
    CONSTRAINT FK_Level_Warehouse FOREIGN KEY (WarehouseCode, Zone) REFERENCES Stock.Warehouse (WarehouseCode, Zone)
        ON DELETE CASCADE ON UPDATE CASCADE
)
GO
CREATE TABLE dbo.[Order] (
    OrderID bigint IDENTITY(1, 1) NOT NULL CONSTRAINT PK_Order PRIMARY KEY,
    CustomerID int NOT NULL CONSTRAINT FK_Order_Customer REFERENCES dbo.Customer (CustomerID),
    EmployeeGuid uniqueidentifier NULL CONSTRAINT FK_Order_Employee REFERENCES dbo.Employee (EmployeeGuid),
    OrderDate datetime NOT NULL,
    ShippedAt datetimeoffset(0) NULL,
    Freight money NULL,
    Status char(1) NOT NULL CONSTRAINT DF_Order_Status DEFAULT ('N')
        CONSTRAINT CK_Order_Status CHECK (Status IN ('N', 'S', 'C')),
    Comment varchar(max) NULL
)
GO
CREATE TABLE dbo.OrderLine (
    OrderID bigint NOT NULL CONSTRAINT FK_OrderLine_Order REFERENCES dbo.[Order] (OrderID) ON DELETE CASCADE,
    LineNumber smallint NOT NULL,
    ProductID decimal(18, 0) NOT NULL CONSTRAINT FK_OrderLine_Product REFERENCES Stock.Product (ProductID),
    Quantity int NOT NULL CONSTRAINT CK_OrderLine_Quantity CHECK (Quantity > 0),
    UnitPrice smallmoney NOT NULL,
    Discount numeric(5, 4) NOT NULL CONSTRAINT DF_OrderLine_Discount DEFAULT (0),
    Amount AS (Quantity * UnitPrice),
    CONSTRAINT PK_OrderLine PRIMARY KEY (OrderID, LineNumber)
)
GO
CREATE TABLE dbo.EventLog (
    EventTime datetime NOT NULL,
    Kind varchar(20) NOT NULL,
    Message nvarchar(200) NULL
)
GO
CREATE TABLE dbo.AllTypes (
    RowID int NOT NULL CONSTRAINT PK_AllTypes PRIMARY KEY,
    TheBit bit NULL,
    TheTinyInt tinyint NULL,
    TheSmallInt smallint NULL,
    TheInt int NULL,
    TheBigInt bigint NULL,
    TheDecimal decimal(28, 8) NULL,
    TheNumeric numeric(9, 2) NULL,
    TheSmallMoney smallmoney NULL,
    TheMoney money NULL,
    TheReal real NULL,
    TheFloat float NULL,
    TheSmallDateTime smalldatetime NULL,
    TheDateTime datetime NULL,
    TheDate date NULL,
    TheTime time(7) NULL,
    TheDateTime2 datetime2(7) NULL,
    TheDateTimeOffset datetimeoffset(7) NULL,
    TheChar char(10) NULL,
    TheVarChar varchar(50) NULL,
    TheVarCharMax varchar(max) NULL,
    TheText text NULL,
    TheNChar nchar(10) NULL,
    TheNVarChar nvarchar(50) NULL,
    TheNVarCharMax nvarchar(max) NULL,
    TheNText ntext NULL,
    TheBinary binary(8) NULL,
    TheVarBinary varbinary(50) NULL,
    TheVarBinaryMax varbinary(max) NULL,
    TheImage image NULL,
    TheGuid uniqueidentifier NULL,
    TheVariant sql_variant NULL,
    TheVersion rowversion NOT NULL
)
GO
CREATE TABLE dbo.AUDIT_OLD (
    ID int IDENTITY(1, 1) NOT NULL,
    TableName sysname NOT NULL,
    ChangedAt datetime NOT NULL
)
GO
CREATE TABLE dbo.auditors (
    AuditorID int NOT NULL CONSTRAINT PK_auditors PRIMARY KEY,
    AuditorName nvarchar(50) NOT NULL
)
GO
CREATE TABLE dbo.[Price List 2020] (
    [Item No] int NOT NULL CONSTRAINT [PK Price List] PRIMARY KEY,
    [Unit Price] money NULL,
    [Valid From] date NULL
)
GO
CREATE TABLE dbo.[Odd]]Name"With'Quotes] (
    [Key]]1] int NOT NULL CONSTRAINT [PK_Odd]]Name] PRIMARY KEY,
    [It's "quoted"] nvarchar(40) NULL
)
GO
CREATE TABLE dbo.[)sql"
                                           "\xD0\x97\xD0\xB0\xD0\xBA\xD0\xB0\xD0\xB7\xD1\x87\xD0\xB8\xD0\xBA"
                                           R"sql(] (
    [)sql"
                                           "\xD0\x9A\xD0\xBE\xD0\xB4"
                                           R"sql(] int IDENTITY(1, 1) NOT NULL PRIMARY KEY,
    [)sql"
                                           "\xD0\x98\xD0\xBC\xD1\x8F"
                                           R"sql(] nvarchar(60) NULL
)
GO
CREATE VIEW dbo.CustomerOrders AS
SELECT c.CustomerID, c.CustomerName, o.OrderID, o.OrderDate, o.Status
FROM dbo.Customer c JOIN dbo.[Order] o ON o.CustomerID = c.CustomerID
GO
CREATE PROCEDURE dbo.CustomerTotal @CustomerID int, @Total money OUTPUT AS
SET NOCOUNT ON
SELECT @Total = SUM(l.Amount) FROM dbo.[Order] o JOIN dbo.OrderLine l ON l.OrderID = o.OrderID
WHERE o.CustomerID = @CustomerID
RETURN 0
GO
CREATE FUNCTION dbo.NetPrice (@Price money, @Discount numeric(5, 4)) RETURNS money AS
BEGIN
    RETURN @Price * (1 - @Discount)
END
GO
CREATE TRIGGER dbo.Customer_Watch ON dbo.Customer AFTER UPDATE AS
SET NOCOUNT ON
IF UPDATE(CreditLimit)
    INSERT dbo.EventLog (EventTime, Kind, Message)
    SELECT GETDATE(), 'credit', N'limit of ' + i.CustomerName FROM inserted i
GO
CREATE TRIGGER Stock.Product_NoDelete ON Stock.Product INSTEAD OF DELETE AS
SET NOCOUNT ON
UPDATE p SET Discontinued = 1 FROM Stock.Product p JOIN deleted d ON d.ProductID = p.ProductID
GO
)sql";

} // namespace quillon::practice
