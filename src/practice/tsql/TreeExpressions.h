#pragma once

// Expressions. Operands and conditions are one family, since brackets may hold either; the parser has already
// refused a condition where a value must stand and a value where a condition must.

#include "practice/tsql/TreeNode.h"

#include <optional>

namespace quillon::practice::tsql {

struct Query; // TreeQueries.h
struct OrderItem;
struct OverClause;

enum class LiteralType {
    Null,
    Integer, // digits without a point; more than an int holds makes it a decimal
    Decimal, // digits with a point
    Float,   // with an exponent
    Money,   // after a currency sign, which `text` keeps
    String,  // '...'
    NString, // N'...'
    Binary,  // 0x..., as written
};

struct Literal : Expression {
    LiteralType type = LiteralType::Null;
    std::string text; // strings without their quotes and with doubled quotes made single

    Literal()
        : Expression(ExpressionKind::Literal) {}
};

/// A column, as column, table.column, schema.table.column or database.schema.table.column. Also what stands
/// for a date part in DATEADD and its family.
struct ColumnReference : Expression {
    Name name;

    ColumnReference()
        : Expression(ExpressionKind::Column) {}
};

/// $IDENTITY, $ROWGUID, $ACTION (with the sign, in the letters of the query), with a table before it or not.
struct PseudoColumn : Expression {
    std::string name;
    Name table;

    PseudoColumn()
        : Expression(ExpressionKind::PseudoColumn) {}
};

struct VariableReference : Expression {
    std::string name; // with its @

    VariableReference()
        : Expression(ExpressionKind::Variable) {}
};

struct GlobalVariable : Expression {
    std::string name; // with its @@, in upper case

    GlobalVariable()
        : Expression(ExpressionKind::GlobalVariable) {}
};

enum class UnaryOperator { Plus, Minus, BitNot };

struct Unary : Expression {
    UnaryOperator op = UnaryOperator::Plus;
    ExpressionPtr operand;

    Unary()
        : Expression(ExpressionKind::Unary) {}
};

enum class BinaryOperator { Add, Subtract, Multiply, Divide, Modulo, BitAnd, BitOr, BitXor };

struct Binary : Expression {
    BinaryOperator op = BinaryOperator::Add;
    ExpressionPtr left;
    ExpressionPtr right;

    Binary()
        : Expression(ExpressionKind::Binary) {}
};

/// A call: built-in or user's function, aggregate, ranking function. COALESCE, NULLIF, IIF, LEFT, RIGHT,
/// UPDATE and the names that take no brackets (CURRENT_TIMESTAMP, USER ...) come here too.
struct FunctionCall : Expression {
    Name name;
    ExpressionList arguments; // TRIM(a FROM b) has b, a
    bool niladic = false;     // written without brackets
    bool distinct = false;
    bool star = false; // COUNT(*)
    std::vector<OrderItem> withinGroup;
    std::unique_ptr<OverClause> over;

    FunctionCall();
    ~FunctionCall() override;
    bool IsCondition() const override;
};

/// CAST, TRY_CAST, CONVERT and TRY_CONVERT; `style` only for the last two.
struct Cast : Expression {
    bool convert = false;
    bool tryForm = false;
    DataType type;
    ExpressionPtr operand;
    ExpressionPtr style;

    Cast()
        : Expression(ExpressionKind::Cast) {}
};

struct CaseBranch {
    ExpressionPtr when; // a condition, or a value where the CASE has an input
    ExpressionPtr then;
};

struct Case : Expression {
    ExpressionPtr input;
    std::vector<CaseBranch> branches;
    ExpressionPtr otherwise;

    Case()
        : Expression(ExpressionKind::Case) {}
};

struct Collate : Expression {
    ExpressionPtr operand;
    std::string collation; // `database_default` too

    Collate()
        : Expression(ExpressionKind::Collate) {}
};

struct Subquery : Expression {
    std::unique_ptr<Query> query;

    Subquery();
    ~Subquery() override;
};

/// The word DEFAULT among the values of INSERT, in SET of UPDATE and among arguments.
struct DefaultValue : Expression {
    DefaultValue()
        : Expression(ExpressionKind::DefaultValue) {}
};

enum class ComparisonOperator { Equal, NotEqual, Less, LessEqual, Greater, GreaterEqual };

struct Comparison : Expression {
    ComparisonOperator op = ComparisonOperator::Equal;
    ExpressionPtr left;
    ExpressionPtr right;

    Comparison()
        : Expression(ExpressionKind::Comparison) {}
};

struct Logical : Expression {
    bool isAnd = true; // otherwise OR
    ExpressionPtr left;
    ExpressionPtr right;

    Logical()
        : Expression(ExpressionKind::Logical) {}
};

struct Not : Expression {
    ExpressionPtr operand;

    Not()
        : Expression(ExpressionKind::Not) {}
};

struct IsNull : Expression {
    ExpressionPtr operand;
    bool negated = false;

    IsNull()
        : Expression(ExpressionKind::IsNull) {}
};

struct Between : Expression {
    ExpressionPtr operand;
    ExpressionPtr low;
    ExpressionPtr high;
    bool negated = false;

    Between()
        : Expression(ExpressionKind::Between) {}
};

struct Like : Expression {
    ExpressionPtr operand;
    ExpressionPtr pattern;
    ExpressionPtr escape;
    bool negated = false;

    Like()
        : Expression(ExpressionKind::Like) {}
};

struct InList : Expression {
    ExpressionPtr operand;
    ExpressionList list;
    bool negated = false;

    InList()
        : Expression(ExpressionKind::InList) {}
};

struct InQuery : Expression {
    ExpressionPtr operand;
    std::unique_ptr<Query> query;
    bool negated = false;

    InQuery();
    ~InQuery() override;
};

/// `operand op ANY (query)` or `operand op ALL (query)`; SOME is ANY.
struct Quantified : Expression {
    ExpressionPtr operand;
    ComparisonOperator op = ComparisonOperator::Equal;
    bool all = false;
    std::unique_ptr<Query> query;

    Quantified();
    ~Quantified() override;
};

struct Exists : Expression {
    std::unique_ptr<Query> query;

    Exists();
    ~Exists() override;
};

} // namespace quillon::practice::tsql
