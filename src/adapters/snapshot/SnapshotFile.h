// The catalogue of one database as a JSON file: tables, columns, keys, triggers with their texts, procedures.
//
// Such a file stands in for a server (SnapshotLibrary.h), so that a template runs without one: in a pipeline,
// in a test, at another desk. The form, version 1:
//
//   { "snapshot": 1, "server": "...", "database": { "name": "...", "owner": "..." },
//     "tables": [ { "name", "owner", "system", "created", "script",
//                   "columns": [ { "name", "type", "length", "precision", "scale", "nullable", "identity",
//                                  "primaryKey", "rowGuid", "default", "declaredDefault", "keys": [...] } ],
//                   "triggers": [ { "name", "owner", "type", "created", "enabled", "script", "text" } ] } ],
//     "procedures": [ { "name", "owner" } ] }
//
// Dates are "yyyy-mm-dd"; what is false, zero or empty may be left out. Unknown members are passed over.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/Catalogue.h"

namespace quillon::adapters {

struct SnapshotTrigger {
    std::string name, owner, script, text;
    std::int16_t type = 0;
    DateValue created;
    bool enabled = true;
};

struct SnapshotTable {
    std::string name, owner, script;
    DateValue created;
    bool system = false;
    std::vector<catalogue::Column> columns;
    std::vector<SnapshotTrigger> triggers;
};

struct SnapshotProcedure {
    std::string name, owner;
};

struct Snapshot {
    std::string server, database, owner;
    std::vector<SnapshotTable> tables;
    std::vector<SnapshotProcedure> procedures;
};

// Raises 5 with the place and reason for a text that is no snapshot, or one of another version.
Snapshot ReadSnapshot(std::string_view json);
std::string WriteSnapshot(const Snapshot& snapshot);

// Takes the snapshot of a database from any catalogue. `procedures` are the names to ask for; those that do
// not exist are left out. Failures of the catalogue leave as they are.
Snapshot TakeSnapshot(catalogue::Database& database, const std::string& server,
                      const std::vector<std::string>& procedures);

} // namespace quillon::adapters
