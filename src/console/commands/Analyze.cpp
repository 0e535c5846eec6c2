// analyze [--json]: tells which audit structures a database has, as its own analysis procedure answers.
#include <CLI/CLI.hpp>
#include <nlohmann/json.hpp>

#include "architecture/basArchAnalyze.h"
#include "console/OpenDatabase.h"
#include "console/StandardOutput.h"
#include "console/TextTable.h"
#include "console/commands/Commands.h"

namespace quillon::console {
namespace {

using basArchAnalyze::Structures;

struct Structure {
    const char* key;
    const char* caption;
    bool Structures::*value;
};

constexpr Structure structures[] = {
    {"ddl", "Audit tables", &Structures::Ddl},
    {"identity", "Identity handling", &Structures::Identity},
    {"views", "Audit view", &Structures::View},
    {"standard", "Standard report", &Structures::Standard},
    {"aggregate", "Aggregate report", &Structures::Aggregate},
    {"purge", "Purge of the log", &Structures::Purge},
    {"undo", "Transaction undo", &Structures::Undo},
    {"delete", "Removal", &Structures::Delete},
    {"analyze", "Analysis", &Structures::Analyze},
};

void Analyze(const CLI::App& app, bool asJson) {
    if (OpenDatabase(app, "") == nullptr)
        return;
    Structures found;
    basArchAnalyze::Exec_AUDIT_prc_Analyze(found);
    nlohmann::ordered_json json;
    std::vector<Row> rows;
    for (const Structure& structure : structures) {
        json[structure.key] = found.*structure.value;
        rows.push_back({structure.caption, found.*structure.value ? "yes" : "no"});
    }
    WriteStandardOutput(asJson ? json.dump(1, ' ') + "\n" : TextTable({"Structure", "Installed"}, rows));
    FlushStandardOutput();
}

} // namespace

void AddAnalyze(CLI::App& app, ChosenCommand& chosen) {
    const auto asJson = std::make_shared<bool>(false);
    CLI::App* command = app.add_subcommand("analyze", "Tell which audit structures the database has");
    command->add_flag("--json", *asJson, "As JSON");
    command->callback([&app, &chosen, asJson] {
        chosen = {"quillon-console.analyze", [&app, asJson](ConsoleFrontEnd&) { Analyze(app, *asJson); }};
    });
}

} // namespace quillon::console
