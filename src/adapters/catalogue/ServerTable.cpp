#include "adapters/catalogue/ServerTable.h"

#include "adapters/catalogue/ServerDatabase.h"
#include "platform/Failure.h"
#include "platform/FailureNumbers.h"

namespace quillon::adapters {

ServerTable::ServerTable(ServerDatabase& database, std::string owner, std::string name, DateValue created,
                         bool isSystem)
    : m_database(database)
    , m_owner(std::move(owner))
    , m_name(std::move(name))
    , m_created(created)
    , m_isSystem(isSystem) {}

const std::vector<catalogue::Column>& ServerTable::Columns() {
    m_database.RequireColumns();
    return columns;
}

std::size_t ServerTable::TriggerCount() {
    m_database.RequireTriggers();
    return m_triggers.size();
}

catalogue::Trigger& ServerTable::TriggerAt(std::size_t index) {
    if (index >= TriggerCount())
        throw Failure(numbers::ItemNotFound);
    return *m_triggers[index];
}

catalogue::Trigger& ServerTable::TriggerNamed(const std::string& qualifiedName) {
    m_database.RequireTriggers();
    NameIndex<ServerTrigger> names; // a table has few triggers, and some are removed
    for (const auto& trigger : m_triggers)
        names.Add(trigger->Owner() + "." + trigger->Name(), *trigger);
    if (ServerTrigger* found = names.Find(qualifiedName))
        return *found;
    throw Failure(numbers::ItemNotFound,
                  "The table " + m_owner + "." + m_name + " has no trigger " + qualifiedName);
}

std::string ServerTable::Script(std::int32_t /*scriptType*/) {
    m_database.RequireScriptFacts();
    return CreateTableScript(m_owner, m_name, columns, facts);
}

std::optional<std::size_t> ServerTable::PositionOf(std::int32_t columnId) const {
    // Ordered by identifier, which has gaps where columns were dropped.
    const auto found = std::ranges::lower_bound(facts.columns, columnId, {}, &ColumnFacts::id);
    if (found == facts.columns.end() || found->id != columnId)
        return std::nullopt;
    return static_cast<std::size_t>(found - facts.columns.begin());
}

ServerTrigger& ServerTable::AddTrigger(TriggerFacts trigger) {
    return *m_triggers.emplace_back(std::make_unique<ServerTrigger>(*this, std::move(trigger)));
}

void ServerTable::Forget(const ServerTrigger& trigger) {
    std::erase_if(m_triggers, [&](const auto& each) { return each.get() == &trigger; });
}

} // namespace quillon::adapters
