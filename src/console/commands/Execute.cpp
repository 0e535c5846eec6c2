// execute FILE [--name NAME]: runs a script batch by batch and prints the run log.
//
// A batch that the server refuses does not keep the next ones from running; the command fails in the end.
#include <CLI/CLI.hpp>

#include "adapters/files/NativePath.h"
#include "console/Interruption.h"
#include "console/RunLogOutput.h"
#include "console/ServerOptions.h"
#include "console/commands/Commands.h"
#include "execution/basExecScript.h"
#include "platform/Files.h"
#include "platform/Platform.h"
#include "shell/Session.h"
#include "template/basStringFunctions.h"

namespace quillon::console {
namespace {

struct Options {
    std::string file;
    std::string name;
};

void Execute(const CLI::App& app, const Options& options) {
    const std::string path = adapters::FromNative(options.file);
    std::string script = ThePlatform().files().ReadAll(path);
    if (script.starts_with("\xEF\xBB\xBF"))
        script.erase(0, 3);
    LogInToDatabase(app);
    Interruption::EndAtOnce();
    RunLog log;
    basExecScript::ProcScript(
        script, options.name.empty() ? basStringFunctions::JustFileName(path) : options.name, log);
    PrintRunLog(log);
}

} // namespace

void AddExecute(CLI::App& app, ChosenCommand& chosen) {
    const auto options = std::make_shared<Options>();
    CLI::App* command = app.add_subcommand("execute", "Run a SQL script and print what the server says");
    command->add_option("FILE", options->file, "The script")->required();
    command->add_option("--name", options->name, "The name of the run in its log; else that of the file");
    command->callback([&app, &chosen, options] {
        chosen = {"quillon-console.execute", [&app, options](ConsoleFrontEnd&) { Execute(app, *options); }};
    });
}

} // namespace quillon::console
