#include "practice/tsql/Parser.h"

#include "practice/tsql/Characters.h"
#include "practice/tsql/ModuleChecks.h"
#include "practice/tsql/ParseExpressions.h"
#include "practice/tsql/ParseModules.h"
#include "practice/tsql/ParseNames.h"
#include "practice/tsql/ParseStatements.h"

namespace quillon::practice::tsql {

namespace {

const StatementList& BodyOf(const StatementList& statements) {
    if (statements.size() != 1)
        return statements;
    switch (statements.front()->kind) {
    case StatementKind::CreateProcedure: return As<CreateProcedureStatement>(statements.front()).body;
    case StatementKind::CreateFunction: return As<CreateFunctionStatement>(statements.front()).body;
    case StatementKind::CreateTrigger: return As<CreateTriggerStatement>(statements.front()).body;
    default: return statements;
    }
}

/// CREATE VIEW and its kind take a whole batch: what follows one cannot stand there.
bool MustStandAlone(const Statement& statement) {
    return statement.kind == StatementKind::CreateView || statement.kind == StatementKind::CreateFunction ||
           statement.kind == StatementKind::CreateDefaultOrRule;
}

StatementList ParseAll(ParseState& state) {
    StatementList statements;
    while (state.Accept(Symbol::Semicolon)) {
    }
    while (!state.Is(TokenKind::End)) {
        statements.push_back(ParseStatement(state));
        if (MustStandAlone(*statements.back()) && !state.Is(TokenKind::End))
            state.FailHere();
    }
    CheckLabels(state, BodyOf(statements));
    return statements;
}

/// Runs a parse and turns whatever was wrong into one SyntaxErrors. `parse` works on a state of its own.
template <class Parse>
auto Collect(std::string_view source, const ParseOptions& options, Parse parse) {
    std::vector<SqlError> errors;
    try {
        ParseState state(source, options);
        try {
            auto result = parse(state);
            if (state.Notes().empty())
                return result;
            errors = state.Notes();
        } catch (const SqlError& error) {
            errors = state.Notes();
            errors.push_back(error);
        }
    } catch (const SqlError& error) { // of the lexer
        errors.push_back(error);
    }
    throw SyntaxErrors(std::move(errors));
}

} // namespace

SyntaxErrors::SyntaxErrors(std::vector<SqlError> errors)
    : SqlError(errors.front()) {
    m_others.assign(std::make_move_iterator(errors.begin() + 1), std::make_move_iterator(errors.end()));
}

std::unique_ptr<Batch> ParseBatch(std::string text, const ParseOptions& options) {
    auto batch = std::make_unique<Batch>();
    batch->source = std::move(text);
    batch->statements = Collect(batch->source, options, ParseAll);
    return batch;
}

ParsedParameters ParseParameters(std::string text) {
    ParsedParameters parsed;
    parsed.source = std::move(text);
    parsed.parameters = Collect(parsed.source, {}, [](ParseState& state) {
        std::vector<Parameter> parameters = ParseParameterList(state);
        if (!state.Is(TokenKind::End))
            state.FailHere();
        return parameters;
    });
    return parsed;
}

std::unique_ptr<ParsedExpression> ParseStoredExpression(std::string text, const ParseOptions& options) {
    auto parsed = std::make_unique<ParsedExpression>();
    parsed->source = std::move(text);
    parsed->expression = Collect(parsed->source, options, [](ParseState& state) {
        ExpressionPtr expression = ParseEither(state);
        if (!state.Is(TokenKind::End))
            state.FailHere();
        return expression;
    });
    return parsed;
}

std::optional<Name> ParseObjectName(std::string_view text) {
    try {
        ParseState state(text, {});
        Name name = ParseName(state);
        if (state.Is(TokenKind::End))
            return name;
    } catch (const SqlError&) { // a text that is no name names nothing
    }
    return std::nullopt;
}

std::optional<DataType> ParseTypeText(std::string_view text) {
    try {
        ParseState state(text, {});
        DataType type = ParseDataType(state);
        if (state.Is(TokenKind::End))
            return type;
    } catch (const SqlError&) { // a text that is no type names none
    }
    return std::nullopt;
}

bool NeedsBrackets(std::string_view name) {
    if (name.empty() || !IsNameStart(name, 0) || FindKeyword(name) != Keyword::None)
        return true;
    for (std::size_t at = 0; at < name.size();) {
        const std::size_t length = NamePartLength(name, at);
        if (length == 0)
            return true;
        at += length;
    }
    return false;
}

} // namespace quillon::practice::tsql
