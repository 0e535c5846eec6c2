-- What an application does on a working day, and one mistake: an UPDATE without its WHERE.
INSERT INTO Customer (CustomerName, City, CountryCode, CreditLimit) VALUES (N'Łukasz & Søn', N'Gdańsk', 'PL', 2500)
GO
UPDATE Customer SET City = N'Reykjavík' WHERE CustomerName = N'Łukasz & Søn'
GO
PRINT 'UPDATE Customer SET CreditLimit = 0   -- and no WHERE'
GO
UPDATE Customer SET CreditLimit = 0
GO
