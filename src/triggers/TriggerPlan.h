// What a generated script would change: its triggers beside those that the database has.
//
// Used by: the dry run at the command line. The script is read, never run: a trigger counts as made where a
// batch begins with CREATE or ALTER TRIGGER, and as dropped where the words DROP TRIGGER and its name stand
// outside comments and quoted text. What a script builds at run time is not seen.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quillon {

enum class TriggerChange { Created, Replaced, UpToDate, Dropped };

// "create", "replace", "up to date", "drop".
const char* NameOf(TriggerChange change);

struct PlannedTrigger {
    std::string table; // "owner.name"
    std::string name;  // "owner.name"
    TriggerChange change = TriggerChange::Created;
};

// In the script's order. Compares with the triggers of g_objAudit, whose texts come from the catalogue; its
// failures leave as they are. A name without an owner belongs to dbo.
std::vector<PlannedTrigger> PlanTriggers(std::string_view script);

} // namespace quillon
