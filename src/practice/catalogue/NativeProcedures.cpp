// What the procedures of the system do beneath Transact-SQL: renaming, the order of triggers, binding of
// defaults and rules, what runs when the server starts.
#include "practice/catalogue/LockProcedures.h"
#include "practice/catalogue/NativeParts.h"
#include "practice/functions/NameParts.h"
#include "practice/values/Convert.h"
#include "practice/values/SqlError.h"

#include <algorithm>

namespace quillon::practice {

std::string TextArgument(std::span<const Datum> arguments, std::size_t index) {
    return index < arguments.size() && !arguments[index].IsNull()
               ? Convert(arguments[index], TextType(TypeId::NVarChar, maxLength)).Text()
               : std::string();
}

namespace {

// q_raise number, parameters: a message of the table, thrown when it is an error.
int Raise(NativeHost& host, std::span<const Datum> arguments) {
    const auto number = static_cast<int>(Convert(arguments[0], SimpleType(TypeId::Int)).Integer());
    const std::string first = TextArgument(arguments, 1), second = TextArgument(arguments, 2),
                      third = TextArgument(arguments, 3);
    const MessageRow* row = FindMessage(number);
    if (row == nullptr || row->severity > 10)
        throw SqlError(number, {first, second, third});
    host.Inform(number, MessageText(number, {first, second, third}));
    return 0;
}

int Refuse(NativeHost&, std::span<const Datum> arguments) {
    throw SqlError::NotSupported(TextArgument(arguments, 0));
}

std::shared_ptr<const SchemaObject> FindInSchemas(NativeHost& host, const std::string& schemaName,
                                                  const std::string& name) {
    const auto view = host.Store().View();
    const Database* database = view->FindDatabase(host.CurrentDatabase());
    if (!schemaName.empty()) {
        const Schema* schema = database->FindSchema(schemaName);
        return schema == nullptr ? nullptr : view->FindObject(host.CurrentDatabase(), schema->id, name);
    }
    auto object = view->FindObject(host.CurrentDatabase(), host.DefaultSchema(), name);
    return object ? object : view->FindObject(host.CurrentDatabase(), dboSchema, name);
}

} // namespace

NamedItem FindNamedItem(NativeHost& host, const std::string& text, bool hasMember) {
    auto parts = SplitName(text);
    if (!parts)
        return {};
    NamedItem target;
    if (hasMember) {
        target.member = parts->back();
        parts->pop_back();
    }
    if (parts->empty())
        return {};
    const std::string name = parts->back();
    parts->pop_back();
    const std::string schema = parts->empty() ? std::string() : parts->back();
    if (parts->size() > 1) {
        const Database* database = host.Store().View()->FindDatabase(host.CurrentDatabase());
        if (!parts->front().empty() && !SameName(parts->front(), database->name))
            throw SqlError(15250);
    }
    target.object = FindInSchemas(host, schema, name);
    return target;
}

void Put(NativeHost& host, std::shared_ptr<SchemaObject> object) {
    host.Store().Change([&](CatalogueEditor& editor) { editor.Put(object); });
}

namespace {

[[noreturn]] void NoSuchItem(NativeHost& host, const std::string& name, const std::string& type) {
    const Database* database = host.Store().View()->FindDatabase(host.CurrentDatabase());
    throw SqlError(15225, {name, database->name, type.empty() ? "(null)" : type});
}

int RenameColumn(NativeHost& host, const std::string& name, const std::string& newName) {
    const NamedItem target = FindNamedItem(host, name, true);
    const auto table = CopyOf<Table>(target.object);
    if (!table || table->FindColumn(target.member) == nullptr)
        throw SqlError(15248, {"COLUMN"});
    const Column* taken = table->FindColumn(newName);
    if (taken != nullptr && !table->nameRule.Same(newName, target.member))
        throw SqlError(15335, {newName, "COLUMN"});
    for (Column& column : table->columns)
        if (table->nameRule.Same(column.name, target.member))
            column.name = newName;
    Put(host, table);
    return 0;
}

int RenameIndex(NativeHost& host, const std::string& name, const std::string& newName) {
    const NamedItem target = FindNamedItem(host, name, true);
    const auto table = CopyOf<Table>(target.object);
    if (!table || table->FindIndex(target.member) == nullptr)
        throw SqlError(15248, {"INDEX"});
    if (table->FindIndex(newName) != nullptr && !table->nameRule.Same(newName, target.member))
        throw SqlError(15335, {newName, "INDEX"});
    for (Index& index : table->indexes)
        if (table->nameRule.Same(index.name, target.member))
            index.name = newName;
    Put(host, table);
    return 0;
}

void RequireFree(NativeHost& host, SchemaId schema, const std::string& name) {
    const Database* database = host.Store().View()->FindDatabase(host.CurrentDatabase());
    if (database->FindName(schema, name) != nullptr)
        throw SqlError(15335, {name, "OBJECT"});
}

// A constraint: it is renamed in the table that holds it.
bool RenameConstraint(NativeHost& host, const std::string& name, const std::string& newName) {
    const auto parts = SplitName(name);
    if (!parts)
        return false;
    const auto view = host.Store().View();
    const Database* database = view->FindDatabase(host.CurrentDatabase());
    const Schema* schema = parts->size() > 1 ? database->FindSchema((*parts)[parts->size() - 2]) : nullptr;
    const SchemaId schemaId = schema != nullptr ? schema->id : host.DefaultSchema();
    const NamedObject* named = database->FindName(schemaId, parts->back());
    if (named == nullptr || named->parent == 0)
        return false;
    RequireFree(host, schemaId, newName);
    const auto table = CopyOf<Table>(view->FindTable(named->parent));
    const ObjectId id = named->id;
    const auto rename = [&](auto& list) {
        for (auto& constraint : list)
            if (constraint.id == id)
                constraint.name = newName;
    };
    rename(table->defaults);
    rename(table->checks);
    rename(table->foreignKeys);
    for (Index& index : table->indexes)
        if (index.constraint == id)
            index.name = newName;
    Put(host, table);
    return true;
}

// The table one of whose columns or indexes the name means.
std::shared_ptr<const Table> TableOfMember(NativeHost& host, const std::string& name) {
    const NamedItem target = FindNamedItem(host, name, true);
    auto table = std::dynamic_pointer_cast<const Table>(target.object);
    if (table && table->FindColumn(target.member) == nullptr && table->FindIndex(target.member) == nullptr)
        return nullptr;
    return table;
}

int RenameObject(NativeHost& host, const std::string& name, const std::string& newName,
                 const std::string& type) {
    const NamedItem target = FindNamedItem(host, name, false);
    if (!target.object) {
        if (RenameConstraint(host, name, newName))
            return 0;
        const auto table = type.empty() ? TableOfMember(host, name) : nullptr;
        if (!table)
            NoSuchItem(host, name, type);
        return table->FindColumn(SplitName(name)->back()) != nullptr ? RenameColumn(host, name, newName)
                                                                     : RenameIndex(host, name, newName);
    }
    if (!target.object->nameRule.Same(target.object->name, newName))
        RequireFree(host, target.object->schema, newName);
    const auto copy = practice::CopyOf(*target.object);
    copy->name = newName;
    Put(host, copy);
    return 0;
}

// q_rename object, new name, kind: COLUMN, INDEX, OBJECT, USERDATATYPE, or nothing for an object.
int Rename(NativeHost& host, std::span<const Datum> arguments) {
    const std::string name = TextArgument(arguments, 0), newName = TextArgument(arguments, 1),
                      type = TextArgument(arguments, 2);
    if (name.empty() || newName.empty())
        throw SqlError(15223, {name.empty() ? "@objname" : "@newname"});
    if (SameName(type, "COLUMN"))
        return RenameColumn(host, name, newName);
    if (SameName(type, "INDEX"))
        return RenameIndex(host, name, newName);
    if (type.empty() || SameName(type, "OBJECT") || SameName(type, "USERDATATYPE"))
        return RenameObject(host, name, newName, type);
    if (SameName(type, "DATABASE"))
        throw SqlError::NotSupported("sp_rename of a database; use ALTER DATABASE ... MODIFY NAME");
    throw SqlError(15249, {type});
}

TriggerEvent EventOf(const std::string& word) {
    if (SameName(word, "INSERT"))
        return TriggerEvent::Insert;
    if (SameName(word, "UPDATE"))
        return TriggerEvent::Update;
    if (SameName(word, "DELETE"))
        return TriggerEvent::Delete;
    throw SqlError(15600, {"sys.sp_settriggerorder"});
}

TriggerOrder OrderOf(const std::string& word) {
    if (SameName(word, "FIRST"))
        return TriggerOrder::First;
    if (SameName(word, "LAST"))
        return TriggerOrder::Last;
    if (SameName(word, "NONE"))
        return TriggerOrder::None;
    throw SqlError(15600, {"sys.sp_settriggerorder"});
}

// One trigger of a table at most is the first, and one the last, for each event.
void RequireFreeOrder(NativeHost& host, const Trigger& trigger, TriggerEvent event, TriggerOrder order) {
    const auto view = host.Store().View();
    const auto table = view->FindTable(trigger.parent);
    if (!table || order == TriggerOrder::None)
        return;
    for (const ObjectId id : table->triggers) {
        const auto other = view->FindTrigger(id);
        const TriggerFor* entry = other && other->id != trigger.id ? other->For(event) : nullptr;
        if (entry != nullptr && entry->order == order)
            throw SqlError(15130, {order == TriggerOrder::First ? "first" : "last",
                                   event == TriggerEvent::Insert   ? "INSERT"
                                   : event == TriggerEvent::Update ? "UPDATE"
                                                                   : "DELETE"});
    }
}

// q_settriggerorder trigger, order, statement
int SetTriggerOrder(NativeHost& host, std::span<const Datum> arguments) {
    const std::string name = TextArgument(arguments, 0);
    const TriggerOrder order = OrderOf(TextArgument(arguments, 1));
    const TriggerEvent event = EventOf(TextArgument(arguments, 2));
    const auto trigger = CopyOf<Trigger>(FindNamedItem(host, name, false).object);
    if (!trigger)
        throw SqlError(15126, {name});
    if (trigger->insteadOf)
        throw SqlError(15133, {name});
    if (trigger->For(event) == nullptr)
        throw SqlError(15125, {name, TextArgument(arguments, 2)});
    RequireFreeOrder(host, *trigger, event, order);
    for (TriggerFor& entry : trigger->events)
        if (entry.event == event)
            entry.order = order;
    Put(host, trigger);
    return 0;
}

// q_startup procedure, 0 or 1
int SetStartup(NativeHost& host, std::span<const Datum> arguments) {
    const std::string name = TextArgument(arguments, 0);
    const auto procedure = CopyOf<Module>(FindNamedItem(host, name, false).object);
    if (!procedure || procedure->kind != ObjectKind::Procedure)
        throw SqlError(15165, {name});
    if (host.CurrentDatabase() != masterDatabase || procedure->schema != dboSchema)
        throw SqlError(15398);
    if (!procedure->parameters.empty())
        throw SqlError(15399);
    procedure->startup = arguments[1].Integer() != 0;
    Put(host, procedure);
    return 0;
}

constexpr Native natives[] = {
    {"q_raise", Raise},
    {"q_refuse", Refuse},
    {"q_rename", Rename},
    {"q_settriggerorder", SetTriggerOrder},
    {"q_bind", Bind},
    {"q_startup", SetStartup, true, true},
    {"q_getapplock", TakeApplicationLock, false},
    {"q_releaseapplock", ReleaseApplicationLock, false},
    {"q_property", ChangeProperty},
    {"q_addmessage", AddMessage},
    {"q_altermessage", AlterMessage},
    {"q_dropmessage", DropMessage},
};

} // namespace

const Native* FindNativeProcedure(std::string_view name) {
    const auto* found = std::find_if(std::begin(natives), std::end(natives),
                                     [&](const Native& row) { return SameName(row.name, name); });
    return found == std::end(natives) ? nullptr : found;
}

} // namespace quillon::practice
