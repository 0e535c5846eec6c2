// The forms of connection string that the system builds. Values are joined as they stand, nothing is escaped.
//
// Used by: picking a database (first form), the script executor's ODBC path, the data access doubles.
#pragma once

#include <string>

namespace quillon {

// The form of all data access: with an empty user integrated security, which leaves an empty element between
// two semicolons.
std::string AdoConnectionString(const std::string& server, const std::string& database,
                                const std::string& user, const std::string& password);

} // namespace quillon
