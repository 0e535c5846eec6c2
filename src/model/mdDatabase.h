// The selected database: who it is, and its tables.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "model/ModelObject.h"
#include "model/mdTables.h"

namespace quillon {

class mdDatabase : public ModelObject {
  public:
    // Tables that are selected for audit at this moment, counted anew; not those that carry triggers. Raises
    // 6 beyond a 16-bit number.
    std::int16_t AuditedTableCount();

    // Created on first read, never nothing.
    const std::shared_ptr<mdTables>& Tables();

    const std::string& Owner() const noexcept { return m_owner; }
    const std::string& Connection_String() const noexcept { return m_connectionString; }
    const std::string& Server() const noexcept { return m_server; }
    const std::string& User() const noexcept { return m_user; } // empty with integrated security
    const std::string& Name() const noexcept { return m_name; }

    // The first table, in collection order, that is the active one; without any, the first table; nothing
    // when there are no tables.
    std::shared_ptr<mdTable> ActiveTable();

    void SetTables(std::shared_ptr<mdTables> tables) {
        m_tables = std::move(tables);
        m_activeTable.reset();
    }
    void SetOwner(std::string owner) { m_owner = std::move(owner); }
    void SetConnection_String(std::string text) { m_connectionString = std::move(text); }
    void SetServer(std::string server) { m_server = std::move(server); }
    void SetUser(std::string user) { m_user = std::move(user); }
    void SetName(std::string name) { m_name = std::move(name); }
    // Makes this table the only active one. Raises 91 for nothing, after the others were set inactive.
    void SetActiveTable(const std::shared_ptr<mdTable>& table);

  private:
    bool KnowsActiveTable();
    void KeepActiveTable(std::shared_ptr<mdTable> table, bool isOnlyOne);

    std::string m_owner;
    std::string m_connectionString;
    std::string m_server;
    std::string m_user;
    std::string m_name;
    std::shared_ptr<mdTables> m_tables;

    // The last answer of ActiveTable and what it was found under. A template reads the active table again and
    // again, and a run sets one after the other; walking thousands of tables each time would cost more than
    // the generation itself.
    std::shared_ptr<mdTable> m_activeTable;
    bool m_isOnlyActiveTable = false; // it is known that no other table is active
    std::uint32_t m_activeTableChanges = 0;
    std::uint32_t m_tableChanges = 0;
};

} // namespace quillon
