#include "triggers/TriggerPlan.h"

#include <algorithm>
#include <unordered_map>
#include <unordered_set>

#include "execution/GoSplitter.h"
#include "model/AuditObj.h"
#include "model/ServerObjects.h"
#include "template/TextCase.h"
#include "triggers/SqlWords.h"

namespace quillon {
namespace {

struct Existing {
    std::string table;
    mdTrigger* trigger = nullptr;
};

std::string_view Trimmed(std::string_view text) {
    constexpr const char* blanks = " \t\r\n";
    const auto begin = text.find_first_not_of(blanks);
    return begin == std::string_view::npos ? std::string_view()
                                           : text.substr(begin, text.find_last_not_of(blanks) - begin + 1);
}

// Names are told apart without regard to case.
struct Folded {
    std::size_t operator()(const std::string& name) const { return FoldedHash(name); }
    bool operator()(const std::string& left, const std::string& right) const {
        return EqualFolded(left, right);
    }
};
using NameSet = std::unordered_set<std::string, Folded, Folded>;
using ExistingTriggers = std::unordered_map<std::string, Existing, Folded, Folded>; // by "owner.name"

ExistingTriggers TriggersOfModel() {
    ExistingTriggers triggers;
    for (const auto& table : *TheModel().Database()->Tables())
        for (const auto& trigger : *table->Triggers())
            triggers.emplace(QualifiedName(trigger->Owner(), trigger->Name()),
                             Existing{QualifiedName(table->Owner(), table->Name()), trigger.get()});
    return triggers;
}

TriggerChange ChangeTo(std::string_view batch, const std::string& name, const ExistingTriggers& triggers) {
    const auto existing = triggers.find(name);
    if (existing == triggers.end())
        return TriggerChange::Created;
    return Trimmed(existing->second.trigger->Text()) == Trimmed(batch) ? TriggerChange::UpToDate
                                                                       : TriggerChange::Replaced;
}

// The trigger that the batch makes: CREATE, ALTER or CREATE OR ALTER at its beginning.
bool Makes(std::string_view batch, const ExistingTriggers& triggers, PlannedTrigger& planned) {
    SqlWords words(batch);
    std::string word;
    if (!words.Take(word) || !(EqualFolded(word, "create") || EqualFolded(word, "alter")))
        return false;
    while (words.Take(word) && (EqualFolded(word, "or") || EqualFolded(word, "alter")))
        ;
    if (!EqualFolded(word, "trigger"))
        return false;
    planned.name = words.TakeName();
    if (!words.Take(word) || !EqualFolded(word, "on"))
        return false;
    planned.table = words.TakeName();
    planned.change = ChangeTo(batch, planned.name, triggers);
    return true;
}

std::vector<std::string> Dropped(std::string_view batch) {
    std::vector<std::string> names;
    SqlWords words(batch);
    std::string former, word;
    while (words.Take(word)) {
        if (EqualFolded(former, "drop") && EqualFolded(word, "trigger"))
            names.push_back(words.TakeName());
        former = word;
    }
    return names;
}

} // namespace

const char* NameOf(TriggerChange change) {
    switch (change) {
    case TriggerChange::Created: return "create";
    case TriggerChange::Replaced: return "replace";
    case TriggerChange::UpToDate: return "up to date";
    default: return "drop";
    }
}

std::vector<PlannedTrigger> PlanTriggers(std::string_view script) {
    const ExistingTriggers triggers = TriggersOfModel();
    std::vector<PlannedTrigger> plan;
    std::vector<std::string> dropped;
    NameSet made;
    for (const std::string_view batch : SplitAtGo(script, [] {})) {
        PlannedTrigger planned;
        if (Makes(batch, triggers, planned)) {
            made.insert(planned.name);
            plan.push_back(std::move(planned));
        } else {
            std::ranges::move(Dropped(batch), std::back_inserter(dropped));
        }
    }
    for (const std::string& name : dropped)
        if (const auto existing = triggers.find(name); existing != triggers.end() && made.insert(name).second)
            plan.push_back({existing->second.table, name, TriggerChange::Dropped});
    return plan;
}

} // namespace quillon
