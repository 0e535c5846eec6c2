#include "model/mdLanguages.h"

#include <optional>

#include "platform/FrontEnd.h"
#include "platform/Platform.h"
#include "shell/Settings.h"
#include "template/ScriptLanguage.h"
#include "template/TextCase.h"

namespace quillon {
namespace {

void Run(const std::function<void()>& hook) {
    if (hook)
        hook();
}

std::optional<std::int32_t> LanguageNamed(std::string_view name) {
    if (EqualFolded(name, "vbscript"))
        return LanguageVBScript;
    if (EqualFolded(name, "jscript"))
        return LanguageJScript;
    return std::nullopt;
}

} // namespace

LanguageHooks& mdLanguages::Hooks() noexcept {
    static LanguageHooks hooks;
    return hooks;
}

std::string mdLanguages::ScriptLanguage() const {
    return GetScriptLanguageName();
}

void mdLanguages::SetScriptLanguage(std::string_view name) {
    const auto language = LanguageNamed(name);
    if (!language) {
        ThePlatform().frontEnd().Message("Scripting Language must be VBScript or JScript\r\n\r\n"
                                         "Note: This property is not case sensitive",
                                         "Invalid Pre-Processor Value", Icon::Warning);
        return;
    }
    if (*language != GetScriptLanguage()) {
        settings::Write(std::to_string(*language), settings::ScriptingLanguage);
        Run(Hooks().RegisterLanguages);
        Run(Hooks().SwitchEditor);
    }
    Run(Hooks().UpdateStatusBar);
}

} // namespace quillon
