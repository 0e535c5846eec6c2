#include "practice/tsql/ParseVariables.h"

#include "practice/tsql/ParseCursors.h"
#include "practice/tsql/ParseDefinitions.h"
#include "practice/tsql/ParseDml.h"
#include "practice/tsql/ParseExpressions.h"
#include "practice/tsql/ParseNames.h"

namespace quillon::practice::tsql {

namespace {

VariableDeclaration ParseDeclaration(ParseState& state, std::string name, Position position) {
    VariableDeclaration declaration;
    declaration.position = position;
    declaration.name = std::move(name);
    VariableKind kind = VariableKind::Scalar;
    if (state.Accept(Keyword::Cursor)) {
        declaration.cursor = true;
        kind = VariableKind::Cursor;
    } else {
        declaration.type = ParseDataType(state);
        if (MayBeTableType(declaration.type))
            kind = VariableKind::Unknown;
    }
    if (state.Accept(Symbol::Equal))
        declaration.value = ParseValue(state);
    state.Declare(declaration.name, kind, position);
    return declaration;
}

StatementPtr ParseTableDeclaration(ParseState& state, std::string name, Position position) {
    auto statement = std::make_unique<DeclareTableStatement>();
    statement->position = position;
    state.Expect(Keyword::Table);
    statement->definition = ParseTableDefinition(state);
    statement->variable = std::move(name);
    state.Declare(statement->variable, VariableKind::Table, position);
    return statement;
}

/// One DECLARE may mix variables and tables; each run of variables becomes one statement.
StatementPtr ParseDeclarations(ParseState& state, Position position) {
    StatementList statements;
    do {
        const Position at = state.At();
        std::string name = ParseVariableName(state);
        state.Accept(Keyword::As);
        if (state.Is(Keyword::Table)) {
            statements.push_back(ParseTableDeclaration(state, std::move(name), at));
        } else {
            if (statements.empty() || statements.back()->kind != StatementKind::DeclareVariables) {
                statements.push_back(std::make_unique<DeclareVariablesStatement>());
                statements.back()->position = at;
            }
            static_cast<DeclareVariablesStatement&>(*statements.back())
                .variables.push_back(ParseDeclaration(state, std::move(name), at));
        }
        statements.back()->text = {at.offset, state.LastEnd()};
    } while (state.Accept(Symbol::Comma));
    if (statements.size() == 1) {
        statements.front()->position = position;
        return std::move(statements.front());
    }
    auto block = std::make_unique<BlockStatement>();
    block->position = position;
    block->body = std::move(statements);
    return block;
}

StatementPtr ParseSetVariable(ParseState& state, Position position) {
    std::string name = ParseVariableName(state);
    state.RequireScalar(name, position);
    if (state.Is(Symbol::Point))
        state.Refuse("methods of variables", state.At());
    const bool cursor =
        state.Is(Symbol::Equal) && (state.Is(Keyword::Cursor, 1) || state.IsCursorVariable(name));
    if (cursor) {
        state.Take();
        return ParseSetCursor(state, position, std::move(name));
    }
    auto statement = std::make_unique<SetVariableStatement>();
    statement->position = position;
    statement->variable = std::move(name);
    const auto op = AcceptAssignment(state);
    if (!op)
        state.FailHere();
    statement->op = *op;
    statement->value = ParseValue(state);
    return statement;
}

} // namespace

bool MayBeTableType(const DataType& type) {
    static constexpr std::string_view known[] = {"bit",
                                                 "tinyint",
                                                 "smallint",
                                                 "int",
                                                 "bigint",
                                                 "decimal",
                                                 "numeric",
                                                 "money",
                                                 "smallmoney",
                                                 "float",
                                                 "real",
                                                 "date",
                                                 "time",
                                                 "datetime",
                                                 "datetime2",
                                                 "smalldatetime",
                                                 "char",
                                                 "text",
                                                 "varchar",
                                                 "nchar",
                                                 "nvarchar",
                                                 "ntext",
                                                 "binary",
                                                 "image",
                                                 "xml",
                                                 "varbinary",
                                                 "timestamp",
                                                 "datetimeoffset",
                                                 "sysname",
                                                 "sql_variant",
                                                 "uniqueidentifier"};
    return type.name.parts.size() > 1 ||
           std::find(std::begin(known), std::end(known), type.name.Last()) == std::end(known);
}

StatementPtr ParseDeclare(ParseState& state) {
    const Position position = state.At();
    state.Take();
    return state.Is(TokenKind::Variable) ? ParseDeclarations(state, position)
                                         : ParseDeclareCursor(state, position);
}

StatementPtr ParseSet(ParseState& state) {
    const Position position = state.At();
    state.Take();
    return state.Is(TokenKind::Variable) ? ParseSetVariable(state, position)
                                         : ParseSetOption(state, position);
}

} // namespace quillon::practice::tsql
