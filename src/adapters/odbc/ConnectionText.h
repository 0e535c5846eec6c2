// The connection strings that the system builds, read, and the one that the installed driver takes.
//
// Both forms are read: "Provider=sqloledb;Data Source=...;Initial Catalog=...;User ID=...;Password=...;" and
// "Driver={SQL Server};Server=...;Database=...;Uid=...;Pwd=...;". Keys compare without regard to case, empty
// elements are skipped, provider and driver names mean the driver that is installed here. The strings quote
// nothing: an element without "=" belongs to the name before it, and the password, which stands last in both
// forms, is all that is left but for the closing semicolon.
#pragma once

#include <string>

namespace quillon::adapters {

struct ConnectionParts {
    std::string server; // "host", "host,port" or "host\\instance"
    std::string database;
    std::string user;
    std::string password;
    bool integrated = false; // integrated security: asked for, or no user given

    // A password behind an empty one, "Pwd=;secret", is the password: one of the system's forms has it there.
    static ConnectionParts Read(const std::string& connectionString);

    // For SQLDriverConnect with the FreeTDS driver of unixODBC; text crosses as UTF-8. Raises 5 for a value
    // that the driver's syntax cannot hold.
    std::string DriverText() const;
};

} // namespace quillon::adapters
