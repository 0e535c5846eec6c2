// A trigger of a table on a server.
#pragma once

#include "platform/Catalogue.h"

namespace quillon::adapters {

class ServerTable;

struct TriggerFacts {
    std::string name, owner, text; // the text is empty when the server keeps it encrypted
    DateValue created;
    bool isDisabled = false;
    bool ansiNulls = true;
    bool quotedIdentifier = true;
    std::int16_t type = 0;
};

class ServerTrigger : public catalogue::Trigger {
  public:
    // The table owns the trigger.
    ServerTrigger(ServerTable& table, TriggerFacts facts);

    std::string Name() const override { return m_facts.name; }
    std::string Owner() const override { return m_facts.owner; }
    std::int16_t Type() const override { return m_facts.type; }
    DateValue CreateDate() const override { return m_facts.created; }
    bool Enabled() const override { return !m_facts.isDisabled; }
    void SetEnabled(bool enabled) override;
    // With ScriptDrops a drop stands before it, which ScriptIncludeIfNotExists guards by a test for the
    // trigger; with ScriptIncludeHeaders each statement has a header.
    std::string Script(std::int32_t scriptType) override;
    std::string Text() override { return m_facts.text; }
    // This object is gone afterwards.
    void Remove() override;

    void AddType(std::int16_t type) { m_facts.type = static_cast<std::int16_t>(m_facts.type | type); }

  private:
    std::string Header() const;
    std::string DropScript(std::int32_t scriptType) const;

    ServerTable& m_table;
    TriggerFacts m_facts;
};

} // namespace quillon::adapters
