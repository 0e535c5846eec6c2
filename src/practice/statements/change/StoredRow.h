// A row's values as SQLite stores them, held apart from any statement: what lies between reading rows and
// writing them.
#pragma once

#include "practice/storage/Sqlite.h"
#include "practice/values/SqlType.h"

#include <string>
#include <variant>
#include <vector>

namespace quillon::practice {

class Datum;

class StoredValue {
  public:
    StoredValue() = default; // NULL
    explicit StoredValue(std::int64_t integer)
        : m_value(integer) {}
    static StoredValue Blob(std::string bytes) { return StoredValue(Bytes{std::move(bytes)}); }
    static StoredValue Of(sqlite3_value* value);
    static StoredValue Column(const Prepared& statement, int column) { return Of(statement.Value(column)); }

    bool IsNull() const { return std::holds_alternative<std::monostate>(m_value); }
    std::int64_t Integer() const { return std::get<std::int64_t>(m_value); }
    void Bind(Prepared& statement, int index) const;
    bool operator==(const StoredValue&) const = default;

  private:
    struct Bytes {
        std::string bytes;
        bool operator==(const Bytes&) const = default;
    };
    explicit StoredValue(Bytes bytes)
        : m_value(std::move(bytes)) {}
    std::variant<std::monostate, std::int64_t, double, std::string, Bytes> m_value;
};

using StoredRow = std::vector<StoredValue>;

// All columns of the row under the statement from `first` on.
StoredRow RowOf(const Prepared& statement, int first = 0);
void BindRow(Prepared& statement, const StoredRow& row, int firstIndex = 1);

} // namespace quillon::practice
