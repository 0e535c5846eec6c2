// The script results screen: shows a run log, coloured so that the server's messages stand out from the data.
// The end of every script run.
#pragma once

#include "execution/RunLog.h"
#include "platform/controls.h"

namespace quillon {

class frmScriptResults : public Screen {
  public:
    frmScriptResults();

    Editor cdmResults{*this, "cdmResults"};
    StatusBar stbStatus{*this, "stbStatus"};

    // Shows the lines modally; returns when the user has closed the screen. The wait cursor is off then.
    void ShowScriptResults(const RunLog& log);

  protected:
    void Form_Activate() override;
    // Hides the screen, which ends the modal call, unless the main screen takes everything down with it.
    void Form_Unload(bool& cancel) override;
    // Return and Escape hide the screen.
    void Form_KeyDown(Key key, int shift) override;

  private:
    void SetColours();
};

} // namespace quillon
