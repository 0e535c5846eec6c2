// The connection strings that the system builds, read, and the one that the installed driver takes.
//
// Both forms are read: "Provider=sqloledb;Data Source=...;Initial Catalog=...;User ID=...;Password=...;" and
// "Driver={SQL Server};Server=...;Database=...;Uid=...;Pwd=...;". Keys compare without regard to case, empty
// elements are skipped, provider and driver names mean the driver that is installed here.
#pragma once

#include <string>

namespace quillon::adapters {

struct ConnectionParts {
    std::string server; // "host", "host,port" or "host\instance"
    std::string database;
    std::string user;
    std::string password;
    bool integrated = false; // integrated security: asked for, or neither user nor password given

    // An element without "=" that follows an empty Pwd is the password: one of the system's forms has it
    // there.
    static ConnectionParts Read(const std::string& connectionString);

    // For SQLDriverConnect with the FreeTDS driver of unixODBC; text crosses as UTF-8.
    std::string DriverText() const;
};

} // namespace quillon::adapters
