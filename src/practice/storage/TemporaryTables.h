// The temporary objects of one session: #tables with the scope (batch or procedure call) that owns each,
// table variables, and #procedures. Rows lie in the connection's TEMP schema, so they go away with it.
#pragma once

#include "practice/storage/Definitions.h"

#include <map>
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
    struct State {
        std::vector<Entry> tables;
        std::map<std::string, std::shared_ptr<const Module>> procedures; // by folded name
    };

    // By name with its #; the one of the innermost scope when several bear it. nullptr when there is none.
    std::shared_ptr<const Table> Find(std::string_view name) const;
    std::shared_ptr<const Table> Find(ObjectId id) const;
    void Put(std::shared_ptr<const Table> table, int scope); // a new one, or in place of the one with its id
    void Remove(ObjectId id);

    // Procedures are the session's, whatever scope has made them.
    std::shared_ptr<const Module> FindProcedure(std::string_view name) const;
    std::shared_ptr<const Module> FindProcedure(ObjectId id) const;
    void PutProcedure(std::shared_ptr<const Module> procedure); // in place of the one of that name
    void RemoveProcedure(std::string_view name);
    void RemoveProcedures();

    // The tables that scopes deeper than `scope` have made: to be dropped when the call returns.
    std::vector<std::shared_ptr<const Table>> Beyond(int scope) const;

    const State& All() const { return m_state; }
    // As after a rollback: what `state` holds, save that table variables are as they are now.
    void Restore(const State& state);
    std::uint64_t Version() const { return m_version; } // changes with every change

  private:
    State m_state;
    std::uint64_t m_version = 1;
};

} // namespace quillon::practice
