// Functions that the catalogue or the server answers: each passes its arguments on under its own name.
#include "practice/functions/FunctionParts.h"

#include <algorithm>

namespace quillon::practice {

namespace {

// A name as a template argument, so that each row of the table has an evaluation of its own.
template <std::size_t size>
struct FixedName {
    char text[size];
    constexpr FixedName(const char (&name)[size]) { std::copy_n(name, size, text); }
};

template <FixedName name>
Datum Ask(FunctionContext& context, Arguments arguments) {
    return context.AskCatalogue(name.text, arguments.data(), static_cast<int>(arguments.size()));
}

SqlType IdentityNumber(ArgumentTypes) {
    return DecimalType(38, 0, TypeId::Numeric);
}
SqlType SidType(ArgumentTypes) {
    return BinaryType(TypeId::VarBinary, 85);
}
SqlType LongText(ArgumentTypes) {
    return NVarChar(maxLength);
}
SqlType UpdatedColumnsType(ArgumentTypes) {
    return BinaryType(TypeId::VarBinary, 128);
}
SqlType VersionType(ArgumentTypes) {
    return BinaryType(TypeId::Binary, 8);
}

using TypeRule = SqlType (*)(ArgumentTypes);

template <FixedName name>
constexpr ScalarFunction Asked(int fewest, int most, TypeRule type) {
    // A template argument of class type is an object of static storage, so the row may point into it.
    return {std::string_view(name.text), fewest, most, type, Ask<name>, Evaluation::OncePerStatement};
}

SqlType TypeOfHostId(ArgumentTypes) {
    return TextType(TypeId::Char, 10);
}

constexpr auto Int = Always<TypeId::Int>;
constexpr auto Variant = Always<TypeId::SqlVariant>;
constexpr auto Sys = AlwaysNVarChar<128>;

constexpr ScalarFunction rows[] = {
    Asked<"DB_ID">(0, 1, Int),
    Asked<"DB_NAME">(0, 1, Sys),
    Asked<"ORIGINAL_DB_NAME">(0, 0, Sys),
    Asked<"SUSER_ID">(0, 1, Int),
    Asked<"SUSER_NAME">(0, 1, Sys),
    Asked<"SUSER_SID">(0, 2, SidType),
    Asked<"SUSER_SNAME">(0, 1, Sys),
    Asked<"USER_ID">(0, 1, Int),
    Asked<"USER_NAME">(0, 1, Sys),
    Asked<"DATABASE_PRINCIPAL_ID">(0, 1, Int),
    Asked<"SCHEMA_ID">(0, 1, Int),
    Asked<"SCHEMA_NAME">(0, 1, Sys),
    Asked<"OBJECT_ID">(1, 2, Int),
    Asked<"OBJECT_NAME">(1, 2, Sys),
    Asked<"OBJECT_SCHEMA_NAME">(1, 2, Sys),
    Asked<"OBJECT_DEFINITION">(1, 1, LongText),
    Asked<"OBJECTPROPERTY">(2, 2, Int),
    Asked<"OBJECTPROPERTYEX">(2, 2, Variant),
    Asked<"COL_LENGTH">(2, 2, Always<TypeId::SmallInt>),
    Asked<"COL_NAME">(2, 2, Sys),
    Asked<"COLUMNPROPERTY">(3, 3, Int),
    Asked<"INDEX_COL">(3, 3, Sys),
    Asked<"INDEXPROPERTY">(3, 3, Int),
    Asked<"INDEXKEY_PROPERTY">(4, 4, Int),
    Asked<"TYPE_ID">(1, 1, Int),
    Asked<"TYPE_NAME">(1, 1, Sys),
    Asked<"TYPEPROPERTY">(2, 2, Int),
    Asked<"IDENT_CURRENT">(1, 1, IdentityNumber),
    Asked<"IDENT_SEED">(1, 1, IdentityNumber),
    Asked<"IDENT_INCR">(1, 1, IdentityNumber),
    Asked<"STATS_DATE">(2, 2, Always<TypeId::DateTime>),
    Asked<"FORMATMESSAGE">(1, 21, AlwaysNVarChar<2048>),
    Asked<"SERVERPROPERTY">(1, 1, Variant),
    Asked<"CONNECTIONPROPERTY">(1, 1, Variant),
    Asked<"DATABASEPROPERTY">(2, 2, Int),
    Asked<"DATABASEPROPERTYEX">(2, 2, Variant),
    Asked<"COLLATIONPROPERTY">(2, 2, Variant),
    Asked<"SESSIONPROPERTY">(1, 1, Variant),
    Asked<"FULLTEXTSERVICEPROPERTY">(1, 1, Int),
    Asked<"HAS_DBACCESS">(1, 1, Int),
    Asked<"HAS_PERMS_BY_NAME">(3, 5, Int),
    Asked<"PERMISSIONS">(0, 2, Int),
    Asked<"IS_MEMBER">(1, 1, Int),
    Asked<"IS_ROLEMEMBER">(1, 2, Int),
    Asked<"IS_SRVROLEMEMBER">(1, 2, Int),
    Asked<"HOST_ID">(0, 0, TypeOfHostId),
    Asked<"ROWCOUNT_BIG">(0, 0, Always<TypeId::BigInt>),
    Asked<"GETANSINULL">(0, 1, Int),
    Asked<"CURRENT_TRANSACTION_ID">(0, 0, Always<TypeId::BigInt>),
    Asked<"COLUMNS_UPDATED">(0, 0, UpdatedColumnsType),
    Asked<"MIN_ACTIVE_ROWVERSION">(0, 0, VersionType),
    {"NEWSEQUENTIALID", 0, 0, Always<TypeId::UniqueIdentifier>, Ask<"NEWSEQUENTIALID">, Evaluation::EachRow,
     false, false, true},
};

} // namespace

std::span<const ScalarFunction> CatalogueFunctions() {
    return rows;
}

} // namespace quillon::practice
