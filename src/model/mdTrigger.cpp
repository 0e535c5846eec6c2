#include "model/mdTrigger.h"

#include "model/ServerObjects.h"

namespace quillon {

const std::string& mdTrigger::Script() {
    if (!m_script)
        m_script = OnServer().Script(catalogue::ScriptDefault);
    return *m_script;
}

const std::string& mdTrigger::Text() {
    if (!m_text)
        m_text = OnServer().Text();
    return *m_text;
}

void mdTrigger::SetEnabled(bool enabled) {
    m_enabled = enabled;
    if (!m_parentOwner.empty() && !m_parentName.empty() && !m_owner.empty() && !m_name.empty())
        OnServer().SetEnabled(enabled);
}

catalogue::Trigger& mdTrigger::OnServer() const {
    return TriggerOnServer(ParentOwner(), ParentName(), Owner(), Name());
}

} // namespace quillon
