#include "practice/storage/Catalogue.h"

namespace quillon::practice {

const Schema* Database::FindSchema(std::string_view schemaName) const {
    const NameRule rule = Rule();
    for (const auto& [schemaId, schema] : schemas)
        if (rule.Same(schema.name, schemaName))
            return &schema;
    return nullptr;
}

const Principal* Database::FindPrincipal(std::string_view principalName) const {
    const NameRule rule = Rule();
    for (const auto& [principalId, principal] : principals)
        if (rule.Same(principal.name, principalName))
            return &principal;
    return nullptr;
}

const NamedObject* Database::FindName(SchemaId schema, std::string_view objectName) const {
    return names.Find({schema, Rule().Key(objectName)});
}

std::string_view Database::SchemaName(SchemaId schema) const {
    const auto found = schemas.find(schema);
    return found == schemas.end() ? std::string_view() : std::string_view(found->second.name);
}

bool Database::Option(std::string_view option) const {
    const auto found = options.find(std::string(option));
    return found != options.end() && found->second == "ON";
}

const Database* Catalogue::FindDatabase(std::string_view name) const {
    const auto found = m_databaseNames.find(FoldName(name));
    return found == m_databaseNames.end() ? nullptr : FindDatabase(found->second);
}

const Database* Catalogue::FindDatabase(DatabaseId id) const {
    const auto found = m_databases.find(id);
    return found == m_databases.end() ? nullptr : found->second.get();
}

std::vector<const Database*> Catalogue::Databases() const {
    std::vector<const Database*> all;
    for (const auto& [id, database] : m_databases)
        all.push_back(database.get());
    return all;
}

std::shared_ptr<const SchemaObject> Catalogue::FindObject(ObjectId id) const {
    const Home* home = m_homes.Find(id);
    if (home == nullptr)
        return nullptr;
    const auto* found = m_databases.at(home->database)->objects.Find(id);
    return found == nullptr ? nullptr : *found;
}

std::shared_ptr<const SchemaObject> Catalogue::FindObject(DatabaseId database, SchemaId schema,
                                                          std::string_view name) const {
    const Database* home = FindDatabase(database);
    const NamedObject* named = home == nullptr ? nullptr : home->FindName(schema, name);
    if (named == nullptr || named->parent != 0)
        return nullptr;
    return *home->objects.Find(named->id);
}

std::shared_ptr<const Table> Catalogue::FindTable(ObjectId id) const {
    return std::dynamic_pointer_cast<const Table>(FindObject(id));
}

std::shared_ptr<const Module> Catalogue::FindModule(ObjectId id) const {
    return std::dynamic_pointer_cast<const Module>(FindObject(id));
}

std::shared_ptr<const Trigger> Catalogue::FindTrigger(ObjectId id) const {
    return std::dynamic_pointer_cast<const Trigger>(FindObject(id));
}

std::optional<Catalogue::Named> Catalogue::FindNamed(ObjectId id) const {
    const Home* home = m_homes.Find(id);
    if (home == nullptr)
        return std::nullopt;
    const SchemaObject& holder = **m_databases.at(home->database)->objects.Find(home->object);
    if (holder.id == id)
        return Named{holder.name, home->database, holder.schema, {id, 0, holder.kind}};
    for (const auto& [name, constraint] : ConstraintsOf(dynamic_cast<const Table&>(holder)))
        if (constraint.id == id)
            return Named{name, home->database, holder.schema, constraint};
    return std::nullopt;
}

std::vector<std::pair<std::string, NamedObject>> ConstraintsOf(const Table& table) {
    std::vector<std::pair<std::string, NamedObject>> all;
    for (const Index& index : table.indexes)
        if (index.IsConstraint())
            all.push_back({index.name,
                           {index.constraint, table.id,
                            index.primaryKey ? ObjectKind::PrimaryKey : ObjectKind::UniqueKey}});
    for (const DefaultConstraint& value : table.defaults)
        all.push_back({value.name, {value.id, table.id, ObjectKind::DefaultKind}});
    for (const CheckConstraint& check : table.checks)
        all.push_back({check.name, {check.id, table.id, ObjectKind::CheckKind}});
    for (const ForeignKey& key : table.foreignKeys)
        all.push_back({key.name, {key.id, table.id, ObjectKind::ForeignKeyConstraint}});
    return all;
}

} // namespace quillon::practice
