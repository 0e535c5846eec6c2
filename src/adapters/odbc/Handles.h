// ODBC handles that free themselves, and the diagnostics that stand behind a call.
#pragma once

#include <sql.h>
#include <sqlext.h>

#include <utility>
#include <vector>

#include "platform/DataAccess.h"

namespace quillon::adapters {

// Owns a handle of one of the ODBC types.
class Handle {
  public:
    // Raises 7 when the driver manager has none to give.
    Handle(SQLSMALLINT type, SQLHANDLE parent);
    ~Handle();
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;

    SQLHANDLE get() const noexcept { return m_handle; }
    SQLSMALLINT type() const noexcept { return m_type; }

  private:
    SQLSMALLINT m_type;
    SQLHANDLE m_handle = SQL_NULL_HANDLE;
};

// The one environment of the process, ODBC 3.
SQLHANDLE TheEnvironment();

// What the last call on a handle left, in the server's order. Texts carry the prefix of the driver that the
// system's message cleaning knows in place of the installed one's.
std::vector<data::Error> Diagnostics(const Handle& handle);

// Raises the failure that stands for diagnostics: its number by SQLSTATE, its description the first error's.
[[noreturn]] void RaiseDiagnostics(const std::vector<data::Error>& errors);

} // namespace quillon::adapters
