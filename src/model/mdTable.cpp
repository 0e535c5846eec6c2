#include "model/mdTable.h"

#include "model/ServerObjects.h"

namespace quillon {

const std::string& mdTable::Script() {
    if (!m_script)
        m_script = TableOnServer(Owner(), Name()).Script(catalogue::ScriptDefault);
    return *m_script;
}

bool mdTable::IsOneFieldSelectedForAudit() {
    return std::ranges::any_of(*Fields(), [](const auto& field) { return field->IsChecked(); });
}

void mdTable::SetIsActiveTable(bool value) {
    if (m_isActiveTable != value)
        ++s_activeTableChanges;
    m_isActiveTable = value;
}

} // namespace quillon
