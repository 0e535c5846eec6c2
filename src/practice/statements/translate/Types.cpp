// Static types: conversions, collations, and the calls of our functions from SQL.
#include "practice/statements/Truncation.h"
#include "practice/statements/translate/Translator.h"
#include "practice/values/CodePage.h"
#include "practice/values/SqlError.h"
#include "practice/values/StorageForm.h"

namespace quillon::practice {

std::string UpperCase(std::string_view text) {
    std::string upper(text);
    std::transform(upper.begin(), upper.end(), upper.begin(),
                   [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; });
    return upper;
}

std::string Collated(const std::string& sql, const SqlType& type) {
    const std::string collation = SqliteCollation(type);
    return collation.empty() ? sql : sql + " COLLATE " + collation;
}

std::string JoinTerms(const std::vector<std::string>& terms, std::string_view word) {
    constexpr std::size_t most = 64;
    const auto joined = [&](std::size_t from, std::size_t to) {
        std::string sql;
        for (std::size_t i = from; i < to; ++i)
            (sql += i == from ? std::string_view() : word) += terms[i];
        return terms.size() == 1 ? sql : "(" + sql + ")";
    };
    if (terms.size() <= most)
        return joined(0, terms.size());
    std::vector<std::string> groups;
    for (std::size_t from = 0; from < terms.size(); from += most)
        groups.push_back(joined(from, std::min(from + most, terms.size())));
    return JoinTerms(groups, word);
}

namespace {

bool LengthFits(const SqlType& from, const SqlType& to) {
    if (to.length == maxLength || to.IsLegacyLob())
        return true;
    return from.length != maxLength && !from.IsLegacyLob() && from.length <= to.length;
}

bool TextFits(const SqlType& from, const SqlType& to) {
    const bool padded = to.id == TypeId::Char || to.id == TypeId::NChar;
    if (padded)
        return from.id == to.id && from.length == to.length;
    if (!to.IsUnicode() && from.collation != to.collation &&
        &CodePage::Of(from.collation) != &CodePage::Of(to.collation))
        return false;
    return (to.IsUnicode() || !from.IsUnicode()) && LengthFits(from, to);
}

bool BinaryFits(const SqlType& from, const SqlType& to) {
    if (to.id == TypeId::Binary || to.id == TypeId::RowVersion)
        return from.id == to.id && from.length == to.length;
    if (from.id == TypeId::RowVersion)
        return to.length == maxLength || to.IsLegacyLob() || to.length >= 8;
    return LengthFits(from, to);
}

bool DecimalFits(const SqlType& from, const SqlType& to) {
    constexpr int widestInteger = 18;
    return from.scale == to.scale && from.precision <= to.precision &&
           (from.precision <= widestInteger) == (to.precision <= widestInteger);
}

} // namespace

bool SameStorage(const SqlType& from, const SqlType& to) {
    if (from.IsInteger() && to.IsInteger())
        return from.id <= to.id;
    if (from.IsMoney() && to.IsMoney())
        return from.id <= to.id;
    if (from.IsDecimal() && to.IsDecimal())
        return DecimalFits(from, to);
    if (from.IsCharacter() && to.IsCharacter())
        return TextFits(from, to);
    if (from.IsBinary() && to.IsBinary())
        return BinaryFits(from, to);
    if (from.id == TypeId::SmallDateTime && to.id == TypeId::DateTime)
        return true;
    if (from.id != to.id)
        return false;
    return !from.IsMoment() || from.scale <= to.scale;
}

const Collation* Translator::DatabaseCollation() const {
    const Database* database = m_engine.store.View()->FindDatabase(m_here.database);
    return database == nullptr || database->collation == nullptr ? DefaultCollation() : database->collation;
}

SqlType Translator::WithCollation(SqlType type) const {
    if (type.IsCharacter() && type.collation == nullptr)
        type.collation = DatabaseCollation();
    return type;
}

int Translator::AddNeeded(const Needed& needed) {
    for (std::size_t i = 0; i < needs.values.size(); ++i)
        if (needs.values[i].kind == needed.kind && SameName(needs.values[i].name, needed.name))
            return static_cast<int>(i) + 1;
    needs.values.push_back(needed);
    return static_cast<int>(needs.values.size());
}

Scalar Translator::Constant(const Datum& value) const {
    Scalar scalar;
    scalar.type = WithCollation(value.Type());
    scalar.sql = value.IsNull() ? "NULL" : SqliteLiteral(value, scalar.type);
    scalar.nullable = value.IsNull();
    scalar.constant = value;
    if (!value.IsNull())
        scalar.constant->SetType(scalar.type);
    return scalar;
}

Scalar Translator::Fold(Scalar call, const std::vector<Scalar>& arguments,
                        const std::function<Datum(std::span<const Datum>)>& evaluate) const {
    std::vector<Datum> values;
    for (const Scalar& argument : arguments) {
        if (!argument.constant)
            return call;
        values.push_back(*argument.constant);
        if (argument.type.id != TypeId::Null && values.back().IsNull())
            values.back() = Datum::Null(argument.type);
    }
    try {
        Datum result = evaluate(values);
        if (result.IsNull())
            result = Datum::Null(call.type);
        Scalar folded = Constant(result);
        folded.type = call.type;
        folded.label = call.label;
        if (!result.IsNull())
            folded.sql = SqliteLiteral(result, call.type);
        return folded;
    } catch (const SqlError&) {
        // It may stand where it is never reached; the failure is then none.
        return call;
    }
}

Scalar Translator::Call(const std::string& key, std::vector<Scalar> arguments, const SqlType& result,
                        Evaluation evaluation, std::function<Datum(std::span<const Datum>)> evaluate) {
    constexpr std::size_t mostArguments = 127; // that SQLite takes
    if (arguments.size() > mostArguments)
        throw SqlError::NotSupported("call with more than 127 arguments");
    std::string whole = key + "=" + TypeKey(result);
    for (const Scalar& argument : arguments)
        whole += "," + TypeKey(argument.type);
    const std::string name = m_engine.functions.Scalar(whole, [&] {
        ScalarNode node;
        for (const Scalar& argument : arguments)
            node.arguments.push_back(argument.type);
        node.result = result;
        node.evaluation = evaluation;
        node.evaluate = evaluate;
        return node;
    });
    Scalar call;
    call.type = WithCollation(result);
    call.sql = name + "(";
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        call.sql += (i > 0 ? ", " : "") + arguments[i].sql;
        if (arguments[i].label > call.label)
            call.label = arguments[i].label;
    }
    call.sql += ")";
    if (evaluation == Evaluation::Pure && !arguments.empty())
        return Fold(std::move(call), arguments, evaluate);
    return call;
}

Scalar Translator::ConvertTo(Scalar value, const SqlType& type) {
    if (value.IsBareNull()) {
        value.type = WithCollation(type);
        value.constant = Datum::Null(value.type);
        return value;
    }
    if (SameStorage(value.type, type)) {
        const Collation* kept = value.type.collation;
        value.isLiteral = value.isLiteral && value.type.id == type.id;
        value.type = type;
        if (type.IsCharacter() &&
            (type.collation == nullptr || value.label != CollationLabel::CoercibleDefault))
            value.type.collation = kept;
        if (value.constant)
            value.constant->SetType(value.type);
        return value;
    }
    RequireConversion(value.type, type, false);
    if (value.type.IsInteger() && type.id == TypeId::Float && !value.constant) {
        value.sql = "CAST(" + value.sql + " AS REAL)";
        value.type = type;
        return value;
    }
    const bool nullable = value.nullable;
    const SqlType to = WithCollation(type);
    Engine& engine = m_engine;
    Scalar converted = Call("convert", {std::move(value)}, to, Evaluation::Pure,
                            [&engine, to](std::span<const Datum> values) {
                                return Convert(values[0], to, engine.context.Functions().Options());
                            });
    converted.nullable = nullable;
    return converted;
}

Scalar Translator::AssignTo(Scalar value, const Column& column, const std::string& tableName) {
    const SqlType& type = column.type;
    if (value.IsBareNull() || SameStorage(value.type, type))
        return ConvertTo(std::move(value), type);
    RequireConversion(value.type, type, false);
    if (!m_engine.context.Options().ansiWarnings)
        return ConvertTo(std::move(value), type);
    Engine& engine = m_engine;
    const std::string name = column.name;
    const bool nullable = value.nullable;
    Scalar assigned = Call("assign " + tableName + "." + name, {std::move(value)}, type, Evaluation::Pure,
                           [&engine, type, tableName, name](std::span<const Datum> values) {
                               return FitIntoColumn(engine, values[0], type, tableName, name);
                           });
    assigned.nullable = nullable;
    return assigned;
}

void Translator::Harmonize(Scalar& left, Scalar& right, const char* operation) const {
    if (!left.type.IsCharacter() || !right.type.IsCharacter())
        return;
    if (left.type.collation == right.type.collation) {
        left.label = right.label = std::max(left.label, right.label);
        return;
    }
    if (left.label == CollationLabel::Explicit && right.label == CollationLabel::Explicit)
        throw SqlError(468, {right.type.collation->name, left.type.collation->name, operation}, 9);
    Scalar& stronger = left.label >= right.label ? left : right;
    Scalar& weaker = left.label >= right.label ? right : left;
    if (stronger.label == weaker.label && stronger.label != CollationLabel::CoercibleDefault)
        throw SqlError(468, {right.type.collation->name, left.type.collation->name, operation}, 9);
    weaker.type.collation = stronger.type.collation;
    weaker.label = stronger.label;
}

Scalar Translator::Common(std::vector<Scalar>& values, const char* operation) {
    Scalar model;
    for (Scalar& value : values) {
        if (value.IsBareNull())
            continue;
        if (model.IsBareNull()) {
            model = value;
            continue;
        }
        Harmonize(model, value, operation);
        if (!(model.type == value.type))
            model.type = WithCollation(CommonType(model.type, value.type));
        if (value.type.IsCharacter() && model.type.IsCharacter())
            model.type.collation = value.type.collation;
    }
    if (model.IsBareNull())
        return model;
    model.nullable = false;
    for (Scalar& value : values) {
        value = ConvertTo(std::move(value), model.type);
        model.nullable = model.nullable || value.nullable;
    }
    model.constant.reset();
    model.isParameter = false;
    model.sql.clear();
    return model;
}

std::string Translator::Compare(ComparisonOperator op, Scalar left, Scalar right) {
    static constexpr const char* signs[] = {" = ", " <> ", " < ", " <= ", " > ", " >= "};
    if (left.IsBareNull())
        left.type = right.IsBareNull() ? SimpleType(TypeId::Int) : right.type;
    if (right.IsBareNull())
        right.type = left.type;
    Harmonize(left, right, OperatorName(op));
    const SqlType type = ComparisonType(op, left.type, right.type);
    const bool texts = left.type.IsCharacter() && right.type.IsCharacter();
    const bool plainNumbers =
        (left.type.IsInteger() || left.type.IsFloat()) && (right.type.IsInteger() || right.type.IsFloat());
    const bool bytes = left.type.IsBinary() && right.type.IsBinary();
    if (!texts && !plainNumbers && !bytes) {
        left = ConvertTo(std::move(left), type);
        right = ConvertTo(std::move(right), type);
    }
    const std::string sql = Collated(left.sql, left.type) + signs[static_cast<std::size_t>(op)] + right.sql;
    return "(" + sql + ")";
}

std::string Translator::TestForNull(const Scalar& value, bool negated) {
    return "(" + value.sql + (negated ? " IS NOT NULL)" : " IS NULL)");
}

SqlType Translator::TypeOf(const tsql::DataType& type, bool inCast, std::size_t ordinal) {
    const auto first = !type.hasLength ? std::nullopt : std::optional(type.isMax ? maxLength : type.length);
    const auto second = type.hasScale ? std::optional(type.scale) : std::nullopt;
    if (type.name.parts.size() == 1 || SameName(type.name.Schema(), "sys"))
        if (const auto built = TypeFromName(type.name.Last(), first, second, inCast))
            return WithCollation(*built);
    const auto view = m_engine.store.View();
    const Database* database = view->FindDatabase(m_here.database);
    const Schema* schema = type.name.parts.size() > 1 ? database->FindSchema(type.name.Schema()) : nullptr;
    const auto object =
        view->FindObject(m_here.database, schema == nullptr ? m_here.schema : schema->id, type.name.Last());
    if (const auto alias = std::dynamic_pointer_cast<const AliasType>(object))
        return WithCollation(alias->base);
    if (inCast)
        throw SqlError(243, {type.name.Text()});
    throw SqlError(2715, {std::to_string(ordinal), type.name.Text()});
}

} // namespace quillon::practice
