#include "practice/storage/Catalogue.h"
#include "practice/storage/Permissions.h"

#include <algorithm>

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
        NoteChange(gone, objectId);
        m_next->m_homes.Erase(objectId);
    }
    for (const auto& [key, named] : gone.names)
        m_next->m_homes.Erase(named.id);
    m_next->m_databaseNames.erase(FoldName(gone.name));
    m_next->m_databases.erase(id);
    m_owned.erase(id);
    m_changedDatabases.insert(id);
}

void CatalogueEditor::Collate(DatabaseId id, const Collation* collation) {
    Database& database = EditDatabase(id);
    database.collation = collation;
    database.names = {};
    const auto before = database.objects;
    for (const auto& [objectId, object] : before) {
        const auto after = CopyOf(*object);
        after->nameRule = database.Rule();
        TakeNames(database, *after);
        database.objects.Put(objectId, after);
    }
}

void CatalogueEditor::Put(std::shared_ptr<SchemaObject> object) {
    if (const auto table = std::dynamic_pointer_cast<Table>(object))
        table->version = m_next->m_version;
    else if (const auto module = std::dynamic_pointer_cast<Module>(object))
        module->version = m_next->m_version;
    Database& database = Own(object->database);
    object->nameRule = database.Rule();
    const ObjectId id = object->id;
    NoteChange(database, id);
    FreeNames(database, id);
    TakeNames(database, *object);
    database.objects.Put(id, std::move(object));
}

void CatalogueEditor::Drop(ObjectId id) {
    Database& database = Own(m_next->m_homes.Find(id)->database);
    NoteChange(database, id);
    FreeNames(database, id);
    const Permission securable = SecurableOf(**database.objects.Find(id));
    const auto& rights = database.permissions;
    if (std::any_of(rights.begin(), rights.end(), [&](const Permission& one) {
            return one.securableClass == securable.securableClass && one.major == id;
        }))
        ForgetRights(EditDatabase(database.id), securable.securableClass, id);
    database.objects.Erase(id);
}

void CatalogueEditor::MarkStored(ObjectId table) {
    const auto after = std::make_shared<Table>(*m_next->FindTable(table));
    after->hollow = false;
    after->version = m_next->m_version;
    Own(after->database).objects.Put(table, after);
}

void CatalogueEditor::NoteChange(const Database& database, ObjectId id) {
    m_changedObjects.emplace(id, database.objects.Find(id) != nullptr);
}

void CatalogueEditor::TakeNames(Database& database, const SchemaObject& object) {
    database.names.Put({object.schema, database.Rule().Key(object.name)}, {object.id, 0, object.kind});
    m_next->m_homes.Put(object.id, {database.id, object.id});
    const auto* table = dynamic_cast<const Table*>(&object);
    if (table == nullptr)
        return;
    for (const auto& [name, constraint] : ConstraintsOf(*table)) {
        database.names.Put({object.schema, database.Rule().Key(name)}, constraint);
        m_next->m_homes.Put(constraint.id, {database.id, object.id});
    }
}

void CatalogueEditor::FreeNames(Database& database, ObjectId id) {
    const auto* found = database.objects.Find(id);
    if (found == nullptr)
        return;
    const std::shared_ptr<const SchemaObject> before = *found;
    const SchemaObject& object = *before;
    database.names.Erase({object.schema, database.Rule().Key(object.name)});
    m_next->m_homes.Erase(object.id);
    const auto* table = dynamic_cast<const Table*>(&object);
    if (table == nullptr)
        return;
    for (const auto& [name, constraint] : ConstraintsOf(*table)) {
        database.names.Erase({object.schema, database.Rule().Key(name)});
        m_next->m_homes.Erase(constraint.id);
    }
}

} // namespace quillon::practice
