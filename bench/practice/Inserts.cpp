// Rows a second when each is a transaction of its own, beside SQLite's own shell on the same disk.
#include "bench/practice/Measures.h"
#include "practice/support/OdbcClient.h"
#include "practice/support/ServerProcess.h"

#include <cstdlib>
#include <fstream>
#include <stdexcept>

namespace quillon::practice::bench {
namespace {

constexpr int rows = 2000;

double ShellRate(const std::filesystem::path& folder) {
    const std::filesystem::path script = folder / "inserts.sql";
    std::ofstream out(script);
    out << "CREATE TABLE t (id INTEGER PRIMARY KEY, name TEXT);\n";
    for (int row = 0; row < rows; ++row) {
        out << "INSERT INTO t VALUES (" << row << ", 'row number " << row << "');\n";
    }
    out.close();
    double start = SecondsNow();
    const std::string command = "sqlite3 " + (folder / "shell.db").string() + " < " + script.string();
    if (std::system(command.c_str()) != 0) {
        throw std::runtime_error("the SQLite shell failed");
    }
    return rows / (SecondsNow() - start);
}

double OurRate(const std::filesystem::path& binFolder, const std::filesystem::path& folder) {
    testing::ServerProcess server(binFolder, folder / "data");
    testing::OdbcClient client(server.Port(), "7.4", server.Password());
    client.Run("CREATE TABLE t (id int NOT NULL PRIMARY KEY, name nvarchar(50))");
    double start = SecondsNow();
    for (int row = 0; row < rows; ++row) {
        const std::string number = std::to_string(row);
        client.Run("INSERT INTO t VALUES (" + number + ", N'row number " + number + "')");
    }
    double seconds = SecondsNow() - start;
    if (client.Run("SELECT COUNT(*) FROM t") != std::vector<std::string>{"row " + std::to_string(rows)}) {
        throw std::runtime_error("rows are missing");
    }
    return rows / seconds;
}

} // namespace

std::vector<Measure> MeasureInserts(const std::filesystem::path& binFolder) {
    const std::filesystem::path folder = std::filesystem::absolute("bench-practice-data");
    std::filesystem::create_directories(folder);
    double shell = ShellRate(folder);
    double ours = OurRate(binFolder, folder);
    std::filesystem::remove_all(folder);
    return {{"single-row inserts, autocommit (shell: " + std::to_string(static_cast<int>(shell)) + ")", ours,
             "rows/s", shell / 2, true}};
}

} // namespace quillon::practice::bench
