// What stands after FROM: tables, views, row sets, derived tables, VALUES, joins.
#include "practice/statements/translate/Translator.h"

#include "practice/statements/translate/SurroundingsGuard.h"
#include "practice/storage/TableStorage.h"
#include "practice/tsql/TreePivot.h"
#include "practice/values/SqlError.h"
#include "practice/values/StorageForm.h"

namespace quillon::practice {

namespace {

bool HasOuterRight(const tsql::TableSource& source) {
    if (source.kind != tsql::TableSourceKind::Join)
        return false;
    const auto& join = tsql::As<tsql::Join>(source);
    return join.type == tsql::JoinType::Right || join.type == tsql::JoinType::Full ||
           HasOuterRight(*join.left) || HasOuterRight(*join.right);
}

void MakeNullable(Scope& scope, std::size_t from, std::size_t to) {
    for (std::size_t i = from; i < to; ++i)
        for (SourceColumn& column : scope.sources[i]->columns)
            column.nullable = true;
}

void RequireNewName(const Scope& scope, const Source& source) {
    for (const std::unique_ptr<Source>& other : scope.sources)
        if (!source.exposed.empty() && source.nameRule.Same(other->exposed, source.exposed) &&
            source.nameRule.Same(other->schema, source.schema) && SameName(other->database, source.database))
            throw SqlError(source.schema.empty() ? 1011 : 1013, {other->exposed, source.exposed});
}

void ReplaceAll(std::string& text, std::string_view what, const std::string& with) {
    for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + with.size()))
        text.replace(at, what.size(), with);
}

} // namespace

std::string Translator::From(const std::vector<tsql::TableSourcePtr>& from, Scope& scope) {
    std::string text;
    for (const tsql::TableSourcePtr& source : from) {
        const std::string one = FromOne(*source, scope);
        text += text.empty() ? "" : ", ";
        text += from.size() > 1 && HasOuterRight(*source) ? "(" + one + ")" : one;
    }
    return text;
}

std::string Translator::Turned(QuerySql query, const tsql::TableSource& source, Scope& scope) {
    std::string text;
    AddDerived(std::move(query), source.alias, source.columnAliases, scope, &text);
    return text;
}

std::string Translator::FromOne(const tsql::TableSource& source, Scope& scope) {
    using Kind = tsql::TableSourceKind;
    switch (source.kind) {
    case Kind::Table: return NamedSource(tsql::As<tsql::NamedTable>(source), scope);
    case Kind::Variable: return VariableSource(tsql::As<tsql::VariableTable>(source), scope);
    case Kind::Function: return FunctionSource(tsql::As<tsql::FunctionTable>(source), scope);
    case Kind::Pivot:
        return Turned(PivotQuery(tsql::As<tsql::PivotTable>(source), scope.outer), source, scope);
    case Kind::Unpivot:
        return Turned(UnpivotQuery(tsql::As<tsql::UnpivotTable>(source), scope.outer), source, scope);
    case Kind::Join: return JoinSource(tsql::As<tsql::Join>(source), scope);
    case Kind::Derived: {
        std::string text;
        // It does not see its neighbours, only what is around the whole query.
        AddDerived(Query(*tsql::As<tsql::DerivedTable>(source).query, scope.outer), source.alias,
                   source.columnAliases, scope, &text);
        return text;
    }
    case Kind::Values: {
        std::string text;
        AddDerived(ValuesQuery(tsql::As<tsql::ValuesTable>(source).rows, scope.outer), source.alias,
                   source.columnAliases, scope, &text);
        return text;
    }
    }
    return {};
}

std::string Translator::AddTable(const std::shared_ptr<const Table>& table, const std::string& exposed,
                                 Scope& scope) {
    auto source = std::make_unique<Source>();
    source->alias = NextAlias();
    source->table = table;
    source->hasRowId = true;
    source->rowId = source->alias + ".rowid";
    source->rowTable = table;
    source->exposed = exposed.empty() ? table->name : exposed;
    source->nameRule = exposed.empty() ? table->nameRule : m_here.nameRule;
    source->columnRule = table->nameRule;
    if (exposed.empty() && !table->rowSet && !table->variable)
        if (const Database* database = m_engine.store.View()->FindDatabase(table->database)) {
            source->schema = database->SchemaName(table->schema);
            source->database = database->name;
        }
    for (const Column& column : table->columns) {
        SourceColumn one;
        one.name = column.name;
        one.sql = column.stored ? source->alias + "." + ColumnStorage(column.id) : std::string();
        one.type = WithCollation(column.type);
        one.nullable = column.nullable;
        one.definition = &column;
        one.identity = column.identity.has_value();
        one.readOnly = column.IsComputed() || column.IsRowVersion() || one.identity;
        one.tableName = table->name;
        one.baseColumn = column.id;
        source->columns.push_back(std::move(one));
    }
    RequireNewName(scope, *source);
    needs.reads.insert(table->id);
    if (m_readLock)
        needs.hinted[table->id] = *m_readLock;
    const std::string text = RowsOf(*table) + " AS " + source->alias;
    scope.sources.push_back(std::move(source));
    return text;
}

void Translator::AddDerived(QuerySql query, const std::string& exposed, const std::vector<std::string>& names,
                            Scope& scope, std::string* text) {
    query = Rename(std::move(query), names);
    auto source = std::make_unique<Source>();
    source->alias = NextAlias();
    source->exposed = exposed;
    source->nameRule = source->columnRule = m_here.nameRule;
    int ordinal = 0;
    for (const OutputColumn& output : query.columns) {
        SourceColumn column;
        column.name = output.name;
        column.sql = source->alias + ".o" + std::to_string(++ordinal);
        column.type = output.type.id == TypeId::Null ? SimpleType(TypeId::Int) : output.type;
        column.nullable = output.nullable;
        column.label = output.type.IsCharacter() ? CollationLabel::Implicit : output.label;
        column.identity = output.identity;
        column.readOnly = output.readOnly;
        column.tableName = output.tableName;
        column.baseColumn = output.baseColumn;
        if (column.name.empty() && !exposed.empty())
            throw SqlError(8155, {std::to_string(ordinal), exposed});
        for (const SourceColumn& other : source->columns)
            if (m_here.nameRule.Same(other.name, column.name) && !exposed.empty())
                throw SqlError(8156, {column.name, exposed});
        source->columns.push_back(std::move(column));
    }
    if (query.base) {
        source->hasRowId = true;
        source->rowId = source->alias + ".rid";
        source->rowTable = query.base;
    }
    RequireNewName(scope, *source);
    if (text != nullptr)
        *text = "(" + query.sql + ") AS " + source->alias;
    scope.sources.push_back(std::move(source));
}

QuerySql Translator::Rename(QuerySql query, const std::vector<std::string>& names) {
    if (names.empty())
        return query;
    if (names.size() > query.columns.size())
        throw SqlError(8158, {names.front()});
    if (names.size() < query.columns.size())
        throw SqlError(8159, {names.front()});
    for (std::size_t i = 0; i < names.size(); ++i)
        query.columns[i].name = names[i];
    return query;
}

std::shared_ptr<const SchemaObject> Translator::FindSourceObject(const tsql::Name& name) {
    const auto object = FindNamedObject(name);
    const auto synonym = std::dynamic_pointer_cast<const Synonym>(object);
    if (!synonym)
        return object;
    const auto target = tsql::ParseObjectName(synonym->target);
    const auto found = target ? FindNamedObject(*target) : nullptr;
    if (!found || found->kind == ObjectKind::Synonym)
        throw SqlError(5313, {name.Text()});
    return found;
}

const Database* Translator::DatabaseOf(const tsql::Name& name) const {
    const auto& view = m_engine.store.View();
    return name.Database().empty() ? view->FindDatabase(m_here.database)
                                   : view->FindDatabase(name.Database());
}

std::shared_ptr<const SchemaObject> Translator::FindNamedObject(const tsql::Name& name) {
    if (IsPrivateName(name.Last())) {
        if (auto table = m_engine.store.Temporary().Find(name.Last()))
            return table;
        return m_engine.store.Temporary().FindProcedure(name.Last());
    }
    if (IsSharedTemporaryName(name.Last()))
        return m_engine.store.View()->FindObject(tempDatabase, dboSchema, name.Last());
    if (!name.Server().empty())
        throw SqlError(7202, {name.Server()});
    const auto view = m_engine.store.View();
    const Database* database = DatabaseOf(name);
    if (database == nullptr)
        return nullptr;
    std::vector<SchemaId> schemas;
    if (!name.Schema().empty()) {
        const Schema* schema = database->FindSchema(name.Schema());
        if (schema == nullptr)
            return nullptr;
        schemas.push_back(schema->id);
    } else
        schemas = {database->id == m_here.database ? m_here.schema : dboSchema, dboSchema};
    for (const SchemaId schema : schemas) {
        if (auto object = view->FindObject(database->id, schema, name.Last()))
            return object;
    }
    return nullptr;
}

namespace {

// The strongest of what the hints ask for; nothing where none concerns locks.
std::optional<ReadLock> ReadLockOf(const std::vector<std::string>& hints) {
    static const std::pair<std::string_view, ReadLock> rows[] = {
        {"XLOCK", {LockMode::Exclusive, true}},     {"TABLOCKX", {LockMode::Exclusive, true}},
        {"UPDLOCK", {LockMode::Update, true}},      {"HOLDLOCK", {LockMode::Shared, true}},
        {"SERIALIZABLE", {LockMode::Shared, true}}, {"REPEATABLEREAD", {LockMode::Shared, true}},
        {"TABLOCK", {LockMode::Shared, false}},     {"READCOMMITTEDLOCK", {LockMode::Shared, false}},
        {"NOLOCK", {std::nullopt, false}},          {"READUNCOMMITTED", {std::nullopt, false}},
        {"READCOMMITTED", {std::nullopt, false}},   {"READPAST", {std::nullopt, false}},
    };
    for (const auto& [hint, lock] : rows)
        if (std::find(hints.begin(), hints.end(), hint) != hints.end())
            return lock;
    return std::nullopt;
}

} // namespace

std::string Translator::AddRowSet(const std::shared_ptr<const Table>& set, bool after,
                                  const std::string& exposed, Scope& scope) {
    const std::string text = AddTable(set, exposed, scope);
    for (SourceColumn& column : scope.sources.back()->columns)
        column.outOfReach = after && column.type.IsLegacyLob();
    return text;
}

std::string Translator::NamedSource(const tsql::NamedTable& source, Scope& scope) {
    needs.noWait =
        needs.noWait || std::find(source.hints.begin(), source.hints.end(), "NOWAIT") != source.hints.end();
    const std::optional<ReadLock> around = m_readLock;
    if (const auto own = ReadLockOf(source.hints))
        m_readLock = own; // for the tables of a view as well
    std::string text = FindNamed(source, scope);
    m_readLock = around;
    return text;
}

std::string Translator::FindNamed(const tsql::NamedTable& source, Scope& scope) {
    const tsql::Name& name = source.name;
    if (name.parts.size() == 1) {
        const TriggerFrame* running = m_here.isModule ? nullptr : m_engine.context.CurrentTrigger();
        if (const TriggerFrame* frame = m_here.trigger != nullptr ? m_here.trigger : running)
            for (const auto& set : {frame->inserted, frame->deleted})
                if (set && set->nameRule.Same(set->name, name.Last()))
                    return AddRowSet(set, frame->after, source.alias, scope);
        if (!m_recursions.empty() && m_here.nameRule.Same(m_recursions.back().table->name, name.Last()))
            return RecursiveUse(source, scope);
        if (const tsql::CommonTable* common = FindCommonTable(name))
            return CommonSource(*common, source, scope);
    }
    const auto object = FindSourceObject(name);
    if (const auto table = std::dynamic_pointer_cast<const Table>(object))
        return AddTable(table, source.alias, scope);
    if (const auto view = std::dynamic_pointer_cast<const Module>(object);
        view && view->kind == ObjectKind::View) {
        std::string text;
        AddDerived(ViewQuery(*view), "", {}, scope, &text);
        Source& added = *scope.sources.back();
        added.view = view;
        added.exposed = source.alias.empty() ? view->name : source.alias;
        added.columnRule = view->nameRule;
        return text;
    }
    if (!object && m_engine.systemViews != nullptr)
        if (const Database* database = DatabaseOf(name))
            if (const SystemView* view =
                    m_engine.systemViews->Find(name.Schema(), name.Last(), database->Rule()))
                return SystemSource(*view, *database, source.alias, scope);
    throw SqlError(208, {name.Text()});
}

std::string Translator::SystemSource(const SystemView& view, const Database& database,
                                     const std::string& exposed, Scope& scope) {
    QuerySql query;
    std::string select(view.select);
    const Collation& collation = database.collation == nullptr ? *DefaultCollation() : *database.collation;
    ReplaceAll(select, "{db}", std::to_string(database.id));
    ReplaceAll(select, "{collation}", "'" + collation.name + "'");
    ReplaceAll(select, "{order}", collation.SqliteName());
    ReplaceAll(select, "{session}", std::to_string(m_engine.context.Functions().SessionId()));
    if (database.id == tempDatabase)
        select = m_engine.store.OverTempdb(std::move(select));
    std::string names;
    for (const SystemColumn& column : view.columns) {
        OutputColumn output;
        output.name = column.name;
        output.type = column.type;
        if (output.type.IsCharacter() && output.type.collation == nullptr)
            output.type.collation = column.isName ? &collation : DefaultCollation();
        output.nullable = column.nullable;
        query.columns.push_back(std::move(output));
        names += (names.empty() ? "o" : ", o") + std::to_string(query.columns.size());
    }
    const std::string common = NextAlias();
    query.sql = "WITH " + common + "(" + names + ") AS (" + select + ") SELECT * FROM " + common;
    needs.systemViews = true;
    std::string text;
    AddDerived(std::move(query), "", {}, scope, &text);
    Source& added = *scope.sources.back();
    added.exposed = exposed.empty() ? std::string(view.name) : exposed;
    added.schema = exposed.empty() ? std::string(view.schema) : std::string();
    added.columnRule = database.Rule();
    return text;
}

std::string Translator::VariableSource(const tsql::VariableTable& source, Scope& scope) {
    return AddTable(VariableTable(source.variable), source.alias.empty() ? source.variable : source.alias,
                    scope);
}

std::shared_ptr<const Table> Translator::VariableTable(const std::string& name) {
    const Variable* variable = m_engine.context.FindVariable(name);
    if (variable == nullptr || !variable->table)
        throw SqlError(1087, {name});
    needs.tableVariables.emplace_back(name, variable->table->id);
    return variable->table;
}

QuerySql Translator::ViewQuery(const Module& view) {
    if (std::find(m_expanding.begin(), m_expanding.end(), view.id) != m_expanding.end())
        throw SqlError(4429, {view.name});
    const auto tree = m_engine.ModuleTree(view);
    const auto& create = tsql::As<tsql::CreateViewStatement>(*tree->statements.front());
    const SurroundingsGuard guard(m_here, Surroundings(view), m_commonTables, m_recursions);
    m_expanding.push_back(view.id);
    QueryOptions options;
    options.keepRowIds = true;
    QuerySql query = Rename(Query(*create.query, nullptr, options), create.columns);
    m_expanding.pop_back();
    return query;
}

QuerySql Translator::ValuesQuery(const std::vector<tsql::ExpressionList>& rows, const Scope* outer) {
    std::vector<std::vector<Scalar>> columns(rows.front().size());
    for (const tsql::ExpressionList& row : rows) {
        if (row.size() != columns.size())
            throw SqlError(10709);
        for (std::size_t i = 0; i < row.size(); ++i)
            columns[i].push_back(Value(*row[i], outer));
    }
    QuerySql query;
    std::string names;
    for (std::vector<Scalar>& column : columns) {
        const Scalar model = Common(column, "UNION");
        OutputColumn output;
        output.type = model.type;
        output.nullable = model.nullable;
        output.label = model.label;
        query.columns.push_back(output);
        const std::string ordinal = std::to_string(query.columns.size());
        names += (names.empty() ? "column" : ", column") + ordinal + " AS o" + ordinal;
    }
    for (std::size_t row = 0; row < rows.size(); ++row) {
        query.sql += row == 0 ? "(" : ", (";
        for (std::size_t i = 0; i < columns.size(); ++i)
            query.sql += (i > 0 ? ", " : "") + columns[i][row].sql;
        query.sql += ")";
    }
    query.sql = "SELECT " + names + " FROM (VALUES " + query.sql + ")";
    query.oneRow = rows.size() == 1;
    return query;
}

std::string Translator::JoinSource(const tsql::Join& join, Scope& scope) {
    if (join.type == tsql::JoinType::CrossApply || join.type == tsql::JoinType::OuterApply)
        return Apply(join, scope);
    const std::size_t first = scope.sources.size();
    std::string left = FromOne(*join.left, scope);
    const std::size_t second = scope.sources.size();
    std::string right = FromOne(*join.right, scope);
    const std::size_t end = scope.sources.size();
    if (join.right->kind == tsql::TableSourceKind::Join)
        right = "(" + right + ")";
    const char* word = " JOIN ";
    switch (join.type) {
    case tsql::JoinType::Left: word = " LEFT JOIN "; break;
    case tsql::JoinType::Right: word = " RIGHT JOIN "; break;
    case tsql::JoinType::Full: word = " FULL JOIN "; break;
    default: break;
    }
    std::string text = left + word + right;
    if (join.condition) {
        // It sees the two sides, and what is around the query; not what stands before them in FROM.
        scope.aggregateError = 149;
        text += " ON " + Condition(*join.condition, &scope);
        scope.aggregateError = 0;
    }
    if (join.type == tsql::JoinType::Right || join.type == tsql::JoinType::Full)
        MakeNullable(scope, first, second);
    if (join.type == tsql::JoinType::Left || join.type == tsql::JoinType::Full)
        MakeNullable(scope, second, end);
    return text;
}

} // namespace quillon::practice
