// Calls: what is syntax rather than function, built-in functions, the functions of triggers, users'
// functions.
#include "practice/statements/translate/Translator.h"

#include "practice/functions/ParseText.h"
#include "practice/functions/RefusedFunctions.h"
#include "practice/values/SqlError.h"
#include "practice/values/Unicode.h"

namespace quillon::practice {

namespace {

constexpr const char* rankingFunctions[] = {"ROW_NUMBER",   "RANK",     "DENSE_RANK",  "NTILE",
                                            "LAG",          "LEAD",     "FIRST_VALUE", "LAST_VALUE",
                                            "PERCENT_RANK", "CUME_DIST"};

bool IsRanking(const std::string& name) {
    return std::find(std::begin(rankingFunctions), std::end(rankingFunctions), name) !=
           std::end(rankingFunctions);
}

void RequireCount(const std::string& name, const tsql::FunctionCall& call, std::size_t count) {
    if (call.arguments.size() != count)
        throw SqlError(174, {name, std::to_string(count)});
}

constexpr std::size_t mostArguments = 100; // of one call; SQLite takes 127

// As AskCatalogue and the date functions take it: the bare word itself.
std::optional<std::string> BareWord(const tsql::Expression& expression) {
    if (expression.kind != tsql::ExpressionKind::Column)
        return std::nullopt;
    const auto& name = tsql::As<tsql::ColumnReference>(expression).name;
    return name.parts.size() == 1 ? std::optional(name.Last()) : std::nullopt;
}

bool IsMethodOfXml(std::string_view name) {
    return name == "value" || name == "query" || name == "exist" || name == "modify";
}

} // namespace

Scalar Translator::FunctionValue(const tsql::FunctionCall& call, const Scope* scope) {
    if (call.name.parts.size() > 1) {
        const auto module = std::dynamic_pointer_cast<const Module>(FindSourceObject(call.name));
        if (!module && IsMethodOfXml(call.name.Last()))
            throw SqlError::NotSupported("methods of columns");
        if (!module || module->kind != ObjectKind::ScalarFunction)
            throw SqlError(4121, {call.name.parts.front(), call.name.Text()});
        return UserFunction(*module, call, scope);
    }
    const std::string name = UpperCase(call.name.Last());
    if (IsRefusedFunction(name))
        throw SqlError::NotSupported(name);
    if (IsRanking(name))
        return WindowValue(call, name, scope);
    if (FindAggregate(name) != nullptr || name == "STRING_AGG")
        return AggregateValue(call, name, scope);
    if (name == "GROUPING" || name == "GROUPING_ID")
        return GroupingValue(call, name, scope);
    if (call.over)
        throw SqlError(4113, {name});
    if (auto value = SyntaxFunction(call, name, scope))
        return std::move(*value);
    const ScalarFunction* function = FindFunction(name);
    if (function == nullptr)
        throw SqlError(195, {call.name.Last(), "built-in function name"});
    return BuiltIn(*function, call, scope);
}

std::optional<Scalar> Translator::SyntaxFunction(const tsql::FunctionCall& call, const std::string& name,
                                                 const Scope* scope) {
    if (name == "COALESCE")
        return Coalesce(call, scope);
    if (name == "NULLIF")
        return NullIf(call, scope);
    if (name == "ISNULL")
        return IsNullFunction(call, scope);
    if (name == "IIF")
        return Iif(call, scope);
    if (name == "CHOOSE")
        return Choose(call, scope);
    if (name == "PARSE" || name == "TRY_PARSE")
        return ParseFunction(call, name, scope);
    if (name == "UPDATE" || name == "COLUMNS_UPDATED")
        return TriggerFunction(call, name);
    return std::nullopt;
}

Scalar Translator::Coalesce(const tsql::FunctionCall& call, const Scope* scope) {
    std::vector<Scalar> values;
    bool nullable = true;
    for (const tsql::ExpressionPtr& argument : call.arguments) {
        values.push_back(Value(*argument, scope));
        nullable = nullable && values.back().nullable;
    }
    if (values.size() < 2)
        throw SqlError(174, {"COALESCE", "2"});
    Scalar result = Common(values, "coalesce");
    if (result.IsBareNull())
        throw SqlError(4127);
    std::string closing;
    for (std::size_t i = 0; i < values.size(); ++i) {
        const bool opens = i % mostArguments == 0 && i + 1 < values.size();
        result.sql += (i > 0 ? ", " : "") + std::string(opens ? "coalesce(" : "") + values[i].sql;
        closing += opens ? ")" : "";
    }
    result.sql += closing;
    result.nullable = nullable;
    return result;
}

Scalar Translator::NullIf(const tsql::FunctionCall& call, const Scope* scope) {
    RequireCount("NULLIF", call, 2);
    Scalar first = Value(*call.arguments[0], scope);
    if (first.IsBareNull())
        throw SqlError(4151);
    const std::string equal = Compare(ComparisonOperator::Equal, first, Value(*call.arguments[1], scope));
    first.sql = "(CASE WHEN " + equal + " THEN NULL ELSE " + first.sql + " END)";
    first.nullable = true;
    first.constant.reset();
    first.isParameter = false;
    return first;
}

Scalar Translator::IsNullFunction(const tsql::FunctionCall& call, const Scope* scope) {
    RequireCount("isnull", call, 2);
    Scalar first = Value(*call.arguments[0], scope);
    Scalar second = Value(*call.arguments[1], scope);
    if (first.IsBareNull())
        return second;
    Harmonize(first, second, "isnull");
    const bool nullable = first.nullable && second.nullable;
    second = ConvertTo(std::move(second), first.type);
    first.sql = "ifnull(" + first.sql + ", " + second.sql + ")";
    first.nullable = nullable;
    first.constant.reset();
    first.isParameter = false;
    return first;
}

Scalar Translator::Iif(const tsql::FunctionCall& call, const Scope* scope) {
    RequireCount("IIF", call, 3);
    std::vector<Scalar> results{Value(*call.arguments[1], scope), Value(*call.arguments[2], scope)};
    Scalar result = Common(results, "CASE");
    if (result.IsBareNull())
        throw SqlError(8133);
    result.sql = "(CASE WHEN " + Condition(*call.arguments[0], scope) + " THEN " + results[0].sql + " ELSE " +
                 results[1].sql + " END)";
    return result;
}

Scalar Translator::Choose(const tsql::FunctionCall& call, const Scope* scope) {
    if (call.arguments.size() < 2)
        throw SqlError(174, {"choose", "2"});
    const Scalar index = ConvertTo(Value(*call.arguments[0], scope), SimpleType(TypeId::Int));
    std::vector<Scalar> results;
    for (std::size_t i = 1; i < call.arguments.size(); ++i)
        results.push_back(Value(*call.arguments[i], scope));
    Scalar result = Common(results, "CASE");
    if (result.IsBareNull())
        throw SqlError(8133);
    result.sql = "(CASE " + index.sql;
    for (std::size_t i = 0; i < results.size(); ++i)
        result.sql += " WHEN " + std::to_string(i + 1) + " THEN " + results[i].sql;
    result.sql += " END)";
    result.nullable = true;
    return result;
}

Scalar Translator::BuiltIn(const ScalarFunction& function, const tsql::FunctionCall& call,
                           const Scope* scope) {
    RequireArgumentCount(function, static_cast<int>(call.arguments.size()));
    std::vector<Scalar> arguments;
    for (const tsql::ExpressionPtr& argument : call.arguments) {
        // Joining goes on from what was joined before.
        if (function.name == "CONCAT" && arguments.size() == mostArguments)
            arguments = {CallBuiltIn(function, std::move(arguments))};
        const auto word = function.takesDatePart && arguments.empty() ? BareWord(*argument) : std::nullopt;
        if (function.takesDatePart && arguments.empty() && !word)
            throw SqlError(1023, {"1", unicode::ToLower(function.name)});
        arguments.push_back(word ? Constant(Datum::VarCharOf(*word)) : Value(*argument, scope));
    }
    return CallBuiltIn(function, std::move(arguments));
}

Scalar Translator::CallBuiltIn(const ScalarFunction& function, std::vector<Scalar> arguments) {
    std::vector<SqlType> types;
    bool nullable = !function.neverNull;
    for (const Scalar& argument : arguments) {
        types.push_back(argument.type);
        nullable = nullable || argument.nullable;
    }
    SqlType result = function.resultType(types);
    CollationLabel label = CollationLabel::CoercibleDefault;
    if (result.IsCharacter())
        for (const Scalar& argument : arguments)
            if (argument.type.IsCharacter() && (result.collation == nullptr || argument.label > label)) {
                result.collation = argument.type.collation;
                label = argument.label;
            }
    for (std::size_t i = 0; i < arguments.size(); ++i)
        if (arguments[i].IsBareNull())
            arguments[i].sql = "NULL";
    Engine& engine = m_engine;
    const auto evaluate = function.evaluate;
    const SqlType bound = WithCollation(result);
    Scalar value = Call(std::string(function.name), std::move(arguments), bound, function.evaluation,
                        [&engine, evaluate](std::span<const Datum> values) {
                            return evaluate(engine.context.Functions(), values);
                        });
    value.nullable = nullable;
    value.label = label;
    return value;
}

// The arguments are the text, the type as a CAST of nothing, and perhaps the culture.
Scalar Translator::ParseFunction(const tsql::FunctionCall& call, const std::string& name,
                                 const Scope* scope) {
    const SqlType to = TypeOf(tsql::As<tsql::Cast>(*call.arguments[1]).type, true);
    std::vector<Scalar> arguments{Value(*call.arguments[0], scope)};
    RequireParse(arguments[0].type, to, unicode::ToLower(name));
    const bool hasCulture = call.arguments.size() > 2;
    if (hasCulture)
        arguments.push_back(ConvertTo(Value(*call.arguments[2], scope), NVarChar(128)));
    Engine& engine = m_engine;
    const auto parse = name == "PARSE" ? ParseText : TryParseText;
    Scalar value =
        Call(name, std::move(arguments), to, Evaluation::OncePerStatement,
             [&engine, to, parse, hasCulture](std::span<const Datum> values) {
                 return parse(engine.context.Functions(), values[0], to, hasCulture ? &values[1] : nullptr);
             });
    value.nullable = true;
    return value;
}

Scalar Translator::TriggerFunction(const tsql::FunctionCall& call, const std::string& name) {
    Engine& engine = m_engine;
    const TriggerFrame* frame = engine.context.CurrentTrigger();
    if (name == "COLUMNS_UPDATED") {
        return Call(name, {}, BinaryType(TypeId::VarBinary, 128), Evaluation::OncePerStatement,
                    [&engine](std::span<const Datum>) {
                        const SqlType type = BinaryType(TypeId::VarBinary, 128);
                        const TriggerFrame* running = engine.context.CurrentTrigger();
                        if (running == nullptr)
                            return Datum::Null(type);
                        const std::vector<bool>& updated = running->updated;
                        std::string bytes((updated.size() + 6) / 8, '\0');
                        for (std::size_t id = 1; id < updated.size(); ++id)
                            if (updated[id])
                                bytes[(id - 1) / 8] =
                                    static_cast<char>(bytes[(id - 1) / 8] | 1 << (id - 1) % 8);
                        return Datum::Bytes(type, std::move(bytes));
                    });
    }
    RequireCount("UPDATE", call, 1);
    const auto word = BareWord(*call.arguments[0]);
    if (frame == nullptr)
        throw SqlError(157);
    const Column* column = nullptr;
    if (word)
        for (const auto& set : {frame->inserted, frame->deleted})
            if (column == nullptr && set)
                column = set->FindColumn(*word);
    if (column == nullptr)
        throw SqlError(207, {word ? *word : std::string("?")});
    const int id = column->id;
    return Call("UPDATE " + std::to_string(id), {}, SimpleType(TypeId::Bit), Evaluation::OncePerStatement,
                [&engine, id](std::span<const Datum>) {
                    const TriggerFrame* running = engine.context.CurrentTrigger();
                    return Datum::Bit(running != nullptr && running->IsUpdated(id));
                });
}

Scalar Translator::UserFunction(const Module& function, const tsql::FunctionCall& call, const Scope* scope) {
    if (call.arguments.size() > function.parameters.size())
        throw SqlError(8144, {call.name.Text()});
    if (call.arguments.size() < function.parameters.size())
        throw SqlError(313, {call.name.Text()});
    std::vector<Scalar> arguments;
    std::vector<bool> defaults;
    std::string key = "module " + std::to_string(function.id) + "." + std::to_string(function.version);
    for (std::size_t i = 0; i < call.arguments.size(); ++i) {
        const bool isDefault = call.arguments[i]->kind == tsql::ExpressionKind::DefaultValue;
        defaults.push_back(isDefault);
        key += isDefault ? 'd' : 'v';
        if (!isDefault)
            arguments.push_back(ConvertTo(Value(*call.arguments[i], scope), function.parameters[i].type));
    }
    needs.callsModules = true;
    Engine& engine = m_engine;
    const auto module = engine.store.View()->FindModule(function.id);
    return Call(key, std::move(arguments), WithCollation(*function.returns), Evaluation::EachRow,
                [&engine, module, defaults](std::span<const Datum> values) {
                    std::vector<Datum> all;
                    std::size_t next = 0;
                    for (const bool isDefault : defaults)
                        all.push_back(isDefault ? Datum() : values[next++]);
                    for (std::size_t i = 0; i < all.size(); ++i)
                        if (!defaults[i] && all[i].IsNull())
                            all[i] = Datum::Null(module->parameters[i].type);
                    return engine.context.CallScalarFunction(*module, all);
                });
}

} // namespace quillon::practice
