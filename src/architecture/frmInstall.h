// "Install Architechure": puts the structures of the session's profile into the database, takes them out
// again, or analyses them.
#pragma once

#include "platform/controls.h"

namespace quillon {

class frmInstall : public Screen {
  public:
    frmInstall();

    enum Option : std::size_t { Add, Remove, Analyze };

    ControlArray<OptionButton, 3> optOption{*this, "optOption"};
    Frame fraDatabase{*this, "fraDatabase"};
    Frame fraServer{*this, "fraServer"};
    // In the order of the profile's structures; basManageArchitechures knows which script belongs to which.
    ControlArray<CheckBox, 9> chkAdd{*this, "chkAdd"};
    ControlArray<OptionButton, 2> optRemoveDatabase{*this, "optRemoveDatabase"};
    Label lblRemoveDesc{*this, "lblRemoveDesc"};
    Button cmdRun{*this, "cmdRun"};
    Button cmdClose{*this, "cmdClose"};
    Button cmdHelp{*this, "cmdHelp"};

    void cmdRun_Click();

  protected:
    // Unloads the screen at once when there is no usable profile.
    void Form_Load() override;
    // Return runs, Escape closes.
    void Form_KeyDown(Key key, int shift) override;

  private:
    void SetCaptions();
    // Nothing of a former visit is left: a screen's marks go with it.
    void SetChoices();
    void AddScripts();
    // Removal and analysis need procedures of the database; without them their options are disabled.
    void Check2SeeIfObjectsExist();
    void EnableControls();
};

} // namespace quillon
