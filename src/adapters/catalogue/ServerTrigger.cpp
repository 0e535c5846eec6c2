#include "adapters/catalogue/ServerTrigger.h"

#include "adapters/catalogue/ServerDatabase.h"
#include "adapters/catalogue/ServerTable.h"

namespace quillon::adapters {
namespace {

constexpr const char* EndOfBatch = "\r\nGO\r\n";

std::string OnOff(bool isOn) {
    return isOn ? "ON" : "OFF";
}

} // namespace

ServerTrigger::ServerTrigger(ServerTable& table, TriggerFacts facts)
    : m_table(table)
    , m_facts(std::move(facts)) {}

void ServerTrigger::SetEnabled(bool enabled) {
    m_table.database().Run("ALTER TABLE " + Quoted(m_table.Owner(), m_table.Name()) +
                           (enabled ? " ENABLE" : " DISABLE") + " TRIGGER " + Quoted(m_facts.name));
    m_facts.isDisabled = !enabled;
}

void ServerTrigger::Remove() {
    m_table.database().Run("DROP TRIGGER " + Quoted(m_facts.owner, m_facts.name));
    m_table.Forget(*this);
}

std::string ServerTrigger::Header() const {
    return "/****** Object:  Trigger " + Quoted(m_facts.owner, m_facts.name) + " ******/\r\n";
}

std::string ServerTrigger::DropScript(std::int32_t scriptType) const {
    const std::string name = Quoted(m_facts.owner, m_facts.name);
    std::string script = (scriptType & catalogue::ScriptIncludeHeaders) != 0 ? Header() : std::string();
    if ((scriptType & catalogue::ScriptIncludeIfNotExists) != 0)
        script += "IF EXISTS (SELECT * FROM sysobjects WHERE id = OBJECT_ID(" + Literal(name) +
                  ") AND OBJECTPROPERTY(id, N'IsTrigger') = 1)\r\n";
    return script + "DROP TRIGGER " + name + EndOfBatch + "\r\n";
}

std::string ServerTrigger::Script(std::int32_t scriptType) {
    std::string script;
    if ((scriptType & catalogue::ScriptDrops) != 0)
        script += DropScript(scriptType);
    if ((scriptType & catalogue::ScriptPrimaryObject) == 0)
        return script;
    if ((scriptType & catalogue::ScriptIncludeHeaders) != 0)
        script += Header();
    if (m_facts.text.empty())
        return script + "/****** The text of " + Quoted(m_facts.owner, m_facts.name) +
               " is encrypted and cannot be scripted ******/\r\n";
    return script + "SET QUOTED_IDENTIFIER " + OnOff(m_facts.quotedIdentifier) + EndOfBatch +
           "SET ANSI_NULLS " + OnOff(m_facts.ansiNulls) + EndOfBatch + m_facts.text + EndOfBatch;
}

} // namespace quillon::adapters
