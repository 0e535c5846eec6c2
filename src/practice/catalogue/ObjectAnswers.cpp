#include "practice/catalogue/CatalogueViews.h"
#include "practice/catalogue/MetadataParts.h"
#include "practice/functions/NameParts.h"

#include <algorithm>

namespace quillon::practice {

namespace {

std::string_view Trimmed(std::string_view text) {
    while (!text.empty() && text.back() == ' ')
        text.remove_suffix(1);
    return text;
}

// System views have numbers below zero, by their place in the list; nothing for any other name.
Datum SystemViewId(const Question& q) {
    const auto parts = SplitName(q.Text(0));
    if (!parts || parts->empty() || (q.Count() > 1 && !SameName(Trimmed(q.Text(1)), "V")))
        return {};
    const std::string schema = parts->size() > 1 ? (*parts)[parts->size() - 2] : std::string();
    const SystemView* found = CatalogueViews().Find(schema, parts->back(), q.Current().Rule());
    const auto all = AllCatalogueViews();
    const auto at = std::find(all.begin(), all.end(), found);
    return at == all.end() ? Datum() : Datum::Int(-101 - (at - all.begin()));
}

Datum ObjectIdOf(const Question& q) {
    if (q.IsNull(0) || (q.Count() > 1 && q.IsNull(1)))
        return {};
    const ObjectId id = q.ObjectByName(q.Text(0));
    if (id == 0)
        return SystemViewId(q);
    if (q.Count() > 1) {
        const std::string wanted = q.Text(1);
        if (!SameName(Trimmed(wanted), ObjectTypeCode(q.Named(id)->object.kind)))
            return {};
    }
    return Datum::Int(id);
}

// The object of the number, in the database of the second argument or the current one.
std::optional<Catalogue::Named> NamedIn(const Question& q) {
    if (q.IsNull(0) || (q.Count() > 1 && q.IsNull(1)))
        return {};
    const auto named = q.Named(q.Number(0));
    if (!named)
        return {};
    const bool isTemporary = named->database == tempDatabase;
    const DatabaseId wanted = q.Count() > 1 ? static_cast<DatabaseId>(q.Number(1)) : q.here.database;
    return named->database == wanted || isTemporary ? named : std::nullopt;
}

Datum ObjectNameOf(const Question& q) {
    const auto named = NamedIn(q);
    return named ? NameDatum(named->name) : Datum();
}

Datum ObjectSchemaNameOf(const Question& q) {
    const auto named = NamedIn(q);
    const Database* database = named ? q.here.store.View()->FindDatabase(named->database) : nullptr;
    return database == nullptr ? Datum() : NameDatum(database->SchemaName(named->schema));
}

Datum DefinitionDatum(const std::string& text) {
    return Datum::Text(NVarChar(maxLength), text);
}

Datum ObjectDefinitionOf(const Question& q) {
    const auto named = NamedIn(q);
    if (!named)
        return {};
    const ObjectId id = named->object.id;
    if (const auto module = q.here.store.View()->FindModule(id))
        return module->encrypted ? Datum() : DefinitionDatum(module->text);
    if (const auto text = std::dynamic_pointer_cast<const TextObject>(q.here.store.View()->FindObject(id)))
        return DefinitionDatum(text->text);
    const auto table = q.FindTable(named->object.parent);
    if (!table)
        return {};
    for (const DefaultConstraint& value : table->defaults)
        if (value.id == id)
            return DefinitionDatum(value.text);
    for (const CheckConstraint& check : table->checks)
        if (check.id == id)
            return DefinitionDatum(check.text);
    return {};
}

// A column of a table or of a view, by its name or number; nullptr when there is none.
template <class Key>
const Column* ColumnOf(const Question& q, std::int64_t id, const Key& key) {
    if (const auto table = q.FindTable(id))
        return table->FindColumn(key); // the catalogue of the session keeps it alive
    const auto module = q.here.store.View()->FindModule(static_cast<ObjectId>(id));
    return module ? module->FindColumn(key) : nullptr;
}

Datum ColumnLengthOf(const Question& q) {
    if (q.IsNull(0) || q.IsNull(1))
        return {};
    const Column* column = ColumnOf(q, q.ObjectByName(q.Text(0)), q.Text(1));
    return column == nullptr ? Datum() : Datum::Integer(TypeId::SmallInt, column->type.StorageBytes());
}

Datum ColumnNameOf(const Question& q) {
    if (q.IsNull(0) || q.IsNull(1))
        return {};
    const Column* column = ColumnOf(q, q.Number(0), static_cast<int>(q.Number(1)));
    return column == nullptr ? Datum() : NameDatum(column->name);
}

const Column* IdentityColumnByName(const Question& q, std::shared_ptr<const Table>& table) {
    table = q.IsNull(0) ? nullptr : q.FindTable(q.ObjectByName(q.Text(0)));
    return table ? table->IdentityColumn() : nullptr;
}

Datum Number38(std::int64_t value) {
    return Datum::Number(DecimalType(38, 0, TypeId::Numeric), value);
}

Datum CurrentIdentityOf(const Question& q) {
    std::shared_ptr<const Table> table;
    const Column* column = IdentityColumnByName(q, table);
    if (column == nullptr)
        return {};
    return Number38(q.here.store.Shared().Identities().Last(table->id).value_or(column->identity->seed));
}

Datum IdentitySeedOf(const Question& q) {
    std::shared_ptr<const Table> table;
    const Column* column = IdentityColumnByName(q, table);
    return column == nullptr ? Datum() : Number38(column->identity->seed);
}

Datum IdentityIncrementOf(const Question& q) {
    std::shared_ptr<const Table> table;
    const Column* column = IdentityColumnByName(q, table);
    return column == nullptr ? Datum() : Number38(column->identity->increment);
}

Datum IndexColumnOf(const Question& q) {
    if (q.IsNull(0) || q.IsNull(1) || q.IsNull(2))
        return {};
    const auto table = q.FindTable(q.ObjectByName(q.Text(0)));
    const Index* index = table ? table->FindIndex(static_cast<int>(q.Number(1))) : nullptr;
    const std::int64_t key = q.Number(2);
    if (index == nullptr || key < 1 || key > static_cast<std::int64_t>(index->keys.size()))
        return {};
    return NameDatum(table->FindColumn(index->keys[static_cast<std::size_t>(key) - 1].columnId)->name);
}

Datum NoStatistics(const Question&) {
    return {};
}

constexpr MetadataAnswer rows[] = {
    {"OBJECT_ID", ObjectIdOf},
    {"OBJECT_NAME", ObjectNameOf},
    {"OBJECT_SCHEMA_NAME", ObjectSchemaNameOf},
    {"OBJECT_DEFINITION", ObjectDefinitionOf},
    {"COL_LENGTH", ColumnLengthOf},
    {"COL_NAME", ColumnNameOf},
    {"IDENT_CURRENT", CurrentIdentityOf},
    {"IDENT_SEED", IdentitySeedOf},
    {"IDENT_INCR", IdentityIncrementOf},
    {"INDEX_COL", IndexColumnOf},
    {"STATS_DATE", NoStatistics},
};

} // namespace

std::span<const MetadataAnswer> ObjectAnswers() {
    return rows;
}

} // namespace quillon::practice
