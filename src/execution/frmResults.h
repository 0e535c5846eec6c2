// The script editor: shows SQL text and hands it back or keeps it in a file. It never runs anything.
//
// Two modes. In file mode it shows the file at g_strOutputFile, read-only, and can save and print it. In
// element mode it edits a piece of text handed to it, a script of a profile, until OK or Cancel.
#pragma once

#include <string>

#include "platform/controls.h"

namespace quillon {

class frmResults : public Screen {
  public:
    frmResults();

    Editor cdmCodeMax{*this, "cdmCodeMax"};
    StatusBar stbStatus{*this, "stbStatus"};
    CheckBox chkLeftMargin{*this, "chkLeftMargin"};
    CheckBox chkShowLineNumbers{*this, "chkShowLineNumbers"};
    Button cmdOK{*this, "cmdOK"};
    Button cmdCancel{*this, "cmdCancel"};
    ToolBar asxToolbar1{*this, "asxToolbar1"};

    Menu mnuFile{*this, "mnuFile", "&File"};
    Menu mnuOpen{*this, "mnuOpen", "&Open File", &mnuFile};
    Menu mnuSave{*this, "mnuSave", "&Save File", &mnuFile};
    Menu mnuSaveAs{*this, "mnuSaveAs", "Save File &As", &mnuFile};
    Menu mnuPrint{*this, "mnuPrint", "Print            ", &mnuFile};
    Menu mnuEdit{*this, "mnuEdit", "&Edit"};
    Menu mnuUndo{*this, "mnuUndo", "Un-do                  ", &mnuEdit};
    Menu mnuRedo{*this, "mnuRedo", "Re-do ", &mnuEdit};
    Menu mnucut{*this, "mnucut", "Cu&t                   ", &mnuEdit};
    Menu mnuCopy{*this, "mnuCopy", "&Copy                 ", &mnuEdit};
    Menu mnuPaste{*this, "mnuPaste", "&Paste                 ", &mnuEdit};
    Menu mnuDelete{*this, "mnuDelete", "&Delete                ", &mnuEdit};
    Menu mnuSelectAll{*this, "mnuSelectAll", "&Select All              ", &mnuEdit};
    Menu mnuFind{*this, "mnuFind", "&Find                   ", &mnuEdit};
    Menu mnuFindNext{*this, "mnuFindNext", "Find &Next           ", &mnuEdit};
    Menu mnuFindPrev{*this, "mnuFindPrev", "Find &Prev           ", &mnuEdit};
    Menu mnuReplace{*this, "mnuReplace", "&Replace             ", &mnuEdit};

    Menu mnuRightClick{*this, "mnuRightClick", "Edit"};
    Menu mnuRUndo{*this, "mnuRUndo", "Un-do", &mnuRightClick};
    Menu mnuRRedo{*this, "mnuRRedo", "Re-do", &mnuRightClick};
    Menu mnuRCut{*this, "mnuRCut", "Cu&t", &mnuRightClick};
    Menu mnuRCopy{*this, "mnuRCopy", "&Copy", &mnuRightClick};
    Menu mnuRPaste{*this, "mnuRPaste", "&Paste", &mnuRightClick};
    Menu mnuRDelete{*this, "mnuRDelete", "&Delete", &mnuRightClick};
    Menu mnuRSelectAll{*this, "mnuRSelectAll", "&Select All", &mnuRightClick};
    Menu mnuRDisplayWhitespace{*this, "mnuRDisplayWhitespace", "Display &Whitespace", &mnuRightClick};
    Menu mnuRMakeUpper{*this, "mnuRMakeUpper", "Make &Upper Case", &mnuRightClick};
    Menu mnuRMakeLower{*this, "mnuRMakeLower", "Make &Lower Case", &mnuRightClick};

    // Element mode, modally: the text after OK, the text as it came otherwise.
    std::string EditElement(const std::string& text);

  protected:
    void Form_Load() override;
    void Form_Activate() override;
    // In file mode a changed text is saved first, if the user wants that.
    void Form_Unload(bool& cancel) override;

  private:
    enum class Result { Open, Ok, Cancel };

    void BindCommands();
    void BindEditing();
    void BindOption(CheckBox& box, void (Editor::*option)(bool), const char* key);
    void PressTool(std::size_t position);
    void ShowFile();
    void EditSubMenu();
    bool IsReadOnlyFile() const;
    void Open();
    void Save();
    void SaveAs();
    void Print();
    void SetCaption(bool isReadOnly);
    void Close(Result result);

    std::string m_path; // of the file shown; empty: none
    bool m_isElement = false;
    bool m_isShown = false;
    Result m_result = Result::Open;
};

} // namespace quillon
