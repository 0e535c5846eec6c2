// Fills the object model from the server's catalogue. It reads no system table and sends no SQL: all it knows
// comes from the catalogue tree behind g_objSQLServer.
//
// The event loop gets a turn once a table; that is how the stop commands reach the load.
#pragma once

#include <cstdint>
#include <string>

namespace quillon {

class mdTable;
namespace catalogue {
class Table;
}

namespace basLoadMetaData {

// The text that makes a trigger one of the system's own.
inline constexpr const char* TriggerMarker = "<TAG>QUILLON GENERATED - DO NOT REMOVE</TAG>";

// Replaces g_objAudit by a new model of g_strDatabase; True only when every table was reached. Stopped or
// failed, the tables reached so far stay.
bool CreateObjectHeirarchy();

void LoadFields(catalogue::Table& table, mdTable& model);
// In the table's column order; the key's own order is not asked.
void LoadPrimaryKeyFields(catalogue::Table& table, mdTable& model);
// The triggers whose text holds the marker; others are invisible to the whole model.
void LoadTriggers(mdTable& model);

// Empties and refills the triggers of every table, until the stop flag is set; the flag stays.
void ReloadTriggers();

// The column is in PrimaryKeyFields; exact in case.
bool IsKey(mdTable& model, const std::string& column);

// The type as written in a CREATE TABLE, with the catalogue's length in bytes.
std::string GetSQLDataTypeName(const std::string& type, std::int32_t length, std::int32_t precision,
                               std::int32_t scale);
// The length in characters. A GUID counts as 50.
double GetSQLDatatypeLength(const std::string& type, std::int32_t length);

} // namespace basLoadMetaData
} // namespace quillon
