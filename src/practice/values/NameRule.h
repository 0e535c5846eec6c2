// NameRule: when two names name the same thing. The names of what a database holds compare by the database's
// collation; the server's own rule, by which it knows databases, logins, variables, cursors and temporary
// tables, is that of the default collation. So each Database has a rule, the objects in it carry it, and
// queries look names up by the rule of the place where they were made.
#pragma once

#include "practice/values/Collation.h"

namespace quillon::practice {

class NameRule {
  public:
    // The server's own.
    NameRule() = default;
    // nullptr: the server's own.
    explicit NameRule(const Collation* collation)
        : m_collation(collation != nullptr ? collation : DefaultCollation()) {}

    bool Same(std::string_view left, std::string_view right) const;
    // A name as a key of maps: equal for two names if and only if they are the same.
    std::string Key(std::string_view name) const;
    // Whether the text of an expression holds the name as a word; what it means there is not looked at.
    bool IsMentioned(std::string_view name, std::string_view text) const;

  private:
    const Collation* m_collation = DefaultCollation();
};

// By the server's own rule.
std::string FoldName(std::string_view name);
bool SameName(std::string_view left, std::string_view right);

} // namespace quillon::practice
