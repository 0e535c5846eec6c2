#include "template/basLanguagesScripting.h"

#include "execution/EditorSupport.h"
#include "template/ScriptLanguage.h"
#include "template/frmTemplate.h"

namespace quillon::basLanguagesScripting {

void SetScriptingLanguage(frmTemplate& editor) {
    const char* language = GetScriptLanguage() == LanguageVBScript ? "vbscript" : "jscript";
    for (Editor& code : editor.cdmCodeMax)
        if (code.Index() != frmTemplate::ResultsTab) {
            code.SetColorSyntax(true);
            code.SetLanguage(language);
        }
}

void SetResultsLanguage(frmTemplate& editor) {
    SetEditorLanguage(editor.cdmCodeMax[frmTemplate::ResultsTab], "sqlfull");
}

} // namespace quillon::basLanguagesScripting
