// The script language of templates, as templates and profiles read and set it.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "model/ModelObject.h"

namespace quillon {

// What a change of language asks of rooms above this one. Set at start-up; what is not set does nothing.
struct LanguageHooks {
    std::function<void()> RegisterLanguages; // with the editor, again
    std::function<void()> SwitchEditor;      // of the template, to the current language
    std::function<void()> UpdateStatusBar;   // of the template editor
};

class mdLanguages : public ModelObject {
  public:
    static LanguageHooks& Hooks() noexcept;

    // "VBScript" or "JScript".
    std::string ScriptLanguage() const;
    // Without regard to case. Another language than the current one becomes the setting, for this session and
    // the next. A name that is neither is answered with a box, and nothing changes; no failure is raised.
    void SetScriptLanguage(std::string_view name);
};

} // namespace quillon
