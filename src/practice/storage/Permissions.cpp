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
    return user == dboPrincipal ||
           std::none_of(database.permissions.begin(), database.permissions.end(), [&](const Permission& one) {
               return one.permission == "CONNECT" && one.state == 'D' && rights.IsMember(one.grantee);
           });
}

std::optional<PrincipalId> UserOf(const Database& database, std::string_view login, bool administrator) {
    if (administrator || SameName(database.owner, login))
        return dboPrincipal;
    std::optional<PrincipalId> user;
    for (const auto& [id, principal] : database.principals)
        if (SameName(principal.login, login))
            user = id;
    if (!user && GuestMayEnter(database))
        user = guestPrincipal;
    return user && MayEnter(database, *user) ? user : std::nullopt;
}

bool IsEnforcedRight(std::string_view right, int securableClass) {
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
            const bool same =
                state == 'D' ? one.state == 'D' : one.state != 'D' && (state != 'W' || one.state == 'W');
            return same && one.securableClass == securableClass && one.major == major && one.minor == 0 &&
                   m_holders.contains(one.grantee) && Covers(one.permission, right);
        });
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
    return DeniedByRole(right) || (object != nullptr && Stands('D', right, objectClass, object->id)) ||
           (schema && Stands('D', right, schemaClass, *schema)) || Stands('D', above, databaseClass, 0);
}

bool Rights::Granted(std::string_view right, const SchemaObject* object,
                     std::optional<SchemaId> schema) const {
    const std::string_view above = schema ? OnDatabaseCalled(right) : right;
    return GivenByRole(above) || (object != nullptr && Stands('G', right, objectClass, object->id)) ||
           (schema && Stands('G', right, schemaClass, *schema)) || Stands('G', above, databaseClass, 0);
}

bool Rights::Has(std::string_view right, const SchemaObject* object, std::optional<SchemaId> schema) const {
    if (IsOwner())
        return true;
    if (schema) {
        const auto found = m_database.schemas.find(*schema);
        if (found != m_database.schemas.end() && IsMember(found->second.owner))
            return true;
    }
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
    if (IsOwner() || IsMember("db_securityadmin") ||
        Stands('W', given.permission, given.securableClass, given.major))
        return true;
    if (given.securableClass == schemaClass)
        return OnSchema("CONTROL", given.major);
    if (given.securableClass == databaseClass)
        return OnDatabase("CONTROL");
    const auto* object = m_database.objects.Find(given.major);
    return object != nullptr && OnObject("CONTROL", **object);
}

} // namespace quillon::practice
