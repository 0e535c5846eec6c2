#include "adapters/odbc/ConnectionText.h"

#include <algorithm>
#include <cctype>
#include <map>

#include "platform/Failure.h"
#include "platform/FailureNumbers.h"

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

// In braces where a separator would end it. The driver looks for the closing brace before a semicolon and
// takes all up to there as it stands, other braces too.
std::string Quoted(const std::string& value) {
    if (value.find(';') == std::string::npos && !value.starts_with('{') && Trimmed(value) == value)
        return value;
    if (value.find("};") != std::string::npos)
        throw Failure(numbers::InvalidCall, "The driver takes no name and no password with }; in it");
    return "{" + value + "}";
}

std::string PasswordIn(std::string_view rest) {
    if (rest.ends_with(';'))
        rest.remove_suffix(1);
    else if (rest.starts_with(';'))
        rest.remove_prefix(1);
    return std::string(rest);
}

// The value that a key names; none for a key that matters to nobody here.
std::string* ValueOf(ConnectionParts& parts, const std::string& key) {
    static const std::map<std::string, std::string ConnectionParts::*> values{
        {"data source", &ConnectionParts::server}, {"server", &ConnectionParts::server},
        {"address", &ConnectionParts::server},     {"initial catalog", &ConnectionParts::database},
        {"database", &ConnectionParts::database},  {"user id", &ConnectionParts::user},
        {"uid", &ConnectionParts::user},
    };
    const auto found = values.find(key);
    return found == values.end() ? nullptr : &(parts.*found->second);
}

} // namespace

ConnectionParts ConnectionParts::Read(const std::string& connectionString) {
    ConnectionParts parts;
    std::string* last = nullptr;
    for (std::size_t at = 0; at < connectionString.size();) {
        const auto end = std::min(connectionString.find(';', at), connectionString.size());
        const std::string element = connectionString.substr(at, end - at);
        const auto equals = element.find('=');
        const auto key = Lowered(Trimmed(element.substr(0, equals)));
        if (equals == std::string::npos) {
            if (last != nullptr && !element.empty())
                *last += ";" + element;
        } else if (key == "password" || key == "pwd") {
            parts.password = PasswordIn(std::string_view(connectionString).substr(at + equals + 1));
            break;
        } else if (last = ValueOf(parts, key); last != nullptr) {
            *last = Trimmed(element.substr(equals + 1));
        } else if (key == "integrated security" || key == "trusted_connection") {
            parts.integrated = IsYes(Trimmed(element.substr(equals + 1)));
        }
        at = end + 1;
    }
    parts.integrated = parts.integrated || parts.user.empty();
    return parts;
}

std::string ConnectionParts::DriverText() const {
    std::string host = server;
    std::string port;
    if (Lowered(host).starts_with("tcp:"))
        host.erase(0, 4);
    if (const auto comma = host.find(','); comma != std::string::npos) {
        port = Trimmed(host.substr(comma + 1));
        host = Trimmed(host.substr(0, comma));
    }
    if (host == "." || Lowered(host) == "(local)")
        host = "localhost";
    std::string text =
        "Driver=FreeTDS;TDS_Version=7.4;ClientCharset=UTF-8;APP=Quillon;Server=" + Quoted(host);
    if (!port.empty())
        text += ";Port=" + Quoted(port);
    if (!database.empty())
        text += ";Database=" + Quoted(database);
    if (integrated)
        return text + ";Trusted_Connection=Yes;";
    return text + ";UID=" + Quoted(user) + ";PWD=" + Quoted(password) + ";";
}

} // namespace quillon::adapters
