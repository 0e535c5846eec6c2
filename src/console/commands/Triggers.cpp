// triggers [--json]: the audit triggers of a database.
#include <CLI/CLI.hpp>
#include <nlohmann/json.hpp>

#include "console/OpenDatabase.h"
#include "console/StandardOutput.h"
#include "console/TextTable.h"
#include "console/commands/Commands.h"
#include "model/AuditObj.h"
#include "platform/Conversion.h"
#include "shell/Session.h"

namespace quillon::console {
namespace {

using Json = nlohmann::ordered_json;

std::string Operations(const mdTrigger& trigger) {
    std::string text;
    const auto add = [&text](bool isThere, const char* name) {
        if (isThere)
            text += (text.empty() ? "" : ", ") + std::string(name);
    };
    add(trigger.IsInsert(), "insert");
    add(trigger.IsUpdate(), "update");
    add(trigger.IsDelete(), "delete");
    return text;
}

Json TriggerJson(const mdTable& table, const mdTrigger& trigger) {
    return {{"table", table.Name()},
            {"tableOwner", table.Owner()},
            {"name", trigger.Name()},
            {"owner", trigger.Owner()},
            {"created", conversion::TextOf(trigger.CreateDate())},
            {"insert", trigger.IsInsert()},
            {"update", trigger.IsUpdate()},
            {"delete", trigger.IsDelete()},
            {"enabled", trigger.Enabled()}};
}

void ListTriggers(const CLI::App& app, bool asJson) {
    if (OpenDatabase(app, "") == nullptr)
        return;
    Json json = Json::array();
    std::vector<Row> rows;
    for (const auto& table : *g_objAudit->Database()->Tables())
        for (const auto& trigger : *table->Triggers()) {
            json.push_back(TriggerJson(*table, *trigger));
            rows.push_back({table->Owner() + "." + table->Name(), trigger->Owner() + "." + trigger->Name(),
                            Operations(*trigger), trigger->Enabled() ? "enabled" : "disabled",
                            conversion::TextOf(trigger->CreateDate())});
        }
    WriteStandardOutput(asJson ? json.dump(1, ' ', false, Json::error_handler_t::replace) + "\n"
                               : TextTable({"Table", "Trigger", "Operations", "State", "Created"}, rows));
    FlushStandardOutput();
}

} // namespace

void AddTriggers(CLI::App& app, ChosenCommand& chosen) {
    const auto asJson = std::make_shared<bool>(false);
    CLI::App* command = app.add_subcommand("triggers", "List the audit triggers of the database");
    command->add_flag("--json", *asJson, "As JSON");
    command->callback([&app, &chosen, asJson] {
        chosen = {"quillon-console.triggers",
                  [&app, asJson](ConsoleFrontEnd&) { ListTriggers(app, *asJson); }};
    });
}

} // namespace quillon::console
