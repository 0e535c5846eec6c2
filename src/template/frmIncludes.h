// "Manage Includes": the include files of the session's profile, as a list that is applied whole or not at
// all.
//
// The profile file itself is not saved here; that takes the user's save in the template editor or the
// manager.
#pragma once

#include <string>
#include <vector>

#include "platform/controls.h"

namespace quillon {

class frmIncludes : public Screen {
  public:
    frmIncludes();

    ListView lstIncludes{*this, "lstIncludes"};
    Button cmdAdd{*this, "cmdAdd"};
    ControlArray<OptionButton, 2> optFileOptions{*this, "optFileOptions"};
    Button cmdDelete{*this, "cmdDelete"};
    Button cmdRefresh{*this, "cmdRefresh"};
    Button cmdSave{*this, "cmdSave"};
    Button cmdCancel{*this, "cmdCancel"};
    Button cmdHelp{*this, "cmdHelp"};

    // Shows the screen modally on g_objArch and, unless it was cancelled, gives the changed list to the
    // profile.
    void LoadIncludes();

  private:
    void FillList();
    void UpdateArray();
    void EnableControls(bool changed);
    // What is stored of a picked path: the bare name or the whole path, as the option says.
    std::string FilePathPrc(const std::string& path) const;

    void cmdAdd_Click();
    void cmdDelete_Click();
    void cmdRefresh_Click();
    void cmdSave_Click();

    std::vector<std::string> m_rows; // of the list; one empty element when it has none
    bool m_changed = false;
    bool m_cancelled = true;
};

} // namespace quillon
