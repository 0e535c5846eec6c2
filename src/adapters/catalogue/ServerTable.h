// A table on a server. Columns and triggers come from what its database loads in bulk at their first use.
#pragma once

#include <memory>
#include <optional>

#include "adapters/catalogue/NameIndex.h"
#include "adapters/catalogue/ServerTrigger.h"
#include "adapters/catalogue/TableFacts.h"

namespace quillon::adapters {

class ServerDatabase;

class ServerTable : public catalogue::Table {
  public:
    // The database owns the table.
    ServerTable(ServerDatabase& database, std::string owner, std::string name, DateValue created,
                bool isSystem);

    std::string Name() const override { return m_name; }
    std::string Owner() const override { return m_owner; }
    bool SystemObject() const override { return m_isSystem; }
    DateValue CreateDate() const override { return m_created; }
    const std::vector<catalogue::Column>& Columns() override;
    std::size_t TriggerCount() override;
    catalogue::Trigger& TriggerAt(std::size_t index) override;
    catalogue::Trigger& TriggerNamed(const std::string& qualifiedName) override;
    // A CREATE TABLE with all that belongs to the table, whatever the type asks for.
    std::string Script(std::int32_t scriptType) override;

    ServerDatabase& database() noexcept { return m_database; }

    // --- for the loaders ---
    std::vector<catalogue::Column> columns;
    TableFacts facts;
    // The column's position; none for an identifier that the table does not have.
    std::optional<std::size_t> PositionOf(std::int32_t columnId) const;
    ServerTrigger& AddTrigger(TriggerFacts trigger);
    void Forget(const ServerTrigger& trigger);
    void ForgetTriggers() { m_triggers.clear(); }

  private:
    ServerDatabase& m_database;
    std::string m_owner, m_name;
    DateValue m_created;
    bool m_isSystem;
    std::vector<std::unique_ptr<ServerTrigger>> m_triggers;
};

// The statement that makes the table again; `facts` are those of `columns`.
std::string CreateTableScript(const std::string& owner, const std::string& name,
                              const std::vector<catalogue::Column>& columns, const TableFacts& facts);

} // namespace quillon::adapters
