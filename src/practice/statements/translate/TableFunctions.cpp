// Functions in FROM, and APPLY.
#include "practice/statements/translate/SurroundingsGuard.h"
#include "practice/statements/translate/Translator.h"

#include "practice/storage/TableStorage.h"
#include "practice/values/SqlError.h"
#include "practice/values/StorageForm.h"

namespace quillon::practice {

std::string Translator::FunctionSource(const tsql::FunctionTable& source, Scope& scope) {
    std::string text;
    if (source.name.parts.size() == 1 && SameName(source.name.Last(), "STRING_SPLIT")) {
        AddDerived(StringSplit(source.arguments, scope.outer),
                   source.alias.empty() ? source.name.Last() : source.alias, source.columnAliases, scope,
                   &text);
        return text;
    }
    const auto function = std::dynamic_pointer_cast<const Module>(FindSourceObject(source.name));
    if (!function || function->columns.empty())
        throw SqlError(208, {source.name.Text()});
    const std::string exposed = source.alias.empty() ? function->name : source.alias;
    if (function->kind == ObjectKind::InlineFunction)
        AddDerived(InlineFunction(*function, source.arguments, scope.outer), exposed, source.columnAliases,
                   scope, &text);
    else
        AddDerived(TableFunction(function, source.arguments, scope.outer), exposed, source.columnAliases,
                   scope, &text);
    scope.sources.back()->columnRule = function->nameRule;
    return text;
}

namespace {

// The tables that calls of one function fill: one for each call that is being read, used again afterwards.
struct FunctionTables {
    std::vector<std::shared_ptr<const Table>> free;
    std::vector<std::shared_ptr<const Table>> busy;
};

std::shared_ptr<const Table> TableFor(Engine& engine, const Module& function, FunctionTables& tables) {
    std::shared_ptr<const Table> table;
    if (!tables.free.empty()) {
        table = tables.free.back();
        tables.free.pop_back();
        engine.store.Run("DELETE FROM " + table->storage);
    } else {
        auto made = std::make_shared<Table>();
        made->id = engine.store.Shared().NextObjectId();
        made->name = function.name;
        made->database = tempDatabase;
        made->nameRule = function.nameRule;
        made->columns = function.columns;
        made->lastColumnId = static_cast<int>(function.columns.size());
        made->temporary = made->variable = true;
        made->version = engine.store.Shared().NextVersion();
        made->storage = "temp.t" + std::to_string(made->id);
        CreateTableStorage(engine.Connection(), *made);
        table = made;
    }
    tables.busy.push_back(table);
    return table;
}

} // namespace

// A function of several statements: run for each set of arguments, its table read.
QuerySql Translator::TableFunction(const std::shared_ptr<const Module>& function,
                                   const tsql::ExpressionList& arguments, const Scope* outer) {
    if (arguments.size() != function->parameters.size())
        throw SqlError(arguments.size() > function->parameters.size() ? 8144 : 313, {function->name});
    needs.callsModules = true;
    std::vector<std::string> values;
    std::vector<bool> defaults;
    std::string key = "function " + std::to_string(function->id) + "." + std::to_string(function->version);
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const bool isDefault = arguments[i]->kind == tsql::ExpressionKind::DefaultValue;
        defaults.push_back(isDefault);
        key += isDefault ? 'd' : 'v';
        values.push_back(
            isDefault ? "NULL" : ConvertTo(Value(*arguments[i], outer), function->parameters[i].type).sql);
    }
    Engine& engine = m_engine;
    const std::string name = engine.laterals.Name(key, [&] {
        const auto tables = std::make_shared<FunctionTables>();
        LateralNode node;
        node.columns = function->columns.size();
        node.arguments = arguments.size();
        node.release = [tables](const Prepared&) {
            tables->free.push_back(tables->busy.back());
            tables->busy.pop_back();
        };
        node.rows = [&engine, function, tables, defaults](std::span<sqlite3_value* const> given) {
            std::vector<Datum> all;
            for (std::size_t i = 0; i < given.size(); ++i) {
                const SqlType& type = function->parameters[i].type;
                const Datum value = LoadValue(given[i], type);
                all.push_back(defaults[i] ? Datum() : value.IsNull() ? Datum::Null(type) : value);
            }
            const auto table = TableFor(engine, *function, *tables);
            engine.context.RunTableFunction(*function, all, table);
            return Prepared(engine.Connection(), "SELECT * FROM " + table->storage);
        };
        return node;
    });
    QuerySql query;
    for (const Column& column : function->columns) {
        OutputColumn output;
        output.name = column.name;
        output.type = WithCollation(column.type);
        output.nullable = column.nullable;
        query.columns.push_back(std::move(output));
    }
    query.sql = "SELECT * FROM " + LateralTables::CallOf(name, values);
    return query;
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
    Surroundings inside(function);
    inside.arguments = &values;
    const SurroundingsGuard guard(m_here, inside, m_commonTables, m_recursions);
    // What its arguments use of the query around was seen when they were bound.
    const int outermost = m_outermostAlias;
    QuerySql query = Query(*create.inlineQuery, nullptr);
    m_outermostAlias = outermost;
    return query;
}

// The right side of APPLY may use columns of the left: it becomes a lateral table that gets them as
// arguments.
std::string Translator::Apply(const tsql::Join& join, Scope& scope) {
    const bool outer = join.type == tsql::JoinType::OuterApply;
    std::string text = FromOne(*join.left, scope);
    Capture capture;
    constexpr int beyondVariables = 500;
    capture.firstParameter = beyondVariables;
    Scope right;
    right.outer = &scope;
    std::vector<const Scope*> watched;
    for (const Scope* s = &scope; s != nullptr; s = s->outer) {
        s->captures.push_back(&capture);
        watched.push_back(s);
    }
    std::string from;
    std::vector<std::string> movedOut = std::exchange(m_movedOut, {});
    try {
        from = FromOne(*join.right, right);
    } catch (...) {
        for (const Scope* s : watched)
            s->captures.pop_back();
        throw;
    }
    movedOut.swap(m_movedOut);
    for (const Scope* s : watched)
        s->captures.pop_back();
    if (capture.sql.empty()) {
        m_movedOut.insert(m_movedOut.end(), movedOut.begin(), movedOut.end());
        for (std::unique_ptr<Source>& source : right.sources)
            AddApplied(std::move(source), outer, scope);
        return text + (outer ? " LEFT JOIN " + from + " ON 1" : " JOIN " + from);
    }
    if (right.sources.size() != 1)
        throw SqlError::NotSupported("APPLY of a join");
    if (needs.values.size() >= beyondVariables)
        throw SqlError::NotSupported("APPLY beside so many variables");
    std::unique_ptr<Source> source = std::move(right.sources.front());
    const std::string lateral = Lateral(*source, from, WithSql(movedOut), capture);
    const std::string alias = source->alias;
    AddApplied(std::move(source), outer, scope);
    return text + (outer ? " LEFT JOIN " : " JOIN ") + lateral + " AS " + alias + (outer ? " ON 1" : "");
}

void Translator::AddApplied(std::unique_ptr<Source> source, bool nullable, Scope& scope) {
    if (nullable)
        for (SourceColumn& column : source->columns)
            column.nullable = true;
    scope.sources.push_back(std::move(source));
}

// `v3(s1.c2, ?1)`: the query over `from`, after `with`, as a lateral table. The source's columns become its
// o1, o2 ...
std::string Translator::Lateral(Source& source, const std::string& from, const std::string& with,
                                const Capture& capture) {
    std::string list;
    Scope reading;
    int ordinal = 0;
    for (SourceColumn& column : source.columns) {
        const ColumnUse use{&source, &column};
        const std::string sql = ColumnScalar(use, reading).sql;
        list += (list.empty() ? "" : ", ") + sql;
        ++ordinal;
    }
    ordinal = 0;
    for (SourceColumn& column : source.columns)
        column.sql = source.alias + ".o" + std::to_string(++ordinal);
    source.table = nullptr;
    source.hasRowId = false;
    const std::string sql = with + "SELECT " + list + " FROM " + from;
    std::vector<int> places;
    std::vector<std::string> arguments;
    for (std::size_t i = 0; i < capture.sql.size(); ++i) {
        places.push_back(capture.firstParameter + static_cast<int>(i));
        arguments.push_back(capture.sql[i]);
    }
    for (std::size_t i = 1; i <= needs.values.size(); ++i) {
        places.push_back(static_cast<int>(i));
        arguments.push_back("?" + std::to_string(i));
    }
    Engine& engine = m_engine;
    std::string key = sql;
    for (const int place : places)
        key += "," + std::to_string(place);
    const std::string name = engine.laterals.Name(key, [&] {
        LateralNode node;
        node.columns = source.columns.size();
        node.arguments = places.size();
        std::vector<Prepared>& spares = engine.laterals.NewSpares();
        node.release = [&spares](Prepared rows) { spares.push_back(std::move(rows)); };
        node.rows = [&engine, &spares, sql, places](std::span<sqlite3_value* const> values) {
            Prepared rows;
            if (spares.empty())
                rows = Prepared(engine.Connection(), sql, true);
            else {
                rows = std::move(spares.back());
                spares.pop_back();
            }
            for (std::size_t i = 0; i < values.size(); ++i)
                rows.BindValue(places[i], values[i]);
            return rows;
        };
        return node;
    });
    return LateralTables::CallOf(name, arguments);
}

} // namespace quillon::practice
