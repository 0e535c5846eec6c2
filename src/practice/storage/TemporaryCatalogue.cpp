#include "practice/storage/TemporaryCatalogue.h"

#include "practice/storage/Sqlite.h"

#include <array>

namespace quillon::practice {

namespace {

constexpr std::array parts = {"object",  "column",   "index",       "index_column",
                              "default", "check",    "foreign_key", "foreign_key_column",
                              "module",  "parameter"};

// `#t` as 128 characters that no other object has.
std::string FullName(const SchemaObject& object) {
    constexpr int numberWidth = 12;
    constexpr int width = 128 - numberWidth;
    std::string name = object.name;
    const auto isFirst = [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; };
    for (auto length = std::count_if(name.begin(), name.end(), isFirst); length < width; ++length)
        name += '_';
    std::array<char, numberWidth + 1> number{};
    std::snprintf(number.data(), number.size(), "%0*X", numberWidth, static_cast<unsigned>(object.id));
    return name + number.data();
}

bool IsWordPart(char c) {
    return c == '_' || (c >= 'a' && c <= 'z');
}

} // namespace

TemporaryCatalogue::TemporaryCatalogue(sqlite3* connection)
    : m_connection(connection)
    , m_saver(connection, "temp.k_") {}

// Made anew each time: a rollback takes back what was done in TEMP as well.
void TemporaryCatalogue::Fill(const TemporaryTables& tables) {
    for (const char* part : parts) {
        const std::string name = part;
        Prepared(m_connection, "CREATE TEMP TABLE IF NOT EXISTS k_" + name + " AS SELECT * FROM main.q_" +
                                   name + " WHERE 0")
            .Run();
        Prepared(m_connection, "DELETE FROM temp.k_" + name).Run();
    }
    for (const TemporaryTables::Entry& entry : tables.All().tables) {
        if (entry.table->variable)
            continue;
        Table known = *entry.table;
        known.name = FullName(known);
        m_saver.Add(known);
    }
    for (const auto& [name, procedure] : tables.All().procedures) {
        Module known = *procedure;
        known.name = FullName(known);
        m_saver.Add(known);
    }
}

std::string TemporaryCatalogue::Over(std::string select, const TemporaryTables& tables) {
    if (m_filled != tables.Version())
        Fill(tables);
    m_filled = tables.Version();
    for (std::size_t at = select.find("q_"); at != std::string::npos; at = select.find("q_", at)) {
        std::size_t end = at + 2;
        while (end < select.size() && IsWordPart(select[end]))
            ++end;
        const std::string part = select.substr(at + 2, end - at - 2);
        const bool isWord = at == 0 || !IsWordPart(select[at - 1]);
        if (!isWord || std::find(parts.begin(), parts.end(), part) == parts.end()) {
            at = end;
            continue;
        }
        const std::string both =
            "(SELECT * FROM main.q_" + part + " UNION ALL SELECT * FROM temp.k_" + part + ")";
        select.replace(at, end - at, both);
        at += both.size();
    }
    return select;
}

} // namespace quillon::practice
