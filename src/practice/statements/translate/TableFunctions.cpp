// Functions in FROM, and APPLY.
#include "practice/statements/translate/SurroundingsGuard.h"
#include "practice/statements/translate/Translator.h"

#include "practice/values/SqlError.h"

namespace quillon::practice {

std::string Translator::FunctionSource(const tsql::FunctionTable& source, Scope& scope) {
    const auto function = std::dynamic_pointer_cast<const Module>(FindSourceObject(source.name));
    if (!function || function->kind == ObjectKind::ScalarFunction)
        throw SqlError(208, {source.name.Text()});
    if (function->kind != ObjectKind::InlineFunction)
        throw SqlError::NotSupported("a table-valued function of several statements in FROM");
    std::string text;
    AddDerived(InlineFunction(*function, source.arguments, scope.outer),
               source.alias.empty() ? function->name : source.alias, source.columnAliases, scope, &text);
    return text;
}

QuerySql Translator::InlineFunction(const Module& function, const tsql::ExpressionList& arguments,
                                    const Scope* outer) {
    if (arguments.size() > function.parameters.size())
        throw SqlError(8144, {function.name});
    if (arguments.size() < function.parameters.size())
        throw SqlError(313, {function.name});
    const auto tree = m_engine.ModuleTree(function);
    const auto& create = tsql::As<tsql::CreateFunctionStatement>(*tree->statements.front());
    std::map<std::string, Scalar> values;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const bool isDefault = arguments[i]->kind == tsql::ExpressionKind::DefaultValue;
        const tsql::ExpressionPtr& declared = create.parameters[i].defaultValue;
        if (isDefault && !declared)
            throw SqlError(313, {function.name});
        Scalar value = ConvertTo(isDefault ? Value(*declared, nullptr) : Value(*arguments[i], outer),
                                 function.parameters[i].type);
        value.constant.reset();
        values[FoldName(function.parameters[i].name)] = std::move(value);
    }
    Surroundings inside;
    inside.database = function.database;
    inside.schema = function.schema;
    inside.ansiNulls = function.ansiNulls;
    inside.quotedIdentifier = function.quotedIdentifier;
    inside.arguments = &values;
    inside.isModule = true;
    const SurroundingsGuard guard(m_here, inside, m_commonTables, m_recursions);
    return Query(*create.inlineQuery, nullptr);
}

// SQLite knows no lateral join: what stands on the right must be the same for every row on the left.
std::string Translator::Apply(const tsql::Join& join, Scope& scope) {
    std::string text = FromOne(*join.left, scope);
    const std::size_t first = scope.sources.size();
    try {
        text += (join.type == tsql::JoinType::OuterApply ? " LEFT JOIN " : " JOIN ") +
                FromOne(*join.right, scope);
    } catch (const SqlError& error) {
        constexpr int unbound = 4104;
        constexpr int noColumn = 207;
        if (error.number == unbound || error.number == noColumn)
            throw SqlError::NotSupported("APPLY that refers to its left side");
        throw;
    }
    if (join.type == tsql::JoinType::OuterApply) {
        text += " ON 1";
        for (std::size_t i = first; i < scope.sources.size(); ++i)
            for (SourceColumn& column : scope.sources[i]->columns)
                column.nullable = true;
    }
    return text;
}

} // namespace quillon::practice
