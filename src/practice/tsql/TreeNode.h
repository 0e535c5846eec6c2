#pragma once

// What every node of the syntax tree has in common: where it stands in the text, and the kinds by which a
// reader tells one node from another. A node owns its children through std::unique_ptr; a whole tree belongs
// to the Batch (Tree.h) it was parsed from, and positions point into that batch's text. A tree is never
// changed after parsing and belongs to one session, so the attachments below need no lock.

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace quillon::practice::tsql {

/// Where a token begins: `line` counts from 1 at the start of the batch, `offset` counts bytes of its UTF-8
/// text.
struct Position {
    int line = 1;
    std::size_t offset = 0;
};

/// A stretch of the batch's text, in bytes: [begin, end).
struct Span {
    std::size_t begin = 0;
    std::size_t end = 0;
};

/// Whatever later stages want to remember about a node (a prepared statement, a bound form); it dies with the
/// node.
class Attachment {
  public:
    virtual ~Attachment() = default;
};

/// A name of one to four parts, as server.database.schema.object or database.schema.table.column. A part that
/// was left out between two points (`db..t`) is empty. Parts have lost their brackets and quotes.
struct Name {
    std::vector<std::string> parts;
    Position position;

    bool Empty() const { return parts.empty(); }
    /// The last part: the object's or column's own name; empty for an empty name.
    const std::string& Last() const;
    /// The part that stands `back` places before the last one, empty when there is none.
    const std::string& Before(std::size_t back) const;
    const std::string& Schema() const { return Before(1); }
    const std::string& Database() const { return Before(2); }
    const std::string& Server() const { return Before(3); }
    /// The parts joined by points, as messages show them.
    std::string Text() const;
};

/// A data type as it was written, its synonyms resolved (`integer` is `int`, `national char varying` is
/// `nvarchar`, `timestamp` stays). A name that is none of the system's types is kept as written, with its
/// schema.
struct DataType {
    Name name;
    bool hasLength = false; // a length, precision or `max` was given
    bool isMax = false;
    int length =
        0; // of a text or binary type; precision of a number, scale of datetime2, time, datetimeoffset
    bool hasScale = false;
    int scale = 0;
};

enum class ExpressionKind {
    Literal,
    Column,
    PseudoColumn,
    Variable,
    GlobalVariable,
    Unary,
    Binary,
    Function,
    Cast,
    Case,
    Collate,
    Subquery,
    DefaultValue,
    Comparison,
    Logical,
    Not,
    IsNull,
    Between,
    Like,
    InList,
    InQuery,
    Quantified,
    Exists,
};

/// An operand or a condition; conditions are the kinds from Comparison on, and the call UPDATE(column). `end`
/// is the offset after its last token. `height` counts the nodes on the longest way down; the parser bounds
/// it, so that walking a tree by recursion is safe however long a chain of operators the text holds.
struct Expression {
    ExpressionKind kind;
    Position position;
    int height = 1;
    std::size_t end = 0;
    mutable std::unique_ptr<Attachment> attachment;

    explicit Expression(ExpressionKind k)
        : kind(k) {}
    virtual ~Expression() = default;
    virtual bool IsCondition() const { return kind >= ExpressionKind::Comparison; }
};

using ExpressionPtr = std::unique_ptr<Expression>;
using ExpressionList = std::vector<ExpressionPtr>;

enum class StatementKind {
    // Queries and changes of data
    Select,
    Insert,
    Update,
    Delete,
    Merge,
    Truncate,
    // Definition
    CreateDatabase,
    AlterDatabase,
    CreateSchema,
    AlterSchemaTransfer,
    CreateTable,
    AlterTable,
    CreateIndex,
    AlterIndex,
    CreateStatistics,
    UpdateStatistics,
    CreateType,
    CreateSynonym,
    CreateView,
    CreateProcedure,
    CreateFunction,
    CreateTrigger,
    EnableTrigger,
    CreateDefaultOrRule,
    Drop,
    DropIndex,
    DropTrigger,
    // Principals and rights
    CreateLogin,
    AlterLogin,
    CreateUser,
    AlterUser,
    CreateRole,
    AlterRole,
    Permission,
    AlterAuthorization,
    // Control of flow
    Block,
    If,
    While,
    Break,
    Continue,
    Goto,
    Label,
    Return,
    WaitFor,
    TryCatch,
    Print,
    RaiseError,
    Throw,
    // Variables, settings, transactions
    DeclareVariables,
    DeclareTable,
    SetVariable,
    SetOption,
    BeginTransaction,
    CommitTransaction,
    RollbackTransaction,
    SaveTransaction,
    // Calls
    ExecuteProcedure,
    ExecuteText,
    ExecuteAs,
    Revert,
    // Cursors
    DeclareCursor,
    SetCursorVariable,
    OpenCursor,
    FetchCursor,
    CloseCursor,
    DeallocateCursor,
    // Others
    Refused,
    Use,
    Dbcc,
    Kill,
    Checkpoint,
    Reconfigure,
};

/// A statement; `text` is its whole stretch without a closing semicolon.
struct Statement {
    StatementKind kind;
    Position position;
    Span text;
    mutable std::unique_ptr<Attachment> attachment;

    explicit Statement(StatementKind k)
        : kind(k) {}
    virtual ~Statement() = default;
};

using StatementPtr = std::unique_ptr<Statement>;
using StatementList = std::vector<StatementPtr>;

/// The node as the type that goes with its kind. The caller has looked at `kind`; nothing is checked in a
/// release.
template <class Node, class Base>
const Node& As(const Base& node) {
    return static_cast<const Node&>(node);
}
template <class Node, class Base>
const Node& As(const std::unique_ptr<Base>& node) {
    return static_cast<const Node&>(*node);
}

} // namespace quillon::practice::tsql
