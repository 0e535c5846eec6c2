// Picking a database: the exact order, and what holds when one of its steps fails. Leaving.
#include "SessionFixture.h"
#include "model/AuditObj.h"
#include "platform/FailureNumbers.h"
#include "shell/Application.h"

namespace quillon::tests {
namespace {

using Names = std::vector<std::string>;

constexpr const char* IntegratedPubs =
    "Provider=sqloledb;Data Source=PRACTICE;Initial Catalog=pubs;;Integrated Security=SSPI;";

class PickDatabaseTest : public SessionTest {
  protected:
    PickDatabaseTest() {
        LogIn();
        StartLog();
    }
};

TEST_F(PickDatabaseTest, GoesInExactOrder) {
    g_strArchFile = "\\app\\x.qlnx";
    g_bolStop = true;
    Pick("pubs");
    EXPECT_EQ(plan.Log, (Names{
                            "FrontEnd.SetPointer Hourglass",
                            "SaveProfile",
                            "FrontEnd.Repaint frmMain",
                            "Server.DisConnect",
                            "Settings.Read logintype",
                            "Server.SetLoginSecure True",
                            "Settings.Read Server",
                            "Server.Connect PRACTICE,",
                            "DataAccess.NewConnection",
                            std::string("Connection.Open ") + IntegratedPubs,
                            "Connection.DefaultDatabase",
                            "CreateObjectHeirarchy",
                            "LoadArchitecture \\app\\x.qlnx",
                            "RetrieveProfile",
                            "FrontEnd.SetFocus grxTables",
                            "grxTables_Click",
                            "FrontEnd.SetPointer Default",
                        }));
    EXPECT_FALSE(g_bolStop);
    EXPECT_TRUE(g_bolConnected);
    EXPECT_EQ(g_strDatabase, "pubs");
    EXPECT_EQ(Main().Title(), TheApplication().TitleAndVersion() + " [pubs]");
    EXPECT_EQ(Main().stbStatus.Panel(2), "  pubs");
    EXPECT_EQ(Main().txtTemplate.Text(), "x.qlnx");
    EXPECT_EQ(Main().grxTables.ItemCount(), tables);
    EXPECT_FALSE(Main().m_bolLoading);
    EXPECT_FALSE(Main().m_bolNoDatabase);
    EXPECT_EQ(Main().m_strCurrentTable, "RESET_TABLE_NAME_HARROWGATE");
}

TEST_F(PickDatabaseTest, ActivationPutsTheBlankBack) {
    g_strArchFile = "\\app\\x.qlnx";
    Pick("pubs");
    Main().Activate();
    EXPECT_EQ(Main().txtTemplate.Text(), " x.qlnx");
}

TEST_F(PickDatabaseTest, AServerLoginConnectsFromTheStoredSettings) {
    catalogue.Server().User = "ann";
    catalogue.Server().Password = "stored";
    memorySettings.Set("logintype", "0");
    memorySettings.Set("uid", "ann");
    memorySettings.Set("pwd", "stored");
    g_strUser = "bob";
    g_strPassword = "typed";
    Pick("pubs");
    EXPECT_EQ(plan.Log[6], "Settings.Read uid");
    EXPECT_EQ(plan.Log[8], "Server.Connect PRACTICE,ann");
    EXPECT_EQ(plan.Calls("Server.SetLoginSecure"), 0);
    EXPECT_EQ(data.Data().Opened, Names{"Provider=sqloledb;Data Source=PRACTICE;Initial Catalog=pubs;"
                                        "User ID=bob;Password=typed;"});
    EXPECT_EQ(Main().stbStatus.Panel(3), "  bob");
}

TEST_F(PickDatabaseTest, ASecondPickClosesTheFormerConnection) {
    Pick("pubs");
    StartLog();
    Pick("northwind");
    const auto close = std::ranges::find(plan.Log, "Connection.Close");
    ASSERT_NE(close, plan.Log.end());
    EXPECT_TRUE((close + 1)->starts_with("Connection.Open ")) << *(close + 1);
    EXPECT_EQ(plan.Calls("DataAccess.NewConnection"), 1);
    EXPECT_EQ(g_strDatabase, "northwind");
}

TEST_F(PickDatabaseTest, WithoutAProfileNoneIsLoaded) {
    Pick("pubs");
    EXPECT_EQ(plan.Calls("LoadArchitecture"), 0);
    EXPECT_FALSE(Main().m_bolNoDatabase);
}

TEST_F(PickDatabaseTest, TheInvitationItselfOnlySaves) {
    Pick("pubs");
    Main().cboDatabase.SetText(frmMain::SelectADatabase);
    StartLog();
    Main().cboDatabase_Click();
    EXPECT_EQ(plan.Log,
              (Names{"FrontEnd.SetPointer Hourglass", "SaveProfile", "FrontEnd.SetPointer Default"}));
    EXPECT_FALSE(Main().m_bolLoading);
    EXPECT_FALSE(Main().m_bolNoDatabase);
    EXPECT_EQ(g_strDatabase, "pubs");
}

TEST_F(PickDatabaseTest, AModelThatWasStoppedLeavesNoDatabaseSelected) {
    modelLoads = false;
    Pick("pubs");
    EXPECT_EQ(plan.Log.back(), "FrontEnd.SetPointer Default");
    EXPECT_EQ(plan.Calls("RetrieveProfile"), 0);
    EXPECT_TRUE(Main().m_bolNoDatabase);
    EXPECT_FALSE(Main().m_bolLoading);
    EXPECT_TRUE(g_bolConnected);
}

TEST_F(PickDatabaseTest, TheScreenIsLoadingWhileItWorks) {
    std::vector<bool> seen;
    TheRoads().CreateObjectHeirarchy = [&] {
        seen.push_back(Main().m_bolLoading);
        return true;
    };
    TheRoads().RetrieveProfile = [&] { seen.push_back(Main().m_bolLoading); };
    TheRoads().grxTables_Click = [&](frmMain&) { seen.push_back(Main().m_bolLoading); };
    Pick("pubs");
    EXPECT_EQ(seen, (std::vector<bool>{true, true, false}));
}

// --- a step fails ---

struct Step {
    const char* operation;
    bool loading;         // m_bolLoading afterwards
    bool connected;       // g_bolConnected afterwards, when a database was open before
    const char* database; // g_strDatabase afterwards
    bool noDatabase;
};

// The rest does not run, flags and pointer stay as they were, and the next pick works.
TEST_F(PickDatabaseTest, AFailedStepLeavesTheRestUndone) {
    const Step steps[] = {
        {"SaveProfile", false, true, "pubs", false},
        {"FrontEnd.Repaint", true, true, "pubs", false},
        {"Server.DisConnect", true, true, "pubs", false},
        {"Settings.Read", true, true, "pubs", false},
        {"Server.SetLoginSecure", true, true, "pubs", false},
        {"Server.Connect", true, true, "pubs", false},
        {"Connection.Close", true, true, "pubs", false},
        {"Connection.Open", true, true, "pubs", false},
        {"Connection.DefaultDatabase", true, true, "pubs", false},
        {"CreateObjectHeirarchy", true, true, "northwind", false},
        {"LoadArchitecture", true, true, "northwind", false},
        {"RetrieveProfile", true, true, "northwind", false},
        {"FrontEnd.SetFocus", true, true, "northwind", false},
        {"grxTables_Click", false, true, "northwind", false},
    };
    g_strArchFile = "\\app\\x.qlnx";
    for (const Step& step : steps) {
        SCOPED_TRACE(step.operation);
        Pick("pubs");
        ASSERT_EQ(g_strDatabase, "pubs");
        ASSERT_EQ(frontEnd.CurrentPointer(), Pointer::Default);
        StartLog();
        plan.FailAt(step.operation, 1, Failure(numbers::Unspecified, "no luck"));
        frontEnd.ExpectFailure("no luck");
        Pick("northwind");
        EXPECT_TRUE(plan.Log.back().starts_with(step.operation)) << plan.Log.back();
        EXPECT_EQ(frontEnd.Failures().back().Procedures, Names{"frmMain.cboDatabase_Click"});
        EXPECT_EQ(Main().m_bolLoading, step.loading);
        EXPECT_EQ(Main().m_bolNoDatabase, step.noDatabase);
        EXPECT_EQ(g_bolConnected, step.connected);
        EXPECT_EQ(g_strDatabase, step.database);
        EXPECT_EQ(frontEnd.CurrentPointer(), Pointer::Hourglass);
    }
}

TEST_F(PickDatabaseTest, AFailedFirstPickLeavesNothingSelected) {
    for (const char* operation : {"Server.Connect", "Connection.Open"}) {
        SCOPED_TRACE(operation);
        plan.FailAt(operation, 1, Failure(numbers::LoginFailed, "no luck"));
        frontEnd.ExpectFailure("no luck");
        Pick("pubs");
        EXPECT_TRUE(Main().m_bolNoDatabase);
        EXPECT_TRUE(Main().m_bolLoading);
        EXPECT_FALSE(g_bolConnected);
        EXPECT_EQ(g_strDatabase, "");
    }
    Pick("pubs");
    EXPECT_FALSE(Main().m_bolNoDatabase);
}

TEST_F(PickDatabaseTest, ALoginTypeThatWasNeverStoredIsAFailure) {
    memorySettings.Entries.clear();
    frontEnd.ExpectFailure("Type mismatch");
    Pick("pubs");
    EXPECT_EQ(plan.Calls("Server.Connect"), 0);
}

TEST_F(PickDatabaseTest, WithoutACatalogueConnectionThePickFails) {
    g_objSQLServer.reset();
    frontEnd.ExpectFailure("Object variable not set");
    Pick("pubs");
    EXPECT_FALSE(g_bolConnected);
}

// A second act of the user during an event-loop turn of the load is not refused.
TEST_F(PickDatabaseTest, TheStopFlagReachesTheLoadThroughATurn) {
    frontEnd.OnDoEvents = [&] { Main().Menus.mnuStop.Click(); };
    TheRoads().CreateObjectHeirarchy = [&] {
        EXPECT_FALSE(g_bolStop);
        ThePlatform().frontEnd().DoEvents();
        return !g_bolStop;
    };
    Pick("pubs");
    EXPECT_TRUE(g_bolStop);
    EXPECT_TRUE(Main().m_bolNoDatabase);
}

// --- leaving ---

class OtherScreen : public Screen {
  public:
    explicit OtherScreen(std::string name, bool stays = false)
        : Screen(std::move(name))
        , m_stays(stays) {}
    OtherScreen* Partner = nullptr; // closed with this one

  protected:
    void Form_Unload(bool& cancel) override {
        if (Partner != nullptr)
            Partner->Unload();
        if (m_stays)
            throw Failure(numbers::Unspecified);
        cancel = false;
    }

  private:
    bool m_stays;
};

TEST_F(PickDatabaseTest, LeavingSavesClosesAndEnds) {
    Pick("pubs");
    Main().Load();
    OtherScreen first("frmOne"), second("frmTwo"), broken("frmBroken", true);
    first.Partner = &second;
    for (OtherScreen* screen : {&broken, &first, &second})
        screen->Load();
    StartLog();
    EXPECT_THROW(Main().Menus.mnuExit.Click(), ProcessEnded);
    EXPECT_EQ(plan.Log, (Names{"SaveProfile", "Connection.Close"}));
    EXPECT_FALSE(first.IsLoaded());
    EXPECT_FALSE(second.IsLoaded());
    EXPECT_EQ(g_objConnection, nullptr);
    EXPECT_TRUE(g_objTrace->Chain().empty());
}

TEST_F(PickDatabaseTest, NothingKeepsTheUserFromLeaving) {
    Pick("pubs");
    Main().Load();
    plan.FailAt("SaveProfile", 1, Failure(numbers::DiskFull));
    plan.FailAt("Connection.Close", 1, Failure(numbers::LinkBroken));
    EXPECT_THROW(Main().Unload(), ProcessEnded);
    EXPECT_TRUE(frontEnd.Failures().empty());
    EXPECT_EQ(g_objConnection, nullptr);
}

TEST_F(PickDatabaseTest, LeavingBeforeAnyDatabaseClosesNoConnection) {
    Main().Load();
    StartLog();
    EXPECT_THROW(Main().Unload(), ProcessEnded);
    EXPECT_EQ(plan.Log, Names{"SaveProfile"});
}

} // namespace
} // namespace quillon::tests
