#include "triggers/TriggerPlan.h"

#include <algorithm>

#include "execution/GoSplitter.h"
#include "model/AuditObj.h"
#include "shell/Session.h"
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

Existing FindTrigger(const std::string& name) {
    for (const auto& table : *g_objAudit->Database()->Tables())
        for (const auto& trigger : *table->Triggers())
            if (EqualFolded(trigger->Owner() + "." + trigger->Name(), name))
                return {table->Owner() + "." + table->Name(), trigger.get()};
    return {};
}

// The trigger that the batch makes: CREATE, ALTER or CREATE OR ALTER at its beginning.
bool Makes(std::string_view batch, PlannedTrigger& planned) {
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
    const Existing existing = FindTrigger(planned.name);
    if (existing.trigger == nullptr)
        planned.change = TriggerChange::Created;
    else
        planned.change = Trimmed(existing.trigger->Text()) == Trimmed(batch) ? TriggerChange::UpToDate
                                                                             : TriggerChange::Replaced;
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
    std::vector<PlannedTrigger> plan;
    std::vector<std::string> dropped;
    for (const std::string_view batch : SplitAtGo(script, [] {})) {
        PlannedTrigger planned;
        if (Makes(batch, planned))
            plan.push_back(std::move(planned));
        else
            std::ranges::move(Dropped(batch), std::back_inserter(dropped));
    }
    for (const std::string& name : dropped) {
        const Existing existing = FindTrigger(name);
        const bool isMadeAgain = std::ranges::any_of(
            plan, [&](const PlannedTrigger& made) { return EqualFolded(made.name, name); });
        if (existing.trigger != nullptr && !isMadeAgain)
            plan.push_back({existing.table, name, TriggerChange::Dropped});
    }
    return plan;
}

} // namespace quillon
