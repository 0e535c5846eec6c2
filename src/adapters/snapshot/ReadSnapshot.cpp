#include <nlohmann/json.hpp>

#include "adapters/snapshot/SnapshotFile.h"
#include "platform/Conversion.h"
#include "platform/Failure.h"
#include "platform/FailureNumbers.h"

namespace quillon::adapters {
namespace {

using Json = nlohmann::json;

template <class T>
T Member(const Json& object, const char* name, T otherwise = {}) {
    const auto found = object.find(name);
    return found == object.end() ? otherwise : found->get<T>();
}

// "yyyy-mm-dd"; an empty text is day 0.
DateValue Day(const Json& object) {
    const auto text = Member<std::string>(object, "created");
    if (text.empty())
        return {};
    const auto date = conversion::ParseDate(text);
    if (!date)
        throw Failure(numbers::InvalidCall, "\"" + text + "\" is no date");
    return *date;
}

catalogue::Column ReadColumn(const Json& json) {
    catalogue::Column column;
    column.Name = json.at("name").get<std::string>();
    column.Datatype = json.at("type").get<std::string>();
    column.Length = Member<std::int32_t>(json, "length");
    column.NumericPrecision = Member<std::int32_t>(json, "precision");
    column.NumericScale = Member<std::int32_t>(json, "scale");
    column.AllowNulls = Member<bool>(json, "nullable");
    column.Identity = Member<bool>(json, "identity");
    column.InPrimaryKey = Member<bool>(json, "primaryKey");
    column.IsRowGuidCol = Member<bool>(json, "rowGuid");
    column.Default = Member<std::string>(json, "default");
    column.DriDefaultText = Member<std::string>(json, "declaredDefault");
    column.Keys = Member<std::vector<std::string>>(json, "keys");
    return column;
}

SnapshotTrigger ReadTrigger(const Json& json) {
    return {.name = json.at("name").get<std::string>(),
            .owner = json.at("owner").get<std::string>(),
            .script = Member<std::string>(json, "script"),
            .text = Member<std::string>(json, "text"),
            .type = Member<std::int16_t>(json, "type"),
            .created = Day(json),
            .enabled = Member<bool>(json, "enabled", true)};
}

SnapshotTable ReadTable(const Json& json) {
    SnapshotTable table{.name = json.at("name").get<std::string>(),
                        .owner = json.at("owner").get<std::string>(),
                        .script = Member<std::string>(json, "script"),
                        .created = Day(json),
                        .system = Member<bool>(json, "system"),
                        .columns = {},
                        .triggers = {}};
    for (const Json& column : Member<Json>(json, "columns", Json::array()))
        table.columns.push_back(ReadColumn(column));
    for (const Json& trigger : Member<Json>(json, "triggers", Json::array()))
        table.triggers.push_back(ReadTrigger(trigger));
    return table;
}

Snapshot ReadWhole(const Json& json) {
    if (Member<int>(json, "snapshot") != 1)
        throw Failure(numbers::InvalidCall, "This is no catalogue snapshot of version 1");
    const Json& database = json.at("database");
    Snapshot snapshot{.server = Member<std::string>(json, "server"),
                      .database = database.at("name").get<std::string>(),
                      .owner = Member<std::string>(database, "owner"),
                      .tables = {},
                      .procedures = {}};
    for (const Json& table : json.at("tables"))
        snapshot.tables.push_back(ReadTable(table));
    for (const Json& procedure : Member<Json>(json, "procedures", Json::array()))
        snapshot.procedures.push_back(
            {procedure.at("name").get<std::string>(), procedure.at("owner").get<std::string>()});
    return snapshot;
}

} // namespace

Snapshot ReadSnapshot(std::string_view text) {
    try {
        return ReadWhole(Json::parse(text));
    } catch (const Json::exception& error) {
        throw Failure(numbers::InvalidCall,
                      std::string("The catalogue snapshot cannot be read: ") + error.what());
    }
}

} // namespace quillon::adapters
