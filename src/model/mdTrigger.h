// One audit trigger of a table. Enabling it here enables it on the server.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "model/InternedText.h"
#include "model/ModelObject.h"
#include "platform/Catalogue.h"
#include "platform/Value.h"

namespace quillon {

class mdTrigger : public ModelObject {
  public:
    // CREATE TRIGGER script and body as the catalogue gives them: asked for at the first read, then kept for
    // the life of the object. Failures of the catalogue leave as they are, and the next read asks again.
    const std::string& Script();
    const std::string& Text();

    // The loader fills neither.
    bool QuotedIdentifierStatus() const noexcept { return false; }
    bool AnsiNULLsStatus() const noexcept { return false; }

    const std::string& ParentName() const noexcept { return m_parentName.str(); }
    const std::string& ParentOwner() const noexcept { return m_parentOwner.str(); }
    const std::string& Name() const noexcept { return m_name.str(); }
    const std::string& Owner() const noexcept { return m_owner.str(); }
    DateValue CreateDate() const noexcept { return m_createDate; } // day only
    bool Enabled() const noexcept { return m_enabled; }
    std::int16_t TypeOfTrigger() const noexcept { return m_type; } // catalogue::TriggerType bits
    bool IsInsert() const noexcept { return (m_type & catalogue::TriggerInsert) != 0; }
    bool IsUpdate() const noexcept { return (m_type & catalogue::TriggerUpdate) != 0; }
    bool IsDelete() const noexcept { return (m_type & catalogue::TriggerDelete) != 0; }

    void SetParentName(InternedText name) { m_parentName = std::move(name); }
    void SetParentOwner(InternedText owner) { m_parentOwner = std::move(owner); }
    void SetName(InternedText name) { m_name = std::move(name); }
    void SetOwner(InternedText owner) { m_owner = std::move(owner); }
    void SetCreateDate(DateValue date) { m_createDate = date; }
    void SetTypeOfTrigger(std::int16_t type) { m_type = type; }
    // Once the trigger and its table are both named, also enables or disables on the server; the value is
    // stored even if the server refuses, and the failure goes to the caller.
    void SetEnabled(bool enabled);

  private:
    catalogue::Trigger& OnServer() const;

    InternedText m_parentName;
    InternedText m_parentOwner;
    InternedText m_name;
    InternedText m_owner;
    DateValue m_createDate;
    std::optional<std::string> m_script;
    std::optional<std::string> m_text;
    std::int16_t m_type = 0;
    bool m_enabled = false;
};

} // namespace quillon
