#include "template/TemplateRoads.h"

#include "model/mdLanguages.h"
#include "shell/ScreenInstances.h"
#include "shell/SessionRoads.h"
#include "template/basLanguages.h"
#include "template/basLanguagesScripting.h"
#include "template/frmTemplate.h"

namespace quillon {

void OpenTemplateRoads() {
    TheRoads().RegisterLanguages = basLanguages::RegisterLanguages;
    mdLanguages::Hooks() = {
        .RegisterLanguages = [] { basLanguages::RegisterLanguages(true); },
        .SwitchEditor = [] { basLanguagesScripting::SetScriptingLanguage(TheScreen<frmTemplate>()); },
        .UpdateStatusBar = [] { TheScreen<frmTemplate>().UpdateStatusBar_WithLanguage(); }};
}

} // namespace quillon
