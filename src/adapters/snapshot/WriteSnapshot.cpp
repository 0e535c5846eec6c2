#include <nlohmann/json.hpp>

#include "adapters/snapshot/SnapshotFile.h"
#include "platform/Conversion.h"
#include "platform/Failure.h"
#include "platform/FailureNumbers.h"

namespace quillon::adapters {
namespace {

using Json = nlohmann::ordered_json;

// Leaves out what the reader takes for granted: a catalogue of thousands of tables is mostly that.
template <class T>
void Put(Json& object, const char* name, const T& value, const T& otherwise = {}) {
    if (value != otherwise)
        object[name] = value;
}

std::string TextOfDay(DateValue date) {
    const auto day = conversion::CalendarOf(date);
    char text[32];
    std::snprintf(text, sizeof text, "%04d-%02d-%02d", day.year, day.month, day.day);
    return text;
}

Json ColumnJson(const catalogue::Column& column) {
    Json json{{"name", column.Name}, {"type", column.Datatype}};
    Put(json, "length", column.Length);
    Put(json, "precision", column.NumericPrecision);
    Put(json, "scale", column.NumericScale);
    Put(json, "nullable", column.AllowNulls);
    Put(json, "identity", column.Identity);
    Put(json, "primaryKey", column.InPrimaryKey);
    Put(json, "rowGuid", column.IsRowGuidCol);
    Put(json, "default", column.Default);
    Put(json, "declaredDefault", column.DriDefaultText);
    Put(json, "keys", column.Keys);
    return json;
}

Json TriggerJson(const SnapshotTrigger& trigger) {
    Json json{{"name", trigger.name},
              {"owner", trigger.owner},
              {"type", trigger.type},
              {"created", TextOfDay(trigger.created)}};
    Put(json, "enabled", trigger.enabled, true);
    Put(json, "script", trigger.script);
    Put(json, "text", trigger.text);
    return json;
}

Json TableJson(const SnapshotTable& table) {
    Json json{{"name", table.name}, {"owner", table.owner}, {"created", TextOfDay(table.created)}};
    Put(json, "system", table.system);
    json["columns"] = Json::array();
    for (const auto& column : table.columns)
        json["columns"].push_back(ColumnJson(column));
    for (const auto& trigger : table.triggers)
        json["triggers"].push_back(TriggerJson(trigger));
    Put(json, "script", table.script);
    return json;
}

SnapshotTable TakeTable(catalogue::Table& table) {
    SnapshotTable taken{.name = table.Name(),
                        .owner = table.Owner(),
                        .script = table.Script(catalogue::ScriptDefault),
                        .created = table.CreateDate(),
                        .system = table.SystemObject(),
                        .columns = table.Columns(),
                        .triggers = {}};
    for (std::size_t index = 0; index < table.TriggerCount(); ++index) {
        catalogue::Trigger& trigger = table.TriggerAt(index);
        taken.triggers.push_back({.name = trigger.Name(),
                                  .owner = trigger.Owner(),
                                  .script = trigger.Script(catalogue::ScriptDefault),
                                  .text = trigger.Text(),
                                  .type = trigger.Type(),
                                  .created = trigger.CreateDate(),
                                  .enabled = trigger.Enabled()});
    }
    return taken;
}

} // namespace

std::string WriteSnapshot(const Snapshot& snapshot) {
    Json json{{"snapshot", 1},
              {"server", snapshot.server},
              {"database", {{"name", snapshot.database}, {"owner", snapshot.owner}}}};
    json["tables"] = Json::array();
    for (const auto& table : snapshot.tables)
        json["tables"].push_back(TableJson(table));
    for (const auto& procedure : snapshot.procedures)
        json["procedures"].push_back({{"name", procedure.name}, {"owner", procedure.owner}});
    return json.dump(1, ' ', false, Json::error_handler_t::replace) + "\n";
}

Snapshot TakeSnapshot(catalogue::Database& database, const std::string& server,
                      const std::vector<std::string>& procedures) {
    Snapshot snapshot{.server = server,
                      .database = database.Name(),
                      .owner = database.Owner(),
                      .tables = {},
                      .procedures = {}};
    for (std::size_t index = 0; index < database.TableCount(); ++index)
        snapshot.tables.push_back(TakeTable(database.TableAt(index)));
    for (const auto& name : procedures) {
        try {
            snapshot.procedures.push_back({name, database.ProcedureOwner(name)});
        } catch (const Failure& failure) {
            if (failure.number() != numbers::ItemNotFound)
                throw;
        }
    }
    return snapshot;
}

} // namespace quillon::adapters
