// The file dialogue that screens ask for one file with.
//
// Used by: the options screen, the editors. Paths have the system's form. The path that was chosen stays as
// the trace's note, so that a failure of what is then done with the file names it.
#pragma once

#include <string>

namespace quillon::basFileDlg {

inline constexpr int OpenMode = 1; // any other mode saves

// Offers all files and those of `extension` (a "." in it is dropped), the latter preselected. True with the
// path when a file was chosen; after Cancel False, and `path` stays.
bool ShowFileDlg(std::string& path, int mode, std::string extension);

} // namespace quillon::basFileDlg
