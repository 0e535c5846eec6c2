// Tables whose rows depend on values of the rows they are joined with: the right side of APPLY, and functions
// of several statements. SQLite knows them as table-valued functions: each distinct one becomes an eponymous
// virtual table of the session's connection, v<n>(arguments), with columns o1, o2 ...
#pragma once

#include "practice/storage/Sqlite.h"

#include <deque>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <unordered_map>
#include <vector>

namespace quillon::practice {

class FunctionNodes;

// Makes the statement that yields the rows for the arguments given (still without its first step). The
// arguments are valid during the call alone. Called on each scan.
using LateralRows = std::function<Prepared(std::span<sqlite3_value* const> arguments)>;

struct LateralNode {
    std::size_t columns = 0;
    std::size_t arguments = 0;
    LateralRows rows;
    // Gets the statement back, reset, when the scan ends.
    std::function<void(Prepared rows)> release;
};

class LateralTables {
  public:
    // Failures of `rows` are kept in `failures`.
    LateralTables(sqlite3* connection, FunctionNodes& failures);

    // `v3(s1.c2, ?1)`: the table with its arguments. SQLite compares the arguments behind the sixteenth once
    // more, and no NULL is equal to another; where there are more, they travel in bundles.
    static std::string CallOf(const std::string& name, const std::vector<std::string>& arguments);

    // Statements that a node keeps between its scans. They must not be the node's own: SQLite lets go of
    // nodes only with the connection, which waits for its statements.
    std::vector<Prepared>& NewSpares() { return m_spares.emplace_back(); }

    // The SQLite name of the table for `key`; `make` is called when there is none yet.
    std::string Name(const std::string& key, const std::function<LateralNode()>& make);

  private:
    sqlite3* m_connection;
    FunctionNodes& m_failures;
    std::unordered_map<std::string, std::string> m_names;
    std::deque<std::vector<Prepared>> m_spares;
};

} // namespace quillon::practice
