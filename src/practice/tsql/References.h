// What a statement asks of named things: which it reads, changes and calls, as its tree alone tells. Names
// stand as written, and may turn out to be no one's; common tables, aliases and variables are left out.
#pragma once

#include "practice/tsql/Tree.h"

#include <string_view>

namespace quillon::practice::tsql {

/// `right` is SELECT, INSERT, UPDATE, DELETE, EXECUTE or REFERENCES. The name belongs to the tree.
struct Reference {
    const Name* name = nullptr;
    std::string_view right;
};

/// Of the statement itself: neither of the statements within a block nor of a module's body.
std::vector<Reference> ReferencesOf(const Statement& statement);
std::vector<Reference> ReferencesOf(const Expression& expression);
std::vector<Reference> ReferencesOf(const Query& query);

} // namespace quillon::practice::tsql
