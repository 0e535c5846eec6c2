// The driver that production servers are reached with, as a client for tests: one connection, statements by
// text or with parameters.
#pragma once

#include <sql.h>
#include <sqlext.h>

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace quillon::practice::testing {

class OdbcClient {
  public:
    // Throws std::runtime_error with the driver's diagnostics when it cannot connect.
    OdbcClient(std::uint16_t port, const std::string& tdsVersion, const std::string& password = "Secret1!",
               const std::string& login = "sa");
    ~OdbcClient();
    OdbcClient(const OdbcClient&) = delete;
    OdbcClient& operator=(const OdbcClient&) = delete;

    // Everything that a batch answers, in order: "row a|b" with NULL as "-", "count 3", "error 208 text".
    std::vector<std::string> Run(const std::string& text);
    // Reads a result row by row without keeping any; cancels it after `most` rows.
    void Stream(const std::string& text, const std::function<void()>& onRow, long most = -1);
    // Executes a prepared statement once for each value of its only parameter, an int; gives what each
    // answers.
    std::vector<std::string> RunPrepared(const std::string& text, const std::vector<int>& values);
    // Calls {?=call name(?,?)} with an int in, an int out: "status s, out o".
    std::string Call(const std::string& procedure, int value);
    void SetAutocommit(bool on);
    void EndTransaction(bool commit);

  private:
    std::string Diagnostics(SQLSMALLINT kind, SQLHANDLE handle, bool numbers) const;
    void Collect(SQLHSTMT statement, SQLRETURN result, std::vector<std::string>& answers) const;
    void CollectRows(SQLHSTMT statement, SQLSMALLINT columns, std::vector<std::string>& answers) const;

    SQLHENV m_environment = nullptr;
    SQLHDBC m_connection = nullptr;
};

} // namespace quillon::practice::testing
