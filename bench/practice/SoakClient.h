// One client of the soak: writes rows until it is killed, and notes in memory shared with its parent what the
// server has promised it.
#pragma once

#include <cstdint>
#include <string>

namespace quillon::practice::bench {

// What the parent must find in the database after this client has been killed at any moment: the rows 1 to
// `promised`, and either all or none of the `pending` ones after them.
struct Promise {
    volatile std::int64_t promised;
    volatile std::int64_t pending;
    volatile std::int64_t failures; // answers that were neither success nor a deadlock or time-out
};

constexpr const char* soakTables = R"(
CREATE TABLE soak (client int NOT NULL, number int NOT NULL, note nvarchar(100), PRIMARY KEY (client, number));
CREATE TABLE total (id int NOT NULL PRIMARY KEY, rowsWritten int NOT NULL);
INSERT total VALUES (1, 0))";

// Never returns but by being killed.
[[noreturn]] void RunSoakClient(std::uint16_t port, const std::string& password, int client,
                                Promise& promise);

} // namespace quillon::practice::bench
