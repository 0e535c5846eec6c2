// The processor time of what audit triggers do all day: one log row for each column that an UPDATE changed.
#include "bench/practice/Measures.h"
#include "practice/support/OdbcClient.h"
#include "practice/support/ServerProcess.h"

#include <stdexcept>

namespace quillon::practice::bench {
namespace {

constexpr const char* tables = R"(
CREATE TABLE watched (id int NOT NULL PRIMARY KEY, name nvarchar(50), amount decimal(10, 2), since datetime);
CREATE TABLE logged (entry int IDENTITY PRIMARY KEY, tableName sysname, columnName sysname, rowKey nvarchar(100),
                     oldValue nvarchar(4000), newValue nvarchar(4000), happened datetime DEFAULT GETDATE(),
                     login nvarchar(128) DEFAULT SUSER_SNAME()))";

std::string LogOf(const std::string& column, const std::string& style = "") {
    const std::string before = "CONVERT(nvarchar(4000), d." + column + style + ")";
    const std::string after = "CONVERT(nvarchar(4000), i." + column + style + ")";
    return "IF UPDATE(" + column +
           ") INSERT logged (tableName, columnName, rowKey, oldValue, newValue) SELECT N'watched', N'" +
           column + "', CONVERT(nvarchar(100), i.id), " + before + ", " + after +
           " FROM inserted i JOIN deleted d ON d.id = i.id WHERE i." + column + " <> d." + column +
           " OR (i." + column + " IS NULL AND d." + column + " IS NOT NULL) OR (i." + column +
           " IS NOT NULL AND d." + column + " IS NULL)\n";
}

std::string Trigger() {
    return "CREATE TRIGGER watchedUpdate ON watched AFTER UPDATE AS BEGIN SET NOCOUNT ON\n" + LogOf("name") +
           LogOf("amount") + LogOf("since", ", 121") + "END";
}

} // namespace

std::vector<Measure> MeasureTriggers(const std::filesystem::path& binFolder) {
    testing::ServerProcess server(binFolder);
    testing::OdbcClient client(server.Port(), "7.4", server.Password());
    client.Run(tables);
    client.Run(
        "SET NOCOUNT ON INSERT watched VALUES (1, N'a name', 1, '20200101') "
        "DECLARE @n int SET @n = 1 WHILE @n < 10000 BEGIN INSERT watched SELECT id + @n, name, amount, since "
        "FROM watched WHERE id + @n <= 10000 SET @n = @n * 2 END");
    client.Run(Trigger());
    const double before = server.ProcessorSeconds();
    client.Run("UPDATE watched SET name = name + N'!', amount = amount + 1, since = DATEADD(day, 1, since)");
    const double used = server.ProcessorSeconds() - before;
    if (client.Run("SELECT COUNT(*) FROM logged") != std::vector<std::string>{"row 30000"}) {
        throw std::runtime_error("log rows are missing");
    }
    return {{"UPDATE of 10,000 rows, 3 log rows each by a trigger", used, "CPU s", 3, false}};
}

} // namespace quillon::practice::bench
