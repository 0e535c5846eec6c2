#include "practice/storage/DefinitionValues.h"

#include "practice/values/StorageForm.h"

namespace quillon::practice {

namespace {

constexpr int sysNameTypeId = 256;

TypeId TypeIdOf(int systemTypeId) {
    int count = 0;
    const TypeRow* rows = BuiltInTypes(count);
    for (int i = 0; i < count; ++i)
        if (rows[i].systemTypeId == systemTypeId && rows[i].name != "sysname")
            return rows[i].id;
    throw StoreFailure(0, "the data file names a type that this server does not know: " +
                              std::to_string(systemTypeId));
}

} // namespace

void BindMoment(Prepared& statement, int index, const Moment& moment) {
    const SqlType type = SimpleType(TypeId::DateTime);
    BindDatum(statement.Handle(), index, Datum::When(type, moment), type);
}

Moment LoadMoment(const Prepared& statement, int column) {
    if (statement.IsNull(column))
        return {};
    return LoadColumn(statement.Handle(), column, SimpleType(TypeId::DateTime)).When();
}

void BindType(Prepared& statement, int index, const SqlType& type) {
    statement.Bind(index, type.SystemTypeId());
    statement.Bind(index + 1, type.StorageBytes());
    statement.Bind(index + 2, type.precision);
    statement.Bind(index + 3, type.scale);
}

SqlType LoadType(const Prepared& statement, int column, const std::string& collation) {
    const TypeId id = TypeIdOf(static_cast<int>(statement.Integer(column)));
    const auto bytes = static_cast<int>(statement.Integer(column + 1));
    SqlType type = SimpleType(id);
    if (type.IsCharacter() && !type.IsLegacyLob()) {
        const int characters = bytes < 0 ? maxLength : type.IsUnicode() ? bytes / 2 : bytes;
        type = TextType(id, characters);
    } else if (id == TypeId::Binary || id == TypeId::VarBinary)
        type = BinaryType(id, bytes < 0 ? maxLength : bytes);
    else if (type.IsDecimal())
        type = DecimalType(static_cast<int>(statement.Integer(column + 2)),
                           static_cast<int>(statement.Integer(column + 3)), id);
    else if (type.IsMoment())
        type = MomentType(id, static_cast<int>(statement.Integer(column + 3)));
    if (!collation.empty())
        type.collation = FindCollation(collation);
    return type;
}

std::int64_t UserTypeId(const SqlType& type, ObjectId userType, bool sysName) {
    if (userType != 0)
        return userType;
    return sysName ? sysNameTypeId : type.SystemTypeId();
}

} // namespace quillon::practice
