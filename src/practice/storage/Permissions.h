// Who may do what in a database: its owner, its roles, the rights granted and denied. A denial wins over any
// grant; a right on a schema or on the database holds for all that is in it.
#pragma once

#include "practice/storage/Catalogue.h"

namespace quillon::practice {

// Permission::securableClass
constexpr int databaseClass = 0;
constexpr int objectClass = 1;
constexpr int schemaClass = 3;

/// The user that a login is in a database: dbo for administrators and the owner, its own user, or guest where
/// guests may come in (master, tempdb, msdb, and where guest was granted CONNECT). Nothing: it may not enter.
std::optional<PrincipalId> UserOf(const Database& database, std::string_view login, bool administrator);
bool MayEnter(const Database& database, PrincipalId user);
bool GuestMayEnter(const Database& database);

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

  private:
    bool Stands(char state, std::string_view right, int securableClass, ObjectId major) const;
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
