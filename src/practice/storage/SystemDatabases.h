// What a new server and a new database begin with: master, tempdb, model, msdb; schemas, roles, dbo.
#pragma once

#include "practice/storage/Catalogue.h"

namespace quillon::practice {

// A database as CREATE DATABASE makes it, without a user's object.
Database MakeDatabase(DatabaseId id, std::string name, const Collation* collation);
void AddSystemDatabases(CatalogueEditor& editor);
// Empty again, and made now: its age is how tools tell when the server started.
void RemakeTempdb(CatalogueEditor& editor);
// Now, in UTC as the server's clock has it, with the precision of datetime.
Moment CurrentMoment();

} // namespace quillon::practice
