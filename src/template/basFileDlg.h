// The file dialogues of the system, with their titles and filters.
//
// Each has the second entry of its filter chosen at first, and leaves "File Path = " + path as the trace's
// note. The path has the system's form; none after Cancel.
#pragma once

#include <optional>
#include <string>

namespace quillon::basFileDlg {

enum class Mode { Open = 1, Save };

// A file with the extension given, with or without its dot.
std::optional<std::string> ShowFileDlg(Mode mode, const std::string& extension);

std::optional<std::string> ShowIncludeDialog(Mode mode);

// An architecture profile; a pick becomes g_strArchFile. `suggested` is the name offered for saving; without
// one it is that of g_strArchFile, or "AuditProfile".
std::optional<std::string> ShowProfileDialog(Mode mode, const std::string& suggested = {});

} // namespace quillon::basFileDlg
