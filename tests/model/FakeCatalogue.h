// A catalogue of one server with one database, held in memory, that notes what was asked of it.
#pragma once

#include <deque>
#include <string>
#include <vector>

#include "platform/Catalogue.h"
#include "platform/Failure.h"
#include "platform/FailureNumbers.h"

namespace quillon::tests {

class FakeTrigger : public catalogue::Trigger {
  public:
    FakeTrigger(std::string owner, std::string name, std::vector<std::string>& log)
        : m_owner(std::move(owner))
        , m_name(std::move(name))
        , m_log(log) {}

    std::string Name() const override { return m_name; }
    std::string Owner() const override { return m_owner; }
    std::int16_t Type() const override { return 0; }
    DateValue CreateDate() const override { return {}; }
    bool Enabled() const override { return enabled; }
    void SetEnabled(bool value) override {
        Note(value ? "enable" : "disable");
        if (refuses)
            throw Failure(numbers::DataAccess, "refused");
        enabled = value;
    }
    std::string Script(std::int32_t type) override { return Note("script " + std::to_string(type)); }
    std::string Text() override { return Note("text"); }
    void Remove() override { Note("remove"); }

    bool enabled = false;
    bool refuses = false;

  private:
    std::string Note(const std::string& what) {
        m_log.push_back(what + " " + m_owner + "." + m_name);
        return m_log.back() + " #" + std::to_string(m_log.size());
    }

    std::string m_owner, m_name;
    std::vector<std::string>& m_log;
};

class FakeTable : public catalogue::Table {
  public:
    FakeTable(std::string owner, std::string name, std::vector<std::string>& log)
        : m_owner(std::move(owner))
        , m_name(std::move(name))
        , m_log(log) {}

    std::string Name() const override { return m_name; }
    std::string Owner() const override { return m_owner; }
    bool SystemObject() const override { return false; }
    DateValue CreateDate() const override { return {}; }
    const std::vector<catalogue::Column>& Columns() override { return m_columns; }
    std::size_t TriggerCount() override { return triggers.size(); }
    catalogue::Trigger& TriggerAt(std::size_t index) override { return triggers.at(index); }
    catalogue::Trigger& TriggerNamed(const std::string& qualifiedName) override {
        for (auto& trigger : triggers)
            if (trigger.Owner() + "." + trigger.Name() == qualifiedName)
                return trigger;
        throw Failure(numbers::ItemNotFound);
    }
    std::string Script(std::int32_t type) override {
        m_log.push_back("script " + std::to_string(type) + " " + m_owner + "." + m_name);
        return "CREATE TABLE " + m_name;
    }

    std::deque<FakeTrigger> triggers;

  private:
    std::string m_owner, m_name;
    std::vector<std::string>& m_log;
    std::vector<catalogue::Column> m_columns;
};

class FakeDatabase : public catalogue::Database {
  public:
    std::string Name() const override { return "Shop"; }
    std::string Owner() const override { return "sa"; }
    bool SystemObject() const override { return false; }
    std::size_t TableCount() override { return tables.size(); }
    catalogue::Table& TableAt(std::size_t index) override { return tables.at(index); }
    catalogue::Table& TableNamed(const std::string& qualifiedName) override {
        for (auto& table : tables)
            if (table.Owner() + "." + table.Name() == qualifiedName)
                return table;
        throw Failure(numbers::ItemNotFound);
    }
    std::string ProcedureOwner(const std::string&) override { throw Failure(numbers::ItemNotFound); }
    void Refresh() override {}

    std::deque<FakeTable> tables;
};

class FakeServer : public catalogue::Server {
  public:
    void SetLoginSecure(bool) override {}
    void SetOption(bool) override {}
    void Connect(const std::string&, const std::string&, const std::string&) override {}
    void DisConnect() override {}
    std::string Name() const override { return "SERVER"; }
    std::size_t DatabaseCount() override { return 1; }
    catalogue::Database& DatabaseAt(std::size_t) override { return database; }
    catalogue::Database& DatabaseNamed(const std::string& name) override {
        if (name != database.Name())
            throw Failure(numbers::ItemNotFound);
        return database;
    }
    JobServer& Jobs() override { throw Failure(numbers::ActionNotSupported); }

    FakeDatabase database;
};

} // namespace quillon::tests
