#include "shell/ConnectionString.h"

namespace quillon {

std::string AdoConnectionString(const std::string& server, const std::string& database,
                                const std::string& user, const std::string& password) {
    const std::string target =
        "Provider=sqloledb;Data Source=" + server + ";Initial Catalog=" + database + ";";
    if (user.empty())
        return target + ";Integrated Security=SSPI;";
    return target + "User ID=" + user + ";Password=" + password + ";";
}

} // namespace quillon
