// Changes of definitions that no statement makes but system procedures do: sp_rename, sp_settriggerorder,
// sp_bindefault, DBCC CHECKIDENT. Each is a statement by itself, undone as a whole when it fails.
#pragma once

#include "practice/statements/Plan.h"

namespace quillon::practice {

// sp_settriggerorder. 15133 for INSTEAD OF, 15125 when the trigger is not for the event, 15130 when another
// has that place.
void SetTriggerOrder(Engine& engine, const Trigger& trigger, TriggerEvent event, TriggerOrder order);
// sp_rename of an object or constraint. 15335 when the name is taken. The text of modules stays as it is.
void RenameObject(Engine& engine, ObjectId id, const std::string& name);
void RenameColumn(Engine& engine, const Table& table, int columnId, const std::string& name);
void RenameIndex(Engine& engine, const Table& table, int indexId, const std::string& name);
void RenameDatabase(Engine& engine, DatabaseId id, const std::string& name);
// sp_bindefault, sp_bindrule and their opposites (object 0).
void BindObject(Engine& engine, const Table& table, int columnId, ObjectId object, bool rule);
// sp_configure-like options of a database: name upper case, value as kept ("ON", "OFF", "SIMPLE" ...).
void SetDatabaseOption(Engine& engine, DatabaseId id, const std::string& option, const std::string& value);

} // namespace quillon::practice
