// template --profile P.qlnx --snapshot S.json [selection] [--output FILE]: runs a profile's template over a
// catalogue snapshot and prints or writes the SQL. No server takes part.
#include <CLI/CLI.hpp>

#include "console/GenerationRun.h"
#include "console/OpenDatabase.h"
#include "console/SelectionOptions.h"
#include "console/commands/Commands.h"

namespace quillon::console {
namespace {

struct Options {
    std::string profile, snapshot, output;
    std::shared_ptr<SelectionOptions> selection;
};

// What is not told is everything: a template is tried on a snapshot, nothing is installed by it.
SelectionOptions Completed(SelectionOptions options) {
    options.all = options.tables.empty();
    if (options.operations.empty())
        options.operations = {"insert", "update", "delete"};
    return options;
}

void RunTemplate(const Options& options, ConsoleFrontEnd& frontEnd) {
    const std::string output = PathGiven(options.output);
    frmMain* main = OpenSnapshot(options.snapshot, options.profile);
    if (main == nullptr)
        return;
    ApplySelection(Completed(*options.selection));
    WriteScript(GenerateScript(*main, frontEnd), output);
}

} // namespace

void AddTemplate(CLI::App& app, ChosenCommand& chosen) {
    const auto options = std::make_shared<Options>();
    CLI::App* command = app.add_subcommand("template", "Run a profile's template over a catalogue snapshot");
    command->add_option("--profile", options->profile, "The architecture profile")
        ->type_name("FILE")
        ->required();
    command->add_option("--snapshot", options->snapshot, "The snapshot, as `snapshot` wrote it")
        ->type_name("FILE")
        ->required();
    options->selection = AddSelectionOptions(*command);
    command->add_option("--output", options->output, "Write the script to a file")->type_name("FILE");
    command->callback([&chosen, options] {
        chosen = {"quillon-console.template",
                  [options](ConsoleFrontEnd& frontEnd) { RunTemplate(*options, frontEnd); }};
    });
}

} // namespace quillon::console
