// The temporary tables of one session: #tables with the scope (batch or procedure call) that owns each, and
// table variables. Their rows lie in the connection's TEMP schema, so they go away with it.
#pragma once

#include "practice/storage/Definitions.h"

#include <memory>
#include <vector>

namespace quillon::practice {

// #t is the session's own; ##t is an ordinary table of tempdb that goes with the session that made it.
inline bool IsPrivateName(std::string_view name) {
    return name.starts_with("#") && !name.starts_with("##");
}
inline bool IsSharedTemporaryName(std::string_view name) {
    return name.starts_with("##");
}

class TemporaryTables {
  public:
    struct Entry {
        std::shared_ptr<const Table> table;
        int scope = 0; // nest level of the procedure call that made it; 0 is the session itself
    };
    using State = std::vector<Entry>;

    // By name with its #; the one of the innermost scope when several bear it. nullptr when there is none.
    std::shared_ptr<const Table> Find(std::string_view name) const;
    std::shared_ptr<const Table> Find(ObjectId id) const;
    void Put(std::shared_ptr<const Table> table, int scope); // a new one, or in place of the one with its id
    void Remove(ObjectId id);
    // The tables that scopes deeper than `scope` have made: to be dropped when the call returns.
    std::vector<std::shared_ptr<const Table>> Beyond(int scope) const;

    const State& All() const { return m_entries; }
    // As after a rollback: what `state` holds, save that table variables are as they are now.
    void Restore(const State& state);
    std::uint64_t Version() const { return m_version; } // changes with every change

  private:
    State m_entries;
    std::uint64_t m_version = 1;
};

} // namespace quillon::practice
