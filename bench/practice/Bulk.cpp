// What a bulk load costs the server: the processor time of many rows, beside the same statements in SQLite's
// own shell, which has no types, no wire and no T-SQL to read.
#include "bench/practice/Measures.h"
#include "practice/support/OdbcClient.h"
#include "practice/support/ServerProcess.h"

#include <sys/resource.h>

#include <cstdlib>
#include <fstream>
#include <functional>
#include <stdexcept>

namespace quillon::practice::bench {
namespace {

constexpr int rows = 20000;
constexpr int rowsOfBatch = 500;
constexpr const char* table =
    "CREATE TABLE t (id int NOT NULL PRIMARY KEY, name nvarchar(50), amount decimal(10, 2), "
    "since datetime)";

std::string ValuesOf(int row, const char* unicode) {
    const std::string number = std::to_string(row);
    return "(" + number + ", " + unicode + "'row number " + number + "', " + number +
           ".25, '2026-01-31 10:20:30')";
}

double ShellSeconds(const std::filesystem::path& folder) {
    const std::filesystem::path script = folder / "bulk.sql";
    std::ofstream out(script);
    out << table << ";\nBEGIN;\n";
    for (int row = 0; row < rows; ++row) {
        out << "INSERT INTO t VALUES " << ValuesOf(row, "") << ";\n";
    }
    out << "COMMIT;\n";
    out.close();
    const auto used = [] {
        rusage usage{};
        getrusage(RUSAGE_CHILDREN, &usage);
        const auto seconds = [](const timeval& time) {
            return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
        };
        return seconds(usage.ru_utime) + seconds(usage.ru_stime);
    };
    const double before = used();
    const std::string command = "sqlite3 " + (folder / "shell.db").string() + " < " + script.string();
    if (std::system(command.c_str()) != 0) {
        throw std::runtime_error("the SQLite shell failed");
    }
    return used() - before;
}

using Load = std::function<void(testing::OdbcClient&)>;

double OurSeconds(const std::filesystem::path& binFolder, const Load& load) {
    testing::ServerProcess server(binFolder);
    testing::OdbcClient client(server.Port(), "7.4", server.Password());
    client.Run(table);
    const double before = server.ProcessorSeconds();
    load(client);
    const double used = server.ProcessorSeconds() - before;
    if (client.Run("SELECT COUNT(*) FROM t") != std::vector<std::string>{"row " + std::to_string(rows)}) {
        throw std::runtime_error("rows are missing");
    }
    return used;
}

void InBatches(testing::OdbcClient& client, const std::function<std::string(int)>& rowText,
               const std::string& before) {
    for (int first = 0; first < rows; first += rowsOfBatch) {
        std::string text = before;
        for (int row = first; row < first + rowsOfBatch; ++row) {
            text += rowText(row);
        }
        client.Run(text);
    }
}

void OneByOne(testing::OdbcClient& client) {
    client.Run("BEGIN TRANSACTION");
    for (int row = 0; row < rows; ++row) {
        client.Run("INSERT INTO t VALUES " + ValuesOf(row, "N"));
    }
    client.Run("COMMIT");
}

} // namespace

std::vector<Measure> MeasureBulk(const std::filesystem::path& binFolder) {
    const std::filesystem::path folder = std::filesystem::absolute("bench-practice-data");
    std::filesystem::create_directories(folder);
    const double shell = ShellSeconds(folder);
    std::filesystem::remove_all(folder);
    std::vector<Measure> measures;
    const auto measure = [&](const std::string& what, const Load& load) {
        const double ours = OurSeconds(binFolder, load);
        const std::string rate = std::to_string(static_cast<int>(rows / ours)) + " rows/CPU s";
        measures.push_back({what + " (" + rate + ")", ours / shell, "x shell", 10, false});
    };
    measure("20,000 rows, 500 INSERT statements a batch", [](testing::OdbcClient& client) {
        InBatches(
            client, [](int row) { return "INSERT INTO t VALUES " + ValuesOf(row, "N") + "\n"; },
            "SET NOCOUNT ON\n");
    });
    measure("20,000 rows, 500 rows an INSERT", [](testing::OdbcClient& client) {
        InBatches(
            client, [](int row) { return (row % rowsOfBatch == 0 ? "" : ",") + ValuesOf(row, "N"); },
            "INSERT INTO t VALUES ");
    });
    measure("20,000 rows, one INSERT a batch, one transaction", OneByOne);
    measure("20,000 rows, one prepared statement", [](testing::OdbcClient& client) {
        std::vector<int> values(rows);
        for (int row = 0; row < rows; ++row) {
            values[static_cast<std::size_t>(row)] = row;
        }
        client.Run("BEGIN TRANSACTION");
        client.RunPrepared("INSERT INTO t VALUES (?, N'row number', 1.25, '2026-01-31 10:20:30')", values);
        client.Run("COMMIT");
    });
    return measures;
}

} // namespace quillon::practice::bench
