#include "template/basFileDlg.h"

#include <algorithm>

#include "platform/FrontEnd.h"
#include "platform/Platform.h"
#include "shell/Session.h"
#include "shell/Trace.h"
#include "template/basStringFunctions.h"

namespace quillon::basFileDlg {
namespace {

std::optional<std::string> Choose(FileDialog dialog) {
    dialog.FilterIndex = 2;
    auto path = ThePlatform().frontEnd().ChooseFile(dialog);
    if (path)
        g_objTrace->SetNote("File Path = " + *path);
    return path;
}

std::string SuggestedProfile(const std::string& suggested) {
    if (!suggested.empty())
        return suggested;
    const std::string current = basStringFunctions::JustFileName(g_strArchFile);
    return current.empty() ? "AuditProfile" : current;
}

} // namespace

std::optional<std::string> ShowFileDlg(Mode mode, const std::string& extension) {
    return g_objTrace->Procedure("basFileDlg.ShowFileDlg", [&] {
        std::string bare = extension;
        std::erase(bare, '.');
        return Choose({.Title = mode == Mode::Open ? "Open File" : "Save File As",
                       .Save = mode != Mode::Open,
                       .FileName = {},
                       .Filter = "All Files (*.*)|*.*|" + bare + " Files(*." + bare + ")|*." + bare + "|",
                       .DefaultExtension = ".sql"});
    });
}

std::optional<std::string> ShowIncludeDialog(Mode mode) {
    return g_objTrace->Procedure("basFileDlg.ShowFileDialog", [&] {
        const std::string scripts =
            g_bolJScript ? "JScript Files(*.js)|*.js|" : "VBcript Files(*.vbs)|*.vbs|";
        return Choose({.Title = "Open an Include File",
                       .Save = mode != Mode::Open,
                       .FileName = {},
                       .Filter = "All Files (*.*)|*.*|Include Files (*.inc)|*.inc|Template Files "
                                 "(*.qlnx)|*.QLN|" +
                                 scripts,
                       .DefaultExtension = {}});
    });
}

std::optional<std::string> ShowProfileDialog(Mode mode, const std::string& suggested) {
    return g_objTrace->Procedure("basFileDlg.ShowFileDialog", [&] {
        const bool save = mode != Mode::Open;
        auto path = Choose({.Title = save ? "Save Audit Profile As" : "Open Audit Profile",
                            .Save = save,
                            .FileName = save ? SuggestedProfile(suggested) : std::string(),
                            .Filter = "All Files (*.*)|*.*|Audit Files (*.qlnx)|*.qlnx|",
                            .DefaultExtension = "qlnx"});
        if (path)
            g_strArchFile = *path;
        return path;
    });
}

} // namespace quillon::basFileDlg
