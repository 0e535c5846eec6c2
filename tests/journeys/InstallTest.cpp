// Installing, analysing and removing the structures through their screen; the grids on a real server.
#include "architecture/basArchAnalyze.h"
#include "architecture/basManageArchitechures.h"
#include "architecture/clsQlnTemplate.h"
#include "architecture/frmInstall.h"
#include "execution/frmScriptResults.h"
#include "journeys/Journey.h"
#include "platform/Conversion.h"
#include "triggers/frmDDL.h"

namespace quillon::tests {
namespace {

class InstallScreen : public Journey {
  protected:
    InstallScreen() {
        Start();
        Pick();
    }
    // The run log of the next run.
    void ExpectLog(std::string& log) {
        frontEnd.ExpectModal("frmScriptResults", [&log](Screen& results) {
            log = static_cast<frmScriptResults&>(results).cdmResults.Text();
        });
    }
    void ExpectMissing() {
        frontEnd.ExpectMessage("Missing Architecture structures for this database will \r\n"
                               "mean Removing and/or Analysis operations can't be performed\r\n\r\n"
                               "To make this functions operations Install the 'Add Architecture ...' scripts",
                               "Missing Structures Identified", Icon::Information);
    }
    void ExpectConfirm(const char* question, Answer answer) {
        frontEnd.ExpectMessage(question, "Confirm Operation", Icon::Question, Buttons::OkCancel, answer);
    }
    void Open(std::function<void(frmInstall&)> act) {
        frontEnd.ExpectModal("frmInstall", [act](Screen& screen) { act(static_cast<frmInstall&>(screen)); });
        Main().btnModules.PressKey("install");
    }
    static Lines Runs(const std::string& log) {
        Lines names;
        for (std::size_t at = 0; (at = log.find("Running '", at)) != std::string::npos;) {
            at += 9;
            names.push_back(log.substr(at, log.find("' script...", at) - at));
        }
        return names;
    }

    static constexpr const char* Structures =
        "SELECT name FROM sys.objects WHERE name LIKE 'AUDIT[_]LOG%' OR name LIKE 'AUDIT[_]prc%'";
    static constexpr const char* Sure = "Are you sure you want to run this installation script(s)";
    static constexpr const char* SureToDrop =
        "Are you sure that you want to drop all auditing structures from this database";
};

TEST_F(InstallScreen, RefusesAnEmptyChoiceAndLetsTheUserThinkAgain) {
    frontEnd.ExpectFailure("Could not find stored procedure 'AUDIT_prc_Analyze'");
    ExpectMissing();
    frontEnd.ExpectModal("frmInstall", [&](Screen& screen) {
        auto& install = static_cast<frmInstall&>(screen);
        for (CheckBox& box : install.chkAdd)
            if (box.IsTicked())
                box.Click();
        for (const bool confirmed : {false, true}) {
            if (confirmed)
                install.chkAdd[0].Click();
            if (confirmed)
                ExpectConfirm(Sure, Answer::Cancel);
            else
                frontEnd.ExpectMessage("No Installation scripts were seleted to run", "Invalid Operation",
                                       Icon::Warning);
            frontEnd.ExpectFailure("Could not find stored procedure 'AUDIT_prc_Analyze'");
            ExpectMissing();
            install.KeyDown(Key::Enter);
        }
        frontEnd.ExpectHelp("Install.htm");
        install.cmdHelp.Click();
        install.KeyDown(Key::Escape);
        EXPECT_FALSE(install.IsLoaded());
    });
    Main().Menus.mnuInstallAuditing.Click();
    EXPECT_EQ(Ask(Structures), Lines{});
}

TEST_F(InstallScreen, RunsAllScriptsInOrderAndSaysWhichIsMissing) {
    g_objArch->SetScript_Views("");
    frontEnd.ExpectFailure("Could not find stored procedure 'AUDIT_prc_Analyze'");
    ExpectMissing();
    std::string log;
    Open([&](frmInstall& install) {
        EXPECT_FALSE(install.optRemoveDatabase[0].Enabled() || install.lblRemoveDesc.Enabled());
        for (CheckBox& box : install.chkAdd)
            if (!box.IsTicked())
                box.Click();
        ExpectConfirm(Sure, Answer::Ok);
        ExpectLog(log);
        install.cmdRun.Click();
        EXPECT_EQ(frontEnd.CurrentPointer(), Pointer::Default);
        EXPECT_TRUE(install.optOption[frmInstall::Remove].Enabled() &&
                    install.optOption[frmInstall::Analyze].Enabled());
    });
    EXPECT_EQ(Runs(log), (Lines{"DDL", "Identity", "Views", "Reporting SP Aggregate", "Reporting SP Standard",
                                "Delete Data SP", "UndoSPs", "Delete Architecture", "Analyze"}));
    EXPECT_NE(log.find("'Views' script is missing"), std::string::npos);
    basArchAnalyze::Structures found;
    EXPECT_EQ(basArchAnalyze::Exec_AUDIT_prc_Analyze(found), 0);
    EXPECT_TRUE(found.Ddl && found.Identity && !found.View && found.Standard && found.Aggregate &&
                found.Purge && found.Undo && found.Delete && found.Analyze);
    EXPECT_TRUE(basArchAnalyze::Analyze_ReportStandard() && basArchAnalyze::Analyze_ReportAggregate() &&
                basArchAnalyze::Analyze_UnDo());
}

TEST_F(InstallScreen, AnalysesAndRemovesAndStartsAnewAtTheNextVisit) {
    Install();
    std::string log;
    Open([&](frmInstall& install) {
        install.chkAdd[3].Click();
        install.optOption[frmInstall::Analyze].Click();
        EXPECT_FALSE(install.chkAdd[0].Enabled() || install.optRemoveDatabase[0].Enabled());
        ExpectLog(log);
        install.cmdRun.Click();
        EXPECT_TRUE(install.optOption[frmInstall::Add].Value() && install.chkAdd[0].Enabled());
    });
    EXPECT_EQ(Runs(log), Lines{"Analyze"});
    Open([&](frmInstall& install) {
        EXPECT_TRUE(install.chkAdd[3].IsTicked());
        install.optOption[frmInstall::Remove].Click();
        EXPECT_TRUE(install.optRemoveDatabase[1].Enabled() && install.lblRemoveDesc.Enabled());
        EXPECT_FALSE(install.chkAdd[8].Enabled());
        ExpectConfirm(SureToDrop, Answer::Cancel);
        install.cmdRun.Click();
        EXPECT_TRUE(install.optOption[frmInstall::Remove].Enabled());
        install.optOption[frmInstall::Remove].Click();
        ExpectConfirm(SureToDrop, Answer::Ok);
        ExpectLog(log);
        frontEnd.ExpectFailure("Could not find stored procedure 'AUDIT_prc_Analyze'");
        ExpectMissing();
        install.cmdRun.Click();
        EXPECT_FALSE(install.optOption[frmInstall::Remove].Enabled() ||
                     install.optOption[frmInstall::Analyze].Enabled());
        install.cmdClose.Click();
    });
    const Lines removal{"Delete QlnA rchitecture", "Deleting Procedure AUDIT_prc_DeleteArchitecture"};
    EXPECT_EQ(Runs(log), removal);
    EXPECT_EQ(Ask(Structures), Lines{});
    ExpectLog(log);
    basManageArchitechures::DeleteArchitecture(true, false);
    EXPECT_EQ(Runs(log), removal);
    EXPECT_NE(log.find("Server: Msg 2812"), std::string::npos) << log;
    EXPECT_NE(log.find("Server: Msg 3701"), std::string::npos) << log;
}

// --- the grids ---

TEST_F(InstallScreen, TheGridOfTriggersSwitchesThemOnTheServerAndShowsTheirText) {
    Install();
    Tick("dbo.Country", true, false, false);
    Grid& grid = Main().grxTables;
    while (conversion::ToText(grid.CellValue(grid.Row(), 1)) != "Country")
        grid.SetRow(grid.Row() + 1);
    EXPECT_EQ(Main().grxTriggers.ItemCount(), 0);
    Execute();
    ASSERT_EQ(Main().grxTriggers.ItemCount(), 1); // there without another click
    EXPECT_EQ(grid.CellIcon(grid.Row(), 6), 3);
    EXPECT_EQ(Main().grxTriggers.CellIcon(1, 5), 3);
    EXPECT_EQ(Main().grxTriggers.CellIcon(1, 6), 0);
    Main().grxTriggers.EditCell(1, 1, false);
    EXPECT_EQ(AskOne("SELECT is_disabled FROM sys.triggers WHERE name = 'AUDIT_Insert_Country'"), "True");
    for (const char* part : {"CREATE TABLE", "CREATE TRIGGER"})
        frontEnd.ExpectModal("frmDDL", [part](Screen& screen) {
            EXPECT_NE(static_cast<frmDDL&>(screen).cdmCodeMax.Text().find(part), std::string::npos);
        });
    grid.DoubleClick();
    Main().grxTriggers.DoubleClick();
    EXPECT_TRUE(g_strOutputFile.ends_with("\\sqlscript.sql"));
}

} // namespace
} // namespace quillon::tests
