// What the databases are made of: plain values that say what a database, schema, table, column, key, module
// or principal IS. They are filled by DDL, kept in the definition tables (DefinitionTables.h) and shared,
// unchanging, by all sessions through the Catalogue.
//
// Ids of objects are unique over the whole server, not only within a database, because every user table lies
// in the one data file under its id. Objects and constraints draw them from the same numbers, as in
// sys.objects.
#pragma once

#include "practice/values/Moment.h"
#include "practice/values/NameRule.h"
#include "practice/values/SqlType.h"

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace quillon::practice {

using DatabaseId = std::int32_t;
using SchemaId = std::int32_t;
using PrincipalId = std::int32_t;
using ObjectId = std::int32_t;

constexpr DatabaseId masterDatabase = 1;
constexpr DatabaseId tempDatabase = 2;
constexpr DatabaseId modelDatabase = 3;
constexpr DatabaseId msdbDatabase = 4;
constexpr SchemaId dboSchema = 1;
constexpr SchemaId guestSchema = 2;
constexpr SchemaId informationSchema = 3;
constexpr SchemaId sysSchema = 4;
constexpr PrincipalId publicPrincipal = 0;
constexpr PrincipalId dboPrincipal = 1;
constexpr PrincipalId guestPrincipal = 2;
constexpr PrincipalId moduleOwner = -2; // Module::executeAs: whoever owns the module's schema by then

enum class ObjectKind : std::uint8_t {
    Table,
    View,
    Procedure,
    ScalarFunction,
    InlineFunction,
    TableFunction, // of several statements
    Trigger,
    Default, // the old CREATE DEFAULT, bound by sp_bindefault
    Rule,
    Synonym,
    TableType, // CREATE TYPE ... AS TABLE
    AliasType, // CREATE TYPE ... FROM
    PrimaryKey,
    UniqueKey,
    ForeignKeyConstraint,
    CheckKind,
    DefaultKind,
};
// sys.objects.type without padding: U V P FN IF TF TR D R SN TT PK UQ F C D.
const char* ObjectTypeCode(ObjectKind kind);

struct SchemaObject {
    ObjectId id = 0;
    DatabaseId database = 0;
    SchemaId schema = dboSchema;
    std::string name;
    ObjectKind kind = ObjectKind::Table;
    Moment created;
    Moment modified;
    bool systemShipped = false;
    NameRule nameRule; // of its columns, indexes and so on: its database's

    virtual ~SchemaObject() = default;
};

struct Identity {
    std::int64_t seed = 1;
    std::int64_t increment = 1;
};

struct Column {
    int id = 0; // 1-based, never given again to another column of the table
    std::string name;
    SqlType type;
    bool nullable = true;
    bool rowGuid = false;
    bool ansiPadded = true;
    std::optional<Identity> identity;
    std::string computed; // the expression's text, in brackets; empty for an ordinary column
    bool persisted = false;
    bool stored = true;         // false for a computed column that is worked out at every reading
    ObjectId defaultObject = 0; // an old CREATE DEFAULT bound to it; a DEFAULT constraint is the table's
    ObjectId ruleObject = 0;
    ObjectId aliasType = 0; // the user's type it was declared with
    bool sysName = false;   // declared as sysname

    bool IsComputed() const { return !computed.empty(); }
    bool IsRowVersion() const { return type.id == TypeId::RowVersion; }
};

struct DefaultConstraint {
    ObjectId id = 0;
    std::string name;
    int columnId = 0;
    std::string text; // as kept: in brackets
    bool systemNamed = false;
};

struct CheckConstraint {
    ObjectId id = 0;
    std::string name;
    int columnId = 0; // 0: of the table
    std::string text;
    bool systemNamed = false;
    bool disabled = false;
    bool notTrusted = false;
};

struct IndexKey {
    int columnId = 0;
    bool descending = false;
};

// An index, or the index under a primary or unique key. The table itself as a heap has none.
struct Index {
    int id = 0; // 1 for the clustered one, 2 and above for others
    std::string name;
    bool clustered = false;
    bool unique = false;
    bool primaryKey = false;
    bool uniqueConstraint = false;
    ObjectId constraint = 0; // the key's id as an object; 0 for a plain index
    bool systemNamed = false;
    bool disabled = false;
    bool ignoreDuplicates = false;
    int fillFactor = 0;
    std::vector<IndexKey> keys;
    std::vector<int> included;
    std::string filter; // the condition's text, empty when there is none

    bool IsConstraint() const { return primaryKey || uniqueConstraint; }
};

enum class ReferenceAction : std::uint8_t { NoAction, Cascade, SetNull, SetDefault }; // as sys.foreign_keys

struct ForeignKey {
    ObjectId id = 0;
    std::string name;
    std::vector<int> columns;
    ObjectId referenced = 0;
    int referencedIndex = 0;
    std::vector<int> referencedColumns;
    ReferenceAction onDelete = ReferenceAction::NoAction;
    ReferenceAction onUpdate = ReferenceAction::NoAction;
    bool systemNamed = false;
    bool disabled = false;
    bool notTrusted = false;
};

struct Table : SchemaObject {
    std::vector<Column> columns; // in their order, computed ones included
    int lastColumnId = 0;
    std::vector<Index> indexes;
    std::vector<DefaultConstraint> defaults;
    std::vector<CheckConstraint> checks;
    std::vector<ForeignKey> foreignKeys;
    std::vector<ObjectId> referencedBy; // tables whose foreign keys point here, itself included
    std::vector<ObjectId> triggers;
    std::string storage;       // what SQL for SQLite calls it: main.t77, temp.t78
    bool hollow = false;       // no row has ever been in it, and nothing of that name is in SQLite
    bool temporary = false;    // #t and table variables; lives in the session alone
    bool variable = false;     // a table variable
    bool rowSet = false;       // inserted or deleted
    std::uint64_t version = 0; // differs between any two states of the definition

    const Column* FindColumn(std::string_view columnName) const; // by `nameRule`
    const Column* FindColumn(int columnId) const;
    const Column* IdentityColumn() const;
    const Index* PrimaryKey() const;
    const Index* FindIndex(std::string_view indexName) const;
    const Index* FindIndex(int indexId) const;
    const DefaultConstraint* DefaultOf(int columnId) const;
};
// What SQL for SQLite calls a column of a table: c3.
std::string ColumnStorage(int columnId);

struct ModuleParameter {
    std::string name; // with its @
    SqlType type;
    bool output = false;
    bool readOnly = false;
    bool hasDefault = false;
    ObjectId userType = 0; // a table type or alias
};

// A view, procedure, function or trigger; the text is the whole batch that made it, saying CREATE.
struct Module : SchemaObject {
    std::string text;
    bool ansiNulls = true;
    bool quotedIdentifier = true;
    bool encrypted = false;
    bool schemaBound = false;
    bool recompile = false;
    bool startup = false;                    // a procedure of master that runs when the server starts
    std::optional<PrincipalId> executeAs;    // whom its body runs as; nothing: its caller
    std::vector<ModuleParameter> parameters; // procedures and functions
    std::optional<SqlType> returns;          // scalar functions
    std::vector<Column> columns;             // views and table functions, as they were when it was made
    std::vector<ObjectId> triggers;          // INSTEAD OF triggers of a view
    std::uint64_t version = 0;

    const Column* FindColumn(std::string_view columnName) const; // by `nameRule`
    const Column* FindColumn(int columnId) const;
};

enum class TriggerEvent : std::uint8_t { Insert = 1, Update = 2, Delete = 3 }; // as sys.trigger_events
enum class TriggerOrder : std::uint8_t { None, First, Last };

struct TriggerFor {
    TriggerEvent event = TriggerEvent::Insert;
    TriggerOrder order = TriggerOrder::None;
};

struct Trigger : Module {
    ObjectId parent = 0; // table or view
    bool insteadOf = false;
    bool disabled = false;
    bool notForReplication = false;
    std::vector<TriggerFor> events;

    const TriggerFor* For(TriggerEvent event) const;
};

struct Synonym : SchemaObject {
    std::string target; // the name it stands for, as written
};

struct TextObject : SchemaObject { // an old default or rule
    std::string text;              // the whole batch
    std::string expression;        // of the default, or condition of the rule
};

struct AliasType : SchemaObject {
    SqlType base;
    bool nullable = true;
    ObjectId defaultObject = 0; // what columns of the type are born with, as if bound to them
    ObjectId ruleObject = 0;
};

struct Schema {
    SchemaId id = 0;
    std::string name;
    PrincipalId owner = dboPrincipal;
};

enum class PrincipalKind : char { SqlUser = 'S', Role = 'R', WindowsUser = 'U' };

struct Principal {
    PrincipalId id = 0;
    std::string name;
    PrincipalKind kind = PrincipalKind::SqlUser;
    std::string login;         // the login it belongs to; empty for none
    std::string sid;           // bytes
    std::string defaultSchema; // of users
    bool fixedRole = false;
    Moment created;
    Moment modified;
    std::vector<PrincipalId> memberOf;
};

// One GRANT or DENY; kept and shown, as sys.database_permissions has it.
struct Permission {
    int securableClass = 0; // 0 database, 1 object or column, 3 schema
    ObjectId major = 0;
    int minor = 0; // column id
    PrincipalId grantee = 0;
    PrincipalId grantor = dboPrincipal;
    std::string permission; // SELECT, VIEW DEFINITION ...
    // D deny, G grant, W grant with grant option; R of CONNECT, which a user has until it is revoked
    char state = 'G';
};

// An object of the same kind that says the same, to be changed.
std::shared_ptr<SchemaObject> CopyOf(const SchemaObject& object);

// What sp_addextendedproperty hangs on a database, a schema, an object or a part of one. It outlives what it
// hangs on, whose number nothing else will have, but is not shown any more.
struct ExtendedProperty {
    int securableClass = 0; // 0 database, 1 object or column, 2 parameter, 3 schema, 6 type, 7 index
    ObjectId major = 0;
    int minor = 0; // id of the column, parameter or index
    std::string name;
    std::string value; // the stored form of a sql_variant; empty: NULL
};

} // namespace quillon::practice
