#include "execution/EditorSupport.h"

#include "platform/Failure.h"
#include "platform/FailureNumbers.h"
#include "platform/FrontEnd.h"
#include "platform/Platform.h"
#include "shell/SessionRoads.h"
#include "shell/Trace.h"

namespace quillon {

void SetEditorLanguage(Editor& editor, const char* language) {
    try {
        editor.SetLanguage(language);
    } catch (const Failure& failure) {
        if (failure.number() != numbers::Unspecified)
            throw;
        TheRoads().RegisterLanguages(true);
        editor.SetLanguage(language);
    }
}

void ShowLineCount(StatusBar& bar, const Editor& editor, const std::string& caption) {
    bar.SetPanel(LinesPanel, caption + std::to_string(editor.LineCount()) + "  ");
}

void ShowCaret(StatusBar& bar, const Editor& editor) {
    g_objTrace->Procedure(editor.Parent().Name() + "." + editor.Name() + "_SelChange", [&] {
        ShowLineCount(bar, editor, "Lines: ");
        bar.SetPanel(LinePanel, "Line: " + std::to_string(editor.CaretLine() + 1) + " ");
    });
}

bool IsMainActive() {
    const Screen* active = ThePlatform().frontEnd().ActiveScreen();
    return active != nullptr && active->Name() == "frmMain";
}

} // namespace quillon
