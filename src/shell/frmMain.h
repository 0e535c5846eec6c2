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

#include <functional>
#include <string>

#include "platform/controls.h"
#include "shell/frmMainMenus.h"

namespace quillon {

class mdTable;

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

    // --- what is to be audited ---
    CheckBox chkInsert{*this, "chkInsert"};
    CheckBox chkUpdate{*this, "chkUpdate"};
    CheckBox chkDelete{*this, "chkDelete"};
    // Sums the three boxes up: none, some (greyed), all.
    CheckBox chkAll{*this, "chkAll"};
    CheckBox chkSelectAll{*this, "chkSelectAll"};
    CheckBox chkUnselectAll{*this, "chkUnselectAll"};
    CheckBox chkAllTables{*this, "chkAllTables"};

    Button cmdFindTemplate{*this, "cmdFindTemplate"};
    Button cmdReport{*this, "cmdReport"};
    // There only while a run is at work.
    Button cmdBreak{*this, "cmdBreak"};

    ToolBar btnModules{*this, "btnModules"};
    ToolBar asxToolbar1{*this, "asxToolbar1"};
    frmMainMenus Menus{*this};

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

    // --- grids (frmMainGrids.cpp) ---
    // The columns of the three grids, with their reading and editing.
    void Load_GridExColumns();
    // Makes the current row's table the active one and fills the other two grids.
    void grxTables_Click();
    void grxTables_DblClick();
    void grxFields_Click();
    // Enables or disables the trigger on the server, at once.
    void grxTriggers_Click();
    void grxTriggers_DblClick();
    // With the flag, the selected rows stay selected and the first of them becomes the current one.
    void RefetchGrid(Grid& grid, bool keepsSelection);
    // The triggers that the model has for the current table now.
    void ShowTriggers();
    // Keys of the current rows in the model; empty parts where a grid has none.
    std::string GetOwnObjectFromForm();
    std::string GetOwnTriggerFromForm();

    // --- ticks (frmMainSelection.cpp) ---
    // The columns of the current table; SelectFields also moves the pair of select boxes.
    void SelectAll(bool isChecked);
    void SelectFields(bool isChecked);
    void SelectAllFieldsAllTables(bool isChecked);

    // --- the generation run (frmMainProcess.cpp) ---
    // Generates the triggers of all selected tables and hands the script on.
    void Process();
    bool ProcessValidation();

    // The architecture profile that a session begins with, by the settings; empty when its file is not there.
    static std::string DefaultProfile();

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

    void BindTables();
    void BindFields();
    void BindTriggers();
    // Raises 5 when the model has no table of the current row's key.
    mdTable& CurrentTable();
    void ShowCurrentTable();
    void ShowScript(const std::string& script, const std::string& name);

    void SetSelectionCaptions();
    void BindSelection();
    void SetOperation(const CheckBox& box, void (mdTable::*operation)(bool));
    void CheckAuditCheckBoxStatus();
    void chkAll_Click();
    void chkSelect_Click(const CheckBox& box, bool isChecked);
    void ShowSelectBoxes(bool isChecked);

    void GenerateTriggers();
    bool GenerateTables();

    // Entries and buttons, with their guards (frmMainCommands.cpp).
    void BindCommands();
    void BindMenus();
    void ShowCommands();
    bool HasDatabase();
    bool HasArchitecture();
    // What an entry does, as a procedure of the entry's name; guarded, only with a database selected.
    void Bind(Menu& entry, std::function<void()> command);
    void BindGuarded(Menu& entry, std::function<void()> command);
    void ProcessSelection();
    void PressModule(const std::string& key);
    void PressTool(std::size_t position);

    bool m_bolInCheckStatus = false; // chkAll is being written
    bool m_bolInCheckAll = false;    // chkAll is writing the three boxes
    bool m_bolInSelect = false;      // the select boxes are being written by code
};

} // namespace quillon
