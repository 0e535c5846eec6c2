#include "practice/session/Permitting.h"

#include "practice/session/SessionState.h"
#include "practice/tsql/Parser.h"
#include "practice/tsql/References.h"
#include "practice/values/SqlError.h"

namespace quillon::practice {

namespace {

/// The system's own procedures do what they do for everyone; the texts that they run are asked about.
bool IsSystemsOwn(SessionState& session) {
    return !session.frames.empty() && session.Top().kind == FrameKind::Procedure && !session.Top().module;
}

bool IsUnasked(SessionState& session) {
    return IsSystemsOwn(session) || session.IsAdministrator();
}

const Module* RunningModule(SessionState& session) {
    return session.frames.empty() ? nullptr : session.Top().module.get();
}

/// Whether `user`, a module or a view, reaches for an object of its own owner. The chain of owners ends at
/// the border of a database.
bool IsChained(const Database& database, const SchemaObject* user, const SchemaObject& object) {
    return user != nullptr && user->database == object.database &&
           OwnerOf(database, user->schema) == OwnerOf(database, object.schema);
}

/// The query that a view or an inline function is; nullptr for all else.
const tsql::Query* QueryOf(SessionState& session, const SchemaObject& object) {
    if (object.kind != ObjectKind::View && object.kind != ObjectKind::InlineFunction)
        return nullptr;
    const auto tree =
        session.Statements().ModuleTree(dynamic_cast<const Module&>(object)); // kept by the executor
    const tsql::Statement& made = *tree->statements.front();
    return object.kind == ObjectKind::View ? tsql::As<tsql::CreateViewStatement>(made).query.get()
                                           : tsql::As<tsql::CreateFunctionStatement>(made).inlineQuery.get();
}

/// As the names that a text makes up itself are bound.
tsql::SameNames By(const NameRule& rule) {
    return [rule](std::string_view left, std::string_view right) { return rule.Same(left, right); };
}

NameRule RuleHere(SessionState& session) {
    const auto view = session.store.View();
    const Database* here = view->FindDatabase(session.database);
    return here == nullptr ? NameRule() : here->Rule();
}

bool IsChange(std::string_view right) {
    return right == "INSERT" || right == "UPDATE" || right == "DELETE";
}

/// Asks for what one statement needs, and notes all that is missing.
class Asker {
  public:
    Asker(SessionState& session, const Module* module)
        : m_session(session)
        , m_view(session.store.View())
        , m_module(module) {}

    void Ask(const std::vector<tsql::Reference>& references) {
        for (const tsql::Reference& reference : references)
            Ask(reference);
        Finish();
    }
    void Ask(std::string_view right, const SchemaObject& object) {
        AskFor(right, object, m_module);
        Finish();
    }

  private:
    void Ask(const tsql::Reference& reference);
    void AskFor(std::string_view right, const SchemaObject& object, const SchemaObject* user);
    void AskBehind(std::string_view right, const SchemaObject& object);
    void AskEntry(const tsql::Name& name);
    std::shared_ptr<const SchemaObject> FindWithin(const SchemaObject& home, const tsql::Name& name);
    void Finish() {
        if (!m_missing.empty())
            throw tsql::SyntaxErrors(std::move(m_missing));
    }

    SessionState& m_session;
    std::shared_ptr<const Catalogue> m_view;
    const Module* m_module;
    std::set<std::pair<ObjectId, std::string_view>> m_seen; // behind which views
    std::set<std::pair<ObjectId, std::string_view>> m_told;
    std::vector<SqlError> m_missing;
};

void Asker::Ask(const tsql::Reference& reference) {
    if (reference.name->Last().starts_with('#'))
        return;
    AskEntry(*reference.name);
    const auto object = m_session.Statements().FindObject(*reference.name);
    if (object && (!reference.isType || object->kind == ObjectKind::TableType)) {
        AskFor(reference.right, *object, m_module);
        AskBehind(reference.right, *object);
    }
}

void Asker::AskEntry(const tsql::Name& name) {
    if (const Database* database = name.Database().empty() ? nullptr : m_view->FindDatabase(name.Database()))
        RequireEntry(m_session, *database);
}

void Asker::AskFor(std::string_view right, const SchemaObject& object, const SchemaObject* user) {
    if (object.name.starts_with('#'))
        return;
    const Database* database = m_view->FindDatabase(object.database);
    if (database == nullptr || IsChained(*database, user, object))
        return;
    RequireEntry(m_session, *database);
    if (Rights(*database, *m_session.UserIn(*database)).OnObject(right, object) ||
        !m_told.emplace(object.id, right).second)
        return;
    m_missing.push_back(
        SqlError(229, {right, object.name, database->name, database->SchemaName(object.schema)}, 5));
}

/// What a view reads is asked for where the chain of owners breaks, and what is changed through it as well.
void Asker::AskBehind(std::string_view right, const SchemaObject& object) {
    const tsql::Query* query = QueryOf(m_session, object);
    if (query == nullptr || !m_seen.emplace(object.id, right).second)
        return;
    for (const tsql::Reference& reference : tsql::ReferencesOf(*query, By(object.nameRule))) {
        AskEntry(*reference.name);
        const auto found = FindWithin(object, *reference.name);
        if (!found)
            continue;
        AskFor(reference.right, *found, &object);
        const bool isChanged = IsChange(right) && reference.right == "SELECT";
        if (isChanged)
            AskFor(right, *found, &object);
        AskBehind(isChanged ? right : reference.right, *found);
    }
}

/// A name as a module of that home means it.
std::shared_ptr<const SchemaObject> Asker::FindWithin(const SchemaObject& home, const tsql::Name& name) {
    const Database* own = m_view->FindDatabase(home.database);
    const Database* database = name.Database().empty() ? own : m_view->FindDatabase(name.Database());
    if (database == nullptr)
        return nullptr;
    std::vector<std::string> schemas{name.Schema()};
    if (name.Schema().empty())
        schemas = {std::string(database->SchemaName(database == own ? home.schema : dboSchema)), "dbo"};
    for (const std::string& schema : schemas) {
        tsql::Name full;
        full.parts = {database->name, schema, name.Last()};
        if (auto found = m_session.Statements().FindObject(full))
            return found;
    }
    return nullptr;
}

} // namespace

void RequireEntry(SessionState& session, const Database& database) {
    if (!session.UserIn(database))
        throw SqlError(916, {session.LoginName(), database.name});
}

void RequireRight(SessionState& session, std::string_view right, const SchemaObject& object) {
    if (!IsUnasked(session))
        Asker(session, RunningModule(session)).Ask(right, object);
}

bool MayAlter(SessionState& session, const SchemaObject& object) {
    if (session.IsAdministrator() || object.name.starts_with('#'))
        return true;
    const auto view = session.store.View();
    const Database* database = view->FindDatabase(object.database);
    const auto user = database == nullptr ? std::nullopt : session.UserIn(*database);
    return user && Rights(*database, *user).OnObject("ALTER", object);
}

void RequireOwner(SessionState& session) {
    if (session.IsAdministrator())
        return;
    const auto view = session.store.View();
    const Database* database = view->FindDatabase(session.database);
    RequireEntry(session, *database);
    if (!Rights(*database, *session.UserIn(*database)).OnDatabase("ALTER ANY SCHEMA"))
        throw SqlError(15247);
}

void RequireRights(SessionState& session, const tsql::Statement& statement) {
    if (IsUnasked(session))
        return;
    Asker(session, RunningModule(session)).Ask(tsql::ReferencesOf(statement, By(RuleHere(session))));
    RequireDefinitionRights(session, statement);
}

void RequireRights(SessionState& session, const tsql::Expression& expression) {
    if (!IsUnasked(session))
        Asker(session, RunningModule(session)).Ask(tsql::ReferencesOf(expression, By(RuleHere(session))));
}

void RequireRights(SessionState& session, const tsql::SelectStatement& select, const Module* module) {
    if (!IsUnasked(session))
        Asker(session, module).Ask(tsql::ReferencesOf(select, By(RuleHere(session))));
}

} // namespace quillon::practice
