// Recordsets and commands over the answers of FakeDataAccess.
#pragma once

#include <deque>

#include "support/FakeDataAccess.h"

namespace quillon::tests {

class FakeRecordset : public data::Recordset {
  public:
    FakeRecordset() = default; // closed
    // Stands on the first row of the first result.
    explicit FakeRecordset(std::vector<FakeResult> results);

    void SetCursorLocation(data::CursorLocation) override {}
    void Open(const std::string& source, const data::ConnectionRef& connection, data::CursorType cursor,
              data::LockType lock, data::CommandType type) override;
    void Close() override;
    data::ObjectState State() const override;
    bool Bof() const override;
    bool Eof() const override;
    void MoveFirst() override;
    void MoveNext() override;
    std::size_t FieldCount() const override { return m_results.empty() ? 0 : Current().Columns.size(); }
    data::Field FieldAt(std::size_t index) const override;
    data::Field FieldNamed(const std::string& name) const override;
    std::vector<std::vector<Value>> GetRows() override;
    data::RecordsetRef NextRecordset() override;

  private:
    const FakeResult& Current() const { return m_results.front(); }
    void RequireOpen() const;

    std::deque<FakeResult> m_results;
    std::size_t m_row = 0;
    data::CursorType m_cursor = data::CursorType::Static;
};

class FakeCommand : public data::Command {
  public:
    void SetActiveConnection(const data::ConnectionRef& connection) override { m_connection = connection; }
    void SetCommandType(data::CommandType) override {}
    void SetCommandText(const std::string& text) override { m_text = text; }
    void AppendParameter(const data::Parameter& parameter) override { m_parameters.push_back(parameter); }
    const data::Parameter& ParameterNamed(const std::string& name) const override;
    data::RecordsetRef Execute(std::int32_t options) override;

  private:
    data::ConnectionRef m_connection;
    std::string m_text;
    std::vector<data::Parameter> m_parameters;
};

} // namespace quillon::tests
