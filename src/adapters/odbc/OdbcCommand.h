// A command of the data access declarations: a text, or a stored procedure with typed parameters.
//
// The driver knows parameters by position alone, and gives output values only behind the last result; so the
// results of a procedure that has any are read into memory by Execute.
#pragma once

#include <deque>
#include <memory>

#include "adapters/odbc/OdbcConnection.h"
#include "adapters/odbc/ResultStream.h"
#include "platform/DataAccess.h"

namespace quillon::adapters {

class OdbcCommand : public data::Command {
  public:
    void SetActiveConnection(const data::ConnectionRef& connection) override;
    void SetCommandType(data::CommandType type) override { m_type = type; }
    void SetCommandText(const std::string& text) override { m_text = text; }
    void AppendParameter(const data::Parameter& parameter) override;
    const data::Parameter& ParameterNamed(const std::string& name) const override;
    data::RecordsetRef Execute(std::int32_t options) override;

  private:
    // A parameter's memory while the call is at work.
    struct Bound {
        std::vector<char> buffer;
        SQLLEN length = SQL_NULL_DATA;
    };

    std::string CallText() const;
    void Bind(const Handle& statement, std::deque<Bound>& bound) const;
    void ReadBack(const std::deque<Bound>& bound);
    bool HasOutput() const;

    std::shared_ptr<OdbcConnection> m_connection;
    data::CommandType m_type = data::CommandType::Unspecified;
    std::string m_text;
    std::vector<data::Parameter> m_parameters;
};

} // namespace quillon::adapters
