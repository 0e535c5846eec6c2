// snapshot OUT.json: writes the catalogue of a database to a file that can stand in for the server.
#include <CLI/CLI.hpp>

#include "adapters/files/NativePath.h"
#include "adapters/snapshot/SnapshotFile.h"
#include "console/ServerOptions.h"
#include "console/commands/Commands.h"
#include "platform/Files.h"
#include "platform/Platform.h"
#include "shell/Session.h"

namespace quillon::console {
namespace {

// The procedures whose owners the system asks the catalogue for.
const std::vector<std::string> AskedProcedures{"AUDIT_prc_Purge_AUDIT_LOG"};

void TakeSnapshot(const CLI::App& app, const std::string& file) {
    LogInToDatabase(app);
    const auto snapshot =
        adapters::TakeSnapshot(g_objSQLServer->DatabaseNamed(g_strDatabase), g_strServer, AskedProcedures);
    ThePlatform().files().Replace(adapters::FromNative(file), adapters::WriteSnapshot(snapshot));
}

} // namespace

void AddSnapshot(CLI::App& app, ChosenCommand& chosen) {
    const auto file = std::make_shared<std::string>();
    CLI::App* command = app.add_subcommand("snapshot", "Write the catalogue of a database to a JSON file");
    command->add_option("OUT", *file, "The file to write")->required();
    command->callback([&app, &chosen, file] {
        chosen = {"quillon-console.snapshot", [&app, file](ConsoleFrontEnd&) { TakeSnapshot(app, *file); }};
    });
}

} // namespace quillon::console
