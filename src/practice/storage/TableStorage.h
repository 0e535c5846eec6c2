// How a table and its indexes lie in SQLite: table t<id> with columns c<column id>, index i<table>_<index>.
// Computed columns that are not stored have no column there. SQL Server's rule that a unique index holds at
// most one NULL is kept by a second index, named g<table>_<index>, over the keys with NULL made a value.
//
// SQLite reads its whole schema whenever a connection opens or a table is made, so a table comes into being
// there with its first row: until then it is hollow, and what follows does nothing for it.
#pragma once

#include "practice/storage/Catalogue.h"

struct sqlite3;

namespace quillon::practice {

// What stands in FROM to read the table: its name, or no rows at all.
std::string RowsOf(const Table& table);
void CreateTableStorage(sqlite3* connection, const Table& table); // with its indexes, save filtered ones
void DropTableStorage(sqlite3* connection, const Table& table);
void DropTables(sqlite3* connection, const Database& database);                       // all that it has
void AddColumnStorage(sqlite3* connection, const Table& table, const Column& column); // holds NULL
// `filter` is the condition in SQLite's language over the columns c<n>; empty for a whole index. A unique
// index over rows that are not unique throws StoreFailure with SQLITE_CONSTRAINT_UNIQUE.
void CreateIndexStorage(sqlite3* connection, const Table& table, const Index& index,
                        const std::string& filter = {});
void DropIndexStorage(sqlite3* connection, const Table& table, const Index& index);

// The table's name without its schema: t5; and the schema: main or temp.
std::string_view StorageName(const Table& table);
std::string_view StorageSchema(const Table& table);

// The rows of a table kept aside in memory; so that table variables outlive a rollback.
class KeptRows {
  public:
    KeptRows(sqlite3* connection, std::shared_ptr<const Table> table);
    ~KeptRows();
    KeptRows(KeptRows&&) noexcept;
    KeptRows& operator=(KeptRows&&) = delete;
    KeptRows(const KeptRows&) = delete;
    KeptRows& operator=(const KeptRows&) = delete;
    // Makes the table as it was, whether or not it is still there.
    void Restore() const;

  private:
    struct Values;
    sqlite3* m_connection;
    std::shared_ptr<const Table> m_table;
    std::unique_ptr<Values> m_values;
};

} // namespace quillon::practice
