// The connection through which a catalogue tree asks its server, and the count of its round trips.
//
// One connection serves all databases: a question names its database, and the connection goes there with it
// and comes back to master, so that it keeps no one from dropping, restoring or moving a database.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "adapters/odbc/ConnectionText.h"
#include "adapters/odbc/Link.h"
#include "platform/Value.h"

namespace quillon::adapters {

// One row of an answer, read column by column from the left; a NULL reads as nothing, zero or false.
class AnswerRow {
  public:
    explicit AnswerRow(const std::vector<Value>& values)
        : m_values(values) {}
    std::string Text();
    std::int32_t Number();
    bool Flag();
    DateValue Date();

  private:
    const Value& Next() { return m_values.at(m_next++); }
    const std::vector<Value>& m_values;
    std::size_t m_next = 0;
};

class CatalogueLink {
  public:
    using Reader = std::function<void(AnswerRow&)>;

    // Connects; the database of `target` does not matter. `roundTrips` counts what is sent from now on; it
    // outlives the link. Raises the driver's failure.
    CatalogueLink(ConnectionParts target, std::size_t& roundTrips);

    // Asks in one round trip; the readers get the rows of the results in turn. An empty database means
    // master. Raises the server's failure.
    void Ask(const std::string& database, const std::string& sql, const std::vector<Reader>& readers);
    // A statement without an answer.
    void Run(const std::string& database, const std::string& sql) { Ask(database, sql, {}); }

  private:
    void Read(const std::string& text, const std::vector<Reader>& readers);

    std::shared_ptr<Link> m_link;
    std::size_t& m_roundTrips;
};

// A name in brackets.
std::string Quoted(const std::string& name);
// "[owner].[name]"
std::string Quoted(const std::string& owner, const std::string& name);
// A text as a national literal.
std::string Literal(const std::string& text);

} // namespace quillon::adapters
