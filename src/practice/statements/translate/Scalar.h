// Scalar: an expression that has been bound: its text in SQLite's language, yielding the storage form of its
// static type, and what T-SQL knows of it without running it.
#pragma once

#include "practice/values/Datum.h"

#include <optional>
#include <string>

namespace quillon::practice {

// How strongly an expression holds its collation, as the rules of collation precedence name it.
enum class CollationLabel : std::uint8_t { CoercibleDefault, Implicit, NoCollation, Explicit };

struct Scalar {
    std::string sql;
    SqlType type; // TypeId::Null for the bare word NULL
    bool nullable = true;
    CollationLabel label = CollationLabel::CoercibleDefault;
    std::optional<Datum> constant; // a literal, or folded from literals
    bool isLiteral = false;        // a number as it was written, perhaps with a sign
    bool isParameter = false;      // a variable alone

    bool IsBareNull() const { return type.id == TypeId::Null; }
};

// One column of a query's result, or of a source in FROM.
struct OutputColumn {
    std::string name;
    SqlType type;
    bool nullable = true;
    CollationLabel label = CollationLabel::Implicit;
    bool identity = false;
    bool readOnly = true;    // no column of a table
    std::string tableName;   // base table of a plain column
    int baseColumn = 0;      // its id there, where the query has one updatable table
    bool isBareNull = false; // the word NULL; counts as int, but in a UNION as the other side
};

// What SQLite calls the column of a query's result, by its index.
std::string OutputName(std::size_t index);

// A query in SQLite's language; its columns are named o1, o2 ...
struct QuerySql {
    std::string sql;
    std::vector<OutputColumn> columns;
    bool oneRow = false;  // never more than one row
    bool ordered = false; // has an ORDER BY of its own
    // The one table whose rows the query shows one to one, when asked to keep their ids (column `rid`).
    std::shared_ptr<const struct Table> base;
};

} // namespace quillon::practice
