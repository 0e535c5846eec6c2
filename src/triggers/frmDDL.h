// The DDL viewer: the text of one database object from a file, read-only and coloured as SQL.
//
// The file is only read; it stays where it is. Closing hides the screen, which ends the modal call.
#pragma once

#include <string>

#include "platform/controls.h"

namespace quillon {

class frmDDL : public Screen {
  public:
    frmDDL();

    Editor cdmCodeMax{*this, "cdmCodeMax"};
    ToolBar asxToolbar1{*this, "asxToolbar1"};
    StatusBar stbStatus{*this, "stbStatus"};

    Menu mnuFile{*this, "mnuFile", "&File"};
    Menu mnuPrint{*this, "mnuPrint", "&Print", &mnuFile};
    Menu mnuExit{*this, "mnuExit", "&Close", &mnuFile};
    Menu mnuEdit{*this, "mnuEdit", "&Edit"};
    Menu mnuClipboard{*this, "mnuClipboard", "&Copy All to Clipboard", &mnuEdit};
    Menu mnuCopy{*this, "mnuCopy", "C&opy", &mnuEdit};
    Menu mnuSelectAll{*this, "mnuSelectAll", "&Select All", &mnuEdit};
    Menu mnuFind{*this, "mnuFind", "&Find", &mnuEdit};
    Menu mnuFindNext{*this, "mnuFindNext", "Find &Next", &mnuEdit};
    Menu mnuFindPrev{*this, "mnuFindPrev", "Find &Prev", &mnuEdit};
    Menu mnuRightClick{*this, "mnuRightClick", "Edit"};
    Menu mnuRClipboard{*this, "mnuRClipboard", "&Copy All to Clipboard", &mnuRightClick};
    Menu mnuRCopy{*this, "mnuRCopy", "C&opy", &mnuRightClick};
    Menu mnuRSelectAll{*this, "mnuRSelectAll", "&Select All", &mnuRightClick};

    // Shows the file as the script of "owner.name", modally. An empty path shows an empty viewer.
    void LoadScript(const std::string& name, const std::string& path);

  protected:
    void Form_Activate() override;
    // Hides the screen unless the main screen takes everything down with it.
    void Form_Unload(bool& cancel) override;

  private:
    void BindCommands();
    void SetMenus();
    void CopyAll();

    std::string m_path;
    bool m_isShown = false; // the file of this opening has been read
};

} // namespace quillon
