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
#include "adapters/odbc/OdbcDataAccess.h"
#include "practice/support/ServerProcess.h"

namespace {

using namespace quillon;
using Clock = std::chrono::steady_clock;

constexpr std::size_t MostRoundTrips = 15;
constexpr double LeastGain = 20;
constexpr std::size_t TablesForOneAsked = 10;
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
void Fill(const Target& target) {
    adapters::OdbcDataAccess access;
    const auto connection = access.NewConnection();
    connection->Open("Data Source=" + target.server + ";User ID=" + target.user +
                     ";Password=" + target.password + ";");
    const auto run = [&](const std::string& statement) {
        const auto command = access.NewCommand();
        command->SetActiveConnection(connection);
        command->SetCommandText(statement);
        command->Execute();
    };
    run("CREATE DATABASE " + adapters::Quoted(target.database));
    run("USE " + adapters::Quoted(target.database));
    constexpr std::array types{"int NULL", "nvarchar(50) NOT NULL", "decimal(10, 2) NULL", "datetime NULL",
                               "varchar(20) NOT NULL DEFAULT ('x')"};
    run("BEGIN TRANSACTION");
    for (int table = 0; table < Tables; ++table) {
        const std::string name = "table_" + std::to_string(table);
        std::string statement = "CREATE TABLE " + name + " (id int NOT NULL PRIMARY KEY";
        for (int column = 1; column < Columns; ++column)
            statement += ", column_" + std::to_string(column) + " " + types[column % types.size()];
        run(statement + ")");
        if (table < Triggers)
            run("CREATE TRIGGER trg_" + name + " ON " + name + " FOR INSERT, UPDATE AS\n" +
                std::string(1500, '-') + "\nPRINT 'fired'");
    }
    run("COMMIT TRANSACTION");
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

// In the form that takes the server least.
constexpr const char* TableQuestions[] = {
    "SELECT c.name, y.name, c.max_length, c.[precision], c.scale, c.is_nullable, c.is_identity, "
    "c.is_rowguidcol FROM sys.columns c JOIN sys.types y ON y.user_type_id = c.user_type_id "
    "WHERE c.object_id = @table",
    "SELECT d.parent_column_id, d.definition FROM sys.default_constraints d WHERE d.parent_object_id = "
    "@table",
    "SELECT k.name, k.type, ic.column_id FROM sys.key_constraints k JOIN sys.index_columns ic "
    "ON ic.object_id = k.parent_object_id AND ic.index_id = k.unique_index_id "
    "WHERE k.parent_object_id = @table",
    "SELECT f.constraint_object_id, f.parent_column_id FROM sys.foreign_key_columns f "
    "WHERE f.parent_object_id = @table",
    "SELECT g.name, g.create_date, g.is_disabled, OBJECT_DEFINITION(g.object_id) FROM sys.triggers g "
    "WHERE g.parent_id = @table",
};
constexpr std::size_t ColumnsQuestion = 0, TriggersQuestion = 4;

// Asked for some of the tables, for the answers take long.
Load LoadTableByTable(adapters::CatalogueLink& link, const std::string& name, catalogue::Database& tables) {
    Load load;
    const auto start = Clock::now();
    for (std::size_t index = 0; index < tables.TableCount(); index += TablesForOneAsked) {
        const catalogue::Table& table = tables.TableAt(index);
        const std::string declaration = "DECLARE @table int SET @table = OBJECT_ID(" +
                                        adapters::Literal(adapters::Quoted(table.Owner(), table.Name())) +
                                        ")\n";
        std::array<std::size_t, std::size(TableQuestions)> rows{};
        for (std::size_t question = 0; question < std::size(TableQuestions); ++question)
            link.Ask(name, declaration + TableQuestions[question],
                     {[&rows, question](adapters::AnswerRow&) { ++rows[question]; }});
        load.columns += rows[ColumnsQuestion];
        load.triggers += rows[TriggersQuestion];
    }
    load.seconds = SecondsSince(start) * static_cast<double>(TablesForOneAsked);
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
    adapters::CatalogueLink link(PartsOf(target), trips);
    const Load slow = LoadTableByTable(link, target.database, database);
    std::printf(
        "%zu tables, %zu columns, %zu triggers: at once %.2f s in %zu round trips; table by table "
        "%.2f s (%zu questions, %zu columns and %zu triggers found at every %zuth table); %.1f times\n",
        database.TableCount(), bulk.columns, bulk.triggers, bulk.seconds, roundTrips, slow.seconds, trips,
        slow.columns, slow.triggers, TablesForOneAsked, slow.seconds / bulk.seconds);
    return roundTrips <= MostRoundTrips && slow.seconds >= LeastGain * bulk.seconds ? 0 : 1;
}

int MeasureOwnServer() {
    const practice::testing::ServerProcess process(
        std::filesystem::canonical("/proc/self/exe").parent_path());
    const Target target{"127.0.0.1," + std::to_string(process.Port()), "sa", process.Password(), "large"};
    Fill(target);
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
