#include "practice/storage/SystemDatabases.h"

#include <chrono>

namespace quillon::practice {

namespace {

constexpr PrincipalId firstFixedRole = 16384;
constexpr const char* fixedRoles[] = {"db_owner",      "db_accessadmin",    "db_securityadmin",
                                      "db_ddladmin",   "db_backupoperator", "db_datareader",
                                      "db_datawriter", "db_denydatareader", "db_denydatawriter"};

void AddPrincipal(Database& database, PrincipalId id, std::string name, PrincipalKind kind) {
    Principal principal;
    principal.id = id;
    principal.name = std::move(name);
    principal.kind = kind;
    principal.fixedRole = id >= firstFixedRole;
    principal.created = principal.modified = database.created;
    database.principals[id] = std::move(principal);
}

} // namespace

Moment CurrentMoment() {
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    const auto milliseconds = std::chrono::duration_cast<std::chrono::milliseconds>(now).count();
    constexpr std::int64_t dayOf1970 = 719162;
    const std::int64_t total = dayOf1970 * ticksPerDay + milliseconds * (ticksPerSecond / 1000);
    return Moment::FromTotalTicks(total);
}

Database MakeDatabase(DatabaseId id, std::string name, const Collation* collation) {
    Database database;
    database.id = id;
    database.name = std::move(name);
    database.collation = collation;
    database.created = CurrentMoment();
    database.options = {{"RECOVERY", "FULL"}, {"RECURSIVE_TRIGGERS", "OFF"}};
    database.schemas = {{dboSchema, {dboSchema, "dbo", dboPrincipal}},
                        {guestSchema, {guestSchema, "guest", guestPrincipal}},
                        {informationSchema, {informationSchema, "INFORMATION_SCHEMA", informationSchema}},
                        {sysSchema, {sysSchema, "sys", sysSchema}}};
    AddPrincipal(database, publicPrincipal, "public", PrincipalKind::Role);
    AddPrincipal(database, dboPrincipal, "dbo", PrincipalKind::SqlUser);
    AddPrincipal(database, guestPrincipal, "guest", PrincipalKind::SqlUser);
    AddPrincipal(database, informationSchema, "INFORMATION_SCHEMA", PrincipalKind::SqlUser);
    AddPrincipal(database, sysSchema, "sys", PrincipalKind::SqlUser);
    database.principals[dboPrincipal].login = "sa";
    database.principals[dboPrincipal].defaultSchema = "dbo";
    database.principals[guestPrincipal].defaultSchema = "guest";
    PrincipalId role = firstFixedRole;
    for (const char* fixed : fixedRoles) {
        AddPrincipal(database, role, fixed, PrincipalKind::Role);
        database.schemas[role] = {role, fixed, role};
        ++role;
    }
    return database;
}

void AddSystemDatabases(CatalogueEditor& editor) {
    constexpr std::pair<DatabaseId, const char*> all[] = {{masterDatabase, "master"},
                                                          {tempDatabase, "tempdb"},
                                                          {modelDatabase, "model"},
                                                          {msdbDatabase, "msdb"}};
    for (const auto& [id, name] : all) {
        Database database = MakeDatabase(id, name, DefaultCollation());
        if (id != modelDatabase)
            database.options["RECOVERY"] = "SIMPLE";
        editor.AddDatabase(std::move(database));
    }
}

void RemakeTempdb(CatalogueEditor& editor) {
    const std::string name = editor.Now().FindDatabase(tempDatabase)->name;
    editor.DropDatabase(tempDatabase);
    Database database = MakeDatabase(tempDatabase, name, DefaultCollation());
    database.options["RECOVERY"] = "SIMPLE";
    editor.AddDatabase(std::move(database));
}

} // namespace quillon::practice
