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

double ShellRate(const std::filesystem::path& folder, const std::string& mode) {
    const std::filesystem::path script = folder / "inserts.sql";
    std::ofstream out(script);
    out << "PRAGMA journal_mode = " << mode
        << ";\nPRAGMA synchronous = FULL;\nCREATE TABLE t (id INTEGER PRIMARY KEY, name TEXT);\n";
    for (int row = 0; row < rows; ++row) {
        out << "INSERT INTO t VALUES (" << row << ", 'row number " << row << "');\n";
    }
    out.close();
    double start = SecondsNow();
    const std::string command =
        "sqlite3 " + (folder / (mode + ".db")).string() + " < " + script.string() + " > /dev/null";
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
    const double shell = ShellRate(folder, "DELETE");
    const double shellWithLog = ShellRate(folder, "WAL");
    const double ours = OurRate(binFolder, folder);
    std::filesystem::remove_all(folder);
    const auto measure = [&](const std::string& peer, double rate) {
        return Measure{"single-row inserts, autocommit (" + peer + ": " +
                           std::to_string(static_cast<int>(rate)) + ")",
                       ours, "rows/s", rate / 2, true};
    };
    return {measure("shell", shell), measure("shell in WAL mode", shellWithLog)};
}

} // namespace quillon::practice::bench
