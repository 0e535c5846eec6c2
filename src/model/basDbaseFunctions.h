// Small shared services over the session's connections, and the text helpers that go with them.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

namespace quillon {

class mdTable;

namespace basDbaseFunctions {

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
