#include "practice/catalogue/MetadataParts.h"
#include "practice/values/StorageForm.h"

#include <sqlite3.h>
#include <stdexcept>

namespace quillon::practice {

namespace {

Datum DatabaseIdOf(const Question& q) {
    if (q.Count() == 0)
        return Datum::Int(q.here.database);
    if (q.IsNull(0))
        return {};
    const Database* database = q.here.store.View()->FindDatabase(q.Text(0));
    return database == nullptr ? Datum() : Datum::Int(database->id);
}

Datum DatabaseNameOf(const Question& q) {
    if (q.Count() == 0)
        return NameDatum(q.Current().name);
    if (q.IsNull(0))
        return {};
    const Database* database = q.here.store.View()->FindDatabase(static_cast<DatabaseId>(q.Number(0)));
    return database == nullptr ? Datum() : NameDatum(database->name);
}

Datum SchemaIdOf(const Question& q) {
    if (q.Count() == 0)
        return Datum::Int(q.here.defaultSchema);
    if (q.IsNull(0))
        return {};
    const Schema* schema = q.Current().FindSchema(q.Text(0));
    return schema == nullptr ? Datum() : Datum::Int(schema->id);
}

Datum SchemaNameOf(const Question& q) {
    if (q.Count() > 0 && q.IsNull(0))
        return {};
    const std::string_view name =
        q.Current().SchemaName(q.Count() == 0 ? q.here.defaultSchema : static_cast<SchemaId>(q.Number(0)));
    return name.empty() ? Datum() : NameDatum(name);
}

Datum UserIdOf(const Question& q) {
    if (q.Count() == 0)
        return Datum::Int(q.here.user);
    if (q.IsNull(0))
        return {};
    const Principal* principal = q.Current().FindPrincipal(q.Text(0));
    return principal == nullptr ? Datum() : Datum::Int(principal->id);
}

Datum UserNameOf(const Question& q) {
    if (q.Count() > 0 && q.IsNull(0))
        return {};
    const auto& principals = q.Current().principals;
    const auto found = principals.find(q.Count() == 0 ? q.here.user : static_cast<PrincipalId>(q.Number(0)));
    return found == principals.end() ? Datum() : NameDatum(found->second.name);
}

struct Login {
    std::string name;
    int id = 0;
    std::string sid;
    bool administrator = false;
};

// The first login that `fits`; logins are not in the data file but told by an SQL function of the connection.
template <typename Fits>
std::optional<Login> FindLogin(const Question& q, Fits fits) {
    sqlite3_stmt* statement = nullptr;
    const char* sql = "SELECT json_extract(value, '$.name'), json_extract(value, '$.id'), "
                      "unhex_bytes(json_extract(value, '$.sid')), json_extract(value, '$.administrator') "
                      "FROM json_each(quillon_logins())";
    if (sqlite3_prepare_v2(q.here.store.Connection(), sql, -1, &statement, nullptr) != SQLITE_OK)
        throw std::logic_error(sqlite3_errmsg(q.here.store.Connection()));
    std::optional<Login> found;
    while (!found && sqlite3_step(statement) == SQLITE_ROW) {
        const Login login{LoadColumn(statement, 0, SysName()).Text(), sqlite3_column_int(statement, 1),
                          LoadColumn(statement, 2, BinaryType(TypeId::VarBinary, 85)).Bytes(),
                          sqlite3_column_int(statement, 3) != 0};
        if (fits(login))
            found = login;
    }
    sqlite3_finalize(statement);
    return found;
}

std::optional<Login> LoginByName(const Question& q) {
    const std::string name = q.Count() == 0 ? q.here.login : q.Text(0);
    return FindLogin(q, [&](const Login& login) { return SameName(login.name, name); });
}

Datum LoginIdOf(const Question& q) {
    const auto login = q.Count() > 0 && q.IsNull(0) ? std::nullopt : LoginByName(q);
    return login ? Datum::Int(login->id) : Datum();
}

Datum LoginSidOf(const Question& q) {
    const auto login = q.Count() > 0 && q.IsNull(0) ? std::nullopt : LoginByName(q);
    return login ? Datum::Bytes(BinaryType(TypeId::VarBinary, 85), login->sid) : Datum();
}

// SUSER_NAME takes the number of a login, SUSER_SNAME its bytes.
Datum LoginNameOf(const Question& q) {
    if (q.Count() == 0)
        return NameDatum(q.here.login);
    if (q.IsNull(0))
        return {};
    const bool isSid = q.Value(0).Type().IsBinary();
    const auto login = FindLogin(
        q, [&](const Login& one) { return isSid ? one.sid == q.Value(0).Bytes() : one.id == q.Number(0); });
    return login ? NameDatum(login->name) : Datum();
}

// A type by its name: built in, or of the user's own.
Datum TypeIdOf(const Question& q) {
    if (q.IsNull(0))
        return {};
    const std::string name = q.Text(0);
    if (SameName(name, "sysname"))
        return Datum::Int(256);
    int count = 0;
    const TypeRow* rows = BuiltInTypes(count);
    for (int index = 0; index < count; ++index)
        if (SameName(name, rows[index].name))
            return Datum::Int(rows[index].systemTypeId);
    const ObjectId id = q.ObjectByName(name);
    const auto named = id == 0 ? std::nullopt : q.Named(id);
    const bool isType =
        named && (named->object.kind == ObjectKind::AliasType || named->object.kind == ObjectKind::TableType);
    return isType ? Datum::Int(id) : Datum();
}

Datum TypeNameOf(const Question& q) {
    if (q.IsNull(0))
        return {};
    const std::int64_t id = q.Number(0);
    if (id == 256)
        return NameDatum("sysname");
    int count = 0;
    const TypeRow* rows = BuiltInTypes(count);
    for (int index = 0; index < count; ++index)
        if (rows[index].systemTypeId == id)
            return NameDatum(rows[index].name);
    const auto named = q.Named(id);
    return named ? NameDatum(named->name) : Datum();
}

Datum TypePropertyOf(const Question& q) {
    if (q.IsNull(0) || q.IsNull(1))
        return {};
    const std::string property = UpperName(q.Text(1));
    int count = 0;
    const TypeRow* rows = BuiltInTypes(count);
    for (int index = 0; index < count; ++index) {
        if (!SameName(q.Text(0), rows[index].name))
            continue;
        const SqlType type = SimpleType(rows[index].id);
        if (property == "PRECISION")
            return Datum::Int(type.IsCharacter() || type.IsBinary() ? rows[index].maxLength
                                                                    : rows[index].precision);
        if (property == "SCALE")
            return type.IsNumber() ? Datum::Int(rows[index].scale) : Datum();
        if (property == "ALLOWSNULL")
            return Flag(true);
        if (property == "USESANSITRIM")
            return type.IsCharacter() || type.IsBinary() ? Flag(true) : Datum();
    }
    return {};
}

constexpr MetadataAnswer rows[] = {
    {"DB_ID", DatabaseIdOf},     {"DB_NAME", DatabaseNameOf},
    {"SCHEMA_ID", SchemaIdOf},   {"SCHEMA_NAME", SchemaNameOf},
    {"USER_ID", UserIdOf},       {"DATABASE_PRINCIPAL_ID", UserIdOf},
    {"USER_NAME", UserNameOf},   {"SUSER_ID", LoginIdOf},
    {"SUSER_NAME", LoginNameOf}, {"SUSER_SNAME", LoginNameOf},
    {"SUSER_SID", LoginSidOf},   {"TYPE_ID", TypeIdOf},
    {"TYPE_NAME", TypeNameOf},   {"TYPEPROPERTY", TypePropertyOf},
};

} // namespace

std::span<const MetadataAnswer> NameAnswers() {
    return rows;
}

std::optional<bool> IsAdministrator(const Question& question, const std::string& loginName) {
    const auto found =
        FindLogin(question, [&](const Login& login) { return SameName(login.name, loginName); });
    return found ? std::optional(found->administrator) : std::nullopt;
}

} // namespace quillon::practice
