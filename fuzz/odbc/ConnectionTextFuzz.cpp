// Any bytes as a connection string: what is read from it survives being written in the driver's form and read
// again, when no value holds what would end it; and no value smuggles an element into the driver's text.
#include <cstdint>
#include <cstdlib>

#include "adapters/odbc/ConnectionText.h"

namespace {

using quillon::adapters::ConnectionParts;

void Require(bool holds) {
    if (!holds)
        std::abort();
}

// Elements of the driver's text, with values in braces taken whole.
int Elements(const std::string& text) {
    int elements = 0;
    bool braced = false;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (braced && text[at] == '}' && at + 1 < text.size() && text[at + 1] == '}')
            ++at;
        else if (text[at] == '{' && at > 0 && text[at - 1] == '=')
            braced = true;
        else if (text[at] == '}')
            braced = false;
        else if (text[at] == ';' && !braced)
            ++elements;
    }
    return elements;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    const auto parts = ConnectionParts::Read(text);
    ConnectionParts plain = parts;
    plain.user = plain.password = "x";
    plain.integrated = parts.integrated;
    Require(Elements(parts.DriverText()) == Elements(plain.DriverText()));
    const auto again =
        ConnectionParts::Read("Data Source=" + parts.server + ";Initial Catalog=" + parts.database +
                              ";User ID=" + parts.user + ";Password=" + parts.password);
    Require(again.server == parts.server && again.database == parts.database && again.user == parts.user);
    Require(again.password == parts.password || parts.password.find(';') != std::string::npos);
    return 0;
}
