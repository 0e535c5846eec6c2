// The views of the screens, one file each in this folder. A view lays widgets out and leaves the rest to
// their bindings.
#pragma once

class QMainWindow;

namespace quillon {
class frmAbout;
class frmDDL;
class frmIncludes;
class frmInstall;
class frmMain;
class frmODBCLogon;
class frmOptions;
class frmResults;
class frmScriptResults;
class frmTip;
} // namespace quillon

namespace quillon::desktop {

void BuildMainView(frmMain& screen, QMainWindow& window);
void BuildLoginView(frmODBCLogon& screen, QMainWindow& window);
void BuildOptionsView(frmOptions& screen, QMainWindow& window);
void BuildInstallView(frmInstall& screen, QMainWindow& window);
void BuildIncludesView(frmIncludes& screen, QMainWindow& window);
void BuildScriptResultsView(frmScriptResults& screen, QMainWindow& window);
void BuildResultsView(frmResults& screen, QMainWindow& window);
void BuildDdlView(frmDDL& screen, QMainWindow& window);
void BuildTipView(frmTip& screen, QMainWindow& window);
void BuildAboutView(frmAbout& screen, QMainWindow& window);

} // namespace quillon::desktop
