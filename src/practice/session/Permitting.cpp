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

void RequireNamed(SessionState& session, const tsql::Reference& reference) {
    const tsql::Name& name = *reference.name;
    if (name.Last().starts_with('#'))
        return;
    if (!name.Database().empty())
        if (const Database* database = session.store.View()->FindDatabase(name.Database()))
            RequireEntry(session, *database);
    if (const auto object = session.Statements().FindObject(name))
        RequireRight(session, reference.right, *object);
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
