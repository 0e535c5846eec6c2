#include "support/FaultyCatalogue.h"

#include <map>

namespace quillon::tests {
namespace {

// One wrapper for each element, as long as its parent's wrapper lives, so that references stay good.
template <class Element, class Wrapper>
class Wrappers {
  public:
    Element& For(Element& element, FaultPlan& plan) {
        auto& wrapper = m_wrappers[&element];
        if (!wrapper)
            wrapper = std::make_unique<Wrapper>(element, plan);
        return *wrapper;
    }

  private:
    std::map<Element*, std::unique_ptr<Wrapper>> m_wrappers;
};

class FaultyTrigger : public catalogue::Trigger {
  public:
    FaultyTrigger(catalogue::Trigger& trigger, FaultPlan& plan)
        : m_trigger(trigger)
        , m_plan(plan) {}

    std::string Name() const override { return m_trigger.Name(); }
    std::string Owner() const override { return m_trigger.Owner(); }
    std::int16_t Type() const override { return m_trigger.Type(); }
    DateValue CreateDate() const override { return m_trigger.CreateDate(); }
    bool Enabled() const override { return m_trigger.Enabled(); }
    void SetEnabled(bool enabled) override {
        m_plan.Ask("Trigger.SetEnabled", Name());
        m_trigger.SetEnabled(enabled);
    }
    std::string Script(std::int32_t scriptType) override {
        m_plan.Ask("Trigger.Script", Name());
        return m_trigger.Script(scriptType);
    }
    std::string Text() override {
        m_plan.Ask("Trigger.Text", Name());
        return m_trigger.Text();
    }
    void Remove() override {
        m_plan.Ask("Trigger.Remove", Name());
        m_trigger.Remove();
    }

  private:
    catalogue::Trigger& m_trigger;
    FaultPlan& m_plan;
};

class FaultyTable : public catalogue::Table {
  public:
    FaultyTable(catalogue::Table& table, FaultPlan& plan)
        : m_table(table)
        , m_plan(plan) {}

    std::string Name() const override { return m_table.Name(); }
    std::string Owner() const override { return m_table.Owner(); }
    bool SystemObject() const override { return m_table.SystemObject(); }
    DateValue CreateDate() const override { return m_table.CreateDate(); }
    const std::vector<catalogue::Column>& Columns() override {
        m_plan.Ask("Table.Columns", Name());
        return m_table.Columns();
    }
    std::size_t TriggerCount() override {
        m_plan.Ask("Table.TriggerCount", Name());
        return m_table.TriggerCount();
    }
    catalogue::Trigger& TriggerAt(std::size_t index) override {
        m_plan.Ask("Table.TriggerAt", Name());
        return m_triggers.For(m_table.TriggerAt(index), m_plan);
    }
    catalogue::Trigger& TriggerNamed(const std::string& qualifiedName) override {
        m_plan.Ask("Table.TriggerNamed", Name());
        return m_triggers.For(m_table.TriggerNamed(qualifiedName), m_plan);
    }
    std::string Script(std::int32_t scriptType) override {
        m_plan.Ask("Table.Script", Name());
        return m_table.Script(scriptType);
    }

  private:
    catalogue::Table& m_table;
    FaultPlan& m_plan;
    Wrappers<catalogue::Trigger, FaultyTrigger> m_triggers;
};

class FaultyDatabase : public catalogue::Database {
  public:
    FaultyDatabase(catalogue::Database& database, FaultPlan& plan)
        : m_database(database)
        , m_plan(plan) {}

    std::string Name() const override { return m_database.Name(); }
    std::string Owner() const override { return m_database.Owner(); }
    bool SystemObject() const override { return m_database.SystemObject(); }
    std::size_t TableCount() override {
        m_plan.Ask("Database.TableCount", Name());
        return m_database.TableCount();
    }
    catalogue::Table& TableAt(std::size_t index) override {
        m_plan.Ask("Database.TableAt", Name());
        return m_tables.For(m_database.TableAt(index), m_plan);
    }
    catalogue::Table& TableNamed(const std::string& qualifiedName) override {
        m_plan.Ask("Database.TableNamed", Name());
        return m_tables.For(m_database.TableNamed(qualifiedName), m_plan);
    }
    std::string ProcedureOwner(const std::string& name) override {
        m_plan.Ask("Database.ProcedureOwner", Name());
        return m_database.ProcedureOwner(name);
    }
    void Refresh() override {
        m_plan.Ask("Database.Refresh", Name());
        m_database.Refresh();
    }

  private:
    catalogue::Database& m_database;
    FaultPlan& m_plan;
    Wrappers<catalogue::Table, FaultyTable> m_tables;
};

class FaultyServer : public catalogue::Server {
  public:
    FaultyServer(std::shared_ptr<catalogue::Server> server, FaultPlan& plan)
        : m_server(std::move(server))
        , m_plan(plan) {}

    void SetLoginSecure(bool integrated) override {
        m_plan.Ask("Server.SetLoginSecure", integrated ? "True" : "False");
        m_server->SetLoginSecure(integrated);
    }
    void SetOption(bool value) override {
        m_plan.Ask("Server.SetOption");
        m_server->SetOption(value);
    }
    void Connect(const std::string& server, const std::string& user, const std::string& password) override {
        m_plan.Ask("Server.Connect", server + "," + user);
        m_server->Connect(server, user, password);
    }
    void DisConnect() override {
        m_plan.Ask("Server.DisConnect");
        m_server->DisConnect();
    }
    std::string Name() const override { return m_server->Name(); }
    std::size_t DatabaseCount() override {
        m_plan.Ask("Server.DatabaseCount");
        return m_server->DatabaseCount();
    }
    catalogue::Database& DatabaseAt(std::size_t index) override {
        m_plan.Ask("Server.DatabaseAt");
        return m_databases.For(m_server->DatabaseAt(index), m_plan);
    }
    catalogue::Database& DatabaseNamed(const std::string& name) override {
        m_plan.Ask("Server.DatabaseNamed", name);
        return m_databases.For(m_server->DatabaseNamed(name), m_plan);
    }
    quillon::JobServer& Jobs() override {
        m_plan.Ask("Server.Jobs");
        return m_server->Jobs();
    }

  private:
    std::shared_ptr<catalogue::Server> m_server;
    FaultPlan& m_plan;
    Wrappers<catalogue::Database, FaultyDatabase> m_databases;
};

} // namespace

std::shared_ptr<catalogue::Server> FaultyLibrary::NewServer() {
    m_plan.Ask("Library.NewServer");
    return std::make_shared<FaultyServer>(m_library.NewServer(), m_plan);
}

std::vector<std::string> FaultyLibrary::ListAvailableSQLServers() {
    m_plan.Ask("Library.ListAvailableSQLServers");
    return m_library.ListAvailableSQLServers();
}

} // namespace quillon::tests
