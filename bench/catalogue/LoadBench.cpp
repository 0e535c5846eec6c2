// Loading the catalogue of a database at once, beside asking table by table, on the same server in one run.
//
//     catalogue_bench SERVER USER PASSWORD-FILE DATABASE
//
// Promised: at most 15 round trips whatever the number of tables, and at least 20 times faster. The slow road
// is walked for the first 100 tables and its time scaled to all of them. Exit 1 when a promise is not kept.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <fstream>

#include "adapters/catalogue/CatalogueLink.h"
#include "adapters/catalogue/ServerCatalogue.h"
#include "adapters/odbc/ConnectionText.h"

namespace {

using namespace quillon;
using Clock = std::chrono::steady_clock;

constexpr std::size_t MostRoundTrips = 15;
constexpr double LeastGain = 20;
constexpr std::size_t Sample = 100;

double SecondsSince(Clock::time_point start) {
    return std::chrono::duration<double>(Clock::now() - start).count();
}

void LoadAll(catalogue::Database& database) {
    for (std::size_t index = 0; index < database.TableCount(); ++index) {
        database.TableAt(index).Columns();
        database.TableAt(index).TriggerCount();
    }
}

// What a tree without bulk questions asks for one table: its columns, its keys, its triggers.
void AskForTable(adapters::CatalogueLink& link, const std::string& database, const std::string& table) {
    const std::string which = "OBJECT_ID(" + adapters::Literal(table) + ")";
    for (const char* question :
         {"SELECT c.name, c.max_length, c.is_nullable FROM sys.columns c WHERE c.object_id = ",
          "SELECT k.name, k.type FROM sys.key_constraints k WHERE k.parent_object_id = ",
          "SELECT g.name, m.definition FROM sys.triggers g LEFT JOIN sys.sql_modules m ON "
          "m.object_id = g.object_id WHERE g.parent_id = "})
        link.Ask(database, question + which, {[](adapters::AnswerRow& row) { row.Text(); }});
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 5) {
        std::fputs("catalogue_bench SERVER USER PASSWORD-FILE DATABASE\n", stderr);
        return 2;
    }
    std::string password;
    std::getline(std::ifstream(argv[3]) >> std::ws, password);
    adapters::ServerCatalogue library;
    const auto server = library.NewServer();
    server->Connect(argv[1], argv[2], password);
    auto start = Clock::now();
    catalogue::Database& database = server->DatabaseNamed(argv[4]);
    LoadAll(database);
    const double bulk = SecondsSince(start);
    const std::size_t roundTrips = library.RoundTrips(), tables = database.TableCount();

    adapters::ConnectionParts parts;
    parts.server = argv[1];
    parts.user = argv[2];
    parts.password = password;
    std::size_t slowTrips = 0;
    adapters::CatalogueLink link(parts.DriverText(), slowTrips);
    const std::size_t sampled = std::min(Sample, tables);
    start = Clock::now();
    for (std::size_t index = 0; index < sampled; ++index)
        AskForTable(link, argv[4],
                    adapters::Quoted(database.TableAt(index).Owner(), database.TableAt(index).Name()));
    const double slow =
        sampled == 0 ? 0 : SecondsSince(start) / static_cast<double>(sampled) * static_cast<double>(tables);
    std::printf("%zu tables: at once %.2f s in %zu round trips; table by table %.2f s (from %zu tables); "
                "%.1f times\n",
                tables, bulk, roundTrips, slow, sampled, slow / bulk);
    return roundTrips <= MostRoundTrips && slow >= LeastGain * bulk ? 0 : 1;
}
