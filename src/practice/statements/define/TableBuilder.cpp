// From the tree of a table's definition to its Table.
#include "practice/statements/define/Tables.h"

#include "practice/statements/define/AlterTable.h"
#include "practice/statements/define/CascadePaths.h"
#include "practice/storage/SystemDatabases.h"
#include "practice/tsql/ExpressionText.h"
#include "practice/values/SqlError.h"

namespace quillon::practice {

namespace {

std::string Hex(ObjectId id) {
    constexpr const char* digits = "0123456789ABCDEF";
    // Spread, so that names made one after the other do not look alike.
    std::uint32_t number = static_cast<std::uint32_t>(id) * 2654435761U;
    std::string text(8, '0');
    for (std::size_t i = text.size(); i-- > 0; number >>= 4)
        text[i] = digits[number & 0xF];
    return text;
}

constexpr std::size_t mostColumns = 1024;

ReferenceAction ActionOf(tsql::ReferentialAction action) {
    return static_cast<ReferenceAction>(action);
}

// 1701 when the columns of fixed length alone do not fit into a page.
void RequireRoom(const Table& table) {
    constexpr std::size_t most = 8060;
    const std::size_t overhead = 6 + (table.columns.size() + 7) / 8;
    std::size_t size = overhead;
    for (const Column& column : table.columns)
        if (!column.IsComputed() && column.type.IsFixedLength() && !column.type.IsMax())
            size += static_cast<std::size_t>(column.type.StorageBytes());
    if (size > most)
        throw SqlError(1701,
                       {table.name, std::to_string(size), std::to_string(overhead), std::to_string(most)});
}

} // namespace

std::string KeptExpression(const tsql::Expression& expression, std::string_view source) {
    return "(" + tsql::ExpressionText(expression).value_or(std::string(source)) + ")";
}

TableBuilder::TableBuilder(Engine& engine, Table& table)
    : m_engine(engine)
    , m_table(table) {}

std::string TableBuilder::TextOf(tsql::Span span) const {
    return std::string(m_engine.context.SourceText().substr(span.begin, span.end - span.begin));
}

void TableBuilder::AddAll(const tsql::TableDefinition& definition) {
    for (const tsql::ColumnDefinition& column : definition.columns)
        AddColumn(column);
    RequireRoom(m_table);
    // Keys come first: a foreign key may refer to the table itself.
    for (const bool foreign : {false, true}) {
        for (const tsql::ColumnDefinition& column : definition.columns)
            for (const tsql::ConstraintDefinition& constraint : column.constraints)
                if ((constraint.kind == tsql::ConstraintKind::ForeignKey) == foreign)
                    AddConstraint(constraint, &RequireColumn(column.name, 1911));
        for (const tsql::ConstraintDefinition& constraint : definition.constraints)
            if ((constraint.kind == tsql::ConstraintKind::ForeignKey) == foreign)
                AddConstraint(constraint, nullptr);
    }
    for (const tsql::ColumnDefinition& column : definition.columns)
        for (const tsql::IndexDefinition& index : column.indexes) {
            Index& made = AddIndex(index);
            if (made.keys.empty())
                made.keys.push_back({RequireColumn(column.name, 1911).id, false});
        }
    for (const tsql::IndexDefinition& index : definition.indexes)
        AddIndex(index);
}

Column& TableBuilder::RequireColumn(const std::string& name, int errorNumber) {
    for (Column& column : m_table.columns)
        if (m_table.nameRule.Same(column.name, name))
            return column;
    throw SqlError(errorNumber, {name});
}

Column TableBuilder::MakeColumn(const tsql::ColumnDefinition& definition, int id) {
    Column column;
    column.id = id;
    column.name = definition.name;
    column.rowGuid = definition.rowGuid;
    Translator translator(m_engine);
    if (definition.computed) {
        column.computed = KeptExpression(*definition.computed, TextOf(definition.computedText));
        column.persisted = definition.persisted;
        column.stored = definition.persisted;
        return column;
    }
    if (!definition.type) {
        if (UpperCase(definition.name) != "TIMESTAMP")
            throw SqlError(173, {definition.name});
        column.type = SimpleType(TypeId::RowVersion);
    } else {
        column.type = translator.TypeOf(*definition.type, false, static_cast<std::size_t>(id));
        column.sysName = SameName(definition.type->name.Last(), "sysname");
        const auto alias = std::dynamic_pointer_cast<const AliasType>(
            TypeFromName(definition.type->name.Last()) ? nullptr
                                                       : translator.FindSourceObject(definition.type->name));
        if (alias) {
            column.aliasType = alias->id;
            column.defaultObject = alias->defaultObject;
            column.ruleObject = alias->ruleObject;
        } else if (column.type.IsCharacter() && !m_table.variable) {
            // Wherever the statement runs, the database of the table says how its texts compare.
            column.type.collation = m_engine.store.View()->FindDatabase(m_table.database)->collation;
        }
        column.nullable = alias ? alias->nullable : m_engine.context.NullByDefault() && !column.sysName;
    }
    const bool cutsPadding = column.type.id == TypeId::VarChar || column.type.id == TypeId::Char ||
                             column.type.id == TypeId::VarBinary || column.type.id == TypeId::Binary;
    if (cutsPadding && !m_table.variable && !column.type.IsMax() && !m_engine.context.Options().ansiPadding)
        throw SqlError::NotSupported("a column of type " + std::string(column.type.Name()) +
                                     " made under SET ANSI_PADDING OFF");
    if (!definition.collation.empty()) {
        column.type.collation = SameName(definition.collation, "database_default")
                                    ? translator.DatabaseCollation()
                                    : FindCollation(definition.collation);
        if (column.type.collation == nullptr)
            throw SqlError(448, {definition.collation});
    }
    if (definition.nullable)
        column.nullable = *definition.nullable;
    if (column.IsRowVersion())
        column.nullable = definition.nullable.value_or(false);
    if (definition.identity) {
        const bool whole = column.type.IsInteger() || (column.type.IsDecimal() && column.type.scale == 0);
        if (!whole || column.type.id == TypeId::Bit || (definition.nullable && *definition.nullable))
            throw SqlError(2749, {column.name});
        column.identity =
            Identity{std::stoll(definition.identity->seed), std::stoll(definition.identity->increment)};
        column.nullable = false;
    }
    return column;
}

Column& TableBuilder::AddColumn(const tsql::ColumnDefinition& definition) {
    const std::string name = definition.name;
    if (m_table.FindColumn(name) != nullptr)
        throw SqlError(2705, {name, m_table.name});
    if (definition.identity && m_table.IdentityColumn() != nullptr)
        throw SqlError(2744, {m_table.name});
    if (m_table.columns.size() == mostColumns)
        throw SqlError(1702, {name, m_table.name, std::to_string(mostColumns)});
    Column column = MakeColumn(definition, ++m_table.lastColumnId);
    if (definition.nullable && *definition.nullable)
        m_nullable.insert(column.id);
    m_table.columns.push_back(column);
    Column& kept = m_table.columns.back();
    if (definition.computed)
        BindComputed(kept, *definition.computed);
    return kept;
}

// The type of a computed column is that of its expression.
void TableBuilder::BindComputed(Column& column, const tsql::Expression& expression) {
    Translator translator(m_engine);
    Scope scope;
    Table others = m_table;
    std::erase_if(others.columns, [&](const Column& one) { return one.id == column.id; });
    others.rowSet = true;
    translator.AddTable(std::make_shared<const Table>(std::move(others)), {}, scope);
    const Scalar value = translator.Value(expression, &scope);
    column.type = value.IsBareNull() ? SimpleType(TypeId::Int) : value.type;
    column.nullable = value.nullable;
}

std::string TableBuilder::ConstraintName(const tsql::ConstraintDefinition& definition, const char* prefix,
                                         const std::string& column, ObjectId id) const {
    if (!definition.name.empty())
        return definition.name;
    std::string name = std::string(prefix) + "__" + m_table.name.substr(0, column.empty() ? 16 : 9);
    if (!column.empty())
        name += "__" + column.substr(0, 5);
    // Keys have twice as many digits as the other constraints.
    return name + "__" + (column.empty() ? Hex(~id) : std::string()) + Hex(id);
}

void TableBuilder::AddConstraint(const tsql::ConstraintDefinition& definition, Column* of) {
    switch (definition.kind) {
    case tsql::ConstraintKind::PrimaryKey:
    case tsql::ConstraintKind::Unique: AddKey(definition, of); break;
    case tsql::ConstraintKind::ForeignKey: AddForeignKey(definition, of); break;
    case tsql::ConstraintKind::Check: AddCheck(definition, of); break;
    case tsql::ConstraintKind::Default: AddDefault(definition, of); break;
    }
}

int TableBuilder::NextIndexId(bool clustered) const {
    int id = clustered ? 1 : 2;
    while (m_table.FindIndex(id) != nullptr)
        ++id;
    return id;
}

void TableBuilder::AddKey(const tsql::ConstraintDefinition& definition, Column* of) {
    const bool primary = definition.kind == tsql::ConstraintKind::PrimaryKey;
    if (primary && m_table.PrimaryKey() != nullptr)
        throw SqlError(m_table.version == 0 ? 8110 : 1779, {m_table.name});
    Index key;
    key.unique = true;
    key.primaryKey = primary;
    key.uniqueConstraint = !primary;
    const Index* first = m_table.FindIndex(1);
    key.clustered = definition.clustered.value_or(primary && first == nullptr);
    if (key.clustered && first != nullptr)
        throw SqlError(1902, {"table", m_table.name, first->name});
    key.id = NextIndexId(key.clustered);
    key.constraint = m_engine.store.Shared().NextObjectId();
    key.systemNamed = definition.name.empty();
    key.name = ConstraintName(definition, primary ? "PK" : "UQ", "", key.constraint);
    std::vector<std::pair<Column*, bool>> columns;
    if (of != nullptr)
        columns.emplace_back(of, false);
    for (const tsql::IndexColumn& column : definition.columns)
        columns.emplace_back(&RequireColumn(column.name, 1911), column.descending);
    for (const auto& [column, descending] : columns) {
        const bool mayBeNull = column->nullable && (m_table.version != 0 || m_nullable.contains(column->id));
        if (primary && mayBeNull)
            throw SqlError(8111, {m_table.name});
        if (primary)
            column->nullable = false;
        if (column->type.IsMax() || column->type.IsLegacyLob() || column->type.id == TypeId::Xml)
            throw SqlError(1919, {column->name, m_table.name});
        if (!column->stored)
            column->stored = true;
        key.keys.push_back({column->id, descending});
    }
    added.push_back(key.constraint);
    m_table.indexes.push_back(std::move(key));
}

void TableBuilder::AddForeignKey(const tsql::ConstraintDefinition& definition, Column* of) {
    ForeignKey key;
    key.id = m_engine.store.Shared().NextObjectId();
    key.systemNamed = definition.name.empty();
    for (const tsql::IndexColumn& column : definition.columns) {
        const Column* found = m_table.FindColumn(column.name);
        if (found == nullptr)
            throw SqlError(1769, {definition.name, column.name, m_table.name});
        key.columns.push_back(found->id);
    }
    if (definition.columns.empty() && of != nullptr)
        key.columns.push_back(of->id);
    key.name = ConstraintName(definition, "FK", m_table.FindColumn(key.columns.front())->name, key.id);
    const bool self = m_table.nameRule.Same(definition.referencedTable.Last(), m_table.name) &&
                      (definition.referencedTable.Schema().empty() ||
                       HomeFor(m_engine, definition.referencedTable).schema == m_table.schema);
    std::shared_ptr<const Table> parent;
    if (self)
        parent = std::make_shared<const Table>(m_table);
    else
        parent = std::dynamic_pointer_cast<const Table>(
            Translator(m_engine).FindSourceObject(definition.referencedTable));
    if (!parent || parent->temporary != m_table.temporary)
        throw SqlError(1767, {key.name, definition.referencedTable.Text()});
    if (parent->database != m_table.database)
        throw SqlError(1763, {key.name});
    key.referenced = parent->id;
    for (const std::string& name : definition.referencedColumns) {
        const Column* found = parent->FindColumn(name);
        if (found == nullptr)
            throw SqlError(1770, {key.name, name, definition.referencedTable.Text()});
        key.referencedColumns.push_back(found->id);
    }
    if (key.referencedColumns.empty()) {
        if (parent->PrimaryKey() == nullptr)
            throw SqlError(1773, {key.name, parent->name});
        for (const IndexKey& part : parent->PrimaryKey()->keys)
            key.referencedColumns.push_back(part.columnId);
    }
    CompleteForeignKey(key, *parent);
    key.onDelete = ActionOf(definition.onDelete);
    key.onUpdate = ActionOf(definition.onUpdate);
    added.push_back(key.id);
    m_table.foreignKeys.push_back(std::move(key));
    if (CascadesMeet(*m_engine.store.View(), m_table))
        throw SqlError(1785, {m_table.foreignKeys.back().name, m_table.name});
}

// Finds the key that is referred to; the columns may be named in any order.
void TableBuilder::CompleteForeignKey(ForeignKey& key, const Table& parent) const {
    if (key.columns.size() != key.referencedColumns.size())
        throw SqlError(8139, {key.name, m_table.name});
    for (const Index& index : parent.indexes) {
        if (!index.unique || !index.filter.empty() || index.keys.size() != key.referencedColumns.size())
            continue;
        const bool same = std::all_of(index.keys.begin(), index.keys.end(), [&](const IndexKey& part) {
            return std::find(key.referencedColumns.begin(), key.referencedColumns.end(), part.columnId) !=
                   key.referencedColumns.end();
        });
        if (same)
            key.referencedIndex = index.id;
    }
    if (key.referencedIndex == 0)
        throw SqlError(1776, {parent.name, key.name});
    for (std::size_t i = 0; i < key.columns.size(); ++i) {
        const Column& child = *m_table.FindColumn(key.columns[i]);
        const Column& other = *parent.FindColumn(key.referencedColumns[i]);
        const SqlType& left = child.type;
        const SqlType& right = other.type;
        const bool same = left.id == right.id || (left.IsDecimal() && right.IsDecimal());
        if (!same || left.precision != right.precision || left.scale != right.scale)
            throw SqlError(1778, {parent.name, other.name, m_table.name, child.name, key.name});
    }
}

namespace {

// A check belongs to the column that it is about, wherever it was written; 0 when it is about several.
int OnlyColumnIn(const std::string& condition, const std::string& alias, const Table& table) {
    int only = 0;
    for (const Column& column : table.columns)
        if (NameRule().IsMentioned(alias + "." + ColumnStorage(column.id), condition)) {
            if (only != 0)
                return 0;
            only = column.id;
        }
    return only;
}

} // namespace

void TableBuilder::AddCheck(const tsql::ConstraintDefinition& definition, Column* of) {
    CheckConstraint check;
    check.id = m_engine.store.Shared().NextObjectId();
    check.systemNamed = definition.name.empty();
    check.name = ConstraintName(definition, "CK", of == nullptr ? "" : of->name, check.id);
    check.text = KeptExpression(*definition.expression, TextOf(definition.expressionText));
    // It must bind now: 207 and its like belong to the definition.
    Translator translator(m_engine);
    Scope scope;
    Table copy = m_table;
    copy.rowSet = true;
    translator.AddTable(std::make_shared<const Table>(std::move(copy)), {}, scope);
    const std::string condition = translator.Condition(*definition.expression, &scope);
    check.columnId = OnlyColumnIn(condition, scope.sources.front()->alias, m_table);
    added.push_back(check.id);
    m_table.checks.push_back(std::move(check));
}

void TableBuilder::AddDefault(const tsql::ConstraintDefinition& definition, Column* of) {
    Column& column = of != nullptr ? *of : RequireColumn(definition.forColumn, 1752);
    if (m_table.DefaultOf(column.id) != nullptr)
        throw SqlError(1781);
    if (column.identity)
        throw SqlError(1754, {column.name, m_table.name});
    if (column.IsRowVersion())
        throw SqlError(1755, {column.name, m_table.name});
    DefaultConstraint value;
    value.id = m_engine.store.Shared().NextObjectId();
    value.systemNamed = definition.name.empty();
    value.name = ConstraintName(definition, "DF", column.name, value.id);
    value.columnId = column.id;
    value.text = KeptExpression(*definition.expression, TextOf(definition.expressionText));
    Translator translator(m_engine);
    translator.AssignTo(translator.Value(*definition.expression, nullptr), column, m_table.name);
    m_table.defaults.push_back(std::move(value));
}

Index& TableBuilder::AddIndex(const tsql::IndexDefinition& definition) {
    if (m_table.FindIndex(definition.name) != nullptr)
        throw SqlError(1913, {definition.name, "table", m_table.name});
    Index index;
    index.name = definition.name;
    index.unique = definition.unique;
    index.clustered = definition.clustered;
    if (index.clustered)
        if (const Index* first = m_table.FindIndex(1))
            throw SqlError(1902, {"table", m_table.name, first->name});
    index.id = NextIndexId(index.clustered);
    for (const tsql::IndexColumn& column : definition.columns) {
        Column& found = RequireColumn(column.name, 1911);
        for (const IndexKey& other : index.keys)
            if (other.columnId == found.id)
                throw SqlError(1909, {"index", found.name});
        if (found.type.IsMax() || found.type.IsLegacyLob() || found.type.id == TypeId::Xml)
            throw SqlError(1919, {found.name, m_table.name});
        found.stored = true;
        index.keys.push_back({found.id, column.descending});
    }
    for (const std::string& name : definition.included)
        index.included.push_back(RequireColumn(name, 1911).id);
    if (definition.filter)
        index.filter = KeptExpression(*definition.filter, TextOf(definition.filterText));
    for (const tsql::OptionSetting& option : definition.options) {
        if (option.name == "IGNORE_DUP_KEY")
            index.ignoreDuplicates = UpperCase(option.value) == "ON";
        if (option.name == "FILLFACTOR")
            index.fillFactor = std::atoi(option.value.c_str());
    }
    m_table.indexes.push_back(std::move(index));
    return m_table.indexes.back();
}

} // namespace quillon::practice
