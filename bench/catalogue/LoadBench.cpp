// Loading the catalogue of a database at once, beside asking table by table, on the same server in one run.
//
//     catalogue_bench                                       on a practice server of its own, 5,000 tables
//     catalogue_bench SERVER USER PASSWORD-FILE DATABASE    on a server that is there
//
// Promised: at most 15 round trips whatever the number of tables, and at least 20 times faster. Table by
// table means the same facts, a statement a kind and table, as a tree asks that knows nothing of its other
// tables. Exit 1 when a promise is not kept.
#include <array>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <optional>

#include "adapters/catalogue/CatalogueLink.h"
#include "adapters/catalogue/ServerCatalogue.h"
#include "adapters/odbc/ConnectionText.h"
#include "practice/support/ServerProcess.h"

namespace {

using namespace quillon;
using Clock = std::chrono::steady_clock;

constexpr std::size_t MostRoundTrips = 15;
constexpr double LeastGain = 20;
constexpr int Tables = 5000, Columns = 20, Triggers = 2000;

struct Target {
    std::string server, user, password, database;
};

double SecondsSince(Clock::time_point start) {
    return std::chrono::duration<double>(Clock::now() - start).count();
}

adapters::ConnectionParts PartsOf(const Target& target) {
    adapters::ConnectionParts parts;
    parts.server = target.server;
    parts.user = target.user;
    parts.password = target.password;
    return parts;
}

// Tables of every common type, with a key, a default each, and triggers of the usual length on the first.
void Fill(adapters::CatalogueLink& link, const std::string& database) {
    link.Run("master", "CREATE DATABASE " + adapters::Quoted(database));
    constexpr std::array types{"int NULL", "nvarchar(50) NOT NULL", "decimal(10, 2) NULL", "datetime NULL",
                               "varchar(20) NOT NULL DEFAULT ('x')"};
    link.Run(database, "BEGIN TRANSACTION");
    for (int table = 0; table < Tables; ++table) {
        const std::string name = "table_" + std::to_string(table);
        std::string statement = "CREATE TABLE " + name + " (id int NOT NULL PRIMARY KEY";
        for (int column = 1; column < Columns; ++column)
            statement += ", column_" + std::to_string(column) + " " + types[column % types.size()];
        link.Run(database, statement + ")");
        if (table < Triggers)
            link.Run(database, "CREATE TRIGGER trg_" + name + " ON " + name + " FOR INSERT, UPDATE AS\n" +
                                   std::string(1500, '-') + "\nPRINT 'fired'");
    }
    link.Run(database, "COMMIT TRANSACTION");
}

struct Load {
    std::size_t columns = 0, triggers = 0;
    double seconds = 0;
};

Load LoadAtOnce(catalogue::Database& database) {
    Load load;
    const auto start = Clock::now();
    for (std::size_t index = 0; index < database.TableCount(); ++index) {
        catalogue::Table& table = database.TableAt(index);
        load.columns += table.Columns().size();
        load.triggers += table.TriggerCount();
    }
    load.seconds = SecondsSince(start);
    return load;
}

constexpr const char* TableQuestions[] = {
    "SELECT c.name, y.name, c.max_length, c.[precision], c.scale, c.is_nullable, c.is_identity, "
    "c.is_rowguidcol, d.definition FROM sys.columns c JOIN sys.types y ON y.user_type_id = c.user_type_id "
    "LEFT JOIN sys.default_constraints d ON d.object_id = c.default_object_id "
    "WHERE c.object_id = @table ORDER BY c.column_id",
    "SELECT k.name, k.type, ic.column_id FROM sys.key_constraints k JOIN sys.index_columns ic "
    "ON ic.object_id = k.parent_object_id AND ic.index_id = k.unique_index_id "
    "WHERE k.parent_object_id = @table",
    "SELECT f.name, fc.parent_column_id FROM sys.foreign_keys f JOIN sys.foreign_key_columns fc "
    "ON fc.constraint_object_id = f.object_id WHERE f.parent_object_id = @table",
    "SELECT g.name, g.create_date, g.is_disabled, m.definition FROM sys.triggers g "
    "LEFT JOIN sys.sql_modules m ON m.object_id = g.object_id WHERE g.parent_id = @table",
    "SELECT e.object_id, e.type FROM sys.trigger_events e JOIN sys.triggers g ON g.object_id = e.object_id "
    "WHERE g.parent_id = @table",
};

Load LoadTableByTable(adapters::CatalogueLink& link, const std::string& name, catalogue::Database& tables) {
    Load load;
    const auto start = Clock::now();
    for (std::size_t index = 0; index < tables.TableCount(); ++index) {
        const catalogue::Table& table = tables.TableAt(index);
        const std::string declaration = "DECLARE @table int SET @table = OBJECT_ID(" +
                                        adapters::Literal(adapters::Quoted(table.Owner(), table.Name())) +
                                        ")\n";
        std::array<std::size_t, std::size(TableQuestions)> rows{};
        for (std::size_t question = 0; question < std::size(TableQuestions); ++question)
            link.Ask(name, declaration + TableQuestions[question],
                     {[&rows, question](adapters::AnswerRow&) { ++rows[question]; }});
        load.columns += rows[0];
        load.triggers += rows[3];
    }
    load.seconds = SecondsSince(start);
    return load;
}

int Measure(const Target& target) {
    adapters::ServerCatalogue library;
    const auto server = library.NewServer();
    server->Connect(target.server, target.user, target.password);
    catalogue::Database& database = server->DatabaseNamed(target.database);
    const Load bulk = LoadAtOnce(database);
    const std::size_t roundTrips = library.RoundTrips();
    std::size_t trips = 0;
    adapters::CatalogueLink link(PartsOf(target).DriverText(), trips);
    const Load slow = LoadTableByTable(link, target.database, database);
    std::printf("%zu tables, %zu columns, %zu triggers: at once %.2f s in %zu round trips; table by table "
                "%.2f s in %zu; %.1f times\n",
                database.TableCount(), bulk.columns, bulk.triggers, bulk.seconds, roundTrips, slow.seconds,
                trips, slow.seconds / bulk.seconds);
    if (slow.columns != bulk.columns || slow.triggers != bulk.triggers) {
        std::fputs("the two roads do not find the same\n", stderr);
        return 1;
    }
    return roundTrips <= MostRoundTrips && slow.seconds >= LeastGain * bulk.seconds ? 0 : 1;
}

int MeasureOwnServer() {
    const practice::testing::ServerProcess process(
        std::filesystem::canonical("/proc/self/exe").parent_path());
    const Target target{"127.0.0.1," + std::to_string(process.Port()), "sa", process.Password(), "large"};
    std::size_t trips = 0;
    {
        adapters::CatalogueLink link(PartsOf(target).DriverText(), trips);
        Fill(link, target.database);
    }
    return Measure(target);
}

} // namespace

int main(int argc, char** argv) {
    if (argc == 1)
        return MeasureOwnServer();
    if (argc != 5) {
        std::fputs("catalogue_bench [SERVER USER PASSWORD-FILE DATABASE]\n", stderr);
        return 2;
    }
    std::string password;
    std::ifstream file(argv[3]);
    std::getline(file, password);
    return Measure({argv[1], argv[2], password, argv[4]});
}
