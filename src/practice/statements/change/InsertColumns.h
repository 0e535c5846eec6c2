// The columns that an INSERT (or MERGE's) gives values to, and how the other columns get theirs.
#pragma once

#include "practice/statements/change/Targets.h"

namespace quillon::practice {

struct InsertColumns {
    std::shared_ptr<const Table> table; // or the model of a view under INSTEAD OF
    std::vector<const Column*> columns; // in the order in which values are given
    bool explicitIdentity = false;
    bool instead = false; // a trigger takes over: nothing is refused
    std::string fullName; // for messages

    // The SQL of a value given to a column; nullptr for the word DEFAULT.
    std::string Given(Translator& translator, const Column& column, const tsql::Expression* value,
                      const Scope* scope = nullptr) const;
    // One SQL a stored column: what is given, or the default.
    std::vector<std::string> Complete(Translator& translator, const std::map<int, std::string>& given) const;
    // 271, 273
    void RequireWritable(const Column& column) const;
};

// Gives the row its identity, or has the counter follow the one it brings; tells the session.
void GiveIdentity(Engine& engine, const InsertColumns& target, TableWriter& writer, StoredRow& row);

InsertColumns BindInsert(Translator& translator, const tsql::InsertStatement& statement);
// For a table that is known: the columns named, or all that can be given. 207, 264, 544, 545, 8101. A bulk
// load may bring identity values without being allowed to.
InsertColumns BindColumns(Engine& engine, std::shared_ptr<const Table> table,
                          const std::vector<tsql::Name>& names, bool hasNames, std::size_t valueCount,
                          bool instead, bool bulk = false);

} // namespace quillon::practice
