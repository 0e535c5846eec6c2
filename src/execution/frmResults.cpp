#include "execution/frmResults.h"

#include "execution/EditorSupport.h"
#include "platform/Failure.h"
#include "platform/Files.h"
#include "platform/FrontEnd.h"
#include "platform/Platform.h"
#include "shell/Session.h"
#include "shell/Settings.h"
#include "shell/Trace.h"
#include "template/basFileDlg.h"
#include "template/basStringFunctions.h"

namespace quillon {
namespace {

using basStringFunctions::JustFileName;

// Behind the panels that follow the text and the caret.
constexpr std::size_t PathPanel = 3;
constexpr const char* ReadOnlyMark = "(Read Only)";
// Written by the system itself whenever it shows the text of an object; nobody's file to save over.
constexpr const char* ScratchFile = "sqlscript.sql";

} // namespace

frmResults::frmResults()
    : Screen("frmResults") {
    chkLeftMargin.SetCaption("Left &Margin");
    chkShowLineNumbers.SetCaption("Line &Numbers");
    cmdOK.SetCaption("OK");
    cmdCancel.SetCaption("Cancel");
    mnuRightClick.SetPopUp(true);
    mnuUndo.SetShortcut("Ctrl+Z");
    mnucut.SetShortcut("Ctrl+X");
    mnuCopy.SetShortcut("Ctrl+C");
    mnuPaste.SetShortcut("Ctrl+V");
    mnuDelete.SetShortcut("Del");
    mnuFind.SetShortcut("Ctrl+F");
    mnuFindNext.SetShortcut("F3");
    mnuFindPrev.SetShortcut("Shift+F3");
    std::vector<ToolBar::Item> items;
    for (const char* name :
         {"open", "save", "print", "", "cut", "copy", "paste", "", "find", "replace", "undo", "", "help"})
        items.push_back({.Caption = name, .Key = name, .Icon = name, .Separator = *name == '\0'});
    asxToolbar1.SetItems(std::move(items));
    BindCommands();
    BindEditing();
}

void frmResults::BindCommands() {
    mnuOpen.OnClick = [this] { Open(); };
    mnuSave.OnClick = [this] { Save(); };
    mnuSaveAs.OnClick = [this] { SaveAs(); };
    mnuPrint.OnClick = [this] { Print(); };
    cmdOK.OnClick = [this] { Close(Result::Ok); };
    cmdCancel.OnClick = [this] { Close(Result::Cancel); };
    asxToolbar1.OnClick = [this](std::size_t position, const std::string&) { PressTool(position); };
    BindOption(chkLeftMargin, &Editor::SetLeftMargin, settings::LeftMargin.Key);
    BindOption(chkShowLineNumbers, &Editor::SetLineNumbers, settings::LineNumbers.Key);
    cdmCodeMax.OnSelectionChange = [this] {
        ShowCaret(stbStatus, cdmCodeMax);
        EditSubMenu();
    };
    cdmCodeMax.OnRightClick = [this] {
        EditSubMenu();
        ThePlatform().frontEnd().PopUpMenu(mnuRightClick);
    };
    cdmCodeMax.OnChange = [this] { EditSubMenu(); };
    cdmCodeMax.OnKeyDown = [this](Key key, int) {
        if (key == Key::Escape)
            Unload();
    };
}

void frmResults::BindEditing() {
    const auto pass = [this](std::initializer_list<Menu*> menus, EditorCommand command) {
        for (Menu* menu : menus)
            menu->OnClick = [this, command] { cdmCodeMax.Execute(command); };
    };
    pass({&mnuUndo, &mnuRUndo}, EditorCommand::Undo);
    pass({&mnuRedo, &mnuRRedo}, EditorCommand::Redo);
    pass({&mnucut, &mnuRCut}, EditorCommand::Cut);
    pass({&mnuCopy, &mnuRCopy}, EditorCommand::Copy);
    pass({&mnuPaste, &mnuRPaste}, EditorCommand::Paste);
    pass({&mnuDelete, &mnuRDelete}, EditorCommand::Delete);
    pass({&mnuSelectAll, &mnuRSelectAll}, EditorCommand::SelectAll);
    pass({&mnuFind}, EditorCommand::Find);
    pass({&mnuFindNext}, EditorCommand::FindNext);
    pass({&mnuFindPrev}, EditorCommand::FindPrev);
    pass({&mnuReplace}, EditorCommand::Replace);
    pass({&mnuRDisplayWhitespace}, EditorCommand::ShowWhitespace);
    pass({&mnuRMakeUpper}, EditorCommand::UpperCase);
    pass({&mnuRMakeLower}, EditorCommand::LowerCase);
}

void frmResults::BindOption(CheckBox& box, void (Editor::*option)(bool), const char* key) {
    box.OnClick = [this, &box, option, key] {
        g_objTrace->Procedure("frmResults." + box.Name() + "_Click", [&] {
            (cdmCodeMax.*option)(box.IsTicked());
            settings::Write(std::to_string(box.Value()), key);
        });
    };
}

// A button does its entry's work also while the entry is greyed: it is where a file that is read only is
// refused in words.
void frmResults::PressTool(std::size_t position) {
    Menu* const menus[] = {&mnuOpen,  &mnuSave, &mnuPrint, nullptr,     &mnucut, &mnuCopy,
                           &mnuPaste, nullptr,  &mnuFind,  &mnuReplace, &mnuUndo};
    if (position == 13)
        ThePlatform().frontEnd().Help("SQL_Scripts.htm");
    else if (position >= 1 && position <= std::size(menus) && menus[position - 1] != nullptr)
        menus[position - 1]->OnClick();
}

void frmResults::Form_Load() {
    m_isShown = false;
}

void frmResults::Form_Activate() {
    g_objTrace->Procedure("frmResults.Form_Activate", [&] {
        // Coming back from a box of its own must not read the file again over what was typed.
        if (m_isShown)
            return;
        m_isShown = true;
        ShowLineCount(stbStatus, cdmCodeMax, "Lines: ");
        const auto state = [](const settings::Setting& setting) {
            return settings::ReadLong(setting) == 1 ? CheckBox::Ticked : CheckBox::Unticked;
        };
        chkShowLineNumbers.SetValue(state(settings::LineNumbers));
        chkLeftMargin.SetValue(state(settings::LeftMargin));
        cdmCodeMax.SetLineNumbers(chkShowLineNumbers.IsTicked());
        cdmCodeMax.SetLeftMargin(chkLeftMargin.IsTicked());
        cmdOK.SetVisible(m_isElement);
        cmdCancel.SetVisible(m_isElement);
        asxToolbar1.SetItemEnabled(1, m_isElement);
        mnuOpen.SetEnabled(m_isElement);
        cdmCodeMax.SetColorSyntax(true);
        SetEditorLanguage(cdmCodeMax, "sqlfull");
        if (m_isElement) {
            SetTitle("Edit SQL Script");
            cdmCodeMax.SetReadOnly(false);
        } else {
            ShowFile();
        }
        ShowLineCount(stbStatus, cdmCodeMax, "Total Lines: ");
        EditSubMenu();
    });
}

void frmResults::ShowFile() {
    cdmCodeMax.SetReadOnly(true);
    cdmCodeMax.SetText(""); // of a file that was shown before
    m_path = g_strOutputFile;
    try {
        SetCaption(ThePlatform().files().Exists(m_path) && ThePlatform().files().IsReadOnly(m_path));
        stbStatus.SetPanel(PathPanel, "Path: " + m_path + " ");
        cdmCodeMax.OpenFile(m_path);
    } catch (const Failure&) {
        ThePlatform().frontEnd().Message("This file:\r\n\r\n" + m_path +
                                             "\r\n\r\n cannot be accessed.  It may already be open",
                                         "Invalid File Location", Icon::Critical);
    }
    if (JustFileName(m_path) == ScratchFile)
        m_path.clear();
}

void frmResults::SetCaption(bool isReadOnly) {
    SetTitle("Results: " + JustFileName(m_path) + (isReadOnly ? std::string(" ") + ReadOnlyMark : ""));
}

bool frmResults::IsReadOnlyFile() const {
    return Title().ends_with(ReadOnlyMark);
}

void frmResults::EditSubMenu() {
    mnuSave.SetEnabled(!IsReadOnlyFile());
    const auto enable = [](std::initializer_list<Menu*> menus, bool isEnabled) {
        for (Menu* menu : menus)
            menu->SetEnabled(isEnabled);
    };
    enable({&mnuUndo, &mnuRUndo}, cdmCodeMax.Can(EditorCommand::Undo));
    enable({&mnuRedo, &mnuRRedo}, cdmCodeMax.Can(EditorCommand::Redo));
    enable({&mnucut, &mnuRCut}, cdmCodeMax.Can(EditorCommand::Cut));
    enable({&mnuCopy, &mnuRCopy}, cdmCodeMax.Can(EditorCommand::Copy));
    enable({&mnuPaste, &mnuRPaste}, cdmCodeMax.Can(EditorCommand::Paste));
    enable({&mnuDelete, &mnuSelectAll, &mnuFind, &mnuFindNext, &mnuFindPrev, &mnuReplace, &mnuRDelete,
            &mnuRSelectAll, &mnuRDisplayWhitespace},
           !cdmCodeMax.Text().empty());
    enable({&mnuRMakeUpper, &mnuRMakeLower}, !cdmCodeMax.SelectedText().empty());
}

void frmResults::Open() {
    g_objTrace->Procedure("frmResults.mnuOpen_Click", [&] {
        if (!m_isElement)
            return;
        if (const auto path = basFileDlg::ShowFileDlg(basFileDlg::Mode::Open, "sql"))
            cdmCodeMax.OpenFile(*path);
    });
}

void frmResults::Save() {
    g_objTrace->Procedure("frmResults.mnuSave_Click", [&] {
        if (IsReadOnlyFile())
            ThePlatform().frontEnd().Message("File is Read Only", "Read Only", Icon::Critical);
        else if (m_path.empty())
            SaveAs();
        else
            cdmCodeMax.SaveFile(m_path, true);
    });
}

void frmResults::SaveAs() {
    g_objTrace->Procedure("frmResults.mnuSaveAs_Click", [&] {
        const auto path = basFileDlg::ShowFileDlg(basFileDlg::Mode::Save, "sql");
        if (!path)
            return;
        cdmCodeMax.SaveFile(*path, true);
        m_path = *path;
        SetCaption(false);
    });
}

void frmResults::Print() {
    g_objTrace->Procedure("frmResults.mnuPrint_Click",
                          [&] { ThePlatform().frontEnd().Print(cdmCodeMax, "Print"); });
}

std::string frmResults::EditElement(const std::string& text) {
    // A failure gives the text back as it came, never an empty one.
    std::string result = text;
    g_objTrace->Procedure("frmResults.EditElement", [&] {
        m_isElement = true;
        m_result = Result::Open;
        m_path.clear();
        Load();
        cdmCodeMax.SetText(text);
        ShowModal();
        m_isElement = false;
        if (m_result == Result::Ok)
            result = cdmCodeMax.Text();
    });
    return result;
}

void frmResults::Close(Result result) {
    g_objTrace->Procedure("frmResults.Close", [&] {
        m_result = result;
        cdmCodeMax.SetModified(false);
        Unload();
    });
}

void frmResults::Form_Unload(bool& /*cancel*/) {
    g_objTrace->Procedure("frmResults.Form_Unload", [&] {
        if (m_isElement || !cdmCodeMax.Modified())
            return;
        const Answer answer =
            ThePlatform().frontEnd().Message("File has changed - do you want to save before closing?",
                                             "Save confirmation", Icon::Question, Buttons::YesNo);
        if (answer == Answer::Yes)
            Save();
        else
            cdmCodeMax.SetModified(false);
    });
}

} // namespace quillon
