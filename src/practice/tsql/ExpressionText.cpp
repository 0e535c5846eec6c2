#include "practice/tsql/ExpressionText.h"

#include "practice/tsql/TreeQueries.h"

#include <algorithm>
#include <cctype>
#include <map>

namespace quillon::practice::tsql {

namespace {

// How tightly a form holds together; an operand that binds less than its place asks for gets brackets.
enum Binding { Loosest, Or, And, NotLevel, Predicate, Sum, Product, Sign, Closed };

struct Printed {
    std::string text;
    Binding binding = Closed;
};

class NoForm {};

Printed Print(const Expression& expression);

std::string Lower(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return text;
}

std::string Doubled(const std::string& text, char sign) {
    std::string doubled;
    for (const char c : text)
        doubled.append(c == sign ? 2 : 1, c);
    return doubled;
}

std::string Bracketed(const Name& name) {
    std::string text;
    for (const std::string& part : name.parts)
        text += (text.empty() ? "[" : ".[") + Doubled(part, ']') + "]";
    return text;
}

std::string At(Binding least, const Expression& expression) {
    Printed printed = Print(expression);
    return printed.binding < least ? "(" + printed.text + ")" : std::move(printed.text);
}

std::string List(const ExpressionList& expressions) {
    std::string text;
    for (const ExpressionPtr& one : expressions)
        text += (text.empty() ? "" : ",") + At(Loosest, *one);
    return text;
}

Printed Print(const Literal& literal) {
    switch (literal.type) {
    case LiteralType::Null: return {"NULL"};
    case LiteralType::String: return {"'" + Doubled(literal.text, '\'') + "'"};
    case LiteralType::NString: return {"N'" + Doubled(literal.text, '\'') + "'"};
    case LiteralType::Binary: return {literal.text};
    default: return {"(" + literal.text + ")"};
    }
}

Printed Print(const Unary& unary) {
    const auto* number =
        unary.operand->kind == ExpressionKind::Literal ? &As<Literal>(*unary.operand) : nullptr;
    const std::string sign = unary.op == UnaryOperator::Minus  ? "-"
                             : unary.op == UnaryOperator::Plus ? "+"
                                                               : "~";
    if (number != nullptr && unary.op == UnaryOperator::Minus && !number->text.empty() &&
        std::isdigit(static_cast<unsigned char>(number->text[0])) && number->type != LiteralType::Binary)
        return {"(-" + number->text + ")"};
    return {sign + At(Closed, *unary.operand), Sign};
}

Printed Print(const Binary& binary) {
    static const std::map<BinaryOperator, std::pair<const char*, Binding>> signs{
        {BinaryOperator::Add, {"+", Sum}},        {BinaryOperator::Subtract, {"-", Sum}},
        {BinaryOperator::BitAnd, {"&", Sum}},     {BinaryOperator::BitOr, {"|", Sum}},
        {BinaryOperator::BitXor, {"^", Sum}},     {BinaryOperator::Multiply, {"*", Product}},
        {BinaryOperator::Divide, {"/", Product}}, {BinaryOperator::Modulo, {"%", Product}},
    };
    const auto& [sign, level] = signs.at(binary.op);
    return {At(level, *binary.left) + sign + At(static_cast<Binding>(level + 1), *binary.right), level};
}

std::string TypeText(const DataType& type) {
    std::string text = Bracketed(type.name);
    if (!type.hasLength)
        return text;
    text += "(" + (type.isMax ? std::string("max") : std::to_string(type.length));
    return text + (type.hasScale ? "," + std::to_string(type.scale) : "") + ")";
}

Printed Print(const Cast& cast) {
    const std::string value = At(Loosest, *cast.operand);
    if (cast.tryForm && !cast.convert)
        return {"TRY_CAST(" + value + " AS " + TypeText(cast.type) + ")"};
    const std::string style = cast.style ? "," + At(Loosest, *cast.style) : "";
    return {(cast.tryForm ? "TRY_CONVERT(" : "CONVERT(") + TypeText(cast.type) + "," + value + style + ")"};
}

Printed Print(const Case& choice) {
    std::string text = "case";
    if (choice.input)
        text += " " + At(Loosest, *choice.input);
    for (const CaseBranch& branch : choice.branches)
        text += " when " + At(Loosest, *branch.when) + " then " + At(Loosest, *branch.then);
    if (choice.otherwise)
        text += " else " + At(Loosest, *choice.otherwise);
    return {text + " end"};
}

bool TakesDatePart(const std::string& function) {
    return function == "dateadd" || function == "datediff" || function == "datediff_big" ||
           function == "datename" || function == "datepart" || function == "datetrunc";
}

Printed PrintNiladic(const std::string& function) {
    static const std::map<std::string, const char*> meanings{{"current_timestamp", "getdate()"},
                                                             {"current_user", "user_name()"},
                                                             {"session_user", "user_name()"},
                                                             {"system_user", "suser_sname()"},
                                                             {"user", "user_name()"}};
    const auto found = meanings.find(function);
    if (found == meanings.end())
        throw NoForm();
    return {found->second};
}

Printed PrintParse(const FunctionCall& call) {
    const std::string culture =
        call.arguments.size() > 2 ? " USING " + At(Loosest, *call.arguments[2]) : std::string();
    return {Lower(call.name.Last()) + "(" + At(Loosest, *call.arguments[0]) + " AS " +
            TypeText(As<Cast>(*call.arguments[1]).type) + culture + ")"};
}

Printed Print(const FunctionCall& call) {
    if (call.over || call.star || call.distinct || !call.withinGroup.empty())
        throw NoForm();
    if (call.name.parts.size() > 1)
        return {Bracketed(call.name) + "(" + List(call.arguments) + ")"};
    const std::string function = Lower(call.name.Last());
    if (call.niladic)
        return PrintNiladic(function);
    if (function == "year" || function == "month" || function == "day")
        return {"datepart(" + function + "," + List(call.arguments) + ")"};
    if (function == "parse" || function == "try_parse")
        return PrintParse(call);
    if (function == "iif" && call.arguments.size() == 3)
        return {"case when " + At(Loosest, *call.arguments[0]) + " then " + At(Loosest, *call.arguments[1]) +
                " else " + At(Loosest, *call.arguments[2]) + " end"};
    if (TakesDatePart(function) && !call.arguments.empty() &&
        call.arguments[0]->kind == ExpressionKind::Column) {
        std::string text = function + "(" + Lower(As<ColumnReference>(*call.arguments[0]).name.Last());
        for (std::size_t index = 1; index < call.arguments.size(); ++index)
            text += "," + At(Loosest, *call.arguments[index]);
        return {text + ")"};
    }
    return {function + "(" + List(call.arguments) + ")"};
}

Printed Negated(bool negated, Printed printed) {
    if (!negated)
        return printed;
    const bool closed = printed.binding > NotLevel;
    return {"NOT " + (closed ? printed.text : "(" + printed.text + ")"), NotLevel};
}

Printed Print(const Comparison& comparison) {
    static constexpr const char* signs[] = {"=", "<>", "<", "<=", ">", ">="};
    return {At(Sum, *comparison.left) + signs[static_cast<int>(comparison.op)] + At(Sum, *comparison.right),
            Predicate};
}

Printed Print(const Logical& logical) {
    const Binding level = logical.isAnd ? And : Or;
    return {At(level, *logical.left) + (logical.isAnd ? " AND " : " OR ") + At(level, *logical.right), level};
}

Printed Print(const Between& between) {
    const std::string operand = At(Sum, *between.operand);
    return Negated(
        between.negated,
        {operand + ">=" + At(Sum, *between.low) + " AND " + operand + "<=" + At(Sum, *between.high), And});
}

// The last value of the list comes first.
Printed Print(const InList& in) {
    const std::string operand = At(Sum, *in.operand);
    std::string text;
    for (auto value = in.list.rbegin(); value != in.list.rend(); ++value)
        text += (text.empty() ? "" : " OR ") + operand + "=" + At(Sum, **value);
    return Negated(in.negated, {text, in.list.size() > 1 ? Or : Predicate});
}

Printed Print(const Like& like) {
    const std::string escape = like.escape ? " escape " + At(Sum, *like.escape) : "";
    return Negated(like.negated,
                   {At(Sum, *like.operand) + " like " + At(Sum, *like.pattern) + escape, Predicate});
}

Printed Print(const Expression& expression) {
    switch (expression.kind) {
    case ExpressionKind::Literal: return Print(As<Literal>(expression));
    case ExpressionKind::Column: return {Bracketed(As<ColumnReference>(expression).name)};
    case ExpressionKind::Unary: return Print(As<Unary>(expression));
    case ExpressionKind::Binary: return Print(As<Binary>(expression));
    case ExpressionKind::Function: return Print(As<FunctionCall>(expression));
    case ExpressionKind::Cast: return Print(As<Cast>(expression));
    case ExpressionKind::Case: return Print(As<Case>(expression));
    case ExpressionKind::Collate: {
        const auto& collate = As<Collate>(expression);
        return {At(Closed, *collate.operand) + " COLLATE " + collate.collation};
    }
    case ExpressionKind::Comparison: return Print(As<Comparison>(expression));
    case ExpressionKind::Logical: return Print(As<Logical>(expression));
    case ExpressionKind::Not: return Negated(true, Print(*As<Not>(expression).operand));
    case ExpressionKind::IsNull: {
        const auto& test = As<IsNull>(expression);
        return {At(Sum, *test.operand) + (test.negated ? " IS NOT NULL" : " IS NULL"), Predicate};
    }
    case ExpressionKind::Between: return Print(As<Between>(expression));
    case ExpressionKind::Like: return Print(As<Like>(expression));
    case ExpressionKind::InList: return Print(As<InList>(expression));
    default: throw NoForm();
    }
}

} // namespace

std::optional<std::string> ExpressionText(const Expression& expression) {
    try {
        return Print(expression).text;
    } catch (const NoForm&) {
        return std::nullopt;
    }
}

} // namespace quillon::practice::tsql
