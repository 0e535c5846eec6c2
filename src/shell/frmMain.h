// The main screen: the session's life from login to leaving, and what the user sees of it.
//
// Which server, which database, which profile: the session (Session.h) holds them, this screen changes them
// in the one order that everything else relies on. Its states are
//
//     starting          Form_Load at work; a cancelled login ends the process
//     server chosen     m_bolNoDatabase True, g_objAudit nothing (or empty at start), databases listed
//     database selected m_bolNoDatabase False, g_objConnection open on g_strDatabase, g_objAudit and grids
//     filled
//
// A failed step leaves the rest of its procedure undone: flags and pointer stay as they were until the user
// picks again. What lies in other rooms is reached through SessionRoads.
#pragma once

#include <string>

#include "platform/controls.h"

namespace quillon {

class frmMain : public Screen {
  public:
    frmMain();

    // --- what carries the session ---
    ComboBox cboDatabase{*this, "cboDatabase"};
    TextBox txtTemplate{*this, "txtTemplate"};
    Grid grxTables{*this, "grxTables"};
    Grid grxFields{*this, "grxFields"};
    Grid grxTriggers{*this, "grxTriggers"};
    StatusBar stbStatus{*this, "stbStatus"};
    ProgressBar ProgressBar1{*this, "ProgressBar1"};

    Menu mnuFile{*this, "mnuFile", "&File"};
    Menu mnuFileConnect{*this, "mnuFileConnect", "(Re) &Connect to Database ...", &mnuFile};
    Menu mnuFileOpenFile{*this, "mnuFileOpenFile", "&Select Audit Architecture", &mnuFile};
    Menu mnuExit{*this, "mnuExit", "&Exit", &mnuFile};
    Menu mnuRun{*this, "mnuRun", "&Run"};
    Menu mnuFileGenerateProcs{*this, "mnuFileGenerateProcs", "&Generate Triggers ...", &mnuRun};
    Menu mnuStop{*this, "mnuStop", "&Stop", &mnuRun};

    // Panels of the status bar.
    enum Panel : std::size_t { ServerPanel = 1, DatabasePanel = 2, LoginPanel = 3, ProgressPanel = 4 };

    // No database is selected. This flag, and nothing else, decides whether one counts as selected.
    bool m_bolNoDatabase = true;
    // cboDatabase_Click is at work; grid events leave their work undone meanwhile.
    bool m_bolLoading = false;
    // The table whose fields and triggers the grids show.
    std::string m_strCurrentTable;
    // In m_strCurrentTable: forces a reload at the next change of selection.
    static constexpr const char* ResetTableName = "RESET_TABLE_NAME_HARROWGATE";
    // In cboDatabase while nothing has been picked.
    static constexpr const char* SelectADatabase = "<Select A Database>";

    // Logs in, at start or again. A cancel leaves the session as it is if a database was ever opened, else it
    // ends the process.
    void mnuFileConnect_Click();
    void cboDatabase_Click();
    // Product, version, and the database in brackets unless it is empty.
    void SetCaption(const std::string& strDatabase);
    // Pads the captions of the entries that carry a key, so that the keys line up.
    void SetMenus();
    // Tells the user to pick a database first, and opens the list.
    void DatabaseNotSelected();

  protected:
    void Form_Load() override;
    void Form_Activate() override;
    // Saves the selection, closes the connection and all other screens, and ends the process.
    void Form_Unload(bool& cancel) override;

  private:
    void RememberDefaultProfile();
    void ShowServerAndLogin();
    void EmptyGrids();
    void PickDatabase();
    void ConnectCatalogue();
    void OpenData();
    void ShowDatabase();
    void ShowModel();
    void CloseOtherScreens();
};

} // namespace quillon
