#include <nlohmann/json.hpp>

#include <type_traits>
#include <utility>

#include "adapters/snapshot/SnapshotFile.h"
#include "platform/Conversion.h"
#include "platform/Failure.h"
#include "platform/FailureNumbers.h"

namespace quillon::adapters {
namespace {

using Json = nlohmann::json;

// Some parsers' reasons quote what they read, however long it is.
constexpr std::size_t LongestReason = 300;

[[noreturn]] void Refuse(std::string reason) {
    if (reason.size() > LongestReason)
        reason = reason.substr(0, LongestReason) + " ...";
    throw Failure(numbers::InvalidCall, "The catalogue snapshot cannot be read: " + reason);
}

template <class T>
T Converted(const Json& value, const char* name) {
    if constexpr (std::is_integral_v<T> && !std::is_same_v<T, bool>) {
        const bool fits = value.is_number_integer() && std::in_range<T>(value.get<std::int64_t>()) &&
                          (!value.is_number_unsigned() || std::in_range<T>(value.get<std::uint64_t>()));
        if (!fits)
            Refuse(std::string("\"") + name + "\" is no whole number of its range");
    }
    try {
        return value.get<T>();
    } catch (const Json::exception& error) {
        Refuse(std::string("\"") + name + "\": " + error.what());
    }
}

template <class T>
T Member(const Json& object, const char* name, T otherwise = {}) {
    const auto found = object.find(name);
    return found == object.end() ? otherwise : Converted<T>(*found, name);
}

// One that may not be left out.
std::string Required(const Json& object, const char* name) {
    return Converted<std::string>(object.at(name), name);
}

const Json& List(const Json& object, const char* name) {
    static const Json none = Json::array();
    const auto found = object.find(name);
    if (found == object.end())
        return none;
    if (!found->is_array())
        Refuse(std::string("\"") + name + "\" is no list");
    return *found;
}

// "yyyy-mm-dd"; an empty text is day 0.
DateValue Day(const Json& object) {
    const auto text = Member<std::string>(object, "created");
    if (text.empty())
        return {};
    const auto date = conversion::ParseDate(text);
    if (!date)
        Refuse("\"" + text + "\" is no date");
    return *date;
}

catalogue::Column ReadColumn(const Json& json) {
    catalogue::Column column;
    column.Name = Required(json, "name");
    column.Datatype = Required(json, "type");
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
    return {.name = Required(json, "name"),
            .owner = Required(json, "owner"),
            .script = Member<std::string>(json, "script"),
            .text = Member<std::string>(json, "text"),
            .type = Member<std::int16_t>(json, "type"),
            .created = Day(json),
            .enabled = Member<bool>(json, "enabled", true)};
}

SnapshotTable ReadTable(const Json& json) {
    SnapshotTable table{.name = Required(json, "name"),
                        .owner = Required(json, "owner"),
                        .script = Member<std::string>(json, "script"),
                        .created = Day(json),
                        .system = Member<bool>(json, "system"),
                        .columns = {},
                        .triggers = {}};
    for (const Json& column : List(json, "columns"))
        table.columns.push_back(ReadColumn(column));
    for (const Json& trigger : List(json, "triggers"))
        table.triggers.push_back(ReadTrigger(trigger));
    return table;
}

Snapshot ReadWhole(const Json& json) {
    if (Member<int>(json, "snapshot") != 1)
        Refuse("it is no catalogue snapshot of version 1");
    const Json& database = json.at("database");
    Snapshot snapshot{.server = Member<std::string>(json, "server"),
                      .database = Required(database, "name"),
                      .owner = Member<std::string>(database, "owner"),
                      .tables = {},
                      .procedures = {}};
    json.at("tables"); // the one list that may not be left out
    for (const Json& table : List(json, "tables"))
        snapshot.tables.push_back(ReadTable(table));
    for (const Json& procedure : List(json, "procedures"))
        snapshot.procedures.push_back({Required(procedure, "name"), Required(procedure, "owner")});
    return snapshot;
}

} // namespace

Snapshot ReadSnapshot(std::string_view text) {
    try {
        return ReadWhole(Json::parse(text));
    } catch (const Json::exception& error) {
        Refuse(error.what());
    }
}

} // namespace quillon::adapters
