#include "model/mdTables.h"

#include "model/ServerObjects.h"

namespace quillon {

mdTables::Element mdTables::Add(InternedText name, InternedText owner, DateValue createDate) {
    auto table = std::make_shared<mdTable>();
    table->SetName(std::move(name));
    table->SetOwner(std::move(owner));
    table->SetCreateDate(createDate);
    Append(table, QualifiedName(table->Owner(), table->Name()));
    ++m_changes;
    return table;
}

bool mdTables::Holds(const mdTable& table) const {
    return WithKey(QualifiedName(table.Owner(), table.Name())) == &table;
}

void mdTables::Remove(const Value& indexKey) {
    TakeOut(indexKey);
    ++m_changes;
}

} // namespace quillon
