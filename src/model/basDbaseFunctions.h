// Small shared services over the session's connections, and the text helpers that go with them.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "platform/DataAccess.h"

namespace quillon {

class ComboBox;
class mdTable;

namespace basDbaseFunctions {

// --- recordsets on the session's data connection ---
// Opens a query; `recordset` becomes a new recordset, which is closed when the query failed. A broken
// connection is opened again and the query repeated, three times at most.
void OpenRecordset(const std::string& sql, data::RecordsetRef& recordset, data::CursorType cursor,
                   data::LockType lock);

// Rows of a recordset, which comes back on its first row; one that is empty is not moved.
std::int32_t GetRecordCount(data::Recordset& recordset);

// Fills a list with "{All}", selected, and the first column of each row; a numeric second column becomes the
// entry's number. A query without rows leaves the list without "{All}". False on a failure.
//
// Every NULL in the first column shifts the numbers of the rows behind it one entry up, as users of the
// lists' numbers have always had it.
bool pub_FillComboFromSQL(ComboBox& list, const std::string& sql, bool clearFirst);
// Closes the recordset.
bool pub_FillComboFromSQL(ComboBox& list, const data::RecordsetRef& recordset, bool clearFirst);

// Fills the main screen's list of databases from the catalogue, and opens it.
void AvailableDatabases();

// --- texts, files, time ---
// The type name alone: every "()" goes, then every blank, then every "identity".
std::string Trim_Identity(std::string type);

// Trimmed, and without a comma at the end.
std::string RemoveTrailingComma(const std::string& text);

// Deletes the file if it exists.
void KillAFile(const std::string& path);

// Keeps the event loop turning until the seconds have passed.
void Wait(std::int32_t seconds);

// The flag of the first table of a run: on this table when it is the first one counted, off on all others.
void SetFirstLast(std::int16_t counter, mdTable& table);

} // namespace basDbaseFunctions
} // namespace quillon
