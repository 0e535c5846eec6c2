// SERVERPROPERTY, DATABASEPROPERTYEX, and what the session's user may do.
#include "practice/catalogue/MetadataParts.h"
#include "practice/storage/Permissions.h"
#include "practice/values/SqlError.h"

#include <atomic>
#include <random>

namespace quillon::practice {

namespace {

Datum Variant(std::string_view text) {
    return Datum::NVarCharOf(std::string(text));
}

Datum ServerPropertyOf(const Question& q) {
    if (q.IsNull(0))
        return {};
    const std::string property = UpperName(q.Text(0));
    if (property == "PRODUCTVERSION" || property == "RESOURCEVERSION")
        return Variant(ProductVersion());
    if (property == "PRODUCTMAJORVERSION")
        return Variant("15");
    if (property == "PRODUCTMINORVERSION")
        return Variant("0");
    if (property == "PRODUCTBUILD")
        return Variant("2000");
    if (property == "PRODUCTLEVEL")
        return Variant("RTM");
    if (property == "EDITION")
        return Variant("Practice Server");
    if (property == "ENGINEEDITION")
        return Datum::Int(4); // Express: no features of the larger editions
    if (property == "SERVERNAME" || property == "MACHINENAME" || property == "COMPUTERNAMEPHYSICALNETBIOS")
        return Variant(q.here.serverName);
    if (property == "COLLATION")
        return Variant(DefaultCollation()->name);
    if (property == "LCID")
        return Datum::Int(1033);
    if (property == "SQLCHARSETNAME")
        return Variant("iso_1");
    if (property == "LICENSETYPE")
        return Variant("DISABLED");
    for (const char* absent :
         {"ISCLUSTERED", "ISINTEGRATEDSECURITYONLY", "ISFULLTEXTINSTALLED", "ISSINGLEUSER", "ISHADRENABLED",
          "ISXTPSUPPORTED", "ISLOCALDB", "ISPOLYBASEINSTALLED"})
        if (property == absent)
            return Flag(false);
    return {};
}

const Database* DatabaseByName(const Question& q) {
    return q.IsNull(0) ? nullptr : q.here.store.View()->FindDatabase(q.Text(0));
}

std::string OptionOf(const Database& database, const char* name, const char* otherwise) {
    const auto found = database.options.find(name);
    return found == database.options.end() ? otherwise : found->second;
}

constexpr std::pair<const char*, const char*> switches[] = {
    {"ISANSINULLDEFAULT", "ANSI_NULL_DEFAULT"},
    {"ISANSINULLSENABLED", "ANSI_NULLS"},
    {"ISANSIPADDINGENABLED", "ANSI_PADDING"},
    {"ISANSIWARNINGSENABLED", "ANSI_WARNINGS"},
    {"ISARITHMETICABORTENABLED", "ARITHABORT"},
    {"ISNULLCONCAT", "CONCAT_NULL_YIELDS_NULL"},
    {"ISNUMERICROUNDABORTENABLED", "NUMERIC_ROUNDABORT"},
    {"ISQUOTEDIDENTIFIERSENABLED", "QUOTED_IDENTIFIER"},
    {"ISRECURSIVETRIGGERSENABLED", "RECURSIVE_TRIGGERS"},
    {"ISCLOSECURSORSONCOMMITENABLED", "CURSOR_CLOSE_ON_COMMIT"},
    {"ISAUTOCLOSE", "AUTO_CLOSE"},
    {"ISAUTOSHRINK", "AUTO_SHRINK"},
};

Datum DatabasePropertyOf(const Question& q) {
    const Database* database = DatabaseByName(q);
    if (database == nullptr || q.IsNull(1))
        return {};
    const std::string property = UpperName(q.Text(1));
    if (property == "COLLATION")
        return Variant(database->collation->name);
    if (property == "RECOVERY")
        return Variant(OptionOf(*database, "RECOVERY", "FULL"));
    if (property == "STATUS")
        return Variant("ONLINE");
    if (property == "UPDATEABILITY")
        return Variant(database->Option("READ_ONLY") ? "READ_ONLY" : "READ_WRITE");
    if (property == "USERACCESS")
        return Variant(database->options.contains("SINGLE_USER") ? "SINGLE_USER" : "MULTI_USER");
    if (property == "VERSION")
        return Datum::Int(904);
    if (property == "LCID")
        return Datum::Int(1033);
    if (property == "SQLSORTORDER")
        return Datum::Int(database->collation->SortId());
    if (property == "ISAUTOCREATESTATISTICS" || property == "ISAUTOUPDATESTATISTICS")
        return Flag(true);
    for (const auto& [name, option] : switches)
        if (property == name)
            return Flag(database->Option(option));
    for (const char* absent :
         {"ISFULLTEXTENABLED", "ISINSTANDBY", "ISMERGEPUBLISHED", "ISPUBLISHED", "ISSUBSCRIBED",
          "ISTORNPAGEDETECTIONENABLED", "ISREADONLY", "ISOFFLINE", "ISSINGLEUSER", "ISSUSPECT", "ISINLOAD",
          "ISDETACHED", "ISEMERGENCYMODE", "ISDBOONLY", "ISSHUTDOWN", "ISBULKCOPY"})
        if (property == absent)
            return Flag(false);
    return {};
}

// The older function answers numbers alone.
Datum OlderDatabasePropertyOf(const Question& q) {
    const Datum answer = DatabasePropertyOf(q);
    return answer.IsNull() || answer.Type().IsInteger() ? answer : Datum();
}

Datum CollationPropertyOf(const Question& q) {
    if (q.IsNull(0) || q.IsNull(1))
        return {};
    const Collation* collation = FindCollation(q.Text(0));
    if (collation == nullptr)
        return {};
    const auto names = [&](std::string_view part) { return collation->name.find(part) != std::string::npos; };
    const std::string property = UpperName(q.Text(1));
    if (property == "CODEPAGE")
        return Datum::Int(collation->codePage);
    if (property == "LCID")
        return Datum::Int(static_cast<int>(collation->LocaleAndFlags() & 0xFFFFF));
    if (property == "COMPARISONSTYLE") // ignore case 1, accents 2, kana 65536, width 131072
        return Datum::Int(collation->binary
                              ? 0
                              : (collation->caseSensitive ? 0 : 1) + (collation->accentSensitive ? 0 : 2) +
                                    (names("_KS") ? 0 : 65536) + (names("_WS") ? 0 : 131072));
    if (property == "VERSION")
        return Datum::Int(names("_140_") ? 3 : names("_100_") ? 2 : names("_90_") ? 1 : 0);
    return property == "NAME" ? Datum::Text(SysName(), collation->name) : Datum();
}

std::optional<PrincipalId> UserIn(const Question& q, const Database& database) {
    return q.here.userIn ? q.here.userIn(database) : q.here.user;
}

Datum HasAccessOf(const Question& q) {
    const Database* database = DatabaseByName(q);
    return database == nullptr ? Datum() : Flag(UserIn(q, *database).has_value());
}

bool HasObjectRight(const Question& q, const std::string& right, ObjectId id) {
    const auto object = q.here.store.View()->FindObject(id);
    if (!object)
        return true; // one's own temporary table
    const Database* database = q.here.store.View()->FindDatabase(object->database);
    const auto user = UserIn(q, *database);
    return user && Rights(*database, *user).OnObject(right, *object);
}

// NULL where there is no such thing, or no such right on it.
Datum HasPermissionOf(const Question& q) {
    if (q.IsNull(2))
        return {};
    const std::string right = UpperName(q.Text(2));
    const std::string kind = q.IsNull(1) ? "SERVER" : UpperName(q.Text(1));
    const bool visible = right == "VIEW DEFINITION" || right == "ANY";
    const Rights rights(q.Current(), q.here.user);
    if (kind == "DATABASE") {
        const Database* database = q.IsNull(0) ? &q.Current() : q.here.store.View()->FindDatabase(q.Text(0));
        if (database == nullptr || !(visible || IsEnforcedRight(right, databaseClass)))
            return {};
        const auto user = UserIn(q, *database);
        return Flag(user && (visible || right == "CONNECT" || Rights(*database, *user).OnDatabase(right)));
    }
    if (kind == "SCHEMA") {
        const Schema* schema = q.IsNull(0) ? nullptr : q.Current().FindSchema(q.Text(0));
        if (schema == nullptr || !(visible || IsEnforcedRight(right, schemaClass)))
            return {};
        return Flag(visible || rights.OnSchema(right, schema->id));
    }
    if (kind == "OBJECT" || kind == "TYPE") {
        const ObjectId object = q.IsNull(0) ? 0 : q.ObjectByName(q.Text(0));
        const int securableClass = kind == "TYPE" ? typeClass : objectClass;
        if (object == 0 || !(visible || IsEnforcedRight(right, securableClass)))
            return {};
        return Flag(visible || HasObjectRight(q, right, object));
    }
    return Flag(q.here.administrator);
}

Datum IsRoleMemberOf(const Question& q) {
    if (q.IsNull(0))
        return {};
    const Database& database = q.Current();
    const Principal* role = database.FindPrincipal(q.Text(0));
    if (role == nullptr || role->kind != PrincipalKind::Role)
        return {};
    PrincipalId member = q.here.user;
    if (q.Count() > 1) {
        const Principal* other = q.IsNull(1) ? nullptr : database.FindPrincipal(q.Text(1));
        if (other == nullptr)
            return {};
        member = other->id;
    }
    const bool ownsAll = member == dboPrincipal && SameName(role->name, "db_owner");
    return Flag(ownsAll || Rights(database, member).IsMember(role->id));
}

Datum IsServerRoleMemberOf(const Question& q) {
    if (q.IsNull(0) || (q.Count() > 1 && q.IsNull(1)))
        return {};
    const bool isOther = q.Count() > 1 && !SameName(q.Text(1), q.here.login);
    const std::optional<bool> administrator =
        isOther ? IsAdministrator(q, q.Text(1)) : std::optional(q.here.administrator);
    if (!administrator)
        return {};
    const std::string role = UpperName(q.Text(0));
    if (role == "PUBLIC")
        return Flag(true);
    for (const char* known : {"SYSADMIN", "SECURITYADMIN", "SERVERADMIN", "SETUPADMIN", "PROCESSADMIN",
                              "DISKADMIN", "DBCREATOR", "BULKADMIN"})
        if (role == known)
            return Flag(*administrator);
    return {};
}

Datum Unsupported(const Question&) {
    throw SqlError::NotSupported("PERMISSIONS");
}

Datum FullTextPropertyOf(const Question& q) {
    return !q.IsNull(0) && SameName(q.Text(0), "IsFulltextInstalled") ? Flag(false) : Datum();
}

Datum LowestActiveVersion(const Question& q) {
    const std::uint64_t next = q.here.store.Shared().LastRowVersion() + 1;
    std::string bytes;
    for (int shift = 56; shift >= 0; shift -= 8)
        bytes.push_back(static_cast<char>(next >> shift));
    return Datum::Bytes(BinaryType(TypeId::Binary, 8), std::move(bytes));
}

// Each greater than the one before since the server started, as identifiers sort: by the last group first.
Datum NextSequentialId(const Question&) {
    static const std::uint64_t node = std::random_device()() | (std::uint64_t(std::random_device()()) << 32);
    static std::atomic<std::uint64_t> counter{0};
    Guid guid;
    for (std::size_t index = 0; index < 8; ++index)
        guid.bytes[8 + index] = static_cast<std::uint8_t>(node >> (8 * index));
    const std::uint64_t number = ++counter;
    constexpr std::size_t order[8] = {6, 7, 4, 5, 0, 1, 2, 3}; // from the more to the less significant
    for (std::size_t index = 0; index < 8; ++index)
        guid.bytes[order[index]] = static_cast<std::uint8_t>(number >> (8 * (7 - index)));
    return Datum::Identifier(guid);
}

constexpr MetadataAnswer rows[] = {
    {"SERVERPROPERTY", ServerPropertyOf},
    {"DATABASEPROPERTYEX", DatabasePropertyOf},
    {"DATABASEPROPERTY", OlderDatabasePropertyOf},
    {"COLLATIONPROPERTY", CollationPropertyOf},
    {"HAS_DBACCESS", HasAccessOf},
    {"HAS_PERMS_BY_NAME", HasPermissionOf},
    {"PERMISSIONS", Unsupported},
    {"IS_MEMBER", IsRoleMemberOf},
    {"IS_ROLEMEMBER", IsRoleMemberOf},
    {"IS_SRVROLEMEMBER", IsServerRoleMemberOf},
    {"FULLTEXTSERVICEPROPERTY", FullTextPropertyOf},
    {"MIN_ACTIVE_ROWVERSION", LowestActiveVersion},
    {"NEWSEQUENTIALID", NextSequentialId},
};

} // namespace

std::span<const MetadataAnswer> ServerAnswers() {
    return rows;
}

} // namespace quillon::practice
