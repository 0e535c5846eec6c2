// The languages of the template editor: three editors speak the script language in force, the fourth shows
// SQL.
#pragma once

namespace quillon {

class frmTemplate;

namespace basLanguagesScripting {

// The three editors of the template, its include and its source take the language of the setting.
void SetScriptingLanguage(frmTemplate& editor);
// The Results editor shows SQL.
void SetResultsLanguage(frmTemplate& editor);

} // namespace basLanguagesScripting
} // namespace quillon
