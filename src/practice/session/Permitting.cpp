#include "practice/session/Permitting.h"

#include "practice/session/SessionState.h"
#include "practice/tsql/References.h"
#include "practice/values/SqlError.h"

namespace quillon::practice {

namespace {

bool ActsAsUser(const SessionState& session) {
    return !session.impersonations.empty() && !session.impersonations.back().user.empty();
}

/// The system's own procedures do what they do for everyone; the texts that they run are asked about.
bool IsSystemsOwn(SessionState& session) {
    return !session.frames.empty() && session.Top().kind == FrameKind::Procedure && !session.Top().module;
}

bool IsUnasked(SessionState& session) {
    return IsSystemsOwn(session) || session.IsAdministrator();
}

PrincipalId OwnerOf(const Database& database, SchemaId schema) {
    const auto found = database.schemas.find(schema);
    return found == database.schemas.end() ? dboPrincipal : found->second.owner;
}

/// Whether a module reaches for an object of its own owner.
bool IsChained(SessionState& session, const Database& database, const SchemaObject& object) {
    const Module* module = session.frames.empty() ? nullptr : session.Top().module.get();
    return module != nullptr && module->database == object.database &&
           OwnerOf(database, module->schema) == OwnerOf(database, object.schema);
}

void RequireEntryOf(SessionState& session, const tsql::Name& name) {
    const auto view = session.store.View();
    if (const Database* database = name.Database().empty() ? nullptr : view->FindDatabase(name.Database()))
        RequireEntry(session, *database);
}

/// The query that a view or an inline function is, in its tree; nullptr for all else.
const tsql::Query* QueryOf(const SchemaObject& object, const tsql::Batch& tree) {
    const tsql::Statement& made = *tree.statements.front();
    return object.kind == ObjectKind::View ? tsql::As<tsql::CreateViewStatement>(made).query.get()
                                           : tsql::As<tsql::CreateFunctionStatement>(made).inlineQuery.get();
}

/// A name as a module of that database means it.
tsql::Name NameWithin(const Database& database, const tsql::Name& name) {
    if (!name.Database().empty())
        return name;
    tsql::Name full;
    full.parts = {database.name, name.Schema(), name.Last()};
    return full;
}

/// The chain of owners ends at the border of a database: what a view reads beyond it is asked for.
void RequireBeyond(SessionState& session, const SchemaObject& object, int depth) {
    constexpr int deepest = 32;
    if (depth == deepest || (object.kind != ObjectKind::View && object.kind != ObjectKind::InlineFunction))
        return;
    const auto view = session.store.View();
    const auto tree = session.Statements().ModuleTree(dynamic_cast<const Module&>(object));
    for (const tsql::Reference& reference : tsql::ReferencesOf(*QueryOf(object, *tree))) {
        RequireEntryOf(session, *reference.name);
        const auto found = session.Statements().FindObject(
            NameWithin(*view->FindDatabase(object.database), *reference.name));
        if (!found)
            continue;
        if (found->database != object.database)
            RequireRight(session, reference.right, *found);
        RequireBeyond(session, *found, depth + 1);
    }
}

void RequireNamed(SessionState& session, const tsql::Reference& reference) {
    const tsql::Name& name = *reference.name;
    if (name.Last().starts_with('#'))
        return;
    RequireEntryOf(session, name);
    const auto object = session.Statements().FindObject(name);
    if (!object)
        return;
    RequireRight(session, reference.right, *object);
    RequireBeyond(session, *object, 0);
}

} // namespace

std::optional<PrincipalId> UserIn(SessionState& session, const Database& database) {
    if (!ActsAsUser(session))
        return UserOf(database, session.LoginName(), session.IsAdministrator());
    // Who acts as a user of one database is a stranger to the others.
    const Principal* user = nullptr;
    if (database.id == session.database)
        user = database.FindPrincipal(session.impersonations.back().user);
    if (user != nullptr)
        return MayEnter(database, user->id) ? std::optional(user->id) : std::nullopt;
    return GuestMayEnter(database) ? std::optional(guestPrincipal) : std::nullopt;
}

void RequireEntry(SessionState& session, const Database& database) {
    if (!UserIn(session, database))
        throw SqlError(916, {ActsAsUser(session) && session.LoginName().empty() ? session.UserName()
                                                                                : session.LoginName(),
                             database.name});
}

void RequireRight(SessionState& session, std::string_view right, const SchemaObject& object) {
    if (IsUnasked(session) || object.database == tempDatabase)
        return;
    const auto view = session.store.View();
    const Database* database = view->FindDatabase(object.database);
    if (database == nullptr || IsChained(session, *database, object))
        return;
    RequireEntry(session, *database);
    if (!Rights(*database, *UserIn(session, *database)).OnObject(right, object))
        throw SqlError(229, {right, object.name, database->name, database->SchemaName(object.schema)}, 5);
}

void RequireOwner(SessionState& session) {
    if (session.IsAdministrator())
        return;
    const auto view = session.store.View();
    const Database* database = view->FindDatabase(session.database);
    RequireEntry(session, *database);
    if (!Rights(*database, *UserIn(session, *database)).OnDatabase("ALTER ANY SCHEMA"))
        throw SqlError(15247);
}

void RequireRights(SessionState& session, const tsql::Statement& statement) {
    if (IsUnasked(session))
        return;
    for (const tsql::Reference& reference : tsql::ReferencesOf(statement))
        RequireNamed(session, reference);
    RequireDefinitionRights(session, statement);
}

void RequireRights(SessionState& session, const tsql::Expression& expression) {
    if (IsUnasked(session))
        return;
    for (const tsql::Reference& reference : tsql::ReferencesOf(expression))
        RequireNamed(session, reference);
}

} // namespace quillon::practice
