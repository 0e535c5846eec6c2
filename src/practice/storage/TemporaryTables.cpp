#include "practice/storage/TemporaryTables.h"

#include "practice/storage/Catalogue.h"

namespace quillon::practice {

std::shared_ptr<const Table> TemporaryTables::Find(std::string_view name) const {
    const auto found = std::find_if(m_state.tables.rbegin(), m_state.tables.rend(), [&](const Entry& entry) {
        return !entry.table->variable && SameName(entry.table->name, name);
    });
    return found == m_state.tables.rend() ? nullptr : found->table;
}

std::shared_ptr<const Table> TemporaryTables::Find(ObjectId id) const {
    const auto found = std::find_if(m_state.tables.begin(), m_state.tables.end(),
                                    [&](const Entry& entry) { return entry.table->id == id; });
    return found == m_state.tables.end() ? nullptr : found->table;
}

void TemporaryTables::Put(std::shared_ptr<const Table> table, int scope) {
    ++m_version;
    for (Entry& entry : m_state.tables)
        if (entry.table->id == table->id) {
            entry.table = std::move(table);
            return;
        }
    m_state.tables.push_back({std::move(table), scope});
}

void TemporaryTables::Remove(ObjectId id) {
    ++m_version;
    std::erase_if(m_state.tables, [&](const Entry& entry) { return entry.table->id == id; });
}

std::vector<std::shared_ptr<const Table>> TemporaryTables::Beyond(int scope) const {
    std::vector<std::shared_ptr<const Table>> tables;
    for (const Entry& entry : m_state.tables)
        if (entry.scope > scope && !entry.table->variable)
            tables.push_back(entry.table);
    return tables;
}

std::shared_ptr<const Module> TemporaryTables::FindProcedure(std::string_view name) const {
    const auto found = m_state.procedures.find(FoldName(name));
    return found == m_state.procedures.end() ? nullptr : found->second;
}

std::shared_ptr<const Module> TemporaryTables::FindProcedure(ObjectId id) const {
    for (const auto& [name, procedure] : m_state.procedures)
        if (procedure->id == id)
            return procedure;
    return nullptr;
}

void TemporaryTables::PutProcedure(std::shared_ptr<const Module> procedure) {
    ++m_version;
    m_state.procedures[FoldName(procedure->name)] = std::move(procedure);
}

void TemporaryTables::RemoveProcedure(std::string_view name) {
    ++m_version;
    m_state.procedures.erase(FoldName(name));
}

void TemporaryTables::RemoveProcedures() {
    ++m_version;
    m_state.procedures.clear();
}

void TemporaryTables::Restore(const State& state) {
    ++m_version;
    State next;
    next.procedures = state.procedures;
    std::copy_if(state.tables.begin(), state.tables.end(), std::back_inserter(next.tables),
                 [](const Entry& entry) { return !entry.table->variable; });
    std::copy_if(m_state.tables.begin(), m_state.tables.end(), std::back_inserter(next.tables),
                 [](const Entry& entry) { return entry.table->variable; });
    m_state = std::move(next);
}

} // namespace quillon::practice
