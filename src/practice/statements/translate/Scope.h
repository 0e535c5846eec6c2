// Scopes: what a column's name can mean at one place of a query. Each SELECT has one; subqueries see that of
// the query around them as their outer scope.
#pragma once

#include "practice/statements/translate/Scalar.h"
#include "practice/storage/Definitions.h"
#include "practice/tsql/TreeNode.h"

#include <memory>
#include <set>
#include <string>
#include <vector>

namespace quillon::practice {

struct SourceColumn {
    std::string name;
    std::string sql; // s1.c3; empty for a computed column that is worked out when it is read
    SqlType type;
    bool nullable = true;
    CollationLabel label = CollationLabel::Implicit;
    const Column* definition = nullptr; // of a table's column; lives as long as Source::table
    bool identity = false;
    bool readOnly = false;
    bool outOfReach = false; // 311 for whoever names it
    std::string tableName;
    int baseColumn = 0;
};

// One element of FROM.
struct Source {
    NameRule nameRule;   // of the name that columns may be qualified with
    NameRule columnRule; // of its columns' names
    std::string alias;   // s1: what SQL for SQLite calls it
    std::string exposed; // the name that columns may be qualified with
    std::string schema;  // and before it, when it is a table's own name
    std::string database;
    std::vector<SourceColumn> columns;
    std::shared_ptr<const Table> table;    // base table or row set
    std::shared_ptr<const Module> view;    // view that was expanded here
    bool hasRowId = false;                 // <alias>.rid or rowid tells its rows apart
    std::string rowId;                     // SQL for it
    std::shared_ptr<const Table> rowTable; // the table that rowId is of
};

// The column as a query shows it that names it.
OutputColumn OutputOf(const SourceColumn& column);

struct ColumnUse {
    const Source* source = nullptr;
    const SourceColumn* column = nullptr;
};

// Columns that are handed over rather than named: to an outer query that computes over an inner one's rows
// (k1, k2 ... of `alias`), or as parameters to a lateral table (from ?<firstParameter> on).
struct Capture {
    std::string alias;
    int firstParameter = 0;
    std::vector<std::string> sql; // what each of them is where it comes from

    // Takes the column in; returns what to call it inside.
    std::string Take(const std::string& column);
};

struct Scope {
    const Scope* outer = nullptr;
    std::vector<std::unique_ptr<Source>> sources;
    // GROUP BY: the SQL of its expressions. A grouped query may use nothing else outside of aggregates.
    std::vector<std::string> groupKeys;
    // ROLLUP and its kin: the keys of the set that is translated; nullptr where all keys group. Those of
    // groupKeys that are not among them are NULL.
    using GroupingSet = std::vector<const tsql::Expression*>;
    const GroupingSet* groupingSet = nullptr;
    std::set<std::string> absentKeys;
    // What the translation of its expressions finds out, step by step.
    mutable bool sawAggregate = false;
    mutable bool sawWindow = false;
    mutable int insideAggregate = 0;
    mutable int aggregateError = 0;              // not 0 where aggregates may not stand: the error then
    mutable std::vector<ColumnUse> looseColumns; // used outside of aggregates and keys
    mutable std::vector<Capture*> captures;      // the outermost first
};

// The columns that a name may stand for in one scope; more than one is ambiguous.
std::vector<ColumnUse> FindColumns(const Scope& scope, const tsql::Name& name);
// Whether `qualifier` (one to three parts) names the source.
bool Matches(const Source& source, const tsql::Name& qualifier, std::size_t parts);

} // namespace quillon::practice
