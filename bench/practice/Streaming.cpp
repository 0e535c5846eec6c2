// A large result must pass through the server, not pile up in it.
#include "bench/practice/Measures.h"
#include "practice/support/OdbcClient.h"
#include "practice/support/ServerProcess.h"

#include <algorithm>
#include <stdexcept>

namespace quillon::practice::bench {
namespace {

constexpr int rows = 100000;

void Fill(testing::OdbcClient& client) {
    client.Run("CREATE TABLE big (id int NOT NULL PRIMARY KEY, name nvarchar(200), amount decimal(18, 2))");
    client.Run("SET NOCOUNT ON INSERT INTO big VALUES (1, REPLICATE(N'x', 200), 1.5) "
               "DECLARE @n int SET @n = 1 "
               "WHILE @n < " +
               std::to_string(rows) +
               " BEGIN INSERT INTO big SELECT id + @n, name, amount FROM big WHERE id + @n <= " +
               std::to_string(rows) + " SET @n = @n * 2 END");
}

} // namespace

std::vector<Measure> MeasureStreaming(const std::filesystem::path& binFolder) {
    testing::ServerProcess server(binFolder);
    testing::OdbcClient client(server.Port(), "7.4", server.Password());
    Fill(client);
    client.Run("SELECT * FROM big WHERE id <= 1000"); // what any result costs is there before
    const long before = server.ResidentKilobytes();
    long most = before;
    int seen = 0;
    const double start = SecondsNow();
    client.Stream("SELECT id, name, amount FROM big", [&] {
        if (++seen % 1000 == 0) {
            most = std::max(most, server.ResidentKilobytes());
        }
    });
    const double seconds = SecondsNow() - start;
    if (seen != rows) {
        throw std::runtime_error("saw " + std::to_string(seen) + " rows");
    }
    return {
        {"growth while 100,000 rows stream (" + std::to_string(static_cast<int>(rows / seconds)) + " rows/s)",
         static_cast<double>(most - before) / 1024, "MB", 4, false}};
}

} // namespace quillon::practice::bench
