#include "support/FakeCatalogue.h"

#include <stdexcept>

#include "platform/Failure.h"
#include "platform/FailureNumbers.h"
#include "support/SameText.h"

namespace quillon::tests {
namespace {

template <class List>
auto& At(List& list, std::size_t index) {
    if (index >= list.size())
        throw Failure(numbers::ItemNotFound);
    return *list[index];
}

template <class List>
auto& Named(List& list, const std::string& name, bool allowBareName) {
    for (auto& element : list)
        if (SameText(element->Owner() + "." + element->Name(), name) ||
            (allowBareName && SameText(element->Name(), name)))
            return *element;
    throw Failure(numbers::ItemNotFound, {}, name);
}

} // namespace

void FakeTrigger::SetEnabled(bool enabled) {
    ++EnabledWrites;
    IsEnabled = enabled;
}

std::string FakeTrigger::Script(std::int32_t scriptType) {
    if (scriptType != catalogue::ScriptDefault)
        throw Failure(numbers::InvalidCall);
    return ScriptText;
}

void FakeTrigger::Remove() {
    std::erase_if(Parent->Triggers, [this](const auto& trigger) { return trigger.get() == this; });
}

catalogue::Column& FakeTable::AddColumn(std::string name, std::string datatype, std::int32_t length) {
    catalogue::Column& column = ColumnList.emplace_back();
    column.Name = std::move(name);
    column.Datatype = std::move(datatype);
    column.Length = length;
    return column;
}

FakeTrigger& FakeTable::AddTrigger(std::string owner, std::string name, std::int16_t type,
                                   std::string script) {
    FakeTrigger& trigger = *Triggers.emplace_back(std::make_unique<FakeTrigger>());
    trigger.TriggerOwner = std::move(owner);
    trigger.TriggerName = std::move(name);
    trigger.TypeBits = type;
    trigger.ScriptText = script;
    trigger.BodyText = std::move(script);
    trigger.Parent = this;
    return trigger;
}

catalogue::Trigger& FakeTable::TriggerAt(std::size_t index) {
    return At(Triggers, index);
}

catalogue::Trigger& FakeTable::TriggerNamed(const std::string& qualifiedName) {
    return Named(Triggers, qualifiedName, false);
}

std::string FakeTable::Script(std::int32_t scriptType) {
    if (scriptType != catalogue::ScriptDefault)
        throw Failure(numbers::InvalidCall);
    ++ScriptReads;
    return ScriptText;
}

FakeTable& FakeDatabase::AddTable(std::string owner, std::string name) {
    FakeTable& table = *Tables.emplace_back(std::make_unique<FakeTable>());
    table.TableOwner = std::move(owner);
    table.TableName = std::move(name);
    return table;
}

catalogue::Table& FakeDatabase::TableAt(std::size_t index) {
    return At(Tables, index);
}

catalogue::Table& FakeDatabase::TableNamed(const std::string& qualifiedName) {
    return Named(Tables, qualifiedName, true);
}

std::string FakeDatabase::ProcedureOwner(const std::string& name) {
    for (const auto& [procedure, owner] : Procedures)
        if (SameText(procedure, name))
            return owner;
    throw Failure(numbers::ItemNotFound, {}, name);
}

FakeDatabase& FakeServer::AddDatabase(std::string name, bool isSystem) {
    FakeDatabase& database = *Databases.emplace_back(std::make_unique<FakeDatabase>());
    database.DatabaseName = std::move(name);
    database.IsSystem = isSystem;
    return database;
}

void FakeServer::Connect(const std::string& server, const std::string& user, const std::string& password) {
    if (!SameText(server, ServerName))
        throw Failure(numbers::LoginFailed, "[Microsoft][ODBC SQL Server Driver]SQL Server does not exist "
                                            "or access denied.");
    if (user != User || password != Password || IsLoginSecure != User.empty())
        throw Failure(numbers::LoginFailed, "[Microsoft][ODBC SQL Server Driver][SQL Server]Login failed for "
                                            "user '" +
                                                user + "'.");
    IsConnected = true;
}

catalogue::Database& FakeServer::DatabaseAt(std::size_t index) {
    return At(Databases, index);
}

catalogue::Database& FakeServer::DatabaseNamed(const std::string& name) {
    for (const auto& database : Databases)
        if (SameText(database->DatabaseName, name))
            return *database;
    throw Failure(numbers::ItemNotFound, {}, name);
}

quillon::JobServer& FakeServer::Jobs() {
    if (JobAgent == nullptr)
        throw std::logic_error("the test gave the server no job agent");
    return *JobAgent;
}

} // namespace quillon::tests
