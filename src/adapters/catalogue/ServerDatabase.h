// A database of a server. What its tables hold is loaded on demand, for all tables at once: one round trip
// for the tables, one for columns and keys, one for triggers with their texts, one for what scripts need
// besides.
#pragma once

#include <deque>
#include <memory>
#include <optional>
#include <unordered_map>

#include "adapters/catalogue/CatalogueLink.h"
#include "adapters/catalogue/ServerTable.h"

namespace quillon::adapters {

class ServerDatabase : public catalogue::Database {
  public:
    // The link must outlive the database.
    ServerDatabase(CatalogueLink& link, std::string name, std::string owner, bool isSystem);

    std::string Name() const override { return m_name; }
    std::string Owner() const override { return m_owner; }
    bool SystemObject() const override { return m_isSystem; }
    std::size_t TableCount() override;
    catalogue::Table& TableAt(std::size_t index) override;
    catalogue::Table& TableNamed(const std::string& qualifiedName) override;
    std::string ProcedureOwner(const std::string& name) override;
    void Refresh() override;

    // --- for its tables and triggers ---
    void RequireColumns();
    void RequireTriggers();
    void RequireScriptFacts();
    void Run(const std::string& sql) { m_link.Run(m_name, sql); }

  private:
    void Forget();
    void RequireTables();
    void LoadColumns();
    void LoadTriggers();
    void LoadScriptFacts();
    void Ask(const std::string& sql, const std::vector<CatalogueLink::Reader>& readers) {
        m_link.Ask(m_name, sql, readers);
    }
    // None for an object that is no table of ours: made after the tables were loaded, or not to be seen.
    ServerTable* TableOf(std::int32_t objectId) const;

    // Readers of the questions' rows, in Loading.cpp.
    struct ColumnPlace {
        catalogue::Column& column;
        ColumnFacts& facts;
    };
    // The column of the table and the column identifier that come next in the row; none if it is not ours.
    std::optional<ColumnPlace> PlaceOf(AnswerRow& row) const;
    void ReadColumn(AnswerRow& row, const std::unordered_map<std::int32_t, TypeFacts>& types);
    void ReadDeclaredDefault(AnswerRow& row);
    void ReadBoundDefault(AnswerRow& row);
    void ReadKeyColumn(AnswerRow& row);
    void ReadForeignKeyColumn(AnswerRow& row);
    void ReadIdentity(AnswerRow& row);
    void ReadComputation(AnswerRow& row);
    void ReadCollation(AnswerRow& row);
    void ReadCheck(AnswerRow& row);

    CatalogueLink& m_link;
    std::string m_name, m_owner;
    bool m_isSystem;
    bool m_hasTables = false, m_hasColumns = false, m_hasTriggers = false, m_hasScriptFacts = false;
    std::deque<ServerTable> m_tables;
    std::unordered_map<std::int32_t, ServerTable*> m_byId;
    NameIndex<ServerTable> m_byName;
};

} // namespace quillon::adapters
