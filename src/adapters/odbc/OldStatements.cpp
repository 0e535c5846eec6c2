#include "adapters/odbc/OldStatements.h"

#include <cstdlib>
#include <map>

namespace quillon::adapters {
namespace {

constexpr int FirstModernVersion = 9; // 2005

const std::map<std::string, std::string, std::less<>>& ModernForms() {
    static const std::map<std::string, std::string, std::less<>> forms{
        // Status 2 meant a user of the server's own kind who may enter the database.
        {"SELECT name, uid FROM sysusers WHERE status = 2",
         "SELECT name, uid FROM sysusers WHERE issqluser = 1 AND hasdbaccess = 1"},
        // An owner was a user; since then it is a schema.
        {"SELECT o.name, u.name 'owner' FROM sysobjects o, sysusers u WHERE type = 'U' AND o.name not in "
         "('AUDIT_LOG_DATA', 'AUDIT_LOG_TRANSACTIONS') AND o.name <> 'dtProperties' AND o.uid = u.uid ORDER "
         "BY "
         "o.name",
         "SELECT o.name, s.name 'owner' FROM sys.objects o, sys.schemas s WHERE o.type = 'U' AND o.name not "
         "in "
         "('AUDIT_LOG_DATA', 'AUDIT_LOG_TRANSACTIONS') AND o.name <> 'dtProperties' AND o.schema_id = "
         "s.schema_id ORDER BY o.name"},
    };
    return forms;
}

std::string_view WithoutOuterBlanks(std::string_view text) {
    const auto first = text.find_first_not_of(" \t\r\n");
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(" \t\r\n") - first + 1);
}

} // namespace

const std::string& ForServer(const std::string& statement, const std::string& version) {
    // Long scripts are not looked at: no listed statement is longer than this.
    constexpr std::size_t longest = 1000;
    if (statement.size() > longest || std::atoi(version.c_str()) < FirstModernVersion)
        return statement;
    const auto found = ModernForms().find(WithoutOuterBlanks(statement));
    return found == ModernForms().end() ? statement : found->second;
}

} // namespace quillon::adapters
