// Permitting: asks before a statement runs whether the session's user may do what it does. Administrators and
// the owner of a database pass everything; so does what a module does to the objects of its own owner.
#pragma once

#include "practice/storage/Permissions.h"
#include "practice/tsql/Tree.h"

namespace quillon::practice {

struct SessionState;

// These throw where the user may not: 916 for a database; 229 for data and calls, one for each right that is
// missing; 262, 1088, 3701, 15151 and their like for definitions.
void RequireEntry(SessionState& session, const Database& database);
void RequireRights(SessionState& session, const tsql::Statement& statement);
void RequireRights(SessionState& session, const tsql::Expression& expression);
/// Of a cursor's query, which `module` has declared; nullptr for a batch or text.
void RequireRights(SessionState& session, const tsql::SelectStatement& select, const Module* module);
void RequireRight(SessionState& session, std::string_view right, const SchemaObject& object);
bool MayAlter(SessionState& session, const SchemaObject& object);
/// Of the procedures of the system that change definitions.
void RequireOwner(SessionState& session);

/// The same for statements that define; part of RequireRights.
void RequireDefinitionRights(SessionState& session, const tsql::Statement& statement);

} // namespace quillon::practice
