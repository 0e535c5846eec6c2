#include "execution/frmScriptResults.h"

#include "execution/EditorSupport.h"
#include "platform/FrontEnd.h"
#include "platform/Platform.h"
#include "shell/Trace.h"

namespace quillon {
namespace {

std::string Joined(const RunLog& log) {
    std::string text;
    for (const std::string& line : log)
        text += line + "\r\n";
    return text;
}

} // namespace

frmScriptResults::frmScriptResults()
    : Screen("frmScriptResults") {
    SetTitle("Script Execution Results");
    cdmResults.SetReadOnly(true);
    cdmResults.OnSelectionChange = [this] { ShowCaret(stbStatus, cdmResults); };
}

void frmScriptResults::ShowScriptResults(const RunLog& log) {
    g_objTrace->Procedure("frmScriptResults.ShowScriptResults", [&] {
        Load();
        cdmResults.SetText("");
        SetEditorLanguage(cdmResults, "output");
        cdmResults.SetColorSyntax(true);
        SetColours();
        cdmResults.SetText(Joined(log));
        ShowModal();
        ThePlatform().frontEnd().SetPointer(Pointer::Default);
    });
}

// Slots of the text control: what they colour, the language's token classes decide.
void frmScriptResults::SetColours() {
    constexpr int plain = 0, bold = 1;
    cdmResults.SetColor(6, 0x800080);
    cdmResults.SetColor(16, 0x400000);
    cdmResults.SetColor(20, 255);
    cdmResults.SetColor(24, 16384);
    cdmResults.SetColor(22, 0x400000);
    cdmResults.SetFontStyle(20, plain);
    cdmResults.SetColor(15, 128);
    cdmResults.SetColor(14, 0xFFFFFF);
    cdmResults.SetFontStyle(5, bold);
}

void frmScriptResults::Form_Activate() {
    ShowCaret(stbStatus, cdmResults);
}

void frmScriptResults::Form_Unload(bool& cancel) {
    g_objTrace->Procedure("frmScriptResults.Form_Unload", [&] {
        if (IsMainActive())
            return;
        cancel = true;
        Hide();
    });
}

void frmScriptResults::Form_KeyDown(Key key, int /*shift*/) {
    g_objTrace->Procedure("frmScriptResults.Form_KeyDown", [&] {
        if (key == Key::Enter || key == Key::Escape)
            Hide();
    });
}

} // namespace quillon
