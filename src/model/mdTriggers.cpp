#include "model/mdTriggers.h"

#include "model/ServerObjects.h"
#include "platform/Conversion.h"

namespace quillon {

mdTriggers::Element mdTriggers::Add(InternedText name, InternedText owner, std::int16_t type,
                                    DateValue createDate, bool enabled, InternedText parentName,
                                    InternedText parentOwner) {
    auto trigger = std::make_shared<mdTrigger>();
    trigger->SetName(std::move(name));
    trigger->SetOwner(std::move(owner));
    trigger->SetTypeOfTrigger(type);
    trigger->SetCreateDate(createDate);
    // Before the parent names: a trigger that knows its table writes through to the server.
    trigger->SetEnabled(enabled);
    trigger->SetParentName(std::move(parentName));
    trigger->SetParentOwner(std::move(parentOwner));
    Append(trigger, QualifiedName(trigger->Owner(), trigger->Name()));
    return trigger;
}

void mdTriggers::Remove(const Value& indexKey, bool memoryOnly) {
    const Element removed = TakeOut(indexKey);
    if (memoryOnly)
        return;
    catalogue::Table& table = TableOnServer(removed->ParentOwner(), removed->ParentName());
    if (const auto* key = indexKey.If<std::string>())
        table.TriggerNamed(*key).Remove();
    else
        table.TriggerAt(static_cast<std::size_t>(conversion::ToLong(indexKey)) - 1).Remove();
}

} // namespace quillon
