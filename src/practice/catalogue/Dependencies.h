// Which tables, views, procedures and functions a module names. The text is read word by word, so that
// modules whose objects are gone, and those not yet there, tell their names too.
#pragma once

#include "practice/values/NameRule.h"

#include <string>
#include <string_view>
#include <vector>

namespace quillon::practice {

struct NamedReference {
    std::string database, schema, name; // empty where they were not written
    bool isChanged = false;             // INSERT, UPDATE, DELETE, MERGE or TRUNCATE
};
// Each name once, in the order of the text; temporary tables and table variables are none. An unreadable text
// has none. `rule` tells which names are the same.
std::vector<NamedReference> NamedReferences(std::string_view definition, const NameRule& rule);

} // namespace quillon::practice
