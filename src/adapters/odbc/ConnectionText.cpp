#include "adapters/odbc/ConnectionText.h"

#include <algorithm>
#include <cctype>

namespace quillon::adapters {
namespace {

std::string Trimmed(std::string_view text) {
    const auto first = text.find_first_not_of(" \t");
    if (first == std::string_view::npos)
        return {};
    return std::string(text.substr(first, text.find_last_not_of(" \t") - first + 1));
}

std::string Lowered(std::string text) {
    std::ranges::transform(text, text.begin(),
                           [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return text;
}

bool IsYes(const std::string& value) {
    const auto lowered = Lowered(value);
    return lowered == "sspi" || lowered == "yes" || lowered == "true";
}

// In braces where a separator would end it.
std::string Quoted(const std::string& value) {
    if (value.find_first_of(";{}=") == std::string::npos && Trimmed(value) == value)
        return value;
    std::string quoted = "{";
    for (const char c : value)
        quoted += c == '}' ? "}}" : std::string(1, c);
    return quoted + "}";
}

} // namespace

ConnectionParts ConnectionParts::Read(const std::string& connectionString) {
    ConnectionParts parts;
    bool afterEmptyPassword = false;
    for (std::size_t at = 0; at <= connectionString.size();) {
        const auto end = std::min(connectionString.find(';', at), connectionString.size());
        const std::string element = connectionString.substr(at, end - at);
        at = end + 1;
        const auto equals = element.find('=');
        if (equals == std::string::npos) {
            if (afterEmptyPassword && !element.empty())
                parts.password = element;
            continue;
        }
        const auto key = Lowered(Trimmed(element.substr(0, equals)));
        const auto value = element.substr(equals + 1);
        afterEmptyPassword = false;
        if (key == "data source" || key == "server" || key == "address")
            parts.server = Trimmed(value);
        else if (key == "initial catalog" || key == "database")
            parts.database = Trimmed(value);
        else if (key == "user id" || key == "uid")
            parts.user = Trimmed(value);
        else if (key == "password" || key == "pwd") {
            parts.password = value;
            afterEmptyPassword = value.empty();
        } else if (key == "integrated security" || key == "trusted_connection")
            parts.integrated = IsYes(Trimmed(value));
    }
    if (parts.user.empty() && parts.password.empty())
        parts.integrated = true;
    return parts;
}

std::string ConnectionParts::DriverText() const {
    std::string host = server;
    std::string port;
    if (const auto comma = host.find(','); comma != std::string::npos) {
        port = Trimmed(host.substr(comma + 1));
        host = Trimmed(host.substr(0, comma));
    }
    if (host == "." || Lowered(host) == "(local)")
        host = "localhost";
    std::string text =
        "Driver=FreeTDS;TDS_Version=7.4;ClientCharset=UTF-8;APP=Quillon;Server=" + Quoted(host);
    if (!port.empty())
        text += ";Port=" + port;
    if (!database.empty())
        text += ";Database=" + Quoted(database);
    if (integrated)
        return text + ";Trusted_Connection=Yes;";
    return text + ";UID=" + Quoted(user) + ";PWD=" + Quoted(password) + ";";
}

} // namespace quillon::adapters
