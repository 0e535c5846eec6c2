#include "template/ScriptLanguage.h"

#include "shell/Settings.h"

namespace quillon {

std::int32_t GetScriptLanguage() {
    return settings::ReadLong(settings::ScriptingLanguage);
}

std::string GetScriptLanguageName() {
    switch (GetScriptLanguage()) {
    case LanguageVBScript: return "VBScript";
    case LanguageJScript: return "JScript";
    default: return {};
    }
}

} // namespace quillon
