#include "practice/tsql/ParseControl.h"

#include "practice/tsql/ParseExpressions.h"
#include "practice/tsql/ParseNames.h"
#include "practice/tsql/ParseStatements.h"

namespace quillon::practice::tsql {

namespace {

/// A statement inside another one.
StatementPtr ParseInner(ParseState& state) {
    ++state.blocks;
    state.terminated = true;
    StatementPtr statement = ParseStatement(state);
    --state.blocks;
    return statement;
}

/// Statements up to END.
StatementList ParseBlockBody(ParseState& state) {
    StatementList body;
    ++state.blocks;
    state.terminated = true;
    while (state.Accept(Symbol::Semicolon)) {
    }
    while (!state.Is(Keyword::End)) {
        if (state.Is(TokenKind::End))
            state.FailHere();
        body.push_back(ParseStatement(state));
    }
    --state.blocks;
    return body;
}

StatementPtr ParseTry(ParseState& state, Position position) {
    auto statement = std::make_unique<TryCatchStatement>();
    statement->position = position;
    state.Take(); // TRY
    statement->body = ParseBlockBody(state);
    if (statement->body.empty())
        state.FailHere();
    state.Expect(Keyword::End);
    state.Expect("TRY");
    state.Accept(Symbol::Semicolon);
    state.Expect(Keyword::Begin);
    state.Expect("CATCH");
    statement->handler = ParseBlockBody(state);
    state.Expect(Keyword::End);
    state.Expect("CATCH");
    return statement;
}

StatementPtr ParseBegin(ParseState& state) {
    const Position position = state.At();
    if (state.Is(Keyword::Tran, 1) || state.Is(Keyword::Transaction, 1) || state.Is(Keyword::Distributed, 1))
        return ParseTransactionStatement(state, position);
    state.Take();
    if (state.Is("TRY"))
        return ParseTry(state, position);
    if (state.Is("ATOMIC") || state.Is("DIALOG") || state.Is("CONVERSATION"))
        state.Refuse("BEGIN " + UpperWord(state.Value(state.Peek())), position);
    auto block = std::make_unique<BlockStatement>();
    block->position = position;
    block->body = ParseBlockBody(state);
    if (block->body.empty())
        state.FailHere();
    state.Expect(Keyword::End);
    return block;
}

StatementPtr ParseIf(ParseState& state) {
    auto statement = Begin<IfStatement>(state);
    state.Take();
    statement->condition = ParseCondition(state);
    statement->then = ParseInner(state);
    if (state.Accept(Keyword::Else))
        statement->otherwise = ParseInner(state);
    return statement;
}

StatementPtr ParseWhile(ParseState& state) {
    auto statement = Begin<WhileStatement>(state);
    state.Take();
    statement->condition = ParseCondition(state);
    ++state.loops;
    statement->body = ParseInner(state);
    --state.loops;
    return statement;
}

StatementPtr ParseBare(ParseState& state, StatementKind kind) {
    auto statement = std::make_unique<BareStatement>(kind);
    statement->position = state.At();
    state.Take();
    return statement;
}

StatementPtr ParseLoopExit(ParseState& state) {
    const bool isBreak = state.Is(Keyword::Break);
    if (state.loops == 0)
        state.Note(isBreak ? 135 : 136, {}, state.At());
    return ParseBare(state, isBreak ? StatementKind::Break : StatementKind::Continue);
}

StatementPtr ParseGoto(ParseState& state) {
    auto statement = std::make_unique<LabelStatement>(StatementKind::Goto);
    statement->position = state.At();
    state.Take();
    statement->label = ParseIdentifier(state);
    return statement;
}

bool StartsOperand(const ParseState& state) {
    if (IsLiteral(state) || state.Is(TokenKind::Variable) || state.Is(TokenKind::GlobalVariable))
        return true;
    switch (state.Peek().symbol) {
    case Symbol::LeftParen:
    case Symbol::LeftBrace:
    case Symbol::Plus:
    case Symbol::Minus:
    case Symbol::Tilde: return true;
    default: break;
    }
    switch (state.Peek().keyword) {
    case Keyword::Case:
    case Keyword::Coalesce:
    case Keyword::NullIf:
    case Keyword::Convert:
    case Keyword::TryConvert:
    case Keyword::Left:
    case Keyword::Right:
    case Keyword::CurrentTimestamp:
    case Keyword::CurrentUser:
    case Keyword::SessionUser:
    case Keyword::SystemUser:
    case Keyword::User: return true;
    default: return state.IsName() && !state.Is(Symbol::Colon, 1) && !state.Is("THROW");
    }
}

StatementPtr ParseReturn(ParseState& state) {
    auto statement = Begin<ReturnStatement>(state);
    state.Take();
    if (!StartsOperand(state))
        return statement;
    statement->value = ParseValue(state);
    const bool allowed = state.module == ModuleKind::Procedure || state.module == ModuleKind::Function;
    if (!allowed)
        state.Note(178, {}, statement->position);
    return statement;
}

StatementPtr ParseWaitFor(ParseState& state) {
    auto statement = Begin<WaitForStatement>(state);
    state.Take();
    if (state.Is(Symbol::LeftParen))
        state.Refuse("WAITFOR with a statement", state.At());
    statement->delay = state.Accept("DELAY");
    if (!statement->delay)
        state.Expect("TIME");
    if (!state.IsString() && !state.Is(TokenKind::Variable))
        state.FailHere();
    statement->time = ParsePrimary(state);
    return statement;
}

} // namespace

StatementPtr ParseLabel(ParseState& state) {
    auto statement = std::make_unique<LabelStatement>(StatementKind::Label);
    statement->position = state.At();
    statement->label = ParseIdentifier(state);
    state.Expect(Symbol::Colon);
    return statement;
}

StatementPtr ParseControlStatement(ParseState& state) {
    switch (state.Peek().keyword) {
    case Keyword::Begin: return ParseBegin(state);
    case Keyword::If: return ParseIf(state);
    case Keyword::While: return ParseWhile(state);
    case Keyword::Break:
    case Keyword::Continue: return ParseLoopExit(state);
    case Keyword::Goto: return ParseGoto(state);
    case Keyword::Return: return ParseReturn(state);
    case Keyword::WaitFor: return ParseWaitFor(state);
    case Keyword::Commit:
    case Keyword::Rollback:
    case Keyword::Save: return ParseTransactionStatement(state, state.At());
    case Keyword::Revert: return ParseBare(state, StatementKind::Revert);
    case Keyword::Print:
    case Keyword::RaisError: return ParseMessageStatement(state);
    default: return ParseServiceStatement(state);
    }
}

} // namespace quillon::practice::tsql
