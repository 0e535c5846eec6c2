// From the start of the process to a usable main screen, and logging in again.
#include "SessionFixture.h"
#include "model/AuditObj.h"
#include "platform/FailureNumbers.h"
#include "shell/Application.h"
#include "shell/basMain.h"

namespace quillon::tests {
namespace {

using Names = std::vector<std::string>;

class StartTest : public SessionTest {
  protected:
    void Start() {
        frontEnd.ExpectShow("frmMain");
        basMain::Main();
    }
};

TEST_F(StartTest, BringsTheSessionUpInOrder) {
    Start();
    EXPECT_EQ(plan.Log, (Names{
                            "Files.ApplicationFolder",
                            "NewAuditObj",
                            "RegisterLanguages False",
                            "Load_GridExColumns",
                            "LoadDB",
                            "Library.NewServer",
                            "AvailableDatabases",
                            "Settings.Read DefaultArch",
                            "Files.ApplicationFolder",
                            "Files.Exists \\app\\Harrowgate.qlnx",
                            "Settings.Read Show Tips at Startup",
                            "ShowTip",
                            "FrontEnd.SetPointer Default",
                            "FrontEnd.SetPointer Default",
                        }));
    EXPECT_EQ(g_strExceptionFile, "\\app\\exception.txt");
    EXPECT_EQ(g_objTrace->ReportFile(), "\\app\\exception.txt");
    EXPECT_TRUE(g_objTrace->Chain().empty());
    EXPECT_TRUE(Main().m_bolNoDatabase);
    EXPECT_FALSE(g_bolConnected);
    EXPECT_EQ(g_objAudit, nullptr); // the login released the empty one
}

TEST_F(StartTest, TheModelAndTheTraceStandBeforeTheLogin) {
    const auto plainLogin = login;
    login = [&] {
        EXPECT_NE(g_objAudit, nullptr);
        EXPECT_EQ(g_objTrace->Chain(),
                  (Names{"basMain - Form_Load", "frmMain.Form_Load", "frmMain.mnuFileConnect_Click"}));
        EXPECT_FALSE(Main().IsVisible());
        return plainLogin();
    };
    Start();
}

TEST_F(StartTest, ACancelledFirstLoginEndsTheProcess) {
    login = [] { return 1; };
    EXPECT_THROW(basMain::Main(), ProcessEnded);
    EXPECT_EQ(plan.Calls("AvailableDatabases"), 0);
    EXPECT_EQ(plan.Calls("Settings.Read"), 0);
}

TEST_F(StartTest, ShowsServerLoginAndTitle) {
    Start();
    EXPECT_EQ(Main().stbStatus.Panel(1), "  PRACTICE");
    EXPECT_EQ(Main().stbStatus.Panel(2), "");
    EXPECT_EQ(Main().stbStatus.Panel(3), "integrated security ");
    EXPECT_EQ(Main().stbStatus.Panel(4), "");
    EXPECT_EQ(Main().Title(), TheApplication().TitleAndVersion());
    EXPECT_EQ(Main().cboDatabase.Text(), "<Select A Database>");
    EXPECT_EQ(Main().cboDatabase.DropDowns(), 1);
    for (const Menu* entry :
         {&Main().Menus.mnuFileConnect, &Main().Menus.mnuFileOpenFile, &Main().Menus.mnuExit,
          &Main().Menus.mnuFileGenerateProcs, &Main().Menus.mnuStop})
        EXPECT_TRUE(entry->Caption().ends_with('\t')) << entry->Name();
}

struct ProfileCase {
    const char* setting; // none: never written
    const char* file;    // what exists
    const char* profile;
    const char* folder; // the current one afterwards
    const char* box;
};

TEST_F(StartTest, TheDefaultProfileIsRememberedIfItExists) {
    const ProfileCase cases[] = {
        {nullptr, "\\app\\Harrowgate.qlnx", "\\app\\Harrowgate.qlnx", "\\app", " Harrowgate.qlnx"},
        {nullptr, "\\app\\other.qlnx", "", "\\home", " "},
        {"mine.qlnx", "\\app\\mine.qlnx", "\\app\\mine.qlnx", "\\app", " mine.qlnx"},
        {"mine.qlnx", "\\home\\mine.qlnx", "", "\\home", " "},
        {"\\home\\ann\\x.qlnx", "\\home\\ann\\x.qlnx", "\\home\\ann\\x.qlnx", "\\home\\ann", " x.qlnx"},
        {"", "\\app\\Harrowgate.qlnx", "", "\\home", " "},
    };
    for (const ProfileCase& c : cases) {
        SCOPED_TRACE(c.setting == nullptr ? "never written" : c.setting);
        ForgetSession();
        OpenRoads();
        memorySettings.Entries.clear();
        if (c.setting != nullptr)
            memorySettings.Set("DefaultArch", c.setting);
        memoryFiles.Current = "\\home";
        memoryFiles.Contents = {{c.file, "<profile/>"}};
        Start();
        EXPECT_EQ(g_strArchFile, c.profile);
        EXPECT_EQ(memoryFiles.Current, c.folder);
        EXPECT_EQ(Main().txtTemplate.Text(), c.box);
        EXPECT_EQ(plan.Calls("LoadArchitecture"), 0); // remembered, not read
        Main().Hide();
    }
}

TEST_F(StartTest, TipsAreShownOnlyWhenWanted) {
    memorySettings.Set("Show Tips at Startup", "0");
    Start();
    EXPECT_EQ(plan.Calls("ShowTip"), 0);
}

TEST_F(StartTest, ASpoiltTipSettingIsReportedAndTheScreenStillShows) {
    memorySettings.Set("Show Tips at Startup", "maybe");
    frontEnd.ExpectFailure("Type mismatch");
    Start();
    EXPECT_EQ(plan.Calls("ShowTip"), 0);
    EXPECT_TRUE(Main().m_bolNoDatabase);
    EXPECT_TRUE(Main().IsVisible());
}

TEST_F(StartTest, AnApplicationFolderThatCannotBeHadIsOneClearReport) {
    plan.FailAlways("Files.ApplicationFolder", Failure(numbers::PathFileAccess));
    frontEnd.ExpectFailure("Path/File access error");
    basMain::Main();
    EXPECT_EQ(frontEnd.Failures().size(), 1u);
    EXPECT_EQ(frontEnd.Failures()[0].Procedures, Names{"basMain - Form_Load"});
}

TEST_F(StartTest, SettingsThatCannotBeReadAreOneClearReport) {
    plan.FailAlways("Settings.Read", Failure(numbers::PathFileAccess, "The settings file is damaged"));
    frontEnd.ExpectFailure("The settings file is damaged");
    Start();
    EXPECT_EQ(frontEnd.Failures().size(), 1u);
    EXPECT_EQ(frontEnd.Failures()[0].Procedures, (Names{"basMain - Form_Load", "frmMain.Form_Load"}));
    EXPECT_TRUE(Main().IsVisible());
}

TEST_F(StartTest, ARoadThatNobodyOpenedSaysSo) {
    TheRoads().RegisterLanguages = std::function<void(bool)>();
    frontEnd.ExpectFailure("basLanguages.RegisterLanguages is not part of this build");
    basMain::Main();
    EXPECT_EQ(frontEnd.Failures()[0].Number, numbers::ActionNotSupported);
}

// --- logging in again ---

TEST_F(StartTest, ALaterLoginEmptiesTheScreenAndKeepsTheConnection) {
    LogIn();
    Pick("pubs");
    g_objAudit = std::make_shared<AuditObj>();
    Main().grxFields.SetItemCount(4);
    Main().grxTriggers.SetItemCount(2);
    const int fieldsSeen = Main().grxFields.Generation();
    login = [] {
        g_strServer = "OTHER";
        g_strUser = "ann";
        return 0;
    };
    Main().Menus.mnuFileConnect.Click();
    EXPECT_EQ(Main().stbStatus.Panel(1), "  OTHER");
    EXPECT_EQ(Main().stbStatus.Panel(2), "");
    EXPECT_EQ(Main().stbStatus.Panel(3), "  ann");
    for (const Grid* grid : {&Main().grxTables, &Main().grxFields, &Main().grxTriggers})
        EXPECT_EQ(grid->ItemCount(), 0) << grid->Name();
    EXPECT_GT(Main().grxFields.Generation(), fieldsSeen);
    EXPECT_EQ(g_objAudit, nullptr);
    EXPECT_TRUE(Main().m_bolNoDatabase);
    EXPECT_TRUE(g_bolConnected);
    EXPECT_EQ(g_objConnection->State(), data::ObjectState::Open);
    EXPECT_EQ(g_strDatabase, "pubs");
}

TEST_F(StartTest, ALaterLoginThatIsCancelledChangesNothing) {
    LogIn();
    Pick("pubs");
    const auto model = g_objAudit = std::make_shared<AuditObj>();
    StartLog();
    login = [] { return 1; };
    Main().Menus.mnuFileConnect.Click();
    EXPECT_EQ(plan.Log, Names{"LoadDB"});
    EXPECT_EQ(g_objAudit, model);
    EXPECT_FALSE(Main().m_bolNoDatabase);
    EXPECT_EQ(Main().stbStatus.Panel(2), "  pubs");
    EXPECT_EQ(Main().grxTables.ItemCount(), tables);
}

TEST_F(StartTest, ACancelBeforeAnyDatabaseWasOpenedEndsTheProcess) {
    LogIn();
    login = [] { return 1; };
    EXPECT_THROW(Main().Menus.mnuFileConnect.Click(), ProcessEnded);
}

TEST_F(StartTest, WithoutADatabaseTheUserIsSentToTheList) {
    const int opened = Main().cboDatabase.DropDowns();
    frontEnd.ExpectMessage("Please Select a Database first", "Invalid Operation", Icon::Warning);
    Main().DatabaseNotSelected();
    EXPECT_EQ(frontEnd.Focus(), "cboDatabase");
    EXPECT_EQ(Main().cboDatabase.DropDowns(), opened + 1);
}

} // namespace
} // namespace quillon::tests
