#include "practice/catalogue/SampleScript.h"

namespace quillon::practice {

// Rows are worked out from counting numbers, so that every server has the same ones.
const std::string_view sampleRows = R"sql(INSERT dbo.Country (CountryCode, CountryName, Currency) VALUES
    ('AT', N'Austria', 'EUR'), ('DE', N'Germany', 'EUR'), ('FR', N'France', 'EUR'), ('GB', N'United Kingdom', 'GBP'),
    ('GR', N'Greece', 'EUR'), ('JP', N'Japan', 'JPY'), ('PL', N'Poland', 'PLN'), ('SE', N'Sweden', 'SEK'),
    ('UA', N'Ukraine', 'UAH'), ('US', N'United States', 'USD')
GO
CREATE TABLE #n (n int NOT NULL PRIMARY KEY)
INSERT #n (n)
SELECT a.d + 10 * b.d + 100 * c.d + 1000 * e.d
FROM (VALUES (0), (1), (2), (3), (4), (5), (6), (7), (8), (9)) a (d)
CROSS JOIN (VALUES (0), (1), (2), (3), (4), (5), (6), (7), (8), (9)) b (d)
CROSS JOIN (VALUES (0), (1), (2), (3), (4), (5), (6), (7), (8), (9)) c (d)
CROSS JOIN (VALUES (0), (1), (2)) e (d)
INSERT dbo.Customer (CustomerName, City, CountryCode, Email, CreditLimit, Rating, CreatedOn, Segment)
SELECT N'Customer ' + RIGHT('000' + CONVERT(varchar(4), n), 4),
    CASE n % 5 WHEN 0 THEN N'Vienna' WHEN 1 THEN N'Berlin' WHEN 2 THEN N'Kyiv' WHEN 3 THEN N'Malm' + NCHAR(246) ELSE NULL END,
    CASE n % 6 WHEN 0 THEN 'AT' WHEN 1 THEN 'DE' WHEN 2 THEN 'UA' WHEN 3 THEN 'SE' WHEN 4 THEN 'US' ELSE NULL END,
    'customer' + CONVERT(varchar(4), n) + '@example.com', 500 + 25 * (n % 40), 1 + n % 5, DATEADD(day, n, '20190101'),
    CASE n % 3 WHEN 0 THEN 'retail' WHEN 1 THEN 'trade' ELSE 'public' END
FROM #n WHERE n BETWEEN 1 AND 300
INSERT Stock.Product (ProductCode, ProductName, Description, Price, Weight)
SELECT 'P-' + RIGHT('0000' + CONVERT(varchar(5), n), 5), N'Product ' + CONVERT(nvarchar(5), n),
    CASE WHEN n % 4 = 0 THEN REPLICATE('A long text about this product. ', 10) END, 1 + n % 97 + 0.25 * (n % 4), n / 8.0
FROM #n WHERE n BETWEEN 1 AND 200
INSERT dbo.[Order] (CustomerID, OrderDate, ShippedAt, Freight, Status, Comment)
SELECT 1 + n % 300, DATEADD(hour, n * 7, '20200101'),
    CASE WHEN n % 3 = 0 THEN TODATETIMEOFFSET(DATEADD(hour, n * 7 + 30, '20200101'), '+02:00') END, n % 50, CASE n % 3 WHEN 0
    THEN 'S' ELSE 'N' END, CASE WHEN n % 10 = 0 THEN 'Leave with the neighbour' END
FROM #n WHERE n BETWEEN 1 AND 1000
INSERT dbo.OrderLine (OrderID, LineNumber, ProductID, Quantity, UnitPrice, Discount)
SELECT 1 + n / 3, 1 + n % 3, 1000 + 10 * (n % 200), 1 + n % 9, 1 + n % 97 + 0.25 * (n % 4), 0.05 * (n % 3)
FROM #n WHERE n BETWEEN 0 AND 2999
DROP TABLE #n
GO
INSERT dbo.Employee (EmployeeGuid, FirstName, LastName, HiredOn, BornOn, Salary, Photo, Manager) VALUES
    ('6F9619FF-8B86-D011-B42D-00C04FC964FF', N'Anna', N'Schmidt', '20100301 09:00', '1975-04-12', 5200.00, 0xFFD8FFE0, NULL),
    ('11111111-2222-3333-4444-555555555555', N'Bj' + NCHAR(246) + N'rn', N'Larsson', '20150615 08:30', '1988-11-02', 4100.50, NULL,
        '6F9619FF-8B86-D011-B42D-00C04FC964FF'),
    ('AAAAAAAA-BBBB-CCCC-DDDD-EEEEEEEEEEEE', N'Olena', N'Shevchenko', '20180901 09:00', '1992-07-23', 3900.00, NULL,
        '6F9619FF-8B86-D011-B42D-00C04FC964FF')
UPDATE dbo.[Order] SET EmployeeGuid = CASE OrderID % 3 WHEN 0 THEN '6F9619FF-8B86-D011-B42D-00C04FC964FF'
    WHEN 1 THEN '11111111-2222-3333-4444-555555555555' ELSE 'AAAAAAAA-BBBB-CCCC-DDDD-EEEEEEEEEEEE' END
GO
INSERT Stock.Warehouse (WarehouseCode, Zone, WarehouseName) VALUES
    (N'VIE1', 1, N'Vienna, high bay'), (N'VIE1', 2, N'Vienna, cold store'), (N'KYI1', 1, N'Kyiv'), (N'MMA1', 1, NULL)
INSERT Stock.Level (WarehouseCode, Zone, ProductID, Quantity, CountedAt)
SELECT w.WarehouseCode, w.Zone, p.ProductID, CONVERT(int, p.ProductID) % 77, '2020-12-31 23:59:59.997'
FROM Stock.Warehouse w CROSS JOIN Stock.Product p WHERE p.ProductID < 1600
GO
INSERT dbo.EventLog (EventTime, Kind, Message) VALUES
    ('20200101', 'start', N'first day'), ('20200101', 'start', N'first day'), ('20201231', 'end', NULL)
INSERT dbo.auditors (AuditorID, AuditorName) VALUES (1, N'Ms Ledger'), (2, N'Mr Proof')
INSERT dbo.[Price List 2020] ([Item No], [Unit Price], [Valid From]) VALUES (1, 9.99, '2020-01-01'), (2, 19.90, '2020-06-01')
INSERT dbo.[Odd]]Name"With'Quotes] ([Key]]1], [It's "quoted"]) VALUES (1, N'it''s "here"')
GO
INSERT dbo.[)sql"
                                    "\xD0\x97\xD0\xB0\xD0\xBA\xD0\xB0\xD0\xB7\xD1\x87\xD0\xB8\xD0\xBA"
                                    R"sql(] ([)sql"
                                    "\xD0\x98\xD0\xBC\xD1\x8F"
                                    R"sql(]) VALUES (N')sql"
                                    "\xD0\x86\xD0\xB2\xD0\xB0\xD0\xBD"
                                    R"sql(')
GO
INSERT dbo.AllTypes (RowID, TheBit, TheTinyInt, TheSmallInt, TheInt, TheBigInt, TheDecimal, TheNumeric, TheSmallMoney,
    TheMoney, TheReal, TheFloat, TheSmallDateTime, TheDateTime, TheDate, TheTime, TheDateTime2, TheDateTimeOffset, TheChar,
    TheVarChar, TheVarCharMax, TheText, TheNChar, TheNVarChar, TheNVarCharMax, TheNText, TheBinary, TheVarBinary,
    TheVarBinaryMax, TheImage, TheGuid, TheVariant)
VALUES (1, 1, 255, 32767, 2147483647, 9223372036854775807, 12345678901234567890.12345678, 1234567.89, 214748.3647,
    922337203685477.5807, 1.5, 1.7976931348623157E+308, '2079-06-06 23:59', '9999-12-31T23:59:59.997', '9999-12-31',
    '23:59:59.9999999', '9999-12-31 23:59:59.9999999', '2020-02-29 12:00:00.1234567 -05:30', 'char', 'varchar',
    REPLICATE(CONVERT(varchar(max), 'max '), 3000), 'text', N'nchar', N'nvarchar ' + NCHAR(1046), N'nvarchar(max)', N'ntext '
    + NCHAR(8364), 0x0102030405060708, 0xFF00FF, 0x00, 0x89504E47, '00112233-4455-6677-8899-AABBCCDDEEFF', 42)
INSERT dbo.AllTypes (RowID, TheBit, TheTinyInt, TheSmallInt, TheInt, TheBigInt, TheMoney, TheFloat, TheDateTime, TheDate,
    TheDateTime2, TheVarChar) VALUES
    (2, 0, 0, -32768, -2147483648, -9223372036854775808, -922337203685477.5808, -2.5E-10, '1753-01-01', '0001-01-01',
    '0001-01-01', '')
INSERT dbo.AllTypes (RowID) VALUES (3)
GO
)sql";

} // namespace quillon::practice
