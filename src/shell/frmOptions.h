// The options screen: four preferences on three tabs.
//
// Reads them when it is loaded and writes them at OK. Nothing takes effect in the running session: the
// profile acts at the next start, the prefix at the next pick of a database, the system databases at the next
// login, the hand-off of scripts at the next run.
#pragma once

#include <cstddef>
#include <vector>

#include "platform/controls.h"

namespace quillon {

class frmOptions : public Screen {
  public:
    frmOptions();

    static constexpr std::size_t Panels = 3;

    TabStrip tbsOptions{*this, "tbsOptions"};
    ControlArray<Frame, Panels> picOptions{*this, "picOptions"};

    Frame fraEditor{*this, "fraEditor"};
    ControlArray<OptionButton, 3> optEditor{*this, "optEditor"};

    Frame fraExclude{*this, "fraExclude"};
    Label lblPrefix{*this, "lblPrefix"};
    TextBox txtPrefix{*this, "txtPrefix"};
    Label lblPrefixNote{*this, "lblPrefixNote"};
    CheckBox chkExclude{*this, "chkExclude"};

    Frame fraDefaultArch{*this, "fraDefaultArch"};
    Label lblDefaultArch{*this, "lblDefaultArch"};
    TextBox txtDefaultArch{*this, "txtDefaultArch"};
    Button cmdFindTemplate{*this, "cmdFindTemplate"};
    Label lblDefaultArchNote{*this, "lblDefaultArchNote"};

    Button cmdOK{*this, "cmdOK"};
    Button cmdCancel{*this, "cmdCancel"};

    void cmdOK_Click();
    void cmdCancel_Click();
    void cmdFindTemplate_Click();
    // Shows the panel of the chosen tab and hides the others.
    void tbsOptions_Click();

    // What a view puts on a panel, from top to bottom.
    std::vector<Control*> OnPanel(std::size_t panel);

  protected:
    void Form_Load() override;
    // Escape closes and writes nothing, Enter is OK, Ctrl+Tab goes to the next tab, from the last to the
    // first.
    void Form_KeyDown(Key key, int shift) override;

  private:
    void SetCaptions();
    void SelectNextTab();
};

} // namespace quillon
