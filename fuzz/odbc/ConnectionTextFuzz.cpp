// Any bytes as a connection string: what is read from it survives being written in the system's form and read
// again; and the driver, which ends a value in braces at a brace before a semicolon, finds the very values
// that were meant, so that none smuggles in an element of its own.
#include <cstdint>
#include <cstdlib>
#include <map>

#include "adapters/odbc/ConnectionText.h"
#include "platform/Failure.h"

namespace {

using quillon::adapters::ConnectionParts;

void Require(bool holds) {
    if (!holds)
        std::abort();
}

// As the driver reads its text; an element that comes twice is a fault.
std::map<std::string, std::string> Elements(const std::string& text) {
    std::map<std::string, std::string> elements;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t equals = text.find('=', at);
        Require(equals != std::string::npos);
        const bool isBraced = text[equals + 1] == '{';
        const std::size_t start = equals + (isBraced ? 2 : 1);
        const std::size_t end = text.find(isBraced ? "};" : ";", start);
        Require(end != std::string::npos);
        Require(elements.emplace(text.substr(at, equals - at), text.substr(start, end - start)).second);
        at = end + (isBraced ? 2 : 1);
    }
    return elements;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    const auto parts = ConnectionParts::Read(text);
    const auto again =
        ConnectionParts::Read("Data Source=" + parts.server + ";Initial Catalog=" + parts.database +
                              ";User ID=" + parts.user + ";Password=" + parts.password + ";");
    Require(again.server == parts.server && again.database == parts.database && again.user == parts.user);
    Require(again.password == parts.password);
    try {
        auto elements = Elements(parts.DriverText());
        Require(elements["Database"] == parts.database);
        if (!parts.integrated)
            Require(elements["UID"] == parts.user && elements["PWD"] == parts.password);
    } catch (const quillon::Failure&) {
        const std::string values =
            parts.server + "\n" + parts.database + "\n" + parts.user + "\n" + parts.password;
        Require(values.find("};") != std::string::npos);
    }
    return 0;
}
