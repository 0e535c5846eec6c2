#include "practice/storage/Catalogue.h"

namespace quillon::practice {

const char* ObjectTypeCode(ObjectKind kind) {
    static constexpr std::array codes = {"U",  "V",  "P",  "FN", "IF", "TF", "TR", "D", "R",
                                         "SN", "TT", "AT", "PK", "UQ", "F",  "C",  "D"};
    return codes[static_cast<std::size_t>(kind)];
}

std::string ColumnStorage(int columnId) {
    return "c" + std::to_string(columnId);
}

namespace {

template <class Object>
std::shared_ptr<SchemaObject> CopyAs(const SchemaObject& object) {
    const auto* typed = dynamic_cast<const Object*>(&object);
    return typed == nullptr ? nullptr : std::make_shared<Object>(*typed);
}

template <class Range, class Matches>
auto FindIn(const Range& range, Matches matches) -> decltype(&*range.begin()) {
    const auto found = std::find_if(range.begin(), range.end(), matches);
    return found == range.end() ? nullptr : &*found;
}

} // namespace

std::shared_ptr<SchemaObject> CopyOf(const SchemaObject& object) {
    // A trigger is a module too.
    for (const auto copy : {CopyAs<Trigger>, CopyAs<Table>, CopyAs<Module>, CopyAs<Synonym>,
                            CopyAs<TextObject>, CopyAs<AliasType>})
        if (auto made = copy(object))
            return made;
    return nullptr;
}

const Column* Table::FindColumn(std::string_view columnName) const {
    return FindIn(columns, [&](const Column& column) { return nameRule.Same(column.name, columnName); });
}

const Column* Table::FindColumn(int columnId) const {
    return FindIn(columns, [&](const Column& column) { return column.id == columnId; });
}

const Column* Table::IdentityColumn() const {
    return FindIn(columns, [](const Column& column) { return column.identity.has_value(); });
}

const Index* Table::PrimaryKey() const {
    return FindIn(indexes, [](const Index& index) { return index.primaryKey; });
}

const Index* Table::FindIndex(std::string_view indexName) const {
    return FindIn(indexes, [&](const Index& index) { return nameRule.Same(index.name, indexName); });
}

const Index* Table::FindIndex(int indexId) const {
    return FindIn(indexes, [&](const Index& index) { return index.id == indexId; });
}

const DefaultConstraint* Table::DefaultOf(int columnId) const {
    return FindIn(defaults, [&](const DefaultConstraint& value) { return value.columnId == columnId; });
}

const Column* Module::FindColumn(std::string_view columnName) const {
    return FindIn(columns, [&](const Column& column) { return nameRule.Same(column.name, columnName); });
}

const Column* Module::FindColumn(int columnId) const {
    return FindIn(columns, [&](const Column& column) { return column.id == columnId; });
}

const TriggerFor* Trigger::For(TriggerEvent event) const {
    return FindIn(events, [&](const TriggerFor& entry) { return entry.event == event; });
}

} // namespace quillon::practice
