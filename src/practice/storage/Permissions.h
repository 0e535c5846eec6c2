// Who may do what in a database: its owner, its roles, the rights granted and denied. A denial wins over any
// grant; a right on a schema or on the database holds for all that is in it.
#pragma once

#include "practice/storage/Catalogue.h"

namespace quillon::practice {

// Permission::securableClass
constexpr int databaseClass = 0;
constexpr int objectClass = 1;
constexpr int schemaClass = 3;
constexpr int typeClass = 6;

/// The user that a login is in a database: dbo for administrators and the owner, its own user, or guest where
/// guests may come in (master, tempdb, msdb, and where guest was granted CONNECT). Nothing: it may not enter.
/// A user knows its login by the sid: another login of the same name is a stranger to it.
std::optional<PrincipalId> UserOf(const Database& database, std::string_view login, std::string_view sid,
                                  bool administrator);
bool MayEnter(const Database& database, PrincipalId user);
bool GuestMayEnter(const Database& database);

/// Of a schema, and of what is in it.
PrincipalId OwnerOf(const Database& database, SchemaId schema);
/// The class and number by which rights on the object are kept.
Permission SecurableOf(const SchemaObject& object);
/// What hangs on the securable goes with it.
void ForgetRights(Database& database, int securableClass, ObjectId major);

/// The rights that are meant by those as written: EXEC is EXECUTE, and ALL what it was in the days of the
/// standard, not all that there is.
std::vector<std::string> GrantedRights(const std::vector<std::string>& written, const Permission& securable,
                                       const Catalogue& catalogue);
/// Tables, views and functions that answer rows: what SELECT and its kin are for.
bool IsRelation(const SchemaObject& object);

/// Whether the name is that of a right which this server enforces on such a securable (its class as in
/// Permission::securableClass).
bool IsEnforcedRight(std::string_view right, int securableClass);

/// The rights of one user. It refers to the database, which must outlive it.
class Rights {
  public:
    Rights(const Database& database, PrincipalId user);

    bool IsOwner() const { return m_user == dboPrincipal; }
    /// The user itself, a role it is in, or a role of such a role; everybody is in public.
    bool IsMember(PrincipalId role) const { return m_holders.contains(role); }
    bool IsMember(std::string_view fixedRole) const;

    bool OnObject(std::string_view right, const SchemaObject& object) const;
    bool OnSchema(std::string_view right, SchemaId schema) const;
    bool OnDatabase(std::string_view right) const;

    /// Whether the user may hand the right on: who controls the securable, who looks after security, and who
    /// has the right with the grant option.
    bool MayGrant(const Permission& given) const;
    /// As above without the grant option: who may also deny, and take what others gave.
    bool MayDeny(const Permission& given) const;
    /// Itself, and for who controls the database every user in it.
    bool MayImpersonate(const Principal& user) const;

  private:
    bool Stands(char state, std::string_view right, int securableClass, ObjectId major) const;
    bool StandsOn(char state, std::string_view right, const SchemaObject& object) const;
    bool Denied(std::string_view right, const SchemaObject* object, std::optional<SchemaId> schema) const;
    bool Granted(std::string_view right, const SchemaObject* object, std::optional<SchemaId> schema) const;
    bool GivenByRole(std::string_view right) const;
    bool DeniedByRole(std::string_view right) const;
    bool Has(std::string_view right, const SchemaObject* object, std::optional<SchemaId> schema) const;

    const Database& m_database;
    PrincipalId m_user;
    std::set<PrincipalId> m_holders;
};

} // namespace quillon::practice
