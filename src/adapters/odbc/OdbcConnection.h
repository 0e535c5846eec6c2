// A connection of the data access declarations over ODBC.
#pragma once

#include <memory>
#include <string>

#include "adapters/odbc/Link.h"
#include "platform/DataAccess.h"

namespace quillon::adapters {

class OdbcConnection : public data::Connection {
  public:
    void Open(const std::string& connectionString, const std::string& user, const std::string& password,
              std::int32_t options) override;
    void Close() override;
    data::ObjectState State() const override;
    std::string DefaultDatabase() const override;
    std::string Version() const override { return "2.8"; }
    const std::vector<data::Error>& Errors() const override { return *m_errors; }
    void ClearErrors() override { m_errors->clear(); }

    // Raises 3704 when the connection is closed.
    const std::shared_ptr<Link>& link() const;

  private:
    std::shared_ptr<std::vector<data::Error>> m_errors = std::make_shared<std::vector<data::Error>>();
    std::string m_connectionString; // of the last Open
    std::shared_ptr<Link> m_link;
};

} // namespace quillon::adapters
