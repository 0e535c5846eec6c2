// How the store fails: for want of a better end, or because somebody asked for it.
#pragma once

#include <exception>
#include <stdexcept>
#include <string>

struct sqlite3;

namespace quillon::practice {

// The running statement was interrupted from another thread. Not an SqlError: no TRY/CATCH sees it.
class Interrupted : public std::exception {
  public:
    const char* what() const noexcept override { return "the request was cancelled"; }
};

// SQLite said no where our own checks should have kept it from being asked; carries its text.
class StoreFailure : public std::runtime_error {
  public:
    StoreFailure(int sqliteCode, const std::string& text)
        : std::runtime_error(text)
        , code(sqliteCode) {}
    int code; // extended result code
};

// Throws Interrupted or StoreFailure for the connection's last error.
[[noreturn]] void ThrowStoreFailure(sqlite3* connection);

} // namespace quillon::practice
