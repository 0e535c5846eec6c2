// One ODBC connection that runs a batch and tells all that it answers, in order.
#pragma once

#include "runner/Answers.h"

#include <sql.h>
#include <sqlext.h>

namespace quillon::conformance {

class Client {
  public:
    // Throws std::runtime_error with the driver's words when it cannot connect.
    explicit Client(const std::string& connectionString);
    ~Client();
    Client(const Client&) = delete;
    Client& operator=(const Client&) = delete;

    std::vector<Answer> Run(const std::string& batch);

  private:
    void Collect(SQLHSTMT statement, SQLRETURN result, std::vector<Answer>& answers) const;
    void CollectRows(SQLHSTMT statement, SQLSMALLINT columns, std::vector<Answer>& answers) const;
    bool CollectMessages(SQLSMALLINT kind, SQLHANDLE handle, std::vector<Answer>& answers) const;

    SQLHENV m_environment = nullptr;
    SQLHDBC m_connection = nullptr;
};

} // namespace quillon::conformance
