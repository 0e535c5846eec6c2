#include "support/FaultyDataAccess.h"

namespace quillon::tests {
namespace {

class FaultyConnection : public data::Connection {
  public:
    FaultyConnection(data::ConnectionRef connection, FaultPlan& plan)
        : m_connection(std::move(connection))
        , m_plan(plan) {}

    const data::ConnectionRef& inner() const { return m_connection; }

    void Open(const std::string& connectionString, const std::string& user, const std::string& password,
              std::int32_t options) override {
        m_plan.Ask("Connection.Open", connectionString);
        m_connection->Open(connectionString, user, password, options);
    }
    void Close() override {
        m_plan.Ask("Connection.Close");
        m_connection->Close();
    }
    data::ObjectState State() const override { return m_connection->State(); }
    std::string DefaultDatabase() const override {
        m_plan.Ask("Connection.DefaultDatabase");
        return m_connection->DefaultDatabase();
    }
    std::string Version() const override { return m_connection->Version(); }
    const std::vector<data::Error>& Errors() const override { return m_connection->Errors(); }
    void ClearErrors() override { m_connection->ClearErrors(); }

  private:
    data::ConnectionRef m_connection;
    FaultPlan& m_plan;
};

// What is behind the wrapper knows only connections of its own kind.
data::ConnectionRef Unwrapped(const data::ConnectionRef& connection) {
    const auto faulty = std::dynamic_pointer_cast<FaultyConnection>(connection);
    return faulty ? faulty->inner() : connection;
}

data::RecordsetRef Wrapped(data::RecordsetRef recordset, FaultPlan& plan);

class FaultyRecordset : public data::Recordset {
  public:
    FaultyRecordset(data::RecordsetRef recordset, FaultPlan& plan)
        : m_recordset(std::move(recordset))
        , m_plan(plan) {}

    void SetCursorLocation(data::CursorLocation location) override {
        m_recordset->SetCursorLocation(location);
    }
    void Open(const std::string& source, const data::ConnectionRef& connection, data::CursorType cursor,
              data::LockType lock, data::CommandType type) override {
        m_plan.Ask("Recordset.Open", source);
        m_recordset->Open(source, Unwrapped(connection), cursor, lock, type);
    }
    void Close() override {
        m_plan.Ask("Recordset.Close");
        m_recordset->Close();
    }
    data::ObjectState State() const override { return m_recordset->State(); }
    bool Bof() const override { return m_recordset->Bof(); }
    bool Eof() const override { return m_recordset->Eof(); }
    void MoveFirst() override {
        m_plan.Ask("Recordset.MoveFirst");
        m_recordset->MoveFirst();
    }
    void MoveNext() override {
        m_plan.Ask("Recordset.MoveNext");
        m_recordset->MoveNext();
    }
    std::size_t FieldCount() const override { return m_recordset->FieldCount(); }
    data::Field FieldAt(std::size_t index) const override { return m_recordset->FieldAt(index); }
    data::Field FieldNamed(const std::string& name) const override { return m_recordset->FieldNamed(name); }
    std::vector<std::vector<Value>> GetRows() override {
        m_plan.Ask("Recordset.GetRows");
        return m_recordset->GetRows();
    }
    data::RecordsetRef NextRecordset() override {
        m_plan.Ask("Recordset.NextRecordset");
        return Wrapped(m_recordset->NextRecordset(), m_plan);
    }

  private:
    data::RecordsetRef m_recordset;
    FaultPlan& m_plan;
};

data::RecordsetRef Wrapped(data::RecordsetRef recordset, FaultPlan& plan) {
    if (!recordset)
        return nullptr;
    return std::make_shared<FaultyRecordset>(std::move(recordset), plan);
}

class FaultyCommand : public data::Command {
  public:
    FaultyCommand(std::shared_ptr<data::Command> command, FaultPlan& plan)
        : m_command(std::move(command))
        , m_plan(plan) {}

    void SetActiveConnection(const data::ConnectionRef& connection) override {
        m_command->SetActiveConnection(Unwrapped(connection));
    }
    void SetCommandType(data::CommandType type) override { m_command->SetCommandType(type); }
    void SetCommandText(const std::string& text) override {
        m_text = text;
        m_command->SetCommandText(text);
    }
    void AppendParameter(const data::Parameter& parameter) override {
        m_plan.Ask("Command.AppendParameter", parameter.Name);
        m_command->AppendParameter(parameter);
    }
    const data::Parameter& ParameterNamed(const std::string& name) const override {
        return m_command->ParameterNamed(name);
    }
    data::RecordsetRef Execute(std::int32_t options) override {
        m_plan.Ask("Command.Execute", m_text);
        return Wrapped(m_command->Execute(options), m_plan);
    }

  private:
    std::shared_ptr<data::Command> m_command;
    FaultPlan& m_plan;
    std::string m_text;
};

} // namespace

data::ConnectionRef FaultyDataAccess::NewConnection() {
    m_plan.Ask("DataAccess.NewConnection");
    return std::make_shared<FaultyConnection>(m_dataAccess.NewConnection(), m_plan);
}

data::RecordsetRef FaultyDataAccess::NewRecordset() {
    m_plan.Ask("DataAccess.NewRecordset");
    return std::make_shared<FaultyRecordset>(m_dataAccess.NewRecordset(), m_plan);
}

std::shared_ptr<data::Command> FaultyDataAccess::NewCommand() {
    m_plan.Ask("DataAccess.NewCommand");
    return std::make_shared<FaultyCommand>(m_dataAccess.NewCommand(), m_plan);
}

} // namespace quillon::tests
