#include "shell/basFileDlg.h"

#include "platform/FrontEnd.h"
#include "platform/Platform.h"
#include "shell/Trace.h"

namespace quillon::basFileDlg {

bool ShowFileDlg(std::string& path, int mode, std::string extension) {
    return g_objTrace->Procedure("basFileDlg.ShowFileDlg", [&] {
        std::erase(extension, '.');
        FileDialog dialog;
        dialog.Save = mode != OpenMode;
        dialog.Title = dialog.Save ? "Save File As" : "Open File";
        dialog.Filter =
            "All Files (*.*)|*.*|" + extension + " Files(*." + extension + ")|*." + extension + "|";
        dialog.FilterIndex = 2;
        dialog.DefaultExtension = "sql";
        const auto chosen = ThePlatform().frontEnd().ChooseFile(dialog);
        if (!chosen)
            return false;
        path = *chosen;
        g_objTrace->SetNote("File Path = " + path);
        return true;
    });
}

} // namespace quillon::basFileDlg
