// databases: prints the names of a server's databases, one a line.
#include <CLI/CLI.hpp>

#include "console/ServerOptions.h"
#include "console/StandardOutput.h"
#include "console/commands/Commands.h"
#include "platform/Catalogue.h"
#include "shell/Session.h"

namespace quillon::console {
namespace {

void ListDatabases(const CLI::App& app) {
    LogIn(app);
    for (std::size_t index = 0; index < g_objSQLServer->DatabaseCount(); ++index)
        WriteStandardOutput(g_objSQLServer->DatabaseAt(index).Name() + "\n");
    FlushStandardOutput();
}

} // namespace

void AddDatabases(CLI::App& app, ChosenCommand& chosen) {
    CLI::App* command = app.add_subcommand("databases", "List the databases of a server");
    command->callback([&app, &chosen] {
        chosen = {"quillon-console.databases", [&app](ConsoleFrontEnd&) { ListDatabases(app); }};
    });
}

} // namespace quillon::console
