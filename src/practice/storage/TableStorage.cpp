#include "practice/storage/TableStorage.h"

#include "practice/storage/Sqlite.h"
#include "practice/values/StorageForm.h"

#include <sqlite3.h>

namespace quillon::practice {

namespace {

std::string IndexName(const char* prefix, const Table& table, const Index& index) {
    return prefix + std::to_string(table.id) + "_" + std::to_string(index.id);
}

std::string IndexSql(const Table& table, const std::string& name, bool unique, const std::string& keys,
                     const std::string& filter) {
    std::string sql = unique ? "CREATE UNIQUE INDEX " : "CREATE INDEX ";
    sql.append(StorageSchema(table)).append(".").append(name).append(" ON ");
    sql.append(StorageName(table)).append("(").append(keys).append(")");
    return filter.empty() ? sql : sql + " WHERE " + filter;
}

// The collation is written out: the column may have been altered since its storage was made.
std::string PlainKeys(const Table& table, const Index& index) {
    std::string keys;
    for (const IndexKey& key : index.keys) {
        const std::string collation = SqliteCollation(table.FindColumn(key.columnId)->type);
        keys += keys.empty() ? "" : ", ";
        keys += ColumnStorage(key.columnId) + (collation.empty() ? "" : " COLLATE " + collation) +
                (key.descending ? " DESC" : "");
    }
    return keys;
}

// NULL becomes a value of a class that the column never holds.
std::string GuardedKeys(const Table& table, const Index& index) {
    std::string keys;
    for (const IndexKey& key : index.keys) {
        const SqlType& type = table.FindColumn(key.columnId)->type;
        const bool blob = StorageClassOf(type) == StorageClass::Blob;
        const std::string collation = SqliteCollation(type);
        keys += keys.empty() ? "" : ", ";
        keys += "ifnull(" + ColumnStorage(key.columnId) + (blob ? ", 'NULL')" : ", x'00')");
        keys += collation.empty() ? "" : " COLLATE " + collation;
    }
    return keys;
}

bool HasNullableKey(const Table& table, const Index& index) {
    return std::any_of(index.keys.begin(), index.keys.end(),
                       [&](const IndexKey& key) { return table.FindColumn(key.columnId)->nullable; });
}

} // namespace

std::string_view StorageName(const Table& table) {
    return std::string_view(table.storage).substr(table.storage.find('.') + 1);
}

std::string_view StorageSchema(const Table& table) {
    return std::string_view(table.storage).substr(0, table.storage.find('.'));
}

std::string RowsOf(const Table& table) {
    if (!table.hollow)
        return table.storage;
    std::string columns = "NULL AS rowid";
    for (const Column& column : table.columns)
        if (column.stored)
            columns += ", NULL AS " + ColumnStorage(column.id);
    return "(SELECT " + columns + " WHERE 0)";
}

void CreateTableStorage(sqlite3* connection, const Table& table) {
    if (table.hollow)
        return;
    std::string columns;
    for (const Column& column : table.columns)
        if (column.stored)
            columns += (columns.empty() ? "" : ", ") + ColumnStorage(column.id) + " " +
                       SqliteColumnType(column.type);
    // SQLite wants at least one column; a table of computed ones alone has none of its own.
    if (columns.empty())
        columns = "c0";
    Prepared(connection, "CREATE TABLE " + table.storage + "(" + columns + ")").Run();
    for (const Index& index : table.indexes)
        if (index.filter.empty() && !index.disabled)
            CreateIndexStorage(connection, table, index);
}

void DropTableStorage(sqlite3* connection, const Table& table) {
    if (!table.hollow)
        Prepared(connection, "DROP TABLE IF EXISTS " + table.storage).Run();
}

void DropTables(sqlite3* connection, const Database& database) {
    for (const auto& [id, object] : database.objects)
        if (const auto table = std::dynamic_pointer_cast<const Table>(object);
            table && table->kind == ObjectKind::Table)
            DropTableStorage(connection, *table);
}

void AddColumnStorage(sqlite3* connection, const Table& table, const Column& column) {
    if (!table.hollow)
        Prepared(connection, "ALTER TABLE " + table.storage + " ADD COLUMN " + ColumnStorage(column.id) +
                                 " " + SqliteColumnType(column.type))
            .Run();
}

void CreateIndexStorage(sqlite3* connection, const Table& table, const Index& index,
                        const std::string& filter) {
    if (table.hollow)
        return;
    const bool guarded = index.unique && HasNullableKey(table, index);
    Prepared(connection, IndexSql(table, IndexName("i", table, index), index.unique && !guarded,
                                  PlainKeys(table, index), filter))
        .Run();
    if (guarded)
        Prepared(connection,
                 IndexSql(table, IndexName("g", table, index), true, GuardedKeys(table, index), filter))
            .Run();
}

void DropIndexStorage(sqlite3* connection, const Table& table, const Index& index) {
    if (table.hollow)
        return;
    for (const char* prefix : {"i", "g"})
        Prepared(connection, "DROP INDEX IF EXISTS " + std::string(StorageSchema(table)) + "." +
                                 IndexName(prefix, table, index))
            .Run();
}

struct KeptRows::Values {
    struct Free {
        void operator()(sqlite3_value* value) const { sqlite3_value_free(value); }
    };
    std::vector<std::vector<std::unique_ptr<sqlite3_value, Free>>> rows;
    int columns = 0;
};

KeptRows::KeptRows(sqlite3* connection, std::shared_ptr<const Table> table)
    : m_connection(connection)
    , m_table(std::move(table))
    , m_values(std::make_unique<Values>()) {
    Prepared all(connection, "SELECT rowid, * FROM " + m_table->storage + " ORDER BY rowid");
    m_values->columns = all.ColumnCount();
    while (all.Step()) {
        auto& row = m_values->rows.emplace_back();
        for (int i = 0; i < m_values->columns; ++i)
            row.emplace_back(sqlite3_value_dup(all.Value(i)));
    }
}

KeptRows::~KeptRows() = default;
KeptRows::KeptRows(KeptRows&&) noexcept = default;

void KeptRows::Restore() const {
    DropTableStorage(m_connection, *m_table);
    CreateTableStorage(m_connection, *m_table);
    std::string columns = "rowid";
    std::string places = "?1";
    for (const Column& column : m_table->columns)
        if (column.stored)
            columns += ", " + ColumnStorage(column.id);
    for (int i = 2; i <= m_values->columns; ++i)
        places += ", ?" + std::to_string(i);
    Prepared insert(m_connection,
                    "INSERT INTO " + m_table->storage + "(" + columns + ") VALUES(" + places + ")");
    for (const auto& row : m_values->rows) {
        for (int i = 0; i < m_values->columns; ++i)
            insert.BindValue(i + 1, row[static_cast<std::size_t>(i)].get());
        insert.Run();
    }
}

} // namespace quillon::practice
