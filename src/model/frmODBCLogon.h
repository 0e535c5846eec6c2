// The login screen: asks for a server and credentials, proves them by connecting the catalogue, and publishes
// them in the session and the settings.
//
// Opens no data connection; that comes with the pick of a database. A login that fails leaves the screen
// open, so that the user can correct it.
#pragma once

#include "platform/controls.h"

namespace quillon {

class frmODBCLogon : public Screen {
  public:
    frmODBCLogon();

    ComboBox cboServer{*this, "cboServer"};
    Button cmdServers{*this, "cmdServers"};
    ControlArray<OptionButton, 2> optType{*this, "optType"};
    Label lblUID{*this, "lblUID"};
    TextBox txtUID{*this, "txtUID"};
    Label lblPWD{*this, "lblPWD"};
    TextBox txtPWD{*this, "txtPWD"};
    Button cmdOK{*this, "cmdOK"};
    Button cmdCancel{*this, "cmdCancel"};
    Button cmdHelp{*this, "cmdHelp"};

    // Members of optType.
    enum Type : std::size_t { Windows = 0, SqlServer = 1 };

    // Shows the screen modally; non-zero means cancelled.
    std::int32_t LoadDB();
    // Fills cboServer from the network.
    void AvailableServers();
    // Tells what is missing, and gives it the focus.
    bool ValidateForm();
    // Enter is OK, Escape is Cancel.
    void DefaultOK(int keyCode);
    void optType_Click();
    void cmdOK_Click();
    void cmdCancel_Click();

  protected:
    void Form_Load() override;
    void Form_Activate() override { m_activated = true; }
    // Keys of the controls that have no key event of their own.
    void Form_KeyDown(Key key, int shift) override;

  private:
    void SetCaptions();
    void BindKeys();
    void LoadServers();
    // Selects the entry equal to the text, without regard to case; none leaves the box as it is.
    void SelectServer(const std::string& name);
    bool HasServer(const std::string& name) const;
    void Connect();
    void Publish();
    void Remember();

    bool m_cancelled = true;
    std::int32_t m_result = 0; // nothing sets it
    bool m_activated = false;
    bool m_keysAreMine = false; // the focus is on an option or on cmdServers
};

} // namespace quillon
