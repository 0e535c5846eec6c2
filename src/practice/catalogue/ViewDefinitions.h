// How a system view is written down in this room: its columns in one line, as DDL would list them, and its
// SELECT with fragments in braces. Names that belong to the database are sysname and compare by its
// collation; those that belong to the server are nvarchar(128). Not for other rooms.
//
//   {db}            the number of the database looked at (the binder puts it in; also {collation}, {order})
//   {type_desc:x}   sys.objects.type_desc of a type code x
//   {object:o}      the columns that all views over sys.objects begin with, of alias o of q_object
//   {action:x}      the name of a referential action
//   {int:x}         x as an int in an sql_variant
//   {references}    the references of modules: WITH r(id, in_database, in_schema, name, is_changed, target)
//   {keys:x}        column x of q_foreign_key_column for each of sixteen columns of foreign key f
#pragma once

#include <span>
#include <string_view>

namespace quillon::practice {

struct ViewDefinition {
    std::string_view schema; // sys, INFORMATION_SCHEMA, or dbo for those found without a schema
    std::string_view name;
    std::string_view columns; // "name sysname, object_id int, ..."; a ! before the name: never null
    std::string_view select;
};

std::span<const ViewDefinition> ObjectViews();       // objects, tables, views, columns, types, modules
std::span<const ViewDefinition> ConstraintViews();   // keys, indexes, constraints, triggers
std::span<const ViewDefinition> SecurityViews();     // principals, permissions, schemas
std::span<const ViewDefinition> ServerViews();       // databases, servers, files, messages
std::span<const ViewDefinition> SessionViews();      // sessions, connections, requests
std::span<const ViewDefinition> LegacyViews();       // sysobjects, syscolumns and the like
std::span<const ViewDefinition> LegacyServerViews(); // sysdatabases, syslogins, sysprocesses
std::span<const ViewDefinition> InformationViews();  // INFORMATION_SCHEMA

} // namespace quillon::practice
