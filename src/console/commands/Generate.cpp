// generate [selection] [--output FILE | --execute | --dry-run]: runs the profile's template over the ticked
// tables, and prints, stores, executes or compares the script. It is the main screen's own run; only what a
// window would show at its end goes elsewhere.
#include <CLI/CLI.hpp>
#include <nlohmann/json.hpp>

#include "console/ConsoleFrontEnd.h"
#include "console/GenerationRun.h"
#include "console/OpenDatabase.h"
#include "console/RunLogOutput.h"
#include "console/SelectionOptions.h"
#include "console/StandardOutput.h"
#include "console/TextTable.h"
#include "console/commands/Commands.h"
#include "triggers/TriggerPlan.h"

namespace quillon::console {
namespace {

using Json = nlohmann::ordered_json;

struct Options {
    std::string profile, output;
    bool executes = false, isDryRun = false, asJson = false;
    std::shared_ptr<SelectionOptions> selection;
};

void PrintPlan(const std::vector<PlannedTrigger>& plan, bool asJson) {
    Json json = Json::array();
    std::vector<Row> rows;
    for (const PlannedTrigger& trigger : plan) {
        json.push_back(
            {{"table", trigger.table}, {"trigger", trigger.name}, {"change", NameOf(trigger.change)}});
        rows.push_back({trigger.table, trigger.name, NameOf(trigger.change)});
    }
    WriteStandardOutput(asJson ? json.dump(1, ' ', false, Json::error_handler_t::replace) + "\n"
                               : TextTable({"Table", "Trigger", "Change"}, rows));
    FlushStandardOutput();
}

void Generate(const CLI::App& app, const Options& options, ConsoleFrontEnd& frontEnd) {
    const std::string output = PathGiven(options.output);
    frmMain* main = OpenDatabase(app, options.profile);
    if (main == nullptr)
        return;
    ApplySelection(*options.selection);
    if (options.executes)
        PrintRunLog(GenerateAndExecute(*main, frontEnd));
    else if (options.isDryRun)
        PrintPlan(PlanTriggers(GenerateScript(*main, frontEnd)), options.asJson);
    else
        WriteScript(GenerateScript(*main, frontEnd), output);
}

} // namespace

void AddGenerate(CLI::App& app, ChosenCommand& chosen) {
    const auto options = std::make_shared<Options>();
    CLI::App* command = app.add_subcommand("generate", "Generate the audit triggers of the ticked tables");
    command->add_option("--profile", options->profile, "The architecture profile; else the default one")
        ->type_name("FILE");
    options->selection = AddSelectionOptions(*command);
    auto* output =
        command->add_option("--output", options->output, "Write the script to a file")->type_name("FILE");
    auto* execute = command->add_flag("--execute", options->executes, "Run the script on the database");
    auto* dryRun = command->add_flag("--dry-run", options->isDryRun,
                                     "Tell what would be created, replaced, dropped or is up to date");
    command->add_flag("--json", options->asJson, "The dry run as JSON")->needs(dryRun);
    output->excludes(execute)->excludes(dryRun);
    execute->excludes(dryRun);
    command->callback([&app, &chosen, options] {
        chosen = {"quillon-console.generate",
                  [&app, options](ConsoleFrontEnd& frontEnd) { Generate(app, *options, frontEnd); }};
    });
}

} // namespace quillon::console
