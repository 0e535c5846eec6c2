#include "practice/storage/Permissions.h"

#include <algorithm>

namespace quillon::practice {

namespace {

using Words = std::initializer_list<std::string_view>;

bool IsOneOf(std::string_view word, Words words) {
    return std::find(words.begin(), words.end(), word) != words.end();
}

bool IsDataRight(std::string_view right) {
    return IsOneOf(right, {"SELECT", "INSERT", "UPDATE", "DELETE", "EXECUTE", "REFERENCES"});
}

bool IsCreation(std::string_view right) {
    return IsOneOf(right,
                   {"CREATE TABLE", "CREATE VIEW", "CREATE PROCEDURE", "CREATE FUNCTION", "CREATE TYPE",
                    "CREATE SYNONYM", "CREATE DEFAULT", "CREATE RULE", "CREATE SCHEMA"});
}

bool IsAdministration(std::string_view right) {
    return IsOneOf(right, {"ALTER ANY USER", "ALTER ANY ROLE", "ALTER ANY SCHEMA", "CREATE ROLE"});
}

bool IsChange(std::string_view right) {
    return IsOneOf(right, {"INSERT", "UPDATE", "DELETE"});
}

// Which rights on the very same securable hold the one in them.
bool Covers(std::string_view held, std::string_view right) {
    if (held == right || held == "CONTROL")
        return true;
    if (held == "ALTER")
        return IsCreation(right) || IsAdministration(right) || right == "VIEW DEFINITION";
    return held == "ALTER ANY ROLE" && right == "CREATE ROLE";
}

// What the right on an object or schema is called on the database that holds it.
std::string_view OnDatabaseCalled(std::string_view right) {
    return right == "ALTER" ? "ALTER ANY SCHEMA" : right;
}

void AddRoles(const Database& database, PrincipalId member, std::set<PrincipalId>& holders) {
    if (!holders.insert(member).second)
        return;
    const auto found = database.principals.find(member);
    if (found != database.principals.end())
        for (const PrincipalId role : found->second.memberOf)
            AddRoles(database, role, holders);
}

} // namespace

bool GuestMayEnter(const Database& database) {
    if (database.id == masterDatabase || database.id == tempDatabase || database.id == msdbDatabase)
        return true;
    return std::any_of(database.permissions.begin(), database.permissions.end(), [](const Permission& one) {
        return one.grantee == guestPrincipal && one.permission == "CONNECT" && one.state != 'D';
    });
}

bool MayEnter(const Database& database, PrincipalId user) {
    const Rights rights(database, user);
    const auto stands = [&](auto states) {
        return std::any_of(database.permissions.begin(), database.permissions.end(),
                           [&](const Permission& one) {
                               return one.permission == "CONNECT" &&
                                      std::string_view(states).find(one.state) != std::string_view::npos &&
                                      rights.IsMember(one.grantee);
                           });
    };
    return user == dboPrincipal || (!stands("D") && (stands("GW") || !stands("R")));
}

std::optional<PrincipalId> UserOf(const Database& database, std::string_view login, std::string_view sid,
                                  bool administrator) {
    if (administrator || SameName(database.owner, login))
        return dboPrincipal;
    std::optional<PrincipalId> user;
    for (const auto& [id, principal] : database.principals)
        if (principal.sid.empty() ? SameName(principal.login, login) : principal.sid == sid)
            user = id;
    if (!user && GuestMayEnter(database))
        user = guestPrincipal;
    return user && MayEnter(database, *user) ? user : std::nullopt;
}

PrincipalId OwnerOf(const Database& database, SchemaId schema) {
    const auto found = database.schemas.find(schema);
    return found == database.schemas.end() ? dboPrincipal : found->second.owner;
}

Permission SecurableOf(const SchemaObject& object) {
    Permission securable;
    const bool isType = object.kind == ObjectKind::AliasType || object.kind == ObjectKind::TableType;
    securable.securableClass = isType ? typeClass : objectClass;
    securable.major = object.id;
    return securable;
}

void ForgetRights(Database& database, int securableClass, ObjectId major) {
    std::erase_if(database.permissions, [&](const Permission& one) {
        return one.securableClass == securableClass && one.major == major;
    });
}

bool IsRelation(const SchemaObject& object) {
    return object.kind == ObjectKind::Table || object.kind == ObjectKind::View ||
           object.kind == ObjectKind::InlineFunction || object.kind == ObjectKind::TableFunction;
}

namespace {

std::vector<std::string> AllRights(const Permission& securable, const Catalogue& catalogue) {
    if (securable.securableClass == databaseClass)
        return {"CREATE DEFAULT", "CREATE FUNCTION", "CREATE PROCEDURE",
                "CREATE RULE",    "CREATE TABLE",    "CREATE VIEW"};
    const auto object =
        securable.securableClass == objectClass ? catalogue.FindObject(securable.major) : nullptr;
    if (object && !IsRelation(*object))
        return {"EXECUTE"};
    return {"SELECT", "INSERT", "UPDATE", "DELETE", "REFERENCES"};
}

} // namespace

std::vector<std::string> GrantedRights(const std::vector<std::string>& written, const Permission& securable,
                                       const Catalogue& catalogue) {
    std::vector<std::string> rights;
    for (const std::string& one : written)
        if (one == "ALL")
            return AllRights(securable, catalogue);
        else
            rights.push_back(one == "EXEC" ? "EXECUTE" : one == "CREATE PROC" ? "CREATE PROCEDURE" : one);
    return rights;
}

bool IsEnforcedRight(std::string_view right, int securableClass) {
    if (securableClass == typeClass)
        return IsOneOf(right, {"CONTROL", "EXECUTE", "REFERENCES"});
    if (IsDataRight(right) || IsOneOf(right, {"CONTROL", "ALTER"}))
        return true;
    return securableClass == databaseClass &&
           (IsCreation(right) || IsAdministration(right) || right == "CONNECT");
}

Rights::Rights(const Database& database, PrincipalId user)
    : m_database(database)
    , m_user(user)
    , m_holders{publicPrincipal} {
    AddRoles(database, user, m_holders);
}

bool Rights::IsMember(std::string_view fixedRole) const {
    const Principal* role = m_database.FindPrincipal(fixedRole);
    return role != nullptr && IsMember(role->id);
}

bool Rights::Stands(char state, std::string_view right, int securableClass, ObjectId major) const {
    return std::any_of(
        m_database.permissions.begin(), m_database.permissions.end(), [&](const Permission& one) {
            const bool same = state == 'G' ? one.state == 'G' || one.state == 'W' : one.state == state;
            return same && one.securableClass == securableClass && one.major == major && one.minor == 0 &&
                   m_holders.contains(one.grantee) && Covers(one.permission, right);
        });
}

bool Rights::StandsOn(char state, std::string_view right, const SchemaObject& object) const {
    const Permission securable = SecurableOf(object);
    return Stands(state, right, securable.securableClass, securable.major);
}

bool Rights::DeniedByRole(std::string_view right) const {
    return (right == "SELECT" && IsMember("db_denydatareader")) ||
           (IsChange(right) && IsMember("db_denydatawriter"));
}

bool Rights::GivenByRole(std::string_view right) const {
    if (IsMember("db_owner"))
        return true;
    if (right == "SELECT")
        return IsMember("db_datareader");
    if (IsChange(right))
        return IsMember("db_datawriter");
    if (IsCreation(right) || right == "ALTER ANY SCHEMA" || right == "REFERENCES")
        return IsMember("db_ddladmin");
    if (right == "ALTER ANY ROLE" || right == "CREATE ROLE")
        return IsMember("db_securityadmin");
    return right == "ALTER ANY USER" && IsMember("db_accessadmin");
}

bool Rights::Denied(std::string_view right, const SchemaObject* object,
                    std::optional<SchemaId> schema) const {
    const std::string_view above = schema ? OnDatabaseCalled(right) : right;
    return DeniedByRole(right) || (object != nullptr && StandsOn('D', right, *object)) ||
           (schema && Stands('D', right, schemaClass, *schema)) || Stands('D', above, databaseClass, 0);
}

bool Rights::Granted(std::string_view right, const SchemaObject* object,
                     std::optional<SchemaId> schema) const {
    const std::string_view above = schema ? OnDatabaseCalled(right) : right;
    return GivenByRole(above) || (object != nullptr && StandsOn('G', right, *object)) ||
           (schema && Stands('G', right, schemaClass, *schema)) || Stands('G', above, databaseClass, 0);
}

bool Rights::Has(std::string_view right, const SchemaObject* object, std::optional<SchemaId> schema) const {
    if (IsOwner())
        return true;
    if (schema && IsMember(OwnerOf(m_database, *schema)))
        return true;
    return !Denied(right, object, schema) && Granted(right, object, schema);
}

bool Rights::OnObject(std::string_view right, const SchemaObject& object) const {
    return Has(right, &object, object.schema);
}

bool Rights::OnSchema(std::string_view right, SchemaId schema) const {
    return Has(right, nullptr, schema);
}

bool Rights::OnDatabase(std::string_view right) const {
    return Has(right, nullptr, std::nullopt);
}

bool Rights::MayGrant(const Permission& given) const {
    return MayDeny(given) || Stands('W', given.permission, given.securableClass, given.major);
}

bool Rights::MayDeny(const Permission& given) const {
    if (IsOwner() || IsMember("db_securityadmin"))
        return true;
    if (given.securableClass == schemaClass)
        return OnSchema("CONTROL", given.major);
    if (given.securableClass == databaseClass)
        return OnDatabase("CONTROL");
    const auto* object = m_database.objects.Find(given.major);
    return object != nullptr && OnObject("CONTROL", **object);
}

bool Rights::MayImpersonate(const Principal& user) const {
    const bool isPerson =
        user.kind != PrincipalKind::Role && user.id != informationSchema && user.id != sysSchema;
    return isPerson && (m_user == user.id || OnDatabase("CONTROL"));
}

} // namespace quillon::practice
