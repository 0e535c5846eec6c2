// Which program this is, and under which terms it comes.
#pragma once

#include "platform/controls.h"

namespace quillon {

class frmAbout : public Screen {
  public:
    frmAbout();

    Label lblTitle{*this, "lblTitle"};
    Label lblDescription{*this, "lblDescription"};
    Label lblLicence{*this, "lblLicence"};
    Button cmdOK{*this, "cmdOK"};

  protected:
    void Form_KeyDown(Key key, int shift) override;
};

} // namespace quillon
