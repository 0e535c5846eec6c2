#include "practice/statements/change/BoundRules.h"

#include "practice/tsql/Lexer.h"
#include "practice/tsql/Parser.h"

namespace quillon::practice {

std::string RuleCondition(Engine& engine, Surroundings here, const TextObject& rule, const Scalar& value) {
    tsql::ParseOptions options;
    std::map<std::string, Scalar> arguments;
    for (const tsql::Token& token : tsql::Tokenize(rule.expression))
        if (token.kind == tsql::TokenKind::Variable) {
            const std::string name = tsql::TokenValue(rule.expression, token);
            options.variables.push_back(name);
            arguments.insert_or_assign(FoldName(name), value);
        }
    const auto parsed = tsql::ParseStoredExpression(rule.expression, options);
    here.arguments = &arguments;
    return Translator(engine, here).Condition(*parsed->expression, nullptr);
}

} // namespace quillon::practice
