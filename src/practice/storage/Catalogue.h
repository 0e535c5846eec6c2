// The catalogue: all definitions of the server at one moment. A Catalogue never changes; DDL makes a new one
// from the old (CatalogueEditor), which shares all that stayed as it was. The Store holds the last committed
// one; a session that has made definitions in its open transaction sees its own until it commits or rolls
// back. So a reader holds a consistent picture without a lock for as long as it keeps the pointer.
//
// The names of what a database holds compare by its collation, those of the databases themselves by the
// server's (NameRule.h).
#pragma once

#include "practice/storage/Definitions.h"
#include "practice/storage/PersistentMap.h"

#include <functional>
#include <set>

namespace quillon::practice {

struct NamedObject {
    ObjectId id = 0;
    ObjectId parent = 0; // of constraints: the table; otherwise 0
    ObjectKind kind = ObjectKind::Table;
};

// The constraints of a table by name: keys, defaults, checks, foreign keys.
std::vector<std::pair<std::string, NamedObject>> ConstraintsOf(const Table& table);

struct Database {
    DatabaseId id = 0;
    std::string name;
    std::string owner = "sa";
    const Collation* collation = nullptr;
    Moment created;
    std::map<std::string, std::string> options; // upper-case names: RECOVERY, RECURSIVE_TRIGGERS ...
    std::map<SchemaId, Schema> schemas;
    std::map<PrincipalId, Principal> principals;
    std::vector<Permission> permissions;
    std::vector<ExtendedProperty> properties;
    PersistentMap<ObjectId, std::shared_ptr<const SchemaObject>> objects; // constraints are in their tables
    PersistentMap<std::pair<SchemaId, std::string>, NamedObject> names;   // keys of Rule; constraints too

    NameRule Rule() const { return NameRule(collation); }
    const Schema* FindSchema(std::string_view schemaName) const;
    const Principal* FindPrincipal(std::string_view principalName) const;
    // Anything of that name in the schema, constraints too; nullptr when there is none.
    const NamedObject* FindName(SchemaId schema, std::string_view objectName) const;
    std::string_view SchemaName(SchemaId schema) const; // empty when there is none
    bool Option(std::string_view option) const;         // whether it is set to ON
};

class Catalogue {
  public:
    // Grows with every change of any definition; two catalogues of one version are the same.
    std::uint64_t Version() const { return m_version; }

    const Database* FindDatabase(std::string_view name) const;
    const Database* FindDatabase(DatabaseId id) const;
    std::vector<const Database*> Databases() const; // by id

    // nullptr when there is none, or it is of another kind.
    std::shared_ptr<const SchemaObject> FindObject(ObjectId id) const;
    std::shared_ptr<const SchemaObject> FindObject(DatabaseId database, SchemaId schema,
                                                   std::string_view name) const;
    std::shared_ptr<const Table> FindTable(ObjectId id) const;
    std::shared_ptr<const Module> FindModule(ObjectId id) const;
    std::shared_ptr<const Trigger> FindTrigger(ObjectId id) const;
    // An object or a constraint by id, with its name and the object that holds it.
    struct Named {
        std::string name;
        DatabaseId database = 0;
        SchemaId schema = 0;
        NamedObject object;
    };
    std::optional<Named> FindNamed(ObjectId id) const;

  private:
    friend class CatalogueEditor;
    std::uint64_t m_version = 0;
    std::map<DatabaseId, std::shared_ptr<const Database>> m_databases;
    std::map<std::string, DatabaseId> m_databaseNames;
    struct Home {
        DatabaseId database = 0;
        ObjectId object = 0; // itself, or the table whose constraint it is
    };
    PersistentMap<ObjectId, Home> m_homes; // objects and constraints
};

// Makes the next catalogue. Keeps note of what changed so that it can be written to the definition tables.
class CatalogueEditor {
  public:
    CatalogueEditor(std::shared_ptr<const Catalogue> before, std::uint64_t version);

    const Catalogue& Now() const { return *m_next; }
    Database&
    EditDatabase(DatabaseId id); // header, schemas, principals, permissions, properties; not objects
    void AddDatabase(Database database);
    void RenameDatabase(DatabaseId id, const std::string& name);
    void DropDatabase(DatabaseId id);
    // The caller has made sure that names stay different.
    void Collate(DatabaseId id, const Collation* collation);
    // Adds the object or puts it in the place of the one with its id; its `version` is set. Names are
    // taken and freed; the caller has made sure that they are free (2714). It gets its database's NameRule.
    void Put(std::shared_ptr<SchemaObject> object);
    void Drop(ObjectId id);
    // The table has a place for its rows from now on. No definition changes by that.
    void MarkStored(ObjectId table);

    std::shared_ptr<const Catalogue> Finish() { return m_next; }
    // Dropped ones too; with whether the object was there before.
    const std::map<ObjectId, bool>& ChangedObjects() const { return m_changedObjects; }
    const std::set<DatabaseId>& ChangedDatabases() const { return m_changedDatabases; }

  private:
    Database& Own(DatabaseId id);
    void TakeNames(Database& database, const SchemaObject& object);
    void FreeNames(Database& database, ObjectId id);
    void NoteChange(const Database& database, ObjectId id);

    std::shared_ptr<Catalogue> m_next;
    std::map<DatabaseId, std::shared_ptr<Database>> m_owned;
    std::map<ObjectId, bool> m_changedObjects;
    std::set<DatabaseId> m_changedDatabases;
};

} // namespace quillon::practice
