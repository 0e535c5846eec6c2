// What a statement asks of named things: which it reads, changes and calls, as its tree alone tells. Names
// stand as written, and may turn out to be no one's; common tables, aliases and variables are left out.
#pragma once

#include "practice/tsql/Tree.h"

#include <functional>
#include <string_view>

namespace quillon::practice::tsql {

/// `right` is SELECT, INSERT, UPDATE, DELETE, EXECUTE or REFERENCES. The name belongs to the tree; that of a
/// type means nothing where there is no type of that name.
struct Reference {
    const Name* name = nullptr;
    std::string_view right;
    bool isType = false;
};

/// Whether two names are one: the same that binds aliases and common tables.
using SameNames = std::function<bool(std::string_view, std::string_view)>;

/// Of the statement itself: neither of the statements within a block nor of a module's body.
std::vector<Reference> ReferencesOf(const Statement& statement, const SameNames& same);
std::vector<Reference> ReferencesOf(const Expression& expression, const SameNames& same);
std::vector<Reference> ReferencesOf(const Query& query, const SameNames& same);

} // namespace quillon::practice::tsql
