// The tree of a program, as the parser builds it and the compiler reads it.
//
// All nodes and lists lie in the tree's arena and die with it; none has a destructor of its own. A program
// tree looks at the texts of its own arena only, so it may outlive the program's characters.
#pragma once

#include <cstdint>
#include <memory_resource>
#include <span>
#include <string_view>
#include <vector>

#include "vbscript/source/Names.h"
#include "vbscript/source/Place.h"

namespace quillon::vbscript {

// --- expressions ---

enum class ExpressionKind : std::uint8_t { Literal, Name, Member, Call, Unary, Binary, New, Me, Bracket };

enum class LiteralKind : std::uint8_t {
    Empty,
    Null,
    Nothing,
    True,
    False,
    Integer,
    Long,
    Double,
    String,
    Date,
};

enum class UnaryOperator : std::uint8_t { Negate, Not };

enum class BinaryOperator : std::uint8_t {
    Power,
    Multiply,
    Divide,
    WholeDivide,
    Modulo,
    Add,
    Subtract,
    Concatenate,
    Equal,
    NotEqual,
    Less,
    LessOrEqual,
    Greater,
    GreaterOrEqual,
    Is,
    And,
    Or,
    Xor,
    Eqv,
    Imp,
};

struct Expression {
    ExpressionKind kind;
    std::uint16_t depth = 0; // nested nodes, the left operands of operators not counted
    Place place;
};

struct LiteralExpression : Expression {
    LiteralKind literal;
    double number;
    std::u16string_view text;
};
struct NameExpression : Expression {
    NameId name;
};
struct MemberExpression : Expression {
    Expression* object; // null: the object of the With around it
    NameId name;
};
struct CallExpression : Expression { // a call, an element, or a parameterised property
    Expression* callee;
    std::span<Expression* const> arguments; // null where one is left out
};
struct UnaryExpression : Expression {
    UnaryOperator operation;
    Expression* operand;
};
struct BinaryExpression : Expression {
    BinaryOperator operation;
    Expression* left;
    Expression* right;
};
struct NewExpression : Expression {
    NameId name;
};
struct BracketExpression : Expression { // brackets, or a plus sign, which does nothing either
    Expression* inner;
};

// --- statements ---

enum class StatementKind : std::uint8_t {
    Assign,
    Call,
    Dim,
    ReDim,
    Erase,
    If,
    Select,
    For,
    ForEach,
    Do,
    With,
    Exit,
    OnError,
    Stop,
};

struct Statement {
    StatementKind kind;
    Place place;
};
using Block = std::span<Statement* const>;

struct AssignStatement : Statement {
    bool isSet;
    Expression* target;
    Expression* value;
};
struct CallStatement : Statement {
    Expression* callee;
    std::span<Expression* const> arguments;
};
struct ReDimItem {
    NameId name;
    std::span<Expression* const> bounds;
};
struct ReDimStatement : Statement {
    bool preserve;
    std::span<const ReDimItem> items;
};
struct EraseStatement : Statement {
    std::span<const NameId> names;
};
struct Branch {
    Expression* condition;
    Block body;
    Place place;
};
struct IfStatement : Statement {
    std::span<const Branch> branches;
    Block otherwise;
};
struct SelectCase {
    std::span<Expression* const> values;
    Block body;
    Place place;
};
struct SelectStatement : Statement {
    Expression* subject;
    std::span<const SelectCase> cases;
    Block otherwise;
};
struct ForStatement : Statement {
    NameId variable;
    Expression* from;
    Expression* to;
    Expression* step; // null: 1
    Block body;
    Place end;
};
struct ForEachStatement : Statement {
    NameId variable;
    Expression* collection;
    Block body;
    Place end;
};
enum class LoopKind : std::uint8_t { Forever, WhileBefore, UntilBefore, WhileAfter, UntilAfter };
struct DoStatement : Statement {
    LoopKind loop;
    bool isWhileWend; // no Exit Do leaves it
    Expression* condition;
    Block body;
    Place end;
};
struct WithStatement : Statement {
    Expression* object;
    Block body;
};
enum class ExitKind : std::uint8_t { Do, For, Procedure };
struct ExitStatement : Statement {
    ExitKind exit;
};
struct OnErrorStatement : Statement {
    bool resumeNext;
};

// --- declarations ---

struct Declaration {
    NameId name;
    bool isArray;
    bool isPublic;                        // of a class
    std::span<const std::int32_t> bounds; // none: an array without a size
    Place place;
    bool isStatement = false; // made by a DimStatement, not where the scope begins
};
struct DimStatement : Statement { // the arrays of a Dim: until it runs, their variables are Empty
    std::span<const Declaration> arrays;
};
struct ConstantDeclaration {
    NameId name;
    const LiteralExpression* value;
    Place place;
};
struct Parameter {
    NameId name;
    bool byValue;
};
enum class ProcedureKind : std::uint8_t { Sub, Function, PropertyGet, PropertyLet, PropertySet };

// What a procedure and the body of a program have in common: a scope of names.
struct Scope {
    std::vector<Declaration> variables;
    std::vector<ConstantDeclaration> constants;
    std::vector<NameId> assigned;  // names that a statement writes to, declared or not
    std::vector<NameId> passed;    // names that stand alone as an argument
    std::vector<NameId> mentioned; // all names used, but for members
    std::vector<NameId> redimmed;  // which ReDim declares, where nothing else does
    Block body;
};
struct Procedure : Scope {
    ProcedureKind kind;
    NameId name;
    bool isPublic = true;
    bool isDefault = false;
    std::vector<Parameter> parameters;
    Place place;
    Place end;
};
struct ClassDeclaration {
    NameId name;
    std::vector<Declaration> fields;
    std::vector<Procedure> members;
    Place place;
};

struct Program : Scope {
    Program() = default;
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    bool isExplicit = false;
    std::vector<Procedure> procedures;
    std::vector<ClassDeclaration> classes;
    Place end;
    std::pmr::monotonic_buffer_resource arena;
};

} // namespace quillon::vbscript
