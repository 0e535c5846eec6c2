#pragma once

// Statements that change rows.

#include "practice/tsql/TreeQueries.h"

namespace quillon::practice::tsql {

struct ExecuteStatement; // TreeControl.h

/// What an INSERT, UPDATE, DELETE or MERGE writes to: a name (table, view, alias of its FROM, CTE) or a table
/// variable.
struct DmlTarget {
    Position position;
    Name name;
    std::string variable; // with its @; then `name` is empty
    std::vector<std::string> hints;
};

/// OUTPUT items [INTO target (columns)]. One without INTO sends its rows to the client.
struct OutputClause {
    std::vector<SelectItem> items; // columns are written inserted.c, deleted.c
    bool hasInto = false;
    DmlTarget into;
    std::vector<std::string> intoColumns;
};

struct DmlStatement : Statement {
    std::vector<CommonTable> with;
    std::optional<Top> top;
    DmlTarget target;
    std::vector<OutputClause> output;
    std::vector<QueryHint> hints;

    using Statement::Statement;
};

enum class InsertSource { Values, Query, Execute, Defaults, Bulk };

/// What INSERT BULK asks for besides the rows, which come in a message of their own.
struct BulkOptions {
    bool checkConstraints = false; // CHECK and foreign keys hold for the rows
    bool fireTriggers = false;
    bool keepNulls = false; // a NULL stays NULL where the column has a default
};

struct InsertStatement : DmlStatement {
    std::vector<Name> columns; // none when the list was left out
    bool hasColumns = false;
    InsertSource source = InsertSource::Values;
    std::vector<ExpressionList> rows; // may hold DefaultValue
    std::unique_ptr<Query> query;
    StatementPtr execute; // ExecuteProcedure or ExecuteText
    BulkOptions bulk;

    InsertStatement()
        : DmlStatement(StatementKind::Insert) {}
};

/// One assignment after SET: `column = e`, `@v = e`, `@v = column = e`, each with = or a compound operator.
struct SetClause {
    Position position;
    Name column;
    std::string variable;
    AssignmentOperator op = AssignmentOperator::Set;
    ExpressionPtr value; // may be DefaultValue
};

/// WHERE CURRENT OF cursor; `variable` tells a cursor variable's name (with its @) from a cursor's.
struct CurrentOf {
    std::string cursor;
    bool global = false;
    bool variable = false;
    Position position;
};

struct UpdateStatement : DmlStatement {
    std::vector<SetClause> sets;
    std::vector<TableSourcePtr> from;
    ExpressionPtr where;
    std::optional<CurrentOf> currentOf;

    UpdateStatement()
        : DmlStatement(StatementKind::Update) {}
};

struct DeleteStatement : DmlStatement {
    std::vector<TableSourcePtr> from; // the second FROM, that of the joins
    ExpressionPtr where;
    std::optional<CurrentOf> currentOf;

    DeleteStatement()
        : DmlStatement(StatementKind::Delete) {}
};

enum class MergeMatch { Matched, NotMatchedByTarget, NotMatchedBySource };
enum class MergeAction { Update, Delete, Insert };

struct MergeClause {
    Position position;
    MergeMatch match = MergeMatch::Matched;
    ExpressionPtr condition;
    MergeAction action = MergeAction::Update;
    std::vector<SetClause> sets;
    std::vector<Name> columns;
    bool hasColumns = false;
    bool defaultValues = false;
    ExpressionList values;
};

struct MergeStatement : DmlStatement {
    std::string targetAlias;
    TableSourcePtr source;
    ExpressionPtr on;
    std::vector<MergeClause> clauses;

    MergeStatement()
        : DmlStatement(StatementKind::Merge) {}
};

struct TruncateStatement : Statement {
    Name table;

    TruncateStatement()
        : Statement(StatementKind::Truncate) {}
};

} // namespace quillon::practice::tsql
