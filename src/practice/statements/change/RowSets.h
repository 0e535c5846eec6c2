// Row sets: the rows that a statement removed and those that it made, as temporary tables with the columns of
// the table (c<n>), for triggers, OUTPUT and foreign keys. Row k of the one belongs to row k of the other
// where a statement updates. They are taken from a pool, so that a trigger finds them under the same name at
// every firing and its statements stay prepared.
#pragma once

#include "practice/storage/Definitions.h"
#include "practice/storage/Sqlite.h"

#include <map>
#include <memory>
#include <vector>

namespace quillon::practice {

class StoreSession;

class RowSet {
  public:
    RowSet(StoreSession& store, std::shared_ptr<const Table> definition);
    ~RowSet();
    RowSet(const RowSet&) = delete;
    RowSet& operator=(const RowSet&) = delete;

    // A table whose storage is this set's.
    const std::shared_ptr<const Table>& Definition() const { return m_definition; }
    // The insert of one row: ?1 its number, then its stored columns in order.
    Prepared& Insert() { return m_insert; }
    void Clear();
    void Drop(); // the table goes; of no use afterwards
    std::int64_t Count() const { return m_count; }
    void Counted() { ++m_count; }

  private:
    StoreSession& m_store;
    std::shared_ptr<const Table> m_definition;
    Prepared m_insert;
    Prepared m_clear;
    std::int64_t m_count = 0;
};

class RowSets {
  public:
    explicit RowSets(StoreSession& store)
        : m_store(store) {}

    // A set with the columns of `model` (a table, or a view's columns as a table), empty; back in the pool
    // when the last pointer to it goes. `role` tells inserted from deleted, so that each keeps its name.
    std::shared_ptr<RowSet> Take(const Table& model, char role);

  private:
    struct Key {
        ObjectId table;
        std::uint64_t version;
        char role;
        auto operator<=>(const Key&) const = default;
    };
    std::unique_ptr<RowSet> Make(const Table& model, char role);

    StoreSession& m_store;
    std::map<Key, std::vector<std::unique_ptr<RowSet>>> m_free;
};

} // namespace quillon::practice
