// The tip of the day: one of the tips at a time, at start as long as the user wants it and from the menu.
//
// Tips stand in TIPOFDAY.TXT in the application's folder, one a line; without that file the program's own are
// shown.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "platform/controls.h"

namespace quillon {

class frmTip : public Screen {
  public:
    frmTip();

    Label lblTip{*this, "lblTip"};
    CheckBox chkLoadTipsAtStartup{*this, "chkLoadTipsAtStartup"};
    Button cmdNextTip{*this, "cmdNextTip"};
    Button cmdOK{*this, "cmdOK"};

  protected:
    void Form_Load() override;
    void Form_KeyDown(Key key, int shift) override;

  private:
    void ReadTips();
    void ShowNext();

    std::vector<std::string> m_tips; // never empty once the screen is loaded
    std::size_t m_next = 0;
};

} // namespace quillon
