#include "practice/tsql/ParseExecute.h"

#include "practice/tsql/ParseExpressions.h"
#include "practice/tsql/ParseNames.h"

namespace quillon::practice::tsql {

namespace {

/// A bare word passed to a procedure is a text: `EXEC sp_help MyTable`.
ExpressionPtr ParseBareWord(ParseState& state) {
    auto node = Begin<Literal>(state);
    node->type = LiteralType::NString;
    node->text = ParseIdentifier(state);
    return Finish(state, std::move(node), 1);
}

ExpressionPtr ParseArgumentValue(ParseState& state) {
    if (state.Is(Symbol::Minus) || state.Is(Symbol::Plus) || IsLiteral(state))
        return ParseConstant(state);
    if (state.Is(Keyword::Default))
        return ParseValueOrDefault(state);
    if (state.Is(TokenKind::Variable) || state.Is(TokenKind::GlobalVariable) || state.Is(Symbol::LeftBrace))
        return ParsePrimary(state);
    if (state.Is(Keyword::On) || state.Is(Keyword::Off)) { // sp_configure and sp_dboption take them bare
        auto node = Begin<Literal>(state);
        node->type = LiteralType::NString;
        const Token token = state.Take();
        node->text = state.Value(token);
        return Finish(state, std::move(node), 1);
    }
    return ParseBareWord(state);
}

ExecuteArgument ParseArgument(ParseState& state) {
    ExecuteArgument argument;
    argument.position = state.At();
    if (state.Is(TokenKind::Variable) && state.Is(Symbol::Equal, 1)) {
        argument.name = ParseVariableName(state);
        state.Take();
    }
    argument.value = ParseArgumentValue(state);
    if (state.Is("OUTPUT") || state.Is("OUT")) {
        state.Take();
        argument.output = true;
        if (argument.value->kind != ExpressionKind::Variable)
            state.Fail(179, {}, argument.position);
    }
    return argument;
}

bool StartsArgument(const ParseState& state) {
    if (state.Is(TokenKind::Variable) || state.Is(TokenKind::GlobalVariable) || IsLiteral(state))
        return true;
    if (state.Is(Symbol::Minus) || state.Is(Symbol::Plus) || state.Is(Symbol::LeftBrace))
        return true;
    if (state.Is(Keyword::Default) || state.Is(Keyword::On) || state.Is(Keyword::Off))
        return true;
    return state.IsName() && !state.Is(Symbol::Colon, 1);
}

void ParseArguments(ParseState& state, ExecuteProcedureStatement& call) {
    if (!StartsArgument(state))
        return;
    bool named = false;
    do {
        call.arguments.push_back(ParseArgument(state));
        const ExecuteArgument& argument = call.arguments.back();
        if (named && argument.name.empty())
            state.Fail(119, {std::to_string(call.arguments.size())}, argument.position);
        named = named || !argument.name.empty();
    } while (state.Accept(Symbol::Comma));
}

void ParseExecuteOptions(ParseState& state, ExecuteStatement& call) {
    if (!state.Is(Keyword::With) || (!state.Is("RECOMPILE", 1) && !state.Is("RESULT", 1)))
        return;
    state.Take();
    if (state.Is("RESULT"))
        state.Refuse("EXECUTE WITH RESULT SETS", state.At());
    call.options.push_back({TakeWord(state), {}});
}

void ParseCalled(ParseState& state, ExecuteProcedureStatement& call) {
    if (state.Is(TokenKind::Variable)) {
        call.procedureVariable = ParseVariableName(state);
        state.RequireScalar(call.procedureVariable, call.position);
    } else {
        call.procedure = ParseName(state);
    }
    // The number of a procedure in a group; only the first of a group exists here.
    if (state.Is(Symbol::Semicolon) && state.Is(TokenKind::Integer, 1)) {
        if (state.Value(state.Peek(1)) != "1")
            state.Refuse("numbered procedures", state.At());
        state.Take();
        state.Take();
    }
    ParseArguments(state, call);
    ParseExecuteOptions(state, call);
}

StatementPtr ParseExecuteText(ParseState& state, Position position) {
    auto call = std::make_unique<ExecuteTextStatement>();
    call->position = position;
    state.Expect(Symbol::LeftParen);
    call->text = ParseValue(state);
    if (state.Is(Symbol::Comma))
        state.Refuse("EXECUTE (text, arguments) AT", state.At());
    state.Expect(Symbol::RightParen);
    if (state.Accept(Keyword::As)) {
        call->asKind = TakeWord(state);
        if (call->asKind != "USER" && call->asKind != "LOGIN")
            state.FailHere();
        state.Expect(Symbol::Equal);
        call->asName = ParseText(state);
    }
    if (state.Is("AT"))
        state.Refuse("EXECUTE AT", state.At());
    ParseExecuteOptions(state, *call);
    return call;
}

} // namespace

StatementPtr ParseExecute(ParseState& state) {
    const Position position = state.At();
    state.Take(); // EXEC or EXECUTE
    if (state.Is(Symbol::LeftParen))
        return ParseExecuteText(state, position);
    if (state.Is(Keyword::As)) {
        StatementPtr statement = ParseExecuteAs(state);
        statement->position = position;
        return statement;
    }
    auto call = std::make_unique<ExecuteProcedureStatement>();
    call->position = position;
    if (state.Is(TokenKind::Variable) && state.Is(Symbol::Equal, 1)) {
        call->returnVariable = ParseVariableName(state);
        state.RequireScalar(call->returnVariable, position);
        state.Take();
    }
    ParseCalled(state, *call);
    return call;
}

StatementPtr ParseBareExecute(ParseState& state) {
    auto call = Begin<ExecuteProcedureStatement>(state);
    ParseCalled(state, *call);
    return call;
}

StatementPtr ParseExecuteAs(ParseState& state) {
    auto statement = Begin<ExecuteAsStatement>(state);
    state.Expect(Keyword::As);
    statement->kind = TakeWord(state);
    if (statement->kind == "CALLER")
        return statement;
    if (statement->kind != "USER" && statement->kind != "LOGIN")
        state.FailHere();
    state.Expect(Symbol::Equal);
    if (!state.IsString() && !state.Is(TokenKind::Variable))
        state.FailHere();
    statement->name = ParseValue(state);
    if (state.Is(Keyword::With))
        state.Refuse("EXECUTE AS WITH", state.At());
    return statement;
}

void ParseModuleIdentity(ParseState& state, ModuleStatement& module) {
    state.Expect(Keyword::As);
    module.executeAsUser = state.IsString();
    if (module.executeAsUser) {
        module.executeAs = ParseText(state);
        return;
    }
    const Token token = state.Peek();
    module.executeAs = TakeWord(state);
    if (module.executeAs != "CALLER" && module.executeAs != "SELF" && module.executeAs != "OWNER")
        state.FailNear(token);
}

} // namespace quillon::practice::tsql
