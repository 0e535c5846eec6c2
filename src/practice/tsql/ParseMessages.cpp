#include "practice/tsql/ParseControl.h"
#include "practice/tsql/ParseExpressions.h"
#include "practice/tsql/ParseNames.h"

namespace quillon::practice::tsql {

namespace {

StatementPtr ParsePrint(ParseState& state) {
    auto statement = Begin<PrintStatement>(state);
    state.Take();
    state.columnsRefused = true;
    statement->value = ParseValue(state);
    state.columnsRefused = false;
    return statement;
}

/// Arguments of RAISERROR are constants and variables, with a sign at most.
ExpressionPtr ParseMessageArgument(ParseState& state) {
    if (state.Is(TokenKind::Variable) || state.Is(TokenKind::GlobalVariable))
        return ParsePrimary(state);
    return ParseConstant(state);
}

void ParseRaiseOptions(ParseState& state, RaiseErrorStatement& statement) {
    if (!state.Is(Keyword::With))
        return;
    state.Take();
    do {
        if (state.Accept("LOG"))
            statement.log = true;
        else if (state.Accept("NOWAIT"))
            statement.noWait = true;
        else if (state.Accept("SETERROR"))
            statement.setError = true;
        else
            state.FailHere();
    } while (state.Accept(Symbol::Comma));
}

StatementPtr ParseRaiseError(ParseState& state) {
    auto statement = Begin<RaiseErrorStatement>(state);
    state.Take();
    state.Expect(Symbol::LeftParen);
    statement->message = ParseMessageArgument(state);
    state.Expect(Symbol::Comma);
    statement->severity = ParseMessageArgument(state);
    state.Expect(Symbol::Comma);
    statement->state = ParseMessageArgument(state);
    while (state.Accept(Symbol::Comma))
        statement->arguments.push_back(ParseMessageArgument(state));
    state.Expect(Symbol::RightParen);
    ParseRaiseOptions(state, *statement);
    return statement;
}

} // namespace

StatementPtr ParseMessageStatement(ParseState& state) {
    return state.Is(Keyword::Print) ? ParsePrint(state) : ParseRaiseError(state);
}

StatementPtr ParseThrow(ParseState& state) {
    auto statement = Begin<ThrowStatement>(state);
    state.Take();
    if (!state.Is(TokenKind::Integer) && !state.Is(TokenKind::Variable) && !state.Is(Symbol::Minus))
        return statement;
    statement->number = ParseMessageArgument(state);
    state.Expect(Symbol::Comma);
    statement->message = ParseMessageArgument(state);
    state.Expect(Symbol::Comma);
    statement->state = ParseMessageArgument(state);
    return statement;
}

} // namespace quillon::practice::tsql
