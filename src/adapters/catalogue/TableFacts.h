// What the catalogue knows of a table beyond the tree's declarations, as its script needs it.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace quillon::adapters {

struct TypeFacts {
    std::string name, schema;
    bool isUserDefined = false;
};

// One for each catalogue::Column, in the same order.
struct ColumnFacts {
    std::int32_t id = 0;
    bool isComputed = false;
    bool isUserType = false;
    std::string typeSchema;      // of a user-defined type
    std::string collation;       // empty for types without one
    std::string defaultName;     // of the declared default
    std::string seed, increment; // of an identity column
    std::string computation;     // of a computed column
    bool isPersisted = false;
};

struct KeyFacts {
    std::int32_t id = 0;
    std::string name;
    bool isPrimary = false;
    bool isClustered = false;
    std::vector<std::string> columns; // each as it stands in the declaration: "[a] DESC"
};

struct ForeignKeyFacts {
    std::int32_t id = 0;
    std::string name;
    std::vector<std::string> columns, referencedColumns;
    std::string referencedTable;             // quoted
    std::int32_t onDelete = 0, onUpdate = 0; // 0 no action, 1 cascade, 2 set null, 3 set default
    bool isDisabled = false;
};

struct CheckFacts {
    std::string name, condition;
    bool isDisabled = false;
};

struct TableFacts {
    std::vector<ColumnFacts> columns;
    std::vector<KeyFacts> keys;
    std::vector<ForeignKeyFacts> foreignKeys;
    std::vector<CheckFacts> checks;
};

} // namespace quillon::adapters
