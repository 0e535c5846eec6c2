#include "shell/frmAbout.h"

#include "shell/Application.h"

namespace quillon {

frmAbout::frmAbout()
    : Screen("frmAbout") {
    SetTitle("About Harrowgate Quillon");
    lblTitle.SetCaption(TheApplication().TitleAndVersion());
    lblDescription.SetCaption("Audit triggers for SQL Server databases: made from your templates, installed, "
                              "reported on, purged and undone.");
    lblLicence.SetCaption("Free software under the GNU General Public License, version 3 or later. "
                          "It comes with no warranty.");
    cmdOK.SetCaption("OK");
    cmdOK.OnClick = [this] { Unload(); };
}

void frmAbout::Form_KeyDown(Key key, int /*shift*/) {
    if (key == Key::Enter || key == Key::Escape)
        Unload();
}

} // namespace quillon
