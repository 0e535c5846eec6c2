// A catalogue tree in memory.
//
//     FakeLibrary library;
//     auto& table = library.Server().AddDatabase("pubs").AddTable("dbo", "authors");
//     table.AddColumn("au_id", "varchar", 11).InPrimaryKey = true;
//     table.AddTrigger("dbo", "trgUpdate", catalogue::TriggerUpdate, "CREATE TRIGGER ...");
//
// The library hands out one server, again and again, as there is one server behind all connections. What a
// test changes shows at once, as if another client had changed it; names compare without regard to case.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/Catalogue.h"

namespace quillon::tests {

class FakeTable;

class FakeTrigger : public catalogue::Trigger {
  public:
    std::string TriggerName, TriggerOwner, ScriptText, BodyText;
    std::int16_t TypeBits = 0;
    DateValue Created{36526};
    bool IsEnabled = true;
    int EnabledWrites = 0; // calls of SetEnabled
    FakeTable* Parent = nullptr;

    std::string Name() const override { return TriggerName; }
    std::string Owner() const override { return TriggerOwner; }
    std::int16_t Type() const override { return TypeBits; }
    DateValue CreateDate() const override { return Created; }
    bool Enabled() const override { return IsEnabled; }
    void SetEnabled(bool enabled) override;
    std::string Script(std::int32_t scriptType) override;
    std::string Text() override { return BodyText; }
    void Remove() override; // this object is gone afterwards
};

class FakeTable : public catalogue::Table {
  public:
    std::string TableName, TableOwner, ScriptText;
    bool IsSystem = false;
    DateValue Created{36526};
    int ScriptReads = 0;
    std::vector<catalogue::Column> ColumnList;
    std::vector<std::unique_ptr<FakeTrigger>> Triggers;

    catalogue::Column& AddColumn(std::string name, std::string datatype, std::int32_t length = 4);
    FakeTrigger& AddTrigger(std::string owner, std::string name, std::int16_t type, std::string script);

    std::string Name() const override { return TableName; }
    std::string Owner() const override { return TableOwner; }
    bool SystemObject() const override { return IsSystem; }
    DateValue CreateDate() const override { return Created; }
    const std::vector<catalogue::Column>& Columns() override { return ColumnList; }
    std::size_t TriggerCount() override { return Triggers.size(); }
    catalogue::Trigger& TriggerAt(std::size_t index) override;
    catalogue::Trigger& TriggerNamed(const std::string& qualifiedName) override;
    std::string Script(std::int32_t scriptType) override;
};

class FakeDatabase : public catalogue::Database {
  public:
    std::string DatabaseName, DatabaseOwner = "sa";
    bool IsSystem = false;
    int Refreshes = 0;
    std::vector<std::unique_ptr<FakeTable>> Tables;
    std::vector<std::pair<std::string, std::string>> Procedures; // name, owner

    FakeTable& AddTable(std::string owner, std::string name);

    std::string Name() const override { return DatabaseName; }
    std::string Owner() const override { return DatabaseOwner; }
    bool SystemObject() const override { return IsSystem; }
    std::size_t TableCount() override { return Tables.size(); }
    catalogue::Table& TableAt(std::size_t index) override;
    catalogue::Table& TableNamed(const std::string& qualifiedName) override;
    std::string ProcedureOwner(const std::string& name) override;
    void Refresh() override { ++Refreshes; }
};

class FakeServer : public catalogue::Server {
  public:
    // The login that Connect accepts; an empty user stands for integrated security.
    std::string ServerName = "PRACTICE", User, Password;
    JobServer* JobAgent = nullptr;
    std::vector<std::unique_ptr<FakeDatabase>> Databases;

    bool IsConnected = false;
    bool IsLoginSecure = false;
    bool Option = false;

    FakeDatabase& AddDatabase(std::string name, bool isSystem = false);

    void SetLoginSecure(bool integrated) override { IsLoginSecure = integrated; }
    void SetOption(bool value) override { Option = value; }
    void Connect(const std::string& server, const std::string& user, const std::string& password) override;
    void DisConnect() override { IsConnected = false; }
    std::string Name() const override { return ServerName; }
    std::size_t DatabaseCount() override { return Databases.size(); }
    catalogue::Database& DatabaseAt(std::size_t index) override;
    catalogue::Database& DatabaseNamed(const std::string& name) override;
    quillon::JobServer& Jobs() override;
};

class FakeLibrary : public catalogue::Library {
  public:
    std::vector<std::string> Servers; // what ListAvailableSQLServers finds

    FakeServer& Server() { return *m_server; }

    std::shared_ptr<catalogue::Server> NewServer() override { return m_server; }
    std::vector<std::string> ListAvailableSQLServers() override { return Servers; }

  private:
    std::shared_ptr<FakeServer> m_server = std::make_shared<FakeServer>();
};

} // namespace quillon::tests
