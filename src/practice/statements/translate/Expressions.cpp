// Values: literals, columns, variables, operators, CASE, CAST, subqueries.
#include "practice/statements/translate/Translator.h"

#include "practice/values/Literals.h"
#include "practice/values/SqlError.h"
#include "practice/values/StorageForm.h"

#include <charconv>

namespace quillon::practice {

namespace {

BinaryOperator OperatorOf(tsql::BinaryOperator op) {
    static_assert(static_cast<int>(tsql::BinaryOperator::BitXor) == static_cast<int>(BinaryOperator::BitXor));
    return static_cast<BinaryOperator>(op);
}

// 12 of s12; 0 for names that were not given by NextAlias.
int AliasNumber(const std::string& alias) {
    int number = 0;
    if (alias.size() > 1)
        std::from_chars(alias.data() + 1, alias.data() + alias.size(), number);
    return number;
}

} // namespace

Surroundings::Surroundings(const Table& table)
    : database(table.database)
    , schema(table.schema)
    , nameRule(table.nameRule)
    , isModule(true) {}

Surroundings::Surroundings(const Module& module)
    : database(module.database)
    , schema(module.schema)
    , nameRule(module.nameRule)
    , ansiNulls(module.ansiNulls)
    , quotedIdentifier(module.quotedIdentifier)
    , isModule(true) {}

Translator::Translator(Engine& engine)
    : m_engine(engine) {
    m_here.database = engine.context.CurrentDatabase();
    m_here.schema = engine.context.DefaultSchema();
    if (const auto module = engine.store.View()->FindModule(engine.context.CurrentModule()))
        m_here.schema = module->schema;
    if (const Database* database = engine.store.View()->FindDatabase(m_here.database))
        m_here.nameRule = database->Rule();
    m_here.ansiNulls = engine.context.Options().ansiNulls;
    m_here.quotedIdentifier = engine.context.Options().quotedIdentifier;
}

Translator::Translator(Engine& engine, const Surroundings& surroundings)
    : m_engine(engine)
    , m_here(surroundings) {}

Scalar Translator::Value(const tsql::Expression& expression, const Scope* scope) {
    std::vector<std::pair<const Scope*, std::size_t>> before;
    for (const Scope* s = scope; s != nullptr; s = s->outer)
        if (!s->groupKeys.empty())
            before.emplace_back(s, s->looseColumns.size());
    Scalar value = DispatchValue(expression, scope);
    for (const auto& [grouped, count] : before) {
        const auto& keys = grouped->groupKeys;
        if (std::find(keys.begin(), keys.end(), value.sql) != keys.end())
            grouped->looseColumns.resize(count);
        if (grouped->insideAggregate == 0 && grouped->absentKeys.contains(value.sql)) {
            value.sql = "NULL";
            value.nullable = true;
        }
    }
    return value;
}

Scalar Translator::DispatchValue(const tsql::Expression& expression, const Scope* scope) {
    using Kind = tsql::ExpressionKind;
    switch (expression.kind) {
    case Kind::Literal: return Literal(tsql::As<tsql::Literal>(expression));
    case Kind::Column: return ColumnValue(tsql::As<tsql::ColumnReference>(expression), scope);
    case Kind::PseudoColumn: return PseudoValue(tsql::As<tsql::PseudoColumn>(expression), scope);
    case Kind::Variable: return VariableValue(tsql::As<tsql::VariableReference>(expression).name);
    case Kind::GlobalVariable: return GlobalValue(tsql::As<tsql::GlobalVariable>(expression));
    case Kind::Unary: return UnaryValue(tsql::As<tsql::Unary>(expression), scope);
    case Kind::Binary: return BinaryValue(tsql::As<tsql::Binary>(expression), scope);
    case Kind::Function: return FunctionValue(tsql::As<tsql::FunctionCall>(expression), scope);
    case Kind::Cast: return CastValue(tsql::As<tsql::Cast>(expression), scope);
    case Kind::Case: return CaseValue(tsql::As<tsql::Case>(expression), scope);
    case Kind::Collate: return CollateValue(tsql::As<tsql::Collate>(expression), scope);
    case Kind::Subquery: return SubqueryValue(tsql::As<tsql::Subquery>(expression), scope);
    case Kind::DefaultValue: throw SqlError(156, {"DEFAULT"});
    default: {
        // A condition that stands for a value: none in the language itself.
        Scalar value;
        value.sql = Condition(expression, scope);
        value.type = SimpleType(TypeId::Bit);
        return value;
    }
    }
}

Scalar Translator::Literal(const tsql::Literal& literal) {
    using Type = tsql::LiteralType;
    switch (literal.type) {
    case Type::Null: {
        Scalar null;
        null.sql = "NULL";
        null.constant = Datum();
        return null;
    }
    case Type::Integer: {
        Scalar number = Constant(IntegerLiteral(literal.text));
        number.isLiteral = true;
        return number;
    }
    case Type::Decimal: return Constant(DecimalLiteral(literal.text));
    case Type::Float: return Constant(FloatLiteral(literal.text));
    case Type::Money: return Constant(MoneyLiteral(literal.text));
    case Type::String: return Constant(StringLiteral(literal.text, false, DatabaseCollation()));
    case Type::NString: return Constant(StringLiteral(literal.text, true, nullptr));
    case Type::Binary: return Constant(BinaryLiteral(literal.text));
    }
    throw SqlError(102, {literal.text});
}

Scalar Translator::ColumnScalar(const ColumnUse& use, const Scope& scope) {
    if (scope.insideAggregate == 0)
        scope.looseColumns.push_back(use);
    const SourceColumn& column = *use.column;
    m_outermostAlias = std::min(m_outermostAlias, AliasNumber(use.source->alias));
    if (column.outOfReach)
        throw SqlError(311);
    Scalar value;
    value.sql = column.sql;
    value.type = column.type;
    value.nullable = column.nullable;
    value.label = column.label;
    if (column.sql.empty()) {
        // A computed column: its expression over the columns of its own row.
        Scope row;
        row.sources.push_back(std::make_unique<Source>(*use.source));
        const auto parsed = m_engine.StoredExpression(column.definition->computed);
        value.sql = "(" + ConvertTo(Value(*parsed->expression, &row), column.type).sql + ")";
    }
    for (Capture* capture : scope.captures)
        value.sql = capture->Take(value.sql);
    return value;
}

Scalar Translator::ColumnValue(const tsql::ColumnReference& reference, const Scope* scope) {
    const tsql::Name& name = reference.name;
    bool qualifierKnown = false;
    for (const Scope* s = scope; s != nullptr; s = s->outer) {
        const std::vector<ColumnUse> found = FindColumns(*s, name);
        if (found.size() > 1)
            throw SqlError(209, {name.Last()});
        if (found.size() == 1)
            return ColumnScalar(found.front(), *s);
        for (const std::unique_ptr<Source>& source : s->sources)
            qualifierKnown = qualifierKnown || Matches(*source, name, name.parts.size() - 1);
    }
    if (name.parts.size() > 1 && !qualifierKnown)
        throw SqlError(4104, {name.Text()});
    // Where there is nothing to select from, a bare name is more likely meant as a constant.
    if (scope == nullptr && name.parts.size() == 1)
        throw SqlError(128, {name.Last()});
    throw SqlError(207, {name.Last()});
}

Scalar Translator::PseudoValue(const tsql::PseudoColumn& pseudo, const Scope* scope) {
    const bool identity = SameName(pseudo.name, "$IDENTITY");
    const bool rowGuid = SameName(pseudo.name, "$ROWGUID");
    for (const Scope* s = scope; s != nullptr; s = s->outer)
        for (const std::unique_ptr<Source>& source : s->sources) {
            if (!pseudo.table.Empty() && !Matches(*source, pseudo.table, pseudo.table.parts.size()))
                continue;
            for (const SourceColumn& column : source->columns)
                if (identity ? column.identity
                             : SameName(column.name, pseudo.name) ||
                                   (rowGuid && column.definition != nullptr && column.definition->rowGuid))
                    return ColumnScalar({source.get(), &column}, *s);
        }
    throw SqlError(207, {pseudo.name});
}

Scalar Translator::VariableValue(const std::string& name) {
    if (m_here.arguments != nullptr) {
        const auto argument = m_here.arguments->find(FoldName(name));
        if (argument == m_here.arguments->end())
            throw SqlError(137, {name});
        m_outermostAlias = 0; // the argument may be made of columns around the call
        return argument->second;
    }
    const Variable* variable = m_engine.context.FindVariable(name);
    if (variable == nullptr || variable->table)
        throw SqlError(137, {name});
    Scalar value;
    value.type = WithCollation(variable->type);
    const auto isThis = [&](const std::string& live) { return SameName(live, name); };
    if (std::any_of(needs.liveVariables.begin(), needs.liveVariables.end(), isThis)) {
        m_usedLive = true;
        Engine& engine = m_engine;
        return Call(
            "variable " + FoldName(name), {}, value.type, Evaluation::EachRow,
            [&engine, name](std::span<const Datum>) { return engine.context.FindVariable(name)->value; });
    }
    value.sql = "?" + std::to_string(AddNeeded({Needed::Kind::Variable, name, value.type}));
    value.isParameter = true;
    return value;
}

Scalar Translator::GlobalValue(const tsql::GlobalVariable& global) {
    Scalar value;
    value.type = WithCollation(m_engine.context.GlobalVariable(global.name).Type());
    value.sql = "?" + std::to_string(AddNeeded({Needed::Kind::Global, global.name, value.type}));
    value.isParameter = true;
    return value;
}

Scalar Translator::UnaryValue(const tsql::Unary& unary, const Scope* scope) {
    Scalar operand = Value(*unary.operand, scope);
    if (operand.IsBareNull())
        operand = ConvertTo(std::move(operand), SimpleType(TypeId::Int));
    if (unary.op == tsql::UnaryOperator::Plus)
        return operand;
    const UnaryOperator op =
        unary.op == tsql::UnaryOperator::Minus ? UnaryOperator::Minus : UnaryOperator::BitNot;
    const SqlType result = ResultType(op, operand.type);
    const bool nullable = operand.nullable;
    const bool isLiteral = operand.isLiteral && op == UnaryOperator::Minus;
    Scalar value =
        Call(op == UnaryOperator::Minus ? "minus" : "bitnot", {std::move(operand)}, result, Evaluation::Pure,
             [op, result](std::span<const Datum> values) { return Evaluate(op, values[0], result); });
    value.nullable = nullable;
    value.isLiteral = isLiteral;
    return value;
}

Scalar Translator::BinaryValue(const tsql::Binary& binary, const Scope* scope) {
    // A long chain of additions leans to the left; it is walked down without recursion.
    std::vector<const tsql::Binary*> chain;
    const tsql::Expression* leftmost = &binary;
    while (leftmost->kind == tsql::ExpressionKind::Binary) {
        chain.push_back(&tsql::As<tsql::Binary>(*leftmost));
        leftmost = chain.back()->left.get();
    }
    std::reverse(chain.begin(), chain.end());
    Scalar value = Value(*leftmost, scope);
    constexpr std::size_t shortChain = 6;
    if (chain.size() > shortChain)
        return ChainValue(chain, std::move(value), scope);
    for (const tsql::Binary* link : chain)
        value = Operate(OperatorOf(link->op), std::move(value), Value(*link->right, scope));
    return value;
}

Translator::Link Translator::BindOperator(BinaryOperator op, Scalar& left, Scalar& right) {
    if (left.IsBareNull() && right.IsBareNull())
        left.type = right.type = SimpleType(TypeId::Int);
    else if (left.IsBareNull())
        left = ConvertTo(std::move(left), right.type);
    else if (right.IsBareNull())
        right = ConvertTo(std::move(right), left.type);
    Harmonize(left, right, OperatorName(op));
    const auto operandType = [](const Scalar& operand, const SqlType& other) {
        return operand.isLiteral && operand.constant ? ConstantOperandType(*operand.constant, other)
                                                     : operand.type;
    };
    Link link;
    link.op = op;
    link.left = left.type;
    link.result = ResultType(op, operandType(left, right.type), operandType(right, left.type));
    const bool constants = left.constant && right.constant;
    if (link.result.IsCharacter()) {
        link.result.collation = left.type.IsCharacter() ? left.type.collation : right.type.collation;
        link.emptyLeft = !m_engine.context.Options().concatNullYieldsNull;
        if (link.emptyLeft)
            right = OrEmpty(std::move(right));
    }
    link.label = std::max(left.label, right.label);
    // A calculation that leaves its type's range may give NULL, as the session has it.
    const bool calculates = link.result.IsNumber() && !constants;
    link.nullable = left.nullable || right.nullable || calculates;
    link.joins = op == BinaryOperator::Add && left.type.IsCharacter() && right.type.IsCharacter() &&
                 !constants && !link.emptyLeft && LengthsAdd(left.type, right.type, link.result);
    return link;
}

Scalar Translator::OrEmpty(Scalar text) {
    return Call("orempty", {text}, text.type, Evaluation::EachRow,
                [type = text.type](std::span<const Datum> values) {
                    return values[0].IsNull() ? Datum::Text(type, "") : values[0];
                });
}

Scalar Translator::Operate(BinaryOperator op, Scalar left, Scalar right) {
    const Link link = BindOperator(op, left, right);
    if (!link.joins)
        return CalculateLinks(std::move(left), {&link, 1}, {&right, 1});
    Scalar joined;
    joined.sql = JoinTerms({left.sql, right.sql}, " || ");
    joined.type = link.result;
    joined.nullable = link.nullable;
    joined.label = link.label;
    return joined;
}

// A long chain takes no nesting for each of its operators: texts that fit are joined side by side, everything
// else is worked off from the left by calls that take many operands.
Scalar Translator::ChainValue(const std::vector<const tsql::Binary*>& chain, Scalar first,
                              const Scope* scope) {
    std::vector<Link> links;
    std::vector<Scalar> operands;
    Scalar left = first; // what the chain is so far
    for (const tsql::Binary* binary : chain) {
        const BinaryOperator op = OperatorOf(binary->op);
        Scalar right = Value(*binary->right, scope);
        if (links.empty() && left.constant && right.constant) {
            left = first = Operate(op, std::move(left), std::move(right));
            continue;
        }
        links.push_back(BindOperator(op, left, right));
        if (links.size() == 1)
            first = left;
        operands.push_back(std::move(right));
        left = Scalar();
        left.type = links.back().result;
        left.nullable = links.back().nullable;
        left.label = links.back().label;
    }
    constexpr std::size_t mostOperands = 100; // SQLite takes 127
    for (std::size_t from = 0; from < links.size();) {
        std::size_t to = from;
        std::vector<std::string> texts{first.sql};
        for (; to < links.size() && links[to].joins; ++to)
            texts.push_back(operands[to].sql);
        first.sql = JoinTerms(texts, " || ");
        if (to == from) {
            while (to < links.size() && !links[to].joins && to - from < mostOperands)
                ++to;
            first.type = links[from].left;
            first = CalculateLinks(std::move(first), {&links[from], to - from}, {&operands[from], to - from});
        } else {
            const std::string joined = std::move(first.sql);
            first = Scalar();
            first.sql = joined;
        }
        from = to;
    }
    first.type = left.type;
    first.nullable = left.nullable;
    first.label = left.label;
    return first;
}

Scalar Translator::CalculateLinks(Scalar first, std::span<const Link> links,
                                  std::span<const Scalar> operands) {
    std::string key = "op";
    for (const Link& link : links) {
        key += std::to_string(static_cast<int>(link.op)) + (link.emptyLeft ? "e" : "");
        if (links.size() > 1)
            key += TypeKey(link.left) + ">" + TypeKey(link.result) + ";";
    }
    std::vector<Scalar> arguments{std::move(first)};
    arguments.insert(arguments.end(), operands.begin(), operands.end());
    const bool eachRow =
        std::any_of(links.begin(), links.end(), [](const Link& link) { return link.emptyLeft; });
    Engine& engine = m_engine;
    const std::vector<Link> steps(links.begin(), links.end());
    Scalar value =
        Call(key, std::move(arguments), steps.back().result, eachRow ? Evaluation::EachRow : Evaluation::Pure,
             [&engine, steps](std::span<const Datum> values) {
                 const ConvertOptions options = engine.context.Functions().Options();
                 Datum result = values[0];
                 for (std::size_t i = 0; i < steps.size(); ++i) {
                     const Link& step = steps[i];
                     if (step.emptyLeft && result.IsNull())
                         result = Datum::Text(step.left, "");
                     if (i > 0 && !result.IsNull())
                         result.SetType(step.left);
                     result = Evaluate(step.op, result, values[i + 1], step.result, options);
                 }
                 return result;
             });
    value.nullable = steps.back().nullable;
    value.label = steps.back().label;
    return value;
}

// Whether the joined text can never be longer than its type, so that nothing has to be cut.
bool Translator::LengthsAdd(const SqlType& left, const SqlType& right, const SqlType& result) {
    if (result.length == maxLength)
        return true;
    if (left.IsLegacyLob() || right.IsLegacyLob() || left.length == maxLength || right.length == maxLength)
        return false;
    return left.length + right.length <= result.length;
}

Scalar Translator::Compound(tsql::AssignmentOperator op, const Scalar& left, const Scalar& right) {
    if (op == tsql::AssignmentOperator::Set)
        return right;
    return Operate(static_cast<BinaryOperator>(static_cast<int>(op) - 1), left, right);
}

Scalar Translator::CastValue(const tsql::Cast& cast, const Scope* scope) {
    SqlType to = TypeOf(cast.type, true);
    Scalar operand = Value(*cast.operand, scope);
    if (to.IsCharacter())
        to.collation = operand.type.IsCharacter() ? operand.type.collation : DatabaseCollation();
    if (operand.IsBareNull())
        return ConvertTo(std::move(operand), to);
    RequireConversion(operand.type, to, true);
    const bool nullable = operand.nullable || cast.tryForm;
    const CollationLabel label = operand.label;
    Scalar value;
    if (!cast.style && !cast.tryForm && SameStorage(operand.type, to)) {
        value = ConvertTo(std::move(operand), to);
    } else {
        std::vector<Scalar> arguments{std::move(operand)};
        if (cast.style)
            arguments.push_back(ConvertTo(Value(*cast.style, scope), SimpleType(TypeId::Int)));
        Engine& engine = m_engine;
        const bool tryForm = cast.tryForm;
        const bool styled = cast.style != nullptr;
        value = Call(tryForm ? "trycast" : "cast", std::move(arguments), to, Evaluation::Pure,
                     [&engine, to, tryForm, styled](std::span<const Datum> values) {
                         if (styled && values[1].IsNull())
                             return Datum::Null(to);
                         const int style = styled ? static_cast<int>(values[1].Integer()) : noStyle;
                         const ConvertOptions options = engine.context.Functions().Options();
                         return tryForm ? TryConvert(values[0], to, options, style)
                                        : Convert(values[0], to, options, style);
                     });
    }
    value.nullable = nullable;
    if (to.IsCharacter()) {
        value.label = label;
        value.type.collation = to.collation;
    }
    return value;
}

Scalar Translator::CaseValue(const tsql::Case& value, const Scope* scope) {
    std::vector<Scalar> results;
    for (const tsql::CaseBranch& branch : value.branches)
        results.push_back(Value(*branch.then, scope));
    if (value.otherwise)
        results.push_back(Value(*value.otherwise, scope));
    Scalar result = Common(results, "CASE");
    if (result.IsBareNull())
        throw SqlError(8133);
    std::string sql = "CASE";
    for (std::size_t i = 0; i < value.branches.size(); ++i) {
        const tsql::CaseBranch& branch = value.branches[i];
        const std::string when = value.input ? Compare(ComparisonOperator::Equal, Value(*value.input, scope),
                                                       Value(*branch.when, scope))
                                             : Condition(*branch.when, scope);
        sql += " WHEN " + when + " THEN " + results[i].sql;
    }
    if (value.otherwise)
        sql += " ELSE " + results.back().sql;
    result.sql = "(" + sql + " END)";
    result.nullable = result.nullable || !value.otherwise;
    return result;
}

Scalar Translator::CollateValue(const tsql::Collate& collate, const Scope* scope) {
    Scalar value = Value(*collate.operand, scope);
    if (value.IsBareNull())
        value = ConvertTo(std::move(value), VarChar(1));
    if (!value.type.IsCharacter())
        throw SqlError(447, {value.type.Name()});
    const Collation* collation = SameName(collate.collation, "database_default")
                                     ? DatabaseCollation()
                                     : FindCollation(collate.collation);
    if (collation == nullptr)
        throw SqlError(448, {collate.collation});
    SqlType collated = value.type;
    collated.collation = collation;
    value = ConvertTo(std::move(value), collated);
    value.type = collated;
    value.label = CollationLabel::Explicit;
    return value;
}

Scalar Translator::SubqueryValue(const tsql::Subquery& subquery, const Scope* scope) {
    const QuerySql query = Query(*subquery.query, scope);
    if (query.columns.size() != 1)
        throw SqlError(116);
    Scalar value;
    value.type = query.columns[0].type;
    value.label = query.columns[0].label;
    if (query.oneRow) {
        value.sql = "(" + query.sql + ")";
        return value;
    }
    const SqlType type = value.type.id == TypeId::Null ? SimpleType(TypeId::Int) : value.type;
    const std::string only = m_engine.functions.RowAggregate("only " + TypeKey(type), [&] {
        class Only : public RowAggregateNode::State {
          public:
            void Step(std::span<const Datum> row) override {
                if (m_seen)
                    throw SqlError(512);
                m_seen = true;
                m_value = row[0];
            }
            Datum Result() override { return m_value; }

          private:
            bool m_seen = false;
            Datum m_value;
        };
        return RowAggregateNode{{type}, type, [] { return std::make_unique<Only>(); }};
    });
    value.type = type;
    value.sql = "(SELECT " + only + "(o1) FROM (" + query.sql + "))";
    return value;
}

} // namespace quillon::practice
