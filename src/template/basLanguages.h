// The languages that the editors colour, registered with the editor control under their names: "sqlfull" for
// SQL, "vbscript" and "jscript" for templates, "output" for run logs.
//
// Used by: the start (once, before the first screen), screens that find their language missing, a change of
// the script language.
#pragma once

#include <string>
#include <vector>

namespace quillon::basLanguages {

// Each language is registered once; `force` registers it again.
void RegisterLanguages(bool force);

// The object model's words, coloured in templates where they follow a dot: the full public vocabulary of the
// model.
std::vector<std::string> GetTagElementNames();

} // namespace quillon::basLanguages
