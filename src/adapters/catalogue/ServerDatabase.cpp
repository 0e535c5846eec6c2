#include "adapters/catalogue/ServerDatabase.h"

#include "adapters/catalogue/Questions.h"
#include "platform/Failure.h"
#include "platform/FailureNumbers.h"

namespace quillon::adapters {

ServerDatabase::ServerDatabase(CatalogueLink& link, std::string name, std::string owner, bool isSystem)
    : m_link(link)
    , m_name(std::move(name))
    , m_owner(std::move(owner))
    , m_isSystem(isSystem) {}

std::size_t ServerDatabase::TableCount() {
    RequireTables();
    return m_tables.size();
}

catalogue::Table& ServerDatabase::TableAt(std::size_t index) {
    RequireColumns();
    RequireTriggers();
    if (index >= m_tables.size())
        throw Failure(numbers::ItemNotFound);
    return m_tables[index];
}

catalogue::Table& ServerDatabase::TableNamed(const std::string& qualifiedName) {
    RequireTables();
    if (ServerTable* found = m_byName.Find(qualifiedName))
        return *found;
    throw Failure(numbers::ItemNotFound, "The database " + m_name + " has no table " + qualifiedName);
}

std::string ServerDatabase::ProcedureOwner(const std::string& name) {
    std::optional<std::string> owner;
    Ask(questions::ProcedureOwner(name), {[&](AnswerRow& row) {
            if (!owner)
                owner = row.Text();
        }});
    if (!owner)
        throw Failure(numbers::ItemNotFound, "The database " + m_name + " has no procedure " + name);
    return *owner;
}

void ServerDatabase::Refresh() {
    Forget();
    RequireTriggers();
}

void ServerDatabase::Forget() {
    m_hasTables = m_hasColumns = m_hasTriggers = m_hasScriptFacts = false;
    m_byName.Clear();
    m_byId.clear();
    m_tables.clear();
}

ServerTable* ServerDatabase::TableOf(std::int32_t objectId) const {
    const auto found = m_byId.find(objectId);
    return found == m_byId.end() ? nullptr : found->second;
}

// What cannot be loaded whole counts as not loaded: the next use asks again.
void ServerDatabase::RequireTables() {
    if (m_hasTables)
        return;
    Forget();
    Ask(questions::Tables, {[this](AnswerRow& row) {
            const std::int32_t id = row.Number();
            const std::string owner = row.Text(), name = row.Text();
            const DateValue created = row.Date();
            m_byId.emplace(id, &m_tables.emplace_back(*this, owner, name, created, row.Flag()));
        }});
    for (ServerTable& table : m_tables)
        m_byName.Add(table.Owner() + "." + table.Name(), table);
    for (ServerTable& table : m_tables)
        m_byName.Add(table.Name(), table);
    m_hasTables = true;
}

void ServerDatabase::RequireColumns() {
    RequireTables();
    if (!m_hasColumns)
        LoadColumns();
    m_hasColumns = true;
}

void ServerDatabase::RequireTriggers() {
    RequireTables();
    if (!m_hasTriggers)
        LoadTriggers();
    m_hasTriggers = true;
}

void ServerDatabase::RequireScriptFacts() {
    RequireColumns();
    if (!m_hasScriptFacts)
        LoadScriptFacts();
    m_hasScriptFacts = true;
}

} // namespace quillon::adapters
