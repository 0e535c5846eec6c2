#include "adapters/snapshot/SnapshotLibrary.h"

#include <algorithm>
#include <cctype>
#include <deque>
#include <unordered_map>

#include "platform/Failure.h"
#include "platform/FailureNumbers.h"

namespace quillon::adapters {
namespace {

[[noreturn]] void RefuseChange() {
    throw Failure(numbers::PermissionDenied, "A catalogue snapshot cannot be changed");
}

std::string Lowered(std::string text) {
    std::ranges::transform(text, text.begin(),
                           [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return text;
}

class Trigger : public catalogue::Trigger {
  public:
    explicit Trigger(const SnapshotTrigger& trigger)
        : m_trigger(trigger) {}
    std::string Name() const override { return m_trigger.name; }
    std::string Owner() const override { return m_trigger.owner; }
    std::int16_t Type() const override { return m_trigger.type; }
    DateValue CreateDate() const override { return m_trigger.created; }
    bool Enabled() const override { return m_trigger.enabled; }
    void SetEnabled(bool) override { RefuseChange(); }
    std::string Script(std::int32_t) override { return m_trigger.script; }
    std::string Text() override { return m_trigger.text; }
    void Remove() override { RefuseChange(); }

  private:
    const SnapshotTrigger& m_trigger;
};

class Table : public catalogue::Table {
  public:
    explicit Table(const SnapshotTable& table)
        : m_table(table) {
        for (const auto& trigger : table.triggers)
            m_triggers.emplace_back(trigger);
    }
    std::string Name() const override { return m_table.name; }
    std::string Owner() const override { return m_table.owner; }
    bool SystemObject() const override { return m_table.system; }
    DateValue CreateDate() const override { return m_table.created; }
    const std::vector<catalogue::Column>& Columns() override { return m_table.columns; }
    std::size_t TriggerCount() override { return m_triggers.size(); }
    catalogue::Trigger& TriggerAt(std::size_t index) override { return m_triggers.at(index); }
    catalogue::Trigger& TriggerNamed(const std::string& qualifiedName) override {
        const auto wanted = Lowered(qualifiedName);
        for (auto& trigger : m_triggers)
            if (Lowered(trigger.Owner() + "." + trigger.Name()) == wanted)
                return trigger;
        throw Failure(numbers::ItemNotFound);
    }
    std::string Script(std::int32_t) override { return m_table.script; }

  private:
    const SnapshotTable& m_table;
    std::deque<Trigger> m_triggers;
};

class Database : public catalogue::Database {
  public:
    explicit Database(const Snapshot& snapshot)
        : m_snapshot(snapshot) {
        for (const auto& table : snapshot.tables) {
            m_tables.emplace_back(table);
            // A bare name means the first table of that name.
            m_byName.emplace(Lowered(table.owner + "." + table.name), &m_tables.back());
            m_byName.emplace(Lowered(table.name), &m_tables.back());
        }
    }
    std::string Name() const override { return m_snapshot.database; }
    std::string Owner() const override { return m_snapshot.owner; }
    bool SystemObject() const override { return false; }
    std::size_t TableCount() override { return m_tables.size(); }
    catalogue::Table& TableAt(std::size_t index) override { return m_tables.at(index); }
    catalogue::Table& TableNamed(const std::string& qualifiedName) override {
        const auto found = m_byName.find(Lowered(qualifiedName));
        if (found == m_byName.end())
            throw Failure(numbers::ItemNotFound);
        return *found->second;
    }
    std::string ProcedureOwner(const std::string& name) override {
        const auto wanted = Lowered(name);
        for (const auto& procedure : m_snapshot.procedures)
            if (Lowered(procedure.name) == wanted)
                return procedure.owner;
        throw Failure(numbers::ItemNotFound);
    }
    void Refresh() override {} // the file is read once

  private:
    const Snapshot& m_snapshot;
    std::deque<Table> m_tables;
    std::unordered_map<std::string, Table*> m_byName;
};

class Server : public catalogue::Server {
  public:
    explicit Server(std::shared_ptr<const Snapshot> snapshot)
        : m_snapshot(std::move(snapshot)) {}
    void SetLoginSecure(bool) override {}
    void SetOption(bool) override {}
    void Connect(const std::string&, const std::string&, const std::string&) override {
        m_database = std::make_unique<Database>(*m_snapshot);
    }
    void DisConnect() override { m_database.reset(); }
    std::string Name() const override { return m_snapshot->server; }
    std::size_t DatabaseCount() override { return m_database ? 1 : 0; }
    catalogue::Database& DatabaseAt(std::size_t index) override {
        if (index >= DatabaseCount())
            throw Failure(numbers::ItemNotFound);
        return *m_database;
    }
    catalogue::Database& DatabaseNamed(const std::string& name) override {
        if (!m_database || Lowered(name) != Lowered(m_database->Name()))
            throw Failure(numbers::ItemNotFound);
        return *m_database;
    }
    quillon::JobServer& Jobs() override {
        throw Failure(numbers::ActionNotSupported, "A catalogue snapshot has no jobs");
    }

  private:
    std::shared_ptr<const Snapshot> m_snapshot;
    std::unique_ptr<Database> m_database;
};

} // namespace

SnapshotLibrary::SnapshotLibrary(Snapshot snapshot)
    : m_snapshot(std::make_shared<const Snapshot>(std::move(snapshot))) {}

SnapshotLibrary::~SnapshotLibrary() = default;

std::shared_ptr<catalogue::Server> SnapshotLibrary::NewServer() {
    return std::make_shared<Server>(m_snapshot);
}

std::vector<std::string> SnapshotLibrary::ListAvailableSQLServers() {
    return {m_snapshot->server};
}

} // namespace quillon::adapters
