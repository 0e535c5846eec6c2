#include "console/SelectionOptions.h"

#include <CLI/CLI.hpp>

#include <algorithm>

#include "model/AuditObj.h"
#include "platform/Failure.h"
#include "platform/FailureNumbers.h"
#include "shell/Session.h"
#include "template/TextCase.h"

namespace quillon::console {
namespace {

[[noreturn]] void Refuse(const std::string& why) {
    throw Failure(numbers::InvalidCall, why);
}

bool IsNamed(const mdTable& table, const std::string& name) {
    return EqualFolded(name, table.Owner() + "." + table.Name()) || EqualFolded(name, table.Name());
}

bool IsAmong(const std::vector<std::string>& names, const std::string& name) {
    return std::ranges::any_of(names, [&](const std::string& given) { return EqualFolded(given, name); });
}

bool IsChosen(const SelectionOptions& options, const mdTable& table) {
    return options.all ||
           std::ranges::any_of(options.tables, [&](const auto& name) { return IsNamed(table, name); });
}

void CheckOptions(const SelectionOptions& options) {
    if (!options.all && options.tables.empty())
        Refuse("Which tables? Give --all or --table OWNER.NAME");
    if (options.operations.empty())
        Refuse("Which operations? Give --operations insert,update,delete or some of them");
}

void CheckTables(const SelectionOptions& options, const mdTables& tables) {
    for (const std::string& name : options.tables)
        if (std::ranges::none_of(tables, [&](const auto& table) { return IsNamed(*table, name); }))
            Refuse("There is no table " + name + " in " + g_strDatabase);
}

void CheckColumns(const SelectionOptions& options, const mdTables& tables) {
    const auto hasColumn = [&](const auto& table, const std::string& name) {
        return IsChosen(options, *table) && std::ranges::any_of(*table->Fields(), [&](const auto& field) {
                   return EqualFolded(field->Name(), name);
               });
    };
    for (const std::string& name : options.columns)
        if (std::ranges::none_of(tables, [&](const auto& table) { return hasColumn(table, name); }))
            Refuse("None of the chosen tables has a column " + name);
}

void Tick(mdTable& table, const SelectionOptions& options) {
    const bool isChosen = IsChosen(options, table);
    table.SetAudit4Insert(isChosen && IsAmong(options.operations, "insert"));
    table.SetAudit4Update(isChosen && IsAmong(options.operations, "update"));
    table.SetAudit4Delete(isChosen && IsAmong(options.operations, "delete"));
    for (const auto& field : *table.Fields())
        field->SetIsChecked(isChosen && (options.columns.empty() || IsAmong(options.columns, field->Name())));
}

} // namespace

std::shared_ptr<SelectionOptions> AddSelectionOptions(CLI::App& command) {
    auto options = std::make_shared<SelectionOptions>();
    auto* all = command.add_flag("--all", options->all, "All tables");
    command.add_option("--table", options->tables, "A table; may be given several times")
        ->type_name("OWNER.NAME")
        ->excludes(all);
    command
        .add_option("--columns", options->columns,
                    "These columns only; else every column that can be audited")
        ->type_name("NAME,...")
        ->delimiter(',');
    command.add_option("--operations", options->operations, "The operations to audit")
        ->type_name("insert,update,delete")
        ->delimiter(',')
        ->check(CLI::IsMember({"insert", "update", "delete"}, CLI::ignore_case));
    return options;
}

void ApplySelection(const SelectionOptions& options) {
    if (!options.IsGiven())
        return;
    const mdTables& tables = *g_objAudit->Database()->Tables();
    CheckOptions(options);
    CheckTables(options, tables);
    CheckColumns(options, tables);
    for (const auto& table : tables)
        Tick(*table, options);
}

} // namespace quillon::console
