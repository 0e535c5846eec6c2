// TableWriter: writes single rows of one table, with everything that concerns a row by itself: NULL, stored
// computed columns, CHECK constraints, rowversion, unique keys. What concerns several rows or tables (foreign
// keys, triggers) is RowChange's.
//
// A row has the values of all stored columns in the table's order (StoredColumns).
#pragma once

#include "practice/statements/change/StoredRow.h"
#include "practice/storage/Definitions.h"

#include <map>
#include <memory>
#include <optional>

namespace quillon::practice {

class Engine;

class TableWriter {
  public:
    TableWriter(Engine& engine, std::shared_ptr<const Table> table);

    const Table& Definition() const { return *m_table; }
    const std::shared_ptr<const Table>& Shared() const { return m_table; }
    const std::vector<const Column*>& StoredColumns() const { return m_columns; }
    // Place of a column in a row; -1 for one that is not stored.
    int PlaceOf(int columnId) const;

    // Fills in rowversion and stored computed columns, then refuses what must not be: 515, 547 (CHECK),
    // 513 (old rules).
    // `verb` is INSERT, UPDATE or MERGE. Without `checks` no CHECK constraint or rule is asked.
    void Complete(StoredRow& row, const char* verb, bool checks = true);
    // The next identity value in its place; 8115 when the type has no more. Returns it.
    std::int64_t GiveIdentity(StoredRow& row);

    // The identity value that the row was given, NULL for none.
    std::optional<std::int64_t> GivenIdentity(const StoredRow& row) const;

    // 2627 or 2601 for a duplicate key. Insert returns the row's id; nothing when the index passes over
    // duplicates (IGNORE_DUP_KEY).
    std::optional<std::int64_t> Insert(const StoredRow& row);
    void InsertAt(std::int64_t rowId, const StoredRow& row);
    void Delete(std::int64_t rowId);
    void Update(std::int64_t rowId, const StoredRow& row, const std::vector<int>& places);
    // False when the row is gone.
    bool Read(std::int64_t rowId, StoredRow& row);

    // db.schema.table, as messages name it; and schema.table.
    const std::string& FullName() const { return m_fullName; }
    const std::string& TwoPartName() const { return m_twoPartName; }
    std::string ValueText(const StoredRow& row, int place) const;

  private:
    struct Rule {
        const CheckConstraint* check = nullptr; // a condition; or
        const Column* ruled = nullptr;          // the column of an old rule's condition; or
        int place = -1;                         // the place of a computed column
    };
    void PrepareRules();
    StoredValue StoredOf(const Datum& value, const SqlType& type) const;
    void Refuse(const Rule& broken, const char* verb) const;
    [[noreturn]] void RefuseDuplicate(const Index& index, const StoredRow& row) const;
    const Index* ViolatedIndex(const std::string& sqliteText) const;
    bool Write(Prepared& statement, const StoredRow& row);

    Engine& m_engine;
    std::shared_ptr<const Table> m_table;
    std::string m_fullName;
    std::string m_twoPartName;
    std::string m_databaseName;
    std::vector<const Column*> m_columns;
    int m_identityPlace = -1;
    int m_rowVersionPlace = -1;
    bool m_rulesReady = false;
    std::vector<Rule> m_rules;
    Prepared m_ruleRow; // ?1.. the row; columns: the rules in order
    Prepared m_insert;
    Prepared m_insertAt;
    Prepared m_delete;
    Prepared m_read;
    std::map<std::vector<int>, Prepared> m_updates;
};

} // namespace quillon::practice
