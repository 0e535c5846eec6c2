// What the catalogue asks its server, for all tables of a database at once.
//
// Documented catalogue views of SQL Server 2008 and later alone; the columns of each result stand in the
// order in which the readers take them. A question with several SELECTs is one round trip.
#pragma once

#include <string>

namespace quillon::adapters::questions {

// name, owner, identifier
extern const char* const Databases;

// identifier, owner, name, created, system object
extern const char* const Tables;

// What every column repeats is told once, beside the columns: a large database has a hundred thousand of
// them. Six results, those of tables ordered by table and then as the declaration has them:
//   types: identifier, name, user-defined, schema
//   columns: table, identifier, name, type, length in bytes, precision, scale, nullable, identity, row guid,
//            computed
//   declared defaults: table, column, name, text
//   bound defaults: table, column, name
//   keys, one row a column: table, the key's index, its name, primary, index type (1 clustered), column,
//            descending; a key and its index have one name
//   foreign keys, one row a column: table, key, its name, column, referenced schema, table, column, delete
//            action, update action, disabled
extern const char* const Columns;

// Two results: triggers (table, identifier, owner, name, created, disabled, ANSI nulls, quoted identifiers,
// text) and what fires them (trigger, 1 insert, 2 update, 3 delete).
extern const char* const Triggers;

// Four results: identities (table, column, seed, increment), computed columns (table, column, text,
// persisted), collations (table, column, name), checks (table, name, text, disabled).
extern const char* const ScriptFacts;

// The owners of the procedures of a name.
std::string ProcedureOwner(const std::string& name);

} // namespace quillon::adapters::questions
