// One user table: its columns, key, audit triggers, and what is to be audited of it.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "model/InternedText.h"
#include "model/ModelObject.h"
#include "model/mdFields.h"
#include "model/mdPrimaryKeyFields.h"
#include "model/mdTriggers.h"

namespace quillon {

class mdTable : public ModelObject {
  public:
    mdTable() = default;
    ~mdTable() { SetIsFirstAuditedTable(false); }

    // The first table that the running generation has reached; templates write the script's header at it.
    bool IsFirstAuditedTable() const noexcept { return m_isFirstAuditedTable; }
    // The CREATE TABLE script: asked of the catalogue at the first read, then kept for the life of the
    // object. Failures of the catalogue leave as they are, and the next read asks again.
    const std::string& Script();
    // Carries audit triggers already: the model holds no others.
    bool IsAudited() { return Triggers()->Count() >= 1; }
    DateValue CreateDate() const noexcept { return m_createDate; } // day only
    bool IsSelectedForAudit() { return IsOneAuditOperationSelected() && IsOneFieldSelectedForAudit(); }
    bool IsOneAuditOperationSelected() const noexcept {
        return m_audit4Delete || m_audit4Insert || m_audit4Update;
    }
    bool IsOneFieldSelectedForAudit();
    bool IsActiveTable() const noexcept { return m_isActiveTable; }
    bool Audit4Insert() const noexcept { return m_audit4Insert; }
    bool Audit4Update() const noexcept { return m_audit4Update; }
    bool Audit4Delete() const noexcept { return m_audit4Delete; }
    const std::string& Name() const noexcept { return m_name.str(); }
    const std::string& Owner() const noexcept { return m_owner.str(); }

    // Created on first read, never nothing.
    const std::shared_ptr<mdPrimaryKeyFields>& PrimaryKeyFields() { return Created(m_primaryKeyFields); }
    const std::shared_ptr<mdFields>& Fields() { return Created(m_fields); }
    const std::shared_ptr<mdTriggers>& Triggers() { return Created(m_triggers); }

    void SetIsFirstAuditedTable(bool value) noexcept {
        s_firstAuditedTables += static_cast<int>(value) - static_cast<int>(m_isFirstAuditedTable);
        m_isFirstAuditedTable = value;
    }
    void SetScript(std::string script) { m_script = std::move(script); }
    void SetCreateDate(DateValue date) { m_createDate = date; }
    void SetIsActiveTable(bool value);
    void SetAudit4Insert(bool value) { m_audit4Insert = value; }
    void SetAudit4Update(bool value) { m_audit4Update = value; }
    void SetAudit4Delete(bool value) { m_audit4Delete = value; }
    void SetName(InternedText name) { m_name = std::move(name); }
    void SetOwner(InternedText owner) { m_owner = std::move(owner); }
    void SetPrimaryKeyFields(std::shared_ptr<mdPrimaryKeyFields> fields) {
        m_primaryKeyFields = std::move(fields);
    }
    void SetFields(std::shared_ptr<mdFields> fields) { m_fields = std::move(fields); }
    void SetTriggers(std::shared_ptr<mdTriggers> triggers) { m_triggers = std::move(triggers); }

    // Grows whenever a table anywhere becomes active or ceases to be; mdDatabase keeps its answer until then.
    static std::uint32_t ActiveTableChanges() noexcept { return s_activeTableChanges; }
    // How many tables anywhere are the first audited one: who is to clear the mark need not walk thousands of
    // tables when there is none.
    static int FirstAuditedTables() noexcept { return s_firstAuditedTables; }

  private:
    template <class T>
    static const std::shared_ptr<T>& Created(std::shared_ptr<T>& held) {
        if (!held)
            held = std::make_shared<T>();
        return held;
    }

    static inline std::uint32_t s_activeTableChanges = 0;
    static inline int s_firstAuditedTables = 0;

    InternedText m_name;
    InternedText m_owner;
    DateValue m_createDate;
    std::optional<std::string> m_script;
    std::shared_ptr<mdPrimaryKeyFields> m_primaryKeyFields;
    std::shared_ptr<mdFields> m_fields;
    std::shared_ptr<mdTriggers> m_triggers;
    bool m_isFirstAuditedTable = false;
    bool m_isActiveTable = false;
    bool m_audit4Insert = false;
    bool m_audit4Update = false;
    bool m_audit4Delete = false;
};

} // namespace quillon
