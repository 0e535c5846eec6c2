// sp_bindefault, sp_bindrule and what undoes them: old defaults and rules at columns and at the types of
// users.
#include "practice/catalogue/NativeParts.h"
#include "practice/functions/NameParts.h"
#include "practice/values/SqlError.h"

namespace quillon::practice {

namespace {

// What differs between the two, and the numbers of what is said of them.
struct BoundKind {
    ObjectKind kind;
    ObjectId Column::*ofColumn;
    ObjectId AliasType::*ofType;
    int unknown, wrongColumn, columnHasNone, typeHasNone;
    int columnBound, typeBound, columnsOfTypeBound;
    int columnUnbound, typeUnbound, columnsOfTypeUnbound;
};

constexpr BoundKind defaults = {ObjectKind::Default,
                                &Column::defaultObject,
                                &AliasType::defaultObject,
                                15016,
                                15101,
                                15236,
                                15237,
                                15511,
                                15512,
                                15513,
                                15519,
                                15520,
                                15521};
constexpr BoundKind rules = {ObjectKind::Rule,
                             &Column::ruleObject,
                             &AliasType::ruleObject,
                             15017,
                             15107,
                             15238,
                             15239,
                             15514,
                             15515,
                             15516,
                             15522,
                             15523,
                             15524};

void Inform(NativeHost& host, int number) {
    host.Inform(number, MessageText(number));
}

bool HasBindableType(const BoundKind& kind, const SqlType& type) {
    const bool old = type.IsLegacyLob();
    return (old || !type.IsMax()) && type.id != TypeId::RowVersion && type.id != TypeId::Xml &&
           (!old || kind.kind == ObjectKind::Default);
}

void RequireBindable(const BoundKind& kind, const Table& table, const Column& column) {
    if (column.IsComputed() || !HasBindableType(kind, column.type))
        throw SqlError(kind.wrongColumn);
    if (kind.kind == ObjectKind::Default && column.identity)
        throw SqlError(15102);
    if (kind.kind == ObjectKind::Default && table.DefaultOf(column.id) != nullptr)
        throw SqlError(15103);
}

void BindToColumn(NativeHost& host, const BoundKind& kind, ObjectId bound, const Table& before,
                  const std::string& name) {
    const auto table = std::make_shared<Table>(before);
    for (Column& column : table->columns) {
        if (!before.nameRule.Same(column.name, name))
            continue;
        if (bound != 0)
            RequireBindable(kind, before, column);
        else if (kind.kind == ObjectKind::Default && before.DefaultOf(column.id) != nullptr)
            throw SqlError(15049, {name});
        else if (column.*kind.ofColumn == 0)
            throw SqlError(kind.columnHasNone, {name});
        column.*kind.ofColumn = bound;
    }
    Put(host, table);
    Inform(host, bound != 0 ? kind.columnBound : kind.columnUnbound);
}

// Columns that have what the type had, or nothing yet, follow the type.
bool FollowType(NativeHost& host, const BoundKind& kind, const AliasType& type, ObjectId before) {
    std::vector<std::shared_ptr<Table>> changed;
    const auto view = host.Store().View();
    for (const auto& [id, object] : view->FindDatabase(host.CurrentDatabase())->objects) {
        const auto table = CopyOf<Table>(object);
        bool follows = false;
        for (std::size_t i = 0; table && i < table->columns.size(); ++i) {
            Column& column = table->columns[i];
            const ObjectId has = column.*kind.ofColumn;
            const bool taken = kind.kind == ObjectKind::Default && table->DefaultOf(column.id) != nullptr;
            if (column.aliasType != type.id || (has != 0 && has != before) || taken)
                continue;
            column.*kind.ofColumn = type.*kind.ofType;
            follows = true;
        }
        if (follows)
            changed.push_back(table);
    }
    for (const auto& table : changed)
        Put(host, table);
    return !changed.empty();
}

void BindToType(NativeHost& host, const BoundKind& kind, ObjectId bound, const AliasType& old,
                bool futureOnly) {
    const ObjectId before = old.*kind.ofType;
    if (bound == 0 && before == 0)
        throw SqlError(kind.typeHasNone, {old.name});
    if (bound != 0 && !HasBindableType(kind, old.base))
        throw SqlError(kind.wrongColumn);
    const auto type = std::make_shared<AliasType>(old);
    (*type).*kind.ofType = bound;
    Put(host, type);
    Inform(host, bound != 0 ? kind.typeBound : kind.typeUnbound);
    if (!futureOnly && FollowType(host, kind, *type, before))
        Inform(host, bound != 0 ? kind.columnsOfTypeBound : kind.columnsOfTypeUnbound);
}

} // namespace

// q_bind default or rule (nothing to unbind), table.column or type, D or R, FUTUREONLY or nothing
int Bind(NativeHost& host, std::span<const Datum> arguments) {
    const BoundKind& kind = TextArgument(arguments, 2) == "D" ? defaults : rules;
    const std::string name = TextArgument(arguments, 0), where = TextArgument(arguments, 1),
                      flag = TextArgument(arguments, 3);
    if (!flag.empty() && !SameName(flag, "futureonly"))
        throw SqlError(kind.kind == ObjectKind::Default ? 15100 : 15106);
    ObjectId bound = 0;
    if (!name.empty()) {
        const auto object = FindNamedItem(host, name, false).object;
        if (!object || object->kind != kind.kind)
            throw SqlError(kind.unknown, {name});
        bound = object->id;
    }
    const NamedItem member = FindNamedItem(host, where, true);
    const auto table = std::dynamic_pointer_cast<const Table>(member.object);
    if (table && table->FindColumn(member.member) != nullptr) {
        BindToColumn(host, kind, bound, *table, member.member);
        return 0;
    }
    const auto type = std::dynamic_pointer_cast<const AliasType>(FindNamedItem(host, where, false).object);
    if (!type)
        throw SqlError(15148, {where});
    BindToType(host, kind, bound, *type, !flag.empty());
    return 0;
}

} // namespace quillon::practice
