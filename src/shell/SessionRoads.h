// Where the session's spine reaches into the rooms above it: one road for each procedure that starting,
// logging in, picking a database and leaving call there.
//
// Set by: the composition roots, once, before basMain::Main; each room has a function that opens its own
// roads. Tests open them with doubles. Used by: basMain and frmMain alone. A road that nobody has opened
// raises 445 (action not supported) with the procedure's name, so a missing part shows itself where it is
// first needed.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <utility>

#include "platform/Failure.h"
#include "platform/FailureNumbers.h"

namespace quillon {

class AuditObj;
class ComboBox;
class frmMain;

template <class Signature>
class Road;

template <class Result, class... Arguments>
class Road<Result(Arguments...)> {
  public:
    // `name`: the procedure at its end, as failures tell it.
    explicit Road(const char* name)
        : m_name(name) {}
    Road& operator=(std::function<Result(Arguments...)> procedure) {
        m_procedure = std::move(procedure);
        return *this;
    }
    Result operator()(Arguments... arguments) const {
        if (!m_procedure)
            throw Failure(numbers::ActionNotSupported, std::string(m_name) + " is not part of this build");
        return m_procedure(std::forward<Arguments>(arguments)...);
    }

  private:
    const char* m_name;
    std::function<Result(Arguments...)> m_procedure;
};

struct SessionRoads {
    // --- model/ ---
    Road<std::shared_ptr<AuditObj>()> NewAuditObj{"AuditObj"};
    // Shows the login modally; non-zero means cancelled. Writes the session's server, user and password.
    Road<std::int32_t()> LoadDB{"frmODBCLogon.LoadDB"};
    // Fills the box and opens its list.
    Road<void(ComboBox&)> AvailableDatabases{"basDbaseFunctions.AvailableDatabases"};
    // Replaces g_objAudit by the model of g_strDatabase; False when it failed or was stopped.
    Road<bool()> CreateObjectHeirarchy{"basLoadMetaData.CreateObjectHeirarchy"};
    // Tables in g_objAudit.
    Road<std::int32_t()> TableCount{"mdTables.Count"};

    // --- architecture/ ---
    // Loads the file into g_objArch, which is created if this is its first use.
    Road<void(const std::string& path)> LoadArchitecture{"clsQlnTemplate.Load"};
    // Opens the screen that edits and installs profiles.
    Road<void()> ShowArchitectureManager{"frmArchitectureManager"};

    // --- template/ ---
    Road<void(bool force)> RegisterLanguages{"basLanguages.RegisterLanguages"};

    // --- shell/ ---
    // The selection of the current database, to its files as it is left, and from them.
    Road<void()> SaveProfile{"basProfile.SaveProfile"};
    Road<void()> RetrieveProfile{"basProfile.RetrieveProfile"};
    // The columns of the three grids, with their reading and editing.
    Road<void(frmMain&)> Load_GridExColumns{"frmMain.Load_GridExColumns"};
    // Makes the current row's table the active one and fills the other two grids.
    Road<void(frmMain&)> grxTables_Click{"frmMain.grxTables_Click"};
    Road<void()> ShowTip{"frmTip"};

    // --- triggers/ ---
    // Shows a file as the script of "owner.name", modally.
    Road<void(const std::string& name, const std::string& path)> ShowDDL{"frmDDL.LoadScript"};
};

// One for the process.
SessionRoads& TheRoads();

} // namespace quillon
