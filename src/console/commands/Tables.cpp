// tables [--json]: prints the model of a database as templates see it.
#include <CLI/CLI.hpp>
#include <nlohmann/json.hpp>

#include "console/ServerOptions.h"
#include "console/StandardOutput.h"
#include "console/commands/Commands.h"
#include "model/AuditObj.h"
#include "model/basLoadMetaData.h"
#include "platform/Conversion.h"
#include "platform/Failure.h"
#include "platform/FailureNumbers.h"
#include "shell/Session.h"

namespace quillon::console {
namespace {

using Json = nlohmann::ordered_json;

Json ColumnJson(const mdField& field) {
    return {{"name", field.Name()},
            {"type", field.SQL_Datatype()},
            {"declaration", field.SQL_Datatype_And_Length()},
            {"length", field.Length()},
            {"precision", field.NumericPrecision()},
            {"scale", field.NumericScale()},
            {"position", field.Ordinal_Position()},
            {"nullable", field.IsNullable()},
            {"identity", field.IsIdentity()},
            {"primaryKey", field.IsInPrimaryKey()},
            {"rowGuid", field.IsGUID()},
            {"timestamp", field.IsTimeStamp()},
            {"default", field.Default()}};
}

Json KeyJson(mdPrimaryKeyField& field) {
    Json keys = Json::array();
    for (const auto& key : *field.Keys())
        keys.push_back(key->Name());
    return {{"column", field.Name()}, {"keys", keys}};
}

Json TriggerJson(const mdTrigger& trigger) {
    return {{"name", trigger.Name()},
            {"owner", trigger.Owner()},
            {"created", conversion::TextOf(trigger.CreateDate())},
            {"insert", trigger.IsInsert()},
            {"update", trigger.IsUpdate()},
            {"delete", trigger.IsDelete()},
            {"enabled", trigger.Enabled()}};
}

Json TableJson(mdTable& table) {
    Json columns = Json::array(), keys = Json::array(), triggers = Json::array();
    for (const auto& field : *table.Fields())
        columns.push_back(ColumnJson(*field));
    for (const auto& field : *table.PrimaryKeyFields())
        keys.push_back(KeyJson(*field));
    for (const auto& trigger : *table.Triggers())
        triggers.push_back(TriggerJson(*trigger));
    return {
        {"name", table.Name()}, {"owner", table.Owner()}, {"created", conversion::TextOf(table.CreateDate())},
        {"columns", columns},   {"primaryKey", keys},     {"auditTriggers", triggers}};
}

std::string ColumnLine(const mdField& field) {
    return "    " + field.Name() + " " + field.SQL_Datatype_And_Length() +
           (field.IsNullable() ? "" : " not null") + (field.IsIdentity() ? " identity" : "") +
           (field.IsInPrimaryKey() ? " primary key" : "") + "\n";
}

void PrintText(const mdTables& tables) {
    for (const auto& table : tables) {
        WriteStandardOutput(table->Owner() + "." + table->Name() + "\n");
        for (const auto& field : *table->Fields())
            WriteStandardOutput(ColumnLine(*field));
        for (const auto& trigger : *table->Triggers())
            WriteStandardOutput("    audit trigger " + trigger->Name() +
                                (trigger->Enabled() ? "" : " (disabled)") + "\n");
    }
}

void PrintJson(const mdDatabase& database, const mdTables& tables) {
    Json json{{"server", database.Server()}, {"database", database.Name()}, {"owner", database.Owner()}};
    json["tables"] = Json::array();
    for (const auto& table : tables)
        json["tables"].push_back(TableJson(*table));
    WriteStandardOutput(json.dump(1, ' ', false, Json::error_handler_t::replace) + "\n");
}

void ListTables(const CLI::App& app, bool asJson) {
    LogInToDatabase(app);
    if (!basLoadMetaData::CreateObjectHeirarchy())
        return; // reported there
    mdDatabase& database = *g_objAudit->Database();
    if (asJson)
        PrintJson(database, *database.Tables());
    else
        PrintText(*database.Tables());
    FlushStandardOutput();
}

} // namespace

void AddTables(CLI::App& app, ChosenCommand& chosen) {
    const auto asJson = std::make_shared<bool>(false);
    CLI::App* command = app.add_subcommand("tables", "Print the tables, columns, keys and audit triggers");
    command->add_flag("--json", *asJson, "As JSON, with every property");
    command->callback([&app, &chosen, asJson] {
        chosen = {"quillon-console.tables", [&app, asJson](ConsoleFrontEnd&) { ListTables(app, *asJson); }};
    });
}

} // namespace quillon::console
