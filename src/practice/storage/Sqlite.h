// A thin, owning form of SQLite's prepared statements: bind, step, read, with failures as exceptions. It adds
// nothing to SQLite's meaning.
#pragma once

#include "practice/storage/StoreFailure.h"

#include <cstdint>
#include <string>
#include <string_view>

struct sqlite3;
struct sqlite3_stmt;
struct sqlite3_value;

namespace quillon::practice {

class Prepared {
  public:
    Prepared() = default;
    // `lasting` tells SQLite that the statement will be kept and run often.
    Prepared(sqlite3* connection, std::string_view sql, bool lasting = false);
    ~Prepared();
    Prepared(Prepared&& other) noexcept;
    Prepared& operator=(Prepared&& other) noexcept;
    Prepared(const Prepared&) = delete;
    Prepared& operator=(const Prepared&) = delete;

    explicit operator bool() const { return m_statement != nullptr; }
    sqlite3_stmt* Handle() const { return m_statement; }

    // Parameters count from 1; each returns *this.
    Prepared& Bind(int index, std::int64_t value);
    Prepared& Bind(int index, std::string_view text); // copied
    Prepared& BindBlob(int index, std::string_view bytes);
    Prepared& BindNull(int index);
    Prepared& BindValue(int index, const sqlite3_value* value);

    // True while there is a row. Throws Interrupted or StoreFailure.
    bool Step();
    // Runs to the end and makes it ready to run again.
    void Run();
    void Reset() noexcept;

    // Columns count from 0.
    int ColumnCount() const;
    std::int64_t Integer(int column) const;
    std::string Text(int column) const; // empty for NULL
    std::string Blob(int column) const;
    bool IsNull(int column) const;
    sqlite3_value* Value(int column) const;

  private:
    sqlite3* m_connection = nullptr;
    sqlite3_stmt* m_statement = nullptr;
};

// Gives a statement back for its next run however the scope is left.
class ResetGuard {
  public:
    explicit ResetGuard(Prepared& statement)
        : m_statement(statement) {}
    ~ResetGuard() { m_statement.Reset(); }
    ResetGuard(const ResetGuard&) = delete;
    ResetGuard& operator=(const ResetGuard&) = delete;

  private:
    Prepared& m_statement;
};

} // namespace quillon::practice
