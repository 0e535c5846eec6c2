// System views as the binder sees them: a name, typed columns, and a SELECT for SQLite over the definition
// tables that yields them in storage form. The catalogue room holds the table of them.
#pragma once

#include "practice/values/NameRule.h"
#include "practice/values/SqlType.h"

#include <string>
#include <string_view>
#include <vector>

namespace quillon::practice {

struct SystemColumn {
    std::string_view name;
    SqlType type;
    bool nullable = true;
    bool isName = false; // of something in the database: compares by the database's collation
};

struct SystemView {
    std::string_view schema; // sys, INFORMATION_SCHEMA; the older ones (sysobjects) are found in dbo and sys
    std::string_view name;
    std::vector<SystemColumn> columns;
    // SELECT in SQLite's language, values in storage form (StorageForm.h). Every {db} becomes the number of
    // the database that is looked at, {collation} the name of its collation as a text, {order} what SQLite
    // calls that, and every {session} the number of the session.
    std::string_view select;
};

class SystemViews {
  public:
    virtual ~SystemViews() = default;
    // nullptr when there is none. `schema` is empty when none was written; `rule` is that of the database.
    virtual const SystemView* Find(std::string_view schema, std::string_view name,
                                   const NameRule& rule) const = 0;
};

} // namespace quillon::practice
