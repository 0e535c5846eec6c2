#include "adapters/catalogue/ServerTree.h"

#include "adapters/catalogue/Questions.h"
#include "platform/Failure.h"
#include "platform/FailureNumbers.h"

namespace quillon::adapters {
namespace {

// master, tempdb, model and msdb have the first identifiers of every server.
constexpr std::int32_t LastSystemDatabase = 4;

} // namespace

void ServerTree::Connect(const std::string& server, const std::string& user, const std::string& password) {
    if (m_link)
        throw Failure(numbers::ObjectOpen);
    ConnectionParts parts;
    parts.server = server;
    parts.user = user;
    parts.password = password;
    parts.integrated = m_integrated;
    m_link = std::make_unique<CatalogueLink>(std::move(parts), *m_roundTrips);
    m_name = server;
}

void ServerTree::DisConnect() {
    m_hasDatabases = false;
    m_byName.Clear();
    m_databases.clear();
    m_link.reset();
}

void ServerTree::RequireDatabases() {
    if (!m_link)
        throw Failure(numbers::ObjectClosed);
    if (m_hasDatabases)
        return;
    m_databases.clear();
    m_link->Ask("", questions::Databases, {[this](AnswerRow& row) {
                    const std::string name = row.Text(), owner = row.Text();
                    m_databases.emplace_back(*m_link, name, owner, row.Number() <= LastSystemDatabase);
                }});
    for (ServerDatabase& database : m_databases)
        m_byName.Add(database.Name(), database);
    m_hasDatabases = true;
}

std::size_t ServerTree::DatabaseCount() {
    RequireDatabases();
    return m_databases.size();
}

catalogue::Database& ServerTree::DatabaseAt(std::size_t index) {
    if (index >= DatabaseCount())
        throw Failure(numbers::ItemNotFound);
    return m_databases[index];
}

catalogue::Database& ServerTree::DatabaseNamed(const std::string& name) {
    RequireDatabases();
    if (ServerDatabase* found = m_byName.Find(name))
        return *found;
    throw Failure(numbers::ItemNotFound, "The server has no database " + name);
}

quillon::JobServer& ServerTree::Jobs() {
    throw Failure(numbers::ActionNotSupported, "The jobs of a server are not part of this build");
}

} // namespace quillon::adapters
