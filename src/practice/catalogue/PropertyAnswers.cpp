// OBJECTPROPERTY, COLUMNPROPERTY and their kin: a table of properties each.
#include "practice/catalogue/MetadataParts.h"

#include <algorithm>

namespace quillon::practice {

namespace {

// What OBJECTPROPERTY looks at; the pointers that do not apply are empty.
struct Subject {
    Catalogue::Named named;
    std::shared_ptr<const Table> table;
    std::shared_ptr<const Module> module;
    std::shared_ptr<const Trigger> trigger;
    std::vector<std::shared_ptr<const Trigger>> triggers; // of the table
    std::shared_ptr<const Table> parent;                  // of a constraint

    bool Is(ObjectKind kind) const { return named.object.kind == kind; }
};

Subject SubjectOf(const Question& q, const Catalogue::Named& named) {
    const auto view = q.here.store.View();
    Subject subject{named,
                    q.FindTable(named.object.id),
                    view->FindModule(named.object.id),
                    view->FindTrigger(named.object.id),
                    {},
                    q.FindTable(named.object.parent)};
    if (subject.table)
        for (const ObjectId id : subject.table->triggers)
            if (auto trigger = view->FindTrigger(id))
                subject.triggers.push_back(std::move(trigger));
    return subject;
}

template <ObjectKind kind>
bool Is(const Subject& subject) {
    return subject.Is(kind);
}

template <TriggerEvent event>
bool HasTrigger(const Subject& subject) {
    return std::any_of(subject.triggers.begin(), subject.triggers.end(),
                       [](const auto& trigger) { return trigger->For(event) != nullptr; });
}

template <TriggerEvent event>
bool FiresFor(const Subject& subject) {
    return subject.trigger && subject.trigger->For(event) != nullptr;
}

template <TriggerEvent event, TriggerOrder order>
bool FiresInOrder(const Subject& subject) {
    return FiresFor<event>(subject) && subject.trigger->For(event)->order == order;
}

bool HasColumn(const Subject& subject, bool (*test)(const Column&)) {
    return subject.table && std::any_of(subject.table->columns.begin(), subject.table->columns.end(), test);
}

bool HasIndex(const Subject& subject, bool (*test)(const Index&)) {
    return subject.table && std::any_of(subject.table->indexes.begin(), subject.table->indexes.end(), test);
}

bool IsConstraint(const Subject& subject) {
    return subject.named.object.kind >= ObjectKind::PrimaryKey;
}

bool IsDisabledConstraint(const Subject& subject) {
    if (!subject.parent)
        return false;
    const ObjectId id = subject.named.object.id;
    const auto isIt = [&](const auto& constraint) { return constraint.id == id && constraint.disabled; };
    return std::any_of(subject.parent->checks.begin(), subject.parent->checks.end(), isIt) ||
           std::any_of(subject.parent->foreignKeys.begin(), subject.parent->foreignKeys.end(), isIt);
}

bool IsUntrustedConstraint(const Subject& subject) {
    if (!subject.parent)
        return false;
    const ObjectId id = subject.named.object.id;
    const auto isIt = [&](const auto& constraint) { return constraint.id == id && constraint.notTrusted; };
    return std::any_of(subject.parent->checks.begin(), subject.parent->checks.end(), isIt) ||
           std::any_of(subject.parent->foreignKeys.begin(), subject.parent->foreignKeys.end(), isIt);
}

bool IsClusteredKey(const Subject& subject) {
    return subject.parent &&
           std::any_of(subject.parent->indexes.begin(), subject.parent->indexes.end(), [&](const Index& i) {
               return i.constraint == subject.named.object.id && i.clustered;
           });
}

struct Property {
    std::string_view name; // upper case
    bool (*test)(const Subject& subject);
};

constexpr Property objectProperties[] = {
    {"ISTABLE", Is<ObjectKind::Table>},
    {"ISUSERTABLE", Is<ObjectKind::Table>},
    {"ISVIEW", Is<ObjectKind::View>},
    {"ISPROCEDURE", Is<ObjectKind::Procedure>},
    {"ISTRIGGER", Is<ObjectKind::Trigger>},
    {"ISSCALARFUNCTION", Is<ObjectKind::ScalarFunction>},
    {"ISINLINEFUNCTION", Is<ObjectKind::InlineFunction>},
    {"ISTABLEFUNCTION",
     [](const Subject& s) { return s.Is(ObjectKind::InlineFunction) || s.Is(ObjectKind::TableFunction); }},
    {"ISPRIMARYKEY", Is<ObjectKind::PrimaryKey>},
    {"ISUNIQUECNST", Is<ObjectKind::UniqueKey>},
    {"ISFOREIGNKEY", Is<ObjectKind::ForeignKeyConstraint>},
    {"ISCHECKCNST", Is<ObjectKind::CheckKind>},
    {"ISDEFAULTCNST", Is<ObjectKind::DefaultKind>},
    {"ISCONSTRAINT", IsConstraint},
    {"ISDEFAULT", Is<ObjectKind::Default>},
    {"ISRULE", Is<ObjectKind::Rule>},
    {"ISEXECUTED",
     [](const Subject& s) { return s.module != nullptr && s.module->kind != ObjectKind::InlineFunction; }},
    {"ISMSSHIPPED", [](const Subject&) { return false; }},
    {"ISSYSTEMTABLE", [](const Subject&) { return false; }},
    {"ISENCRYPTED", [](const Subject& s) { return s.module && s.module->encrypted; }},
    {"ISSCHEMABOUND", [](const Subject& s) { return s.module && s.module->schemaBound; }},
    {"ISANSINULLSON", [](const Subject& s) { return !s.module || s.module->ansiNulls; }},
    {"ISQUOTEDIDENTON", [](const Subject& s) { return !s.module || s.module->quotedIdentifier; }},
    {"EXECISANSINULLSON", [](const Subject& s) { return s.module && s.module->ansiNulls; }},
    {"EXECISQUOTEDIDENTON", [](const Subject& s) { return s.module && s.module->quotedIdentifier; }},
    {"EXECISSTARTUP", [](const Subject& s) { return s.module && s.module->startup; }},
    {"EXECISTRIGGERDISABLED", [](const Subject& s) { return s.trigger && s.trigger->disabled; }},
    {"EXECISTRIGGERNOTFORREPL", [](const Subject& s) { return s.trigger && s.trigger->notForReplication; }},
    {"EXECISAFTERTRIGGER", [](const Subject& s) { return s.trigger && !s.trigger->insteadOf; }},
    {"EXECISINSTEADOFTRIGGER", [](const Subject& s) { return s.trigger && s.trigger->insteadOf; }},
    {"EXECISINSERTTRIGGER", FiresFor<TriggerEvent::Insert>},
    {"EXECISUPDATETRIGGER", FiresFor<TriggerEvent::Update>},
    {"EXECISDELETETRIGGER", FiresFor<TriggerEvent::Delete>},
    {"EXECISFIRSTINSERTTRIGGER", FiresInOrder<TriggerEvent::Insert, TriggerOrder::First>},
    {"EXECISFIRSTUPDATETRIGGER", FiresInOrder<TriggerEvent::Update, TriggerOrder::First>},
    {"EXECISFIRSTDELETETRIGGER", FiresInOrder<TriggerEvent::Delete, TriggerOrder::First>},
    {"EXECISLASTINSERTTRIGGER", FiresInOrder<TriggerEvent::Insert, TriggerOrder::Last>},
    {"EXECISLASTUPDATETRIGGER", FiresInOrder<TriggerEvent::Update, TriggerOrder::Last>},
    {"EXECISLASTDELETETRIGGER", FiresInOrder<TriggerEvent::Delete, TriggerOrder::Last>},
    {"TABLEHASIDENTITY", [](const Subject& s) { return s.table && s.table->IdentityColumn() != nullptr; }},
    {"TABLEHASPRIMARYKEY", [](const Subject& s) { return s.table && s.table->PrimaryKey() != nullptr; }},
    {"TABLEHASUNIQUECNST",
     [](const Subject& s) { return HasIndex(s, [](const Index& i) { return i.uniqueConstraint; }); }},
    {"TABLEHASINDEX", [](const Subject& s) { return s.table && !s.table->indexes.empty(); }},
    {"TABLEHASCLUSTINDEX",
     [](const Subject& s) { return HasIndex(s, [](const Index& i) { return i.clustered; }); }},
    {"TABLEHASNONCLUSTINDEX",
     [](const Subject& s) { return HasIndex(s, [](const Index& i) { return !i.clustered; }); }},
    {"TABLEHASFOREIGNKEY", [](const Subject& s) { return s.table && !s.table->foreignKeys.empty(); }},
    {"TABLEHASFOREIGNREF", [](const Subject& s) { return s.table && !s.table->referencedBy.empty(); }},
    {"TABLEHASCHECKCNST", [](const Subject& s) { return s.table && !s.table->checks.empty(); }},
    {"TABLEHASDEFAULTCNST", [](const Subject& s) { return s.table && !s.table->defaults.empty(); }},
    {"TABLEHASROWGUIDCOL",
     [](const Subject& s) { return HasColumn(s, [](const Column& c) { return c.rowGuid; }); }},
    {"TABLEHASTIMESTAMP",
     [](const Subject& s) { return HasColumn(s, [](const Column& c) { return c.IsRowVersion(); }); }},
    {"TABLEHASTEXTIMAGE",
     [](const Subject& s) { return HasColumn(s, [](const Column& c) { return c.type.IsLegacyLob(); }); }},
    {"TABLEHASINSERTTRIGGER", HasTrigger<TriggerEvent::Insert>},
    {"TABLEHASUPDATETRIGGER", HasTrigger<TriggerEvent::Update>},
    {"TABLEHASDELETETRIGGER", HasTrigger<TriggerEvent::Delete>},
    {"CNSTISDISABLED", IsDisabledConstraint},
    {"CNSTISNOTTRUSTED", IsUntrustedConstraint},
    {"CNSTISCLUSTKEY", IsClusteredKey},
    {"CNSTISNONCLUSTKEY",
     [](const Subject& s) {
         return (s.Is(ObjectKind::PrimaryKey) || s.Is(ObjectKind::UniqueKey)) && !IsClusteredKey(s);
     }},
};

Datum ObjectPropertyOf(const Question& q) {
    if (q.IsNull(0) || q.IsNull(1))
        return {};
    const auto named = q.Named(q.Number(0));
    if (!named)
        return {};
    const std::string property = UpperName(q.Text(1));
    if (property == "SCHEMAID")
        return Datum::Int(named->schema);
    if (property == "OWNERID")
        return Datum::Int(dboPrincipal);
    for (const Property& row : objectProperties)
        if (row.name == property)
            return Flag(row.test(SubjectOf(q, *named)));
    return {};
}

Datum ExtendedObjectPropertyOf(const Question& q) {
    if (!q.IsNull(0) && !q.IsNull(1) && SameName(q.Text(1), "BaseType")) {
        const auto named = q.Named(q.Number(0));
        return named ? Datum::Text(TextType(TypeId::Char, 2), ObjectTypeCode(named->object.kind)) : Datum();
    }
    return ObjectPropertyOf(q);
}

Datum PropertyOfColumn(const Column& column, const std::string& property) {
    const SqlType& type = column.type;
    const bool isString = type.IsCharacter() || type.IsBinary();
    if (property == "ALLOWSNULL")
        return Flag(column.nullable);
    if (property == "COLUMNID")
        return Datum::Int(column.id);
    if (property == "ISCOMPUTED")
        return Flag(column.IsComputed());
    if (property == "ISIDENTITY")
        return Flag(column.identity.has_value());
    if (property == "ISROWGUIDCOL")
        return Flag(column.rowGuid);
    if (property == "PRECISION")
        return Datum::Int(isString ? (type.IsMax() ? -1 : type.length) : type.precision);
    if (property == "SCALE")
        return isString ? Datum() : Datum::Int(type.scale);
    if (property == "CHARMAXLEN")
        return type.IsCharacter() ? Datum::Int(type.OdbcColumnSize()) : Datum();
    if (property == "USESANSITRIM")
        return isString ? Flag(column.ansiPadded) : Datum();
    if (property == "ISINDEXABLE")
        return Flag(!type.IsLegacyLob() && !type.IsMax() && type.id != TypeId::Xml);
    if (property == "ISDETERMINISTIC")
        return column.IsComputed() ? Flag(column.persisted) : Datum();
    for (const char* absent : {"ISIDNOTFORREPL", "ISFULLTEXTINDEXED", "ISSPARSE", "ISCOLUMNSET", "ISHIDDEN",
                               "GENERATEDALWAYSTYPE", "ISXMLINDEXABLE", "STATISTICALSEMANTICS"})
        if (property == absent)
            return Flag(false);
    return {};
}

Datum ColumnPropertyOf(const Question& q) {
    if (q.IsNull(0) || q.IsNull(1) || q.IsNull(2))
        return {};
    const std::string name = q.Text(1);
    const std::string property = UpperName(q.Text(2));
    const auto view = q.here.store.View();
    const auto id = static_cast<ObjectId>(q.Number(0));
    const auto table = q.FindTable(id);
    const auto module = view->FindModule(id);
    if (module && property == "ISOUTPARAM")
        for (const ModuleParameter& parameter : module->parameters)
            if (SameName(parameter.name, name))
                return Flag(parameter.output);
    const Column* column = table ? table->FindColumn(name) : module ? module->FindColumn(name) : nullptr;
    return column == nullptr ? Datum() : PropertyOfColumn(*column, property);
}

Datum IndexPropertyOf(const Question& q) {
    if (q.IsNull(0) || q.IsNull(1) || q.IsNull(2))
        return {};
    const auto table = q.FindTable(q.Number(0));
    const Index* index = table ? table->FindIndex(q.Text(1)) : nullptr;
    if (index == nullptr)
        return {};
    const std::string property = UpperName(q.Text(2));
    if (property == "INDEXID")
        return Datum::Int(index->id);
    if (property == "ISCLUSTERED")
        return Flag(index->clustered);
    if (property == "ISUNIQUE")
        return Flag(index->unique);
    if (property == "ISDISABLED")
        return Flag(index->disabled);
    if (property == "INDEXFILLFACTOR")
        return Datum::Int(index->fillFactor);
    if (property == "INDEXDEPTH")
        return Datum::Int(1);
    for (const char* absent :
         {"ISPADINDEX", "ISSTATISTICS", "ISAUTOSTATISTICS", "ISHYPOTHETICAL", "ISFULLTEXTKEY"})
        if (property == absent)
            return Flag(false);
    return {};
}

Datum IndexKeyPropertyOf(const Question& q) {
    for (std::size_t index = 0; index < 4; ++index)
        if (q.IsNull(index))
            return {};
    const auto table = q.FindTable(q.Number(0));
    const Index* index = table ? table->FindIndex(static_cast<int>(q.Number(1))) : nullptr;
    const std::int64_t key = q.Number(2);
    if (index == nullptr || key < 1 || key > static_cast<std::int64_t>(index->keys.size()))
        return {};
    const IndexKey& found = index->keys[static_cast<std::size_t>(key) - 1];
    const std::string property = UpperName(q.Text(3));
    if (property == "COLUMNID")
        return Datum::Int(found.columnId);
    return property == "ISDESCENDING" ? Flag(found.descending) : Datum();
}

constexpr MetadataAnswer rows[] = {
    {"OBJECTPROPERTY", ObjectPropertyOf},      {"OBJECTPROPERTYEX", ExtendedObjectPropertyOf},
    {"COLUMNPROPERTY", ColumnPropertyOf},      {"INDEXPROPERTY", IndexPropertyOf},
    {"INDEXKEY_PROPERTY", IndexKeyPropertyOf},
};

} // namespace

std::span<const MetadataAnswer> PropertyAnswers() {
    return rows;
}

} // namespace quillon::practice
