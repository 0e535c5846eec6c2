// What the entries of the menus and the two bars say and do, and what they refuse without a database or a
// profile.
#include "FilledSession.h"
#include "architecture/basArchitectureUtils.h"
#include "platform/FailureNumbers.h"
#include "shell/Application.h"
#include "shell/frmAbout.h"
#include "shell/frmOptions.h"
#include "shell/frmTip.h"

namespace quillon::tests {
namespace {

using Lines = std::vector<std::string>;

class CommandsTest : public FilledSession {
  protected:
    ~CommandsTest() override {
        ForgetScreen<frmTip>();
        ForgetScreen<frmOptions>();
        ForgetScreen<frmAbout>();
    }
    // "&File: (Re) &Connect to Database ... | ...", separators and entries that nothing stands behind left
    // out.
    static std::string Entries(const Menu& menu) {
        std::string text = menu.Caption() + ":";
        for (const Menu* entry : menu.Entries())
            if (!entry->IsSeparator())
                text += " " + entry->Caption() + " |";
        text.pop_back();
        return text;
    }
    void ExpectNoDatabase() {
        frontEnd.ExpectMessage("Please Select a Database first", "Invalid Operation", Icon::Warning);
    }
};

TEST_F(CommandsTest, CaptionsAreThoseThatUsersKnow) {
    const frmMainMenus& menus = Main().Menus;
    const Menu* const bars[] = {&menus.mnuFile,
                                &menus.mnuRun,
                                &menus.mnuHelp,
                                &menus.mnuFieldsRightClick,
                                &menus.mnuTriggersRightClick,
                                &menus.mnuTablesRightClick};
    Lines captions;
    for (const Menu* menu : bars)
        captions.push_back(Entries(*menu));
    EXPECT_EQ(captions, (Lines{"&File: (Re) &Connect to Database ... | &Select Audit Architecture | &Exit ",
                               "&Run: &Generate Triggers ... | &Stop ",
                               "&Help: &Contents ... | &Index ... | Contact &Support | &Tip of the Day | "
                               "&About Harrowgate Quillon ... ",
                               "Fields: Select &All | &U&n-Select All ", "Triggers: View DDL ",
                               "Tables: &View DDL | &Refresh "}));
    const std::pair<const Control*, const char*> others[] = {
        {&menus.mnuOptions, "&Options ..."},
        {&menus.mnuTemplateEditor, "&Template Editor"},
        {&menus.mnuSaveProfile, "&Save Profile"},
        {&menus.mnuRetrieve, "&Retrieve Profile"},
        {&menus.mnuSelectAll, "&Select All Fields for All Tables"},
        {&menus.mnuUnSelectAll, "&Un-Select All Fields for All Tables"},
        {&menus.mnuSelectAuditArchitecture, "&Select Audit Architecture"},
        {&menus.mnuTriggerTemplates, "&Trigger Templates"},
        {&menus.mnuManageArchitecture, "&Manage Architecture"},
        {&menus.mnuInstallAuditing, "&Install Auditing"},
        {&menus.mnuManageTriggers, "Manage T&riggers"},
        {&menus.mnuManageData, "Manage &Data"},
        {&menus.mnuDeleteAuditing, "Delete &Auditing"},
        {&menus.mnuUndo, "&UnDo"},
        {&menus.mnuReportAggregate, "&Aggregate ..."},
        {&menus.mnuReportStandard, "&Standard ..."},
        {&Main().cmdFindTemplate, "Select Template"},
        {&Main().cmdBreak, "Cancel Processing"},
        {&Main().chkAll, "All Operations"},
        {&Main().chkSelectAll, "&Select All"},
        {&Main().chkUnselectAll, "&Un-Select All"},
        {&Main().chkAllTables, "&All Tables"},
    };
    for (const auto& [control, caption] : others)
        EXPECT_EQ(control->Caption(), caption);
    EXPECT_EQ(Main().asxToolbar1.Items().size(), 18u);
    for (const std::size_t position : {4, 6, 9, 11, 14, 17})
        EXPECT_TRUE(Main().asxToolbar1.Items()[position - 1].Separator) << position;
}

// After a login no database counts as selected, whatever is open.
TEST_F(CommandsTest, WhatNeedsADatabaseAsksForOneAndDoesNothing) {
    g_strArchFile = "\\app\\x.qlnx";
    Main().m_bolNoDatabase = true;
    frmMainMenus& menus = Main().Menus;
    StartLog();
    for (Menu* entry : {&menus.mnuFileOpenFile, &menus.mnuSelectAuditArchitecture, &menus.mnuSaveProfile,
                        &menus.mnuRetrieve, &menus.mnuInstallAuditing, &menus.mnuFileGenerateProcs}) {
        SCOPED_TRACE(entry->Name());
        ExpectNoDatabase();
        entry->Click();
    }
    for (const std::size_t position : {1, 2, 3, 7}) {
        SCOPED_TRACE(position);
        ExpectNoDatabase();
        Main().asxToolbar1.Press(position);
    }
    for (const char* key : {"find", "install", "run"}) {
        SCOPED_TRACE(key);
        ExpectNoDatabase();
        Main().btnModules.PressKey(key);
    }
    EXPECT_EQ(frontEnd.Focus(), "cboDatabase");
    EXPECT_EQ(plan.Calls("Files.OpenOutput") + plan.Calls("Files.Replace") + plan.Calls("Files.Delete"), 0);
}

TEST_F(CommandsTest, InstallingNeedsAProfile) {
    for (int way = 0; way < 2; ++way) {
        frontEnd.ExpectMessage("You must select a valid audit architecture file first", "Invalid Operation",
                               Icon::Warning);
        frontEnd.ExpectFile("Open Audit Profile", std::nullopt);
    }
    Main().Menus.mnuInstallAuditing.Click();
    Main().btnModules.PressKey("install");
}

// These two pick a profile also before a database is there.
TEST_F(CommandsTest, TheProfileBoxNeedsNoDatabase) {
    Main().m_bolNoDatabase = true;
    for (int click = 0; click < 2; ++click)
        frontEnd.ExpectFile("Open Audit Profile", std::nullopt);
    Main().cmdFindTemplate.Click();
    Main().txtTemplate.OnClick();
    EXPECT_EQ(g_strArchFile, "");
}

TEST_F(CommandsTest, EveryStopSetsTheFlag) {
    Main().cmdBreak.SetVisible(true);
    const std::function<void()> stops[] = {[&] { Main().Menus.mnuStop.Click(); },
                                           [&] { Main().asxToolbar1.Press(8); },
                                           [&] { Main().cmdBreak.Click(); }};
    for (const auto& stop : stops) {
        g_bolStop = false;
        stop();
        EXPECT_TRUE(g_bolStop) << (&stop - stops);
    }
}

TEST_F(CommandsTest, TheRestOpensWithoutADatabase) {
    Main().m_bolNoDatabase = true;
    for (int way = 0; way < 3; ++way)
        frontEnd.ExpectModal("frmOptions");
    Main().Menus.mnuOptions.Click();
    Main().asxToolbar1.Press(10);
    Main().btnModules.PressKey("options");
    for (const char* topic : {"", "", "", "Create Query.htm"})
        frontEnd.ExpectHelp(topic);
    Main().Menus.mnuHelpContents.Click();
    Main().Menus.mnuHelpIndex.Click();
    Main().btnModules.PressKey("help");
    Main().asxToolbar1.Press(18);
    frontEnd.ExpectModal("frmAbout", [](Screen& screen) {
        EXPECT_EQ(static_cast<frmAbout&>(screen).lblTitle.Caption(), TheApplication().TitleAndVersion());
        screen.KeyDown(Key::Escape);
        EXPECT_FALSE(screen.IsLoaded());
    });
    Main().Menus.mnuaboutStonemere.Click();
    login = [] { return 1; }; // cancelled, with a connection open: nothing happens
    Main().btnModules.PressKey("connect");
    Main().asxToolbar1.Press(5);
    EXPECT_EQ(plan.Calls("LoadDB"), 2);
}

// An entry that does nothing must not look as if it did.
TEST_F(CommandsTest, WhatIsNotThereIsGreyed) {
    for (Control* control : Main().Controls()) {
        const auto* entry = dynamic_cast<const Menu*>(control);
        if (entry != nullptr && entry->Entries().empty() && !entry->IsSeparator()) {
            EXPECT_EQ(entry->Enabled(), static_cast<bool>(entry->OnClick)) << entry->Name();
        }
    }
    EXPECT_EQ(Main().cmdReport.Enabled(), Main().Menus.mnuReportStandard.Enabled());
}

// --- the tip of the day ---

TEST_F(CommandsTest, TipsComeFromTheFileInTurn) {
    memoryFiles.Contents["\\app\\TIPOFDAY.TXT"] = "one\r\n\r\n  \r\ntwo\nthree";
    clock.Ticks = 4;
    frontEnd.ExpectModal("frmTip", [&](Screen& screen) {
        auto& tip = static_cast<frmTip&>(screen);
        Lines shown;
        for (int turn = 0; turn < 4; ++turn, tip.cmdNextTip.Click())
            shown.push_back(tip.lblTip.Caption());
        EXPECT_EQ(shown, (Lines{"two", "three", "one", "two"}));
        EXPECT_TRUE(tip.chkLoadTipsAtStartup.IsTicked());
        tip.chkLoadTipsAtStartup.Click();
        EXPECT_EQ(memorySettings.Get("Show Tips at Startup"), "0");
        tip.cmdOK.Click();
        EXPECT_FALSE(tip.IsLoaded());
    });
    Main().Menus.mnuTooltips.Click();
}

TEST_F(CommandsTest, ATipFileThatCannotBeReadLeavesTheProgramsOwnTips) {
    memoryFiles.Contents["\\app\\TIPOFDAY.TXT"] = "one";
    plan.FailAt("Files.OpenInput", 1, Failure(numbers::PermissionDenied));
    frontEnd.ExpectFailure("Permission denied");
    frontEnd.ExpectModal("frmTip", [](Screen& screen) {
        auto& tip = static_cast<frmTip&>(screen);
        tip.cmdNextTip.Click();
        EXPECT_NE(tip.lblTip.Caption(), "");
    });
    Main().Menus.mnuTooltips.Click();
}

} // namespace
} // namespace quillon::tests
