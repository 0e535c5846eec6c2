#include "model/mdDatabase.h"

#include <limits>

#include "platform/Failure.h"
#include "platform/FailureNumbers.h"

namespace quillon {

std::int16_t mdDatabase::AuditedTableCount() {
    const auto count =
        std::ranges::count_if(*Tables(), [](const auto& table) { return table->IsSelectedForAudit(); });
    if (count > std::numeric_limits<std::int16_t>::max())
        throw Failure(numbers::Overflow);
    return static_cast<std::int16_t>(count);
}

const std::shared_ptr<mdTables>& mdDatabase::Tables() {
    if (!m_tables)
        m_tables = std::make_shared<mdTables>();
    return m_tables;
}

bool mdDatabase::KnowsActiveTable() {
    return m_activeTable && m_activeTableChanges == mdTable::ActiveTableChanges() &&
           m_tableChanges == Tables()->Changes();
}

void mdDatabase::KeepActiveTable(std::shared_ptr<mdTable> table, bool isOnlyOne) {
    m_activeTable = std::move(table);
    m_isOnlyActiveTable = isOnlyOne;
    m_activeTableChanges = mdTable::ActiveTableChanges();
    m_tableChanges = Tables()->Changes();
}

std::shared_ptr<mdTable> mdDatabase::ActiveTable() {
    if (!KnowsActiveTable()) {
        const mdTables& tables = *Tables();
        const auto active =
            std::ranges::find_if(tables, [](const auto& table) { return table->IsActiveTable(); });
        KeepActiveTable(active != tables.end() ? *active : tables.Item(1), false);
    }
    return m_activeTable;
}

void mdDatabase::SetActiveTable(const std::shared_ptr<mdTable>& table) {
    if (KnowsActiveTable() && m_isOnlyActiveTable)
        m_activeTable->SetIsActiveTable(false);
    else
        for (const auto& other : *Tables())
            other->SetIsActiveTable(false);
    if (!table)
        throw Failure(numbers::ObjectNotSet);
    table->SetIsActiveTable(true);
    if (Tables()->Holds(*table))
        KeepActiveTable(table, true);
}

} // namespace quillon
