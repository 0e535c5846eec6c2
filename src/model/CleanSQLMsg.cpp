#include "model/CleanSQLMsg.h"

#include <string_view>

namespace quillon {

std::string CleanSQLMsg(std::string message) {
    for (const std::string_view prefix :
         {"[Microsoft]", "[SQL Server]", "[DBnetlib]", "[ODBC SQL Server Driver]"})
        for (auto at = message.find(prefix); at != std::string::npos; at = message.find(prefix, at))
            message.erase(at, prefix.size());
    return message;
}

} // namespace quillon
