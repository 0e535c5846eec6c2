#include "triggers/frmDDL.h"

#include "execution/EditorSupport.h"
#include "platform/FrontEnd.h"
#include "platform/Platform.h"
#include "shell/Trace.h"

namespace quillon {

frmDDL::frmDDL()
    : Screen("frmDDL") {
    SetTitle("DDL Script");
    cdmCodeMax.SetReadOnly(true);
    mnuRightClick.SetPopUp(true);
    asxToolbar1.SetItems({{.Caption = "Print", .Key = "print", .Icon = "print"},
                          {.Separator = true},
                          {.Caption = "Copy", .Key = "copy", .Icon = "copy"},
                          {.Separator = true},
                          {.Caption = "Find", .Key = "find", .Icon = "find"}});
    BindCommands();
}

void frmDDL::BindCommands() {
    mnuPrint.OnClick = [this] {
        g_objTrace->Procedure("frmDDL.mnuPrint_Click",
                              [&] { ThePlatform().frontEnd().Print(cdmCodeMax, "Print"); });
    };
    mnuExit.OnClick = [this] { Unload(); };
    mnuClipboard.OnClick = mnuRClipboard.OnClick = [this] { CopyAll(); };
    mnuCopy.OnClick = mnuRCopy.OnClick = [this] { cdmCodeMax.Execute(EditorCommand::Copy); };
    mnuSelectAll.OnClick = mnuRSelectAll.OnClick = [this] { cdmCodeMax.Execute(EditorCommand::SelectAll); };
    mnuFind.OnClick = [this] { cdmCodeMax.Execute(EditorCommand::Find); };
    mnuFindNext.OnClick = [this] { cdmCodeMax.Execute(EditorCommand::FindNext); };
    mnuFindPrev.OnClick = [this] { cdmCodeMax.Execute(EditorCommand::FindPrev); };
    asxToolbar1.OnClick = [this](std::size_t position, const std::string&) {
        (position == 1 ? mnuPrint : position == 3 ? mnuCopy : mnuFind).Click();
    };
    cdmCodeMax.OnSelectionChange = [this] { ShowCaret(stbStatus, cdmCodeMax); };
    cdmCodeMax.OnRightClick = [this] { ThePlatform().frontEnd().PopUpMenu(mnuRightClick); };
    cdmCodeMax.OnKeyDown = [this](Key key, int) {
        if (key == Key::Escape)
            Unload();
    };
}

void frmDDL::LoadScript(const std::string& name, const std::string& path) {
    g_objTrace->Procedure("frmDDL.LoadScript", [&] {
        SetTitle("Script for : " + name);
        m_path = path;
        m_isShown = false;
        cdmCodeMax.SetText("");
        ShowModal();
    });
}

void frmDDL::Form_Activate() {
    g_objTrace->Procedure("frmDDL.Form_Activate", [&] {
        if (m_isShown)
            return;
        m_isShown = true;
        if (!m_path.empty()) {
            cdmCodeMax.SetColorSyntax(true);
            SetEditorLanguage(cdmCodeMax, "sqlfull");
            cdmCodeMax.OpenFile(m_path);
        }
        ShowLineCount(stbStatus, cdmCodeMax, "Lines: ");
        SetMenus();
    });
}

void frmDDL::SetMenus() {
    for (Menu* menu :
         {&mnuClipboard, &mnuSelectAll, &mnuFind, &mnuFindNext, &mnuFindPrev, &mnuRClipboard, &mnuRSelectAll})
        menu->SetEnabled(!cdmCodeMax.Text().empty());
}

void frmDDL::CopyAll() {
    g_objTrace->Procedure("frmDDL.mnuClipboard_Click", [&] {
        cdmCodeMax.Execute(EditorCommand::SelectAll);
        ThePlatform().frontEnd().SetClipboard(cdmCodeMax.Text());
        ThePlatform().frontEnd().Beep();
    });
}

void frmDDL::Form_Unload(bool& cancel) {
    g_objTrace->Procedure("frmDDL.Form_Unload", [&] {
        if (IsMainActive())
            return;
        cancel = true;
        Hide();
    });
}

} // namespace quillon
