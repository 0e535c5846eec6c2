#include "practice/storage/Catalogue.h"

namespace quillon::practice {

CatalogueEditor::CatalogueEditor(std::shared_ptr<const Catalogue> before, std::uint64_t version)
    : m_next(std::make_shared<Catalogue>(*before)) {
    m_next->m_version = version;
}

Database& CatalogueEditor::Own(DatabaseId id) {
    std::shared_ptr<Database>& owned = m_owned[id];
    if (!owned) {
        owned = std::make_shared<Database>(*m_next->m_databases.at(id));
        m_next->m_databases[id] = owned;
    }
    return *owned;
}

Database& CatalogueEditor::EditDatabase(DatabaseId id) {
    m_changedDatabases.insert(id);
    return Own(id);
}

void CatalogueEditor::AddDatabase(Database database) {
    const DatabaseId id = database.id;
    m_changedDatabases.insert(id);
    m_next->m_databaseNames[FoldName(database.name)] = id;
    m_owned[id] = std::make_shared<Database>(std::move(database));
    m_next->m_databases[id] = m_owned[id];
}

void CatalogueEditor::RenameDatabase(DatabaseId id, const std::string& name) {
    Database& database = EditDatabase(id);
    m_next->m_databaseNames.erase(FoldName(database.name));
    database.name = name;
    m_next->m_databaseNames[FoldName(name)] = id;
}

void CatalogueEditor::DropDatabase(DatabaseId id) {
    const Database gone = *m_next->m_databases.at(id);
    for (const auto& [objectId, object] : gone.objects) {
        m_changedObjects.insert(objectId);
        m_next->m_homes.erase(objectId);
    }
    for (const auto& [key, named] : gone.names)
        m_next->m_homes.erase(named.id);
    m_next->m_databaseNames.erase(FoldName(gone.name));
    m_next->m_databases.erase(id);
    m_owned.erase(id);
    m_changedDatabases.insert(id);
}

void CatalogueEditor::Put(std::shared_ptr<SchemaObject> object) {
    if (const auto table = std::dynamic_pointer_cast<Table>(object))
        table->version = m_next->m_version;
    else if (const auto module = std::dynamic_pointer_cast<Module>(object))
        module->version = m_next->m_version;
    Database& database = Own(object->database);
    FreeNames(database, object->id);
    TakeNames(database, *object);
    m_changedObjects.insert(object->id);
    database.objects[object->id] = std::move(object);
}

void CatalogueEditor::Drop(ObjectId id) {
    Database& database = Own(m_next->m_homes.at(id));
    FreeNames(database, id);
    database.objects.erase(id);
    m_changedObjects.insert(id);
}

void CatalogueEditor::TakeNames(Database& database, const SchemaObject& object) {
    database.names[{object.schema, FoldName(object.name)}] = {object.id, 0, object.kind};
    m_next->m_homes[object.id] = database.id;
    const auto* table = dynamic_cast<const Table*>(&object);
    if (table == nullptr)
        return;
    for (const auto& [name, constraint] : ConstraintsOf(*table)) {
        database.names[{object.schema, FoldName(name)}] = constraint;
        m_next->m_homes[constraint.id] = database.id;
    }
}

void CatalogueEditor::FreeNames(Database& database, ObjectId id) {
    const auto found = database.objects.find(id);
    if (found == database.objects.end())
        return;
    const SchemaObject& object = *found->second;
    database.names.erase({object.schema, FoldName(object.name)});
    m_next->m_homes.erase(object.id);
    const auto* table = dynamic_cast<const Table*>(&object);
    if (table == nullptr)
        return;
    for (const auto& [name, constraint] : ConstraintsOf(*table)) {
        database.names.erase({object.schema, FoldName(name)});
        m_next->m_homes.erase(constraint.id);
    }
}

} // namespace quillon::practice
