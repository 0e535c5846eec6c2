#pragma once

// Queries: SELECT with everything that may stand in it, what follows FROM, windows, and the statement itself.

#include "practice/tsql/TreeExpressions.h"

namespace quillon::practice::tsql {

struct OrderItem {
    ExpressionPtr expression; // an integer literal names a column of the select list
    bool descending = false;
};

enum class FrameBound { UnboundedPreceding, Preceding, CurrentRow, Following, UnboundedFollowing };

struct WindowFrame {
    bool rows = true; // otherwise RANGE
    FrameBound start = FrameBound::UnboundedPreceding;
    FrameBound end = FrameBound::CurrentRow;
    ExpressionPtr startCount; // for Preceding and Following
    ExpressionPtr endCount;
};

struct OverClause {
    ExpressionList partitionBy;
    std::vector<OrderItem> orderBy;
    std::optional<WindowFrame> frame;
};

struct Top {
    ExpressionPtr count;
    bool percent = false;
    bool withTies = false;
};

enum class AssignmentOperator { Set, Add, Subtract, Multiply, Divide, Modulo, BitAnd, BitOr, BitXor };

struct SelectItem {
    enum class Kind { Star, QualifiedStar, Value, Assignment };
    Kind kind = Kind::Value;
    Position position;
    std::size_t end = 0;
    Name qualifier; // of `t.*`
    ExpressionPtr expression;
    std::string alias;
    std::string variable; // of `@v = expression`
    AssignmentOperator op = AssignmentOperator::Set;
};

enum class TableSourceKind { Table, Variable, Function, Derived, Values, Join, Pivot, Unpivot };

/// What may stand after FROM. `alias` is empty where none was given.
struct TableSource {
    TableSourceKind kind;
    Position position;
    int height = 1;
    std::string alias;
    std::vector<std::string> columnAliases;

    explicit TableSource(TableSourceKind k)
        : kind(k) {}
    virtual ~TableSource() = default;
};

using TableSourcePtr = std::unique_ptr<TableSource>;

/// A table, view, temporary table, CTE, or `inserted` and `deleted`: which of them is for the binder to find
/// out.
struct NamedTable : TableSource {
    Name name;
    std::vector<std::string> hints; // upper case, arguments dropped; INDEX(...) is "INDEX"

    NamedTable()
        : TableSource(TableSourceKind::Table) {}
};

struct VariableTable : TableSource {
    std::string variable; // with its @
    std::vector<std::string> hints;

    VariableTable()
        : TableSource(TableSourceKind::Variable) {}
};

struct FunctionTable : TableSource {
    Name name;
    ExpressionList arguments;

    FunctionTable()
        : TableSource(TableSourceKind::Function) {}
};

struct DerivedTable : TableSource {
    std::unique_ptr<Query> query;

    DerivedTable();
    ~DerivedTable() override;
};

struct ValuesTable : TableSource {
    std::vector<ExpressionList> rows;

    ValuesTable()
        : TableSource(TableSourceKind::Values) {}
};

enum class JoinType { Inner, Left, Right, Full, Cross, CrossApply, OuterApply };

struct Join : TableSource {
    JoinType type = JoinType::Inner;
    TableSourcePtr left;
    TableSourcePtr right;
    ExpressionPtr condition; // empty for the cross and apply forms

    Join()
        : TableSource(TableSourceKind::Join) {}
};

enum class GroupingKind { Plain, Rollup, Cube, GroupingSets };

/// One element of GROUP BY. Plain has one set of one expression; ROLLUP and CUBE have one set for each of
/// their elements; GROUPING SETS one for each set, an empty one for `()`. The old `WITH ROLLUP` comes as
/// Rollup too.
struct GroupingElement {
    GroupingKind kind = GroupingKind::Plain;
    std::vector<ExpressionList> sets;
};

enum class SetOperator { Union, UnionAll, Except, Intersect };

enum class QueryBodyKind { Select, SetOperation };

struct QueryBody {
    QueryBodyKind kind;
    Position position;
    int height = 1;

    explicit QueryBody(QueryBodyKind k)
        : kind(k) {}
    virtual ~QueryBody() = default;
};

using QueryBodyPtr = std::unique_ptr<QueryBody>;

struct SelectBody : QueryBody {
    bool distinct = false;
    std::optional<Top> top;
    std::vector<SelectItem> items;
    Name into; // only in the first SELECT of a statement
    std::vector<TableSourcePtr> from;
    ExpressionPtr where;
    std::vector<GroupingElement> groupBy;
    ExpressionPtr having;

    SelectBody()
        : QueryBody(QueryBodyKind::Select) {}
};

struct SetOperation : QueryBody {
    SetOperator op = SetOperator::Union;
    QueryBodyPtr left;
    QueryBodyPtr right;

    SetOperation()
        : QueryBody(QueryBodyKind::SetOperation) {}
};

/// WITH name (columns) AS (query)
struct CommonTable {
    std::string name;
    Position position;
    std::vector<std::string> columns;
    std::unique_ptr<Query> query;
};

struct ForXml {
    enum class Mode { Raw, Auto, Path };
    Mode mode = Mode::Path;
    std::optional<std::string> element; // PATH('x'), RAW('x'); an empty text means no element
    std::optional<std::string> root;
    bool type = false;
    bool elements = false;
    bool nilElements = false; // ELEMENTS XSINIL
    bool base64 = false;      // BINARY BASE64
};

struct QueryHint {
    std::string name; // upper case: "MAXRECURSION", "RECOMPILE", "FORCE ORDER" ...
    std::optional<std::int64_t> value;
};

/// A query with what belongs to it as a whole. `with` is empty in subqueries: only a statement and a view
/// have one.
struct Query {
    Position position;
    std::size_t end = 0;
    int height = 1;
    std::vector<CommonTable> with;
    QueryBodyPtr body;
    std::vector<OrderItem> orderBy;
    ExpressionPtr offset;
    ExpressionPtr fetch;
    std::optional<ForXml> forXml;
    bool forBrowse = false;
    mutable std::unique_ptr<Attachment> attachment;
};

struct SelectStatement : Statement {
    Query query;
    std::vector<QueryHint> hints;

    SelectStatement()
        : Statement(StatementKind::Select) {}
    /// The first SELECT, the one that can carry INTO and assignments to variables.
    const SelectBody& First() const;
};

} // namespace quillon::practice::tsql
