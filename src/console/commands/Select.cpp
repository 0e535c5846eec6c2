// select show|save|restore: the ticks of a database. show prints what is stored; save stores what the options
// name; restore takes the ticks from the stored files anew and prints them.
#include <CLI/CLI.hpp>
#include <nlohmann/json.hpp>

#include "console/OpenDatabase.h"
#include "console/SelectionOptions.h"
#include "console/StandardOutput.h"
#include "console/TextTable.h"
#include "console/commands/Commands.h"
#include "model/AuditObj.h"
#include "shell/Session.h"
#include "shell/basProfile.h"

namespace quillon::console {
namespace {

using Json = nlohmann::ordered_json;

enum class Action { Show, Save, Restore };

std::string Joined(const std::vector<std::string>& names) {
    std::string text;
    for (const std::string& name : names)
        text += (text.empty() ? "" : ", ") + name;
    return text;
}

std::vector<std::string> TickedColumns(mdTable& table) {
    std::vector<std::string> names;
    for (const auto& field : *table.Fields())
        if (field->IsChecked())
            names.push_back(field->Name());
    return names;
}

std::vector<std::string> TickedOperations(const mdTable& table) {
    std::vector<std::string> names;
    if (table.Audit4Insert())
        names.emplace_back("insert");
    if (table.Audit4Update())
        names.emplace_back("update");
    if (table.Audit4Delete())
        names.emplace_back("delete");
    return names;
}

void Print(const mdTables& tables, bool asJson) {
    Json json = Json::array();
    std::vector<Row> rows;
    for (const auto& table : tables) {
        const auto columns = TickedColumns(*table), operations = TickedOperations(*table);
        if (columns.empty() && operations.empty())
            continue;
        json.push_back({{"owner", table->Owner()},
                        {"table", table->Name()},
                        {"operations", operations},
                        {"columns", columns},
                        {"selected", table->IsSelectedForAudit()}});
        rows.push_back({table->Owner() + "." + table->Name(), Joined(operations), Joined(columns)});
    }
    WriteStandardOutput(asJson ? json.dump(1, ' ', false, Json::error_handler_t::replace) + "\n"
                               : TextTable({"Table", "Operations", "Columns"}, rows));
    FlushStandardOutput();
}

void Select(const CLI::App& app, Action action, const SelectionOptions& options, bool asJson) {
    if (OpenDatabase(app, "") == nullptr)
        return;
    ApplySelection(options);
    if (action == Action::Save)
        basProfile::SaveProfile();
    if (action == Action::Restore && !basProfile::RetrieveProfile())
        return;
    Print(*g_objAudit->Database()->Tables(), asJson);
}

} // namespace

void AddSelect(CLI::App& app, ChosenCommand& chosen) {
    CLI::App* command =
        app.add_subcommand("select", "Show or store which tables, columns and operations are ticked");
    command->require_subcommand(1);
    const auto add = [&](const char* name, const char* help, Action action) {
        CLI::App* one = command->add_subcommand(name, help);
        const auto options =
            action == Action::Save ? AddSelectionOptions(*one) : std::make_shared<SelectionOptions>();
        const auto asJson = std::make_shared<bool>(false);
        one->add_flag("--json", *asJson, "As JSON");
        one->callback([&app, &chosen, action, options, asJson] {
            chosen = {"quillon-console.select", [&app, action, options, asJson](ConsoleFrontEnd&) {
                          Select(app, action, *options, *asJson);
                      }};
        });
    };
    add("show", "Print the stored ticks", Action::Show);
    add("save", "Store the ticks that the options name", Action::Save);
    add("restore", "Read the stored ticks again and print them", Action::Restore);
}

} // namespace quillon::console
