#include "practice/tsql/ParseControl.h"
#include "practice/tsql/ParseExpressions.h"
#include "practice/tsql/ParseNames.h"

namespace quillon::practice::tsql {

namespace {

StatementKind TransactionKind(Keyword keyword) {
    switch (keyword) {
    case Keyword::Begin: return StatementKind::BeginTransaction;
    case Keyword::Commit: return StatementKind::CommitTransaction;
    case Keyword::Rollback: return StatementKind::RollbackTransaction;
    default: return StatementKind::SaveTransaction;
    }
}

void ParseTransactionName(ParseState& state, TransactionStatement& statement) {
    if (state.Is(TokenKind::Variable)) {
        statement.variable = ParseVariableName(state);
        state.RequireScalar(statement.variable, statement.position);
    } else if (state.IsName() && !state.Is(Symbol::Colon, 1) && !state.Is("THROW")) {
        statement.name = ParseIdentifier(state);
    } else if (statement.kind == StatementKind::SaveTransaction) {
        state.FailHere();
    }
}

/// The options that say how a transaction is written to the log: everything is written at once here.
void SkipTransactionOptions(ParseState& state) {
    if (!state.Is(Keyword::With))
        return;
    if (state.Is("MARK", 1)) {
        state.Take();
        state.Take();
        if (state.IsString())
            state.Take();
    } else if (state.Is(Symbol::LeftParen, 1) && state.Is("DELAYED_DURABILITY", 2)) {
        state.Take();
        ParseSettings(state);
    }
}

StatementPtr ParseUse(ParseState& state) {
    auto statement = Begin<UseStatement>(state);
    state.Take();
    statement->database = ParseIdentifier(state);
    if (state.module != ModuleKind::None)
        state.Fail(154, {"a USE database statement", "a procedure, function or trigger"},
                   statement->position);
    return statement;
}

ExpressionPtr ParseDbccArgument(ParseState& state) {
    if (state.IsName()) {
        auto node = Begin<ColumnReference>(state);
        node->name = ParseName(state);
        return Finish(state, std::move(node), 1);
    }
    return ParseValue(state);
}

StatementPtr ParseDbcc(ParseState& state) {
    auto statement = Begin<DbccStatement>(state);
    state.Take();
    statement->command = TakeWord(state);
    if (state.Accept(Symbol::LeftParen)) {
        while (!state.Accept(Symbol::RightParen)) {
            statement->arguments.push_back(ParseDbccArgument(state));
            if (!state.Is(Symbol::RightParen))
                state.Expect(Symbol::Comma);
        }
    }
    if (state.Accept(Keyword::With)) {
        do {
            statement->options.push_back(TakeWord(state));
        } while (state.Accept(Symbol::Comma));
    }
    return statement;
}

StatementPtr ParseKill(ParseState& state) {
    auto statement = Begin<KillStatement>(state);
    state.Take();
    if (state.IsString())
        state.Refuse("KILL of a distributed transaction", state.At());
    const bool negative = state.Accept(Symbol::Minus);
    if (!state.Is(TokenKind::Integer))
        state.FailHere();
    const std::string digits = state.Value(state.Take());
    constexpr std::size_t most = 9;
    if (digits.size() > most)
        state.Fail(1080, {digits}, state.At());
    statement->process = std::stoi(digits) * (negative ? -1 : 1);
    if (state.Is(Keyword::With))
        state.Refuse("KILL WITH STATUSONLY", state.At());
    return statement;
}

StatementPtr ParseCheckpoint(ParseState& state) {
    auto statement = std::make_unique<BareStatement>(StatementKind::Checkpoint);
    statement->position = state.At();
    state.Take();
    if (state.Is(TokenKind::Integer))
        state.Take();
    return statement;
}

StatementPtr ParseReconfigure(ParseState& state) {
    auto statement = std::make_unique<BareStatement>(StatementKind::Reconfigure);
    statement->position = state.At();
    state.Take();
    if (state.Is(Keyword::With) && state.Is("OVERRIDE", 1)) {
        state.Take();
        state.Take();
    }
    return statement;
}

} // namespace

StatementPtr ParseTransactionStatement(ParseState& state, Position position) {
    auto statement = std::make_unique<TransactionStatement>(TransactionKind(state.Peek().keyword));
    statement->position = position;
    state.Take();
    statement->distributed = state.Accept(Keyword::Distributed);
    if (statement->distributed)
        state.Refuse("BEGIN DISTRIBUTED TRANSACTION", position);
    const bool work = state.Is("WORK") && (statement->kind == StatementKind::CommitTransaction ||
                                           statement->kind == StatementKind::RollbackTransaction);
    if (work) {
        state.Take();
        return statement;
    }
    const bool word = state.Accept(Keyword::Tran) || state.Accept(Keyword::Transaction);
    if (word)
        ParseTransactionName(state, *statement);
    else if (statement->kind == StatementKind::SaveTransaction)
        state.FailHere();
    SkipTransactionOptions(state);
    return statement;
}

StatementPtr ParseServiceStatement(ParseState& state) {
    switch (state.Peek().keyword) {
    case Keyword::Use: return ParseUse(state);
    case Keyword::Dbcc: return ParseDbcc(state);
    case Keyword::Kill: return ParseKill(state);
    case Keyword::Checkpoint: return ParseCheckpoint(state);
    case Keyword::Reconfigure: return ParseReconfigure(state);
    default: return nullptr;
    }
}

} // namespace quillon::practice::tsql
