#include "practice/storage/TemporaryTables.h"

#include "practice/storage/Catalogue.h"

namespace quillon::practice {

std::shared_ptr<const Table> TemporaryTables::Find(std::string_view name) const {
    const auto found = std::find_if(m_entries.rbegin(), m_entries.rend(), [&](const Entry& entry) {
        return !entry.table->variable && SameName(entry.table->name, name);
    });
    return found == m_entries.rend() ? nullptr : found->table;
}

std::shared_ptr<const Table> TemporaryTables::Find(ObjectId id) const {
    const auto found = std::find_if(m_entries.begin(), m_entries.end(),
                                    [&](const Entry& entry) { return entry.table->id == id; });
    return found == m_entries.end() ? nullptr : found->table;
}

void TemporaryTables::Put(std::shared_ptr<const Table> table, int scope) {
    ++m_version;
    for (Entry& entry : m_entries)
        if (entry.table->id == table->id) {
            entry.table = std::move(table);
            return;
        }
    m_entries.push_back({std::move(table), scope});
}

void TemporaryTables::Remove(ObjectId id) {
    ++m_version;
    std::erase_if(m_entries, [&](const Entry& entry) { return entry.table->id == id; });
}

std::vector<std::shared_ptr<const Table>> TemporaryTables::Beyond(int scope) const {
    std::vector<std::shared_ptr<const Table>> tables;
    for (const Entry& entry : m_entries)
        if (entry.scope > scope && !entry.table->variable)
            tables.push_back(entry.table);
    return tables;
}

void TemporaryTables::Restore(const State& state) {
    ++m_version;
    State next;
    std::copy_if(state.begin(), state.end(), std::back_inserter(next),
                 [](const Entry& entry) { return !entry.table->variable; });
    std::copy_if(m_entries.begin(), m_entries.end(), std::back_inserter(next),
                 [](const Entry& entry) { return entry.table->variable; });
    m_entries = std::move(next);
}

} // namespace quillon::practice
