// The main job from the login to audit rows, its stops and its failures.
#include "journeys/Journey.h"

#include "adapters/files/NativePath.h"
#include "architecture/basArchitectureUtils.h"
#include "architecture/clsQlnTemplate.h"
#include "execution/frmResults.h"
#include "platform/Platform.h"
#include "shell/ScreenInstances.h"
#include "shell/Settings.h"
#include "template/frmTemplate.h"

namespace quillon::tests {
namespace {

class MainJob : public Journey {
  protected:
    // Replaces the template of the session's profile, in memory.
    void UseTemplate(const std::string& text) { g_objArch->SetTemplateText(text); }
    void LeaveStaleScript() { home.folder.Write("app/triggers.sql", "-- stale\r\n"); }
};

constexpr const char* NamesTable = "-- {% objAudit.Print objAudit.Database.ActiveTable.Name & \" \" & "
                                   "objAudit.Database.ActiveTable.IsFirstAuditedTable %}\r\n";

TEST_F(MainJob, FromTheLoginToAuditRows) {
    Start();
    Pick();
    EXPECT_EQ(Main().Title(), "Quillon 0.1 [Sales]");
    Install();
    Tick("dbo.Country", true, true, true);
    const std::string log = Execute();
    EXPECT_EQ(log.find("Server: Msg 1"), std::string::npos) << log;
    EXPECT_TRUE(g_objAudit->Database()->Tables()->Item(Value(std::string("dbo.Country")))->IsAudited());
    EXPECT_EQ(g_objAudit->Database()->Tables()->Item(Value(std::string("dbo.Country")))->Triggers()->Count(),
              3);
    Run("INSERT INTO dbo.Country (CountryCode, CountryName, Currency) VALUES ('ZZ', N'Zedland', NULL)");
    Run("UPDATE dbo.Country SET CountryName = N'zedland' WHERE CountryCode = 'ZZ'");
    Run("UPDATE dbo.Country SET CountryName = CountryName");
    Run("DELETE FROM dbo.Country WHERE CountryCode = 'ZZ'");
    EXPECT_EQ(
        Ask("SELECT t.AUDIT_ACTION_ID, d.PRIMARY_KEY, d.COL_NAME, d.OLD_VALUE, d.NEW_VALUE "
            "FROM AUDIT_LOG_DATA d JOIN AUDIT_LOG_TRANSACTIONS t "
            "ON t.AUDIT_LOG_TRANSACTION_ID = d.AUDIT_LOG_TRANSACTION_ID ORDER BY d.AUDIT_LOG_DATA_ID"),
        (Lines{"2|[CountryCode]='ZZ'|CountryCode|NULL|ZZ", "2|[CountryCode]='ZZ'|CountryName|NULL|Zedland",
               "2|[CountryCode]='ZZ'|Currency|NULL|NULL", "1|[CountryCode]='ZZ'|CountryName|Zedland|zedland",
               "3|[CountryCode]='ZZ'|CountryCode|ZZ|NULL", "3|[CountryCode]='ZZ'|CountryName|zedland|NULL",
               "3|[CountryCode]='ZZ'|Currency|NULL|NULL"}));
}

TEST_F(MainJob, ASecondRunReplacesAndDropsWhatIsNoLongerTicked) {
    Start();
    Pick();
    Install();
    Tick("dbo.Country", true, true, true);
    Execute();
    Tick("dbo.Country", false, true, false);
    Execute();
    EXPECT_EQ(Ask("SELECT name FROM sys.triggers WHERE parent_id = OBJECT_ID(N'dbo.Country')"),
              (Lines{"AUDIT_Update_Country"}));
}

TEST_F(MainJob, EachOperationAloneMakesItsOwnTrigger) {
    Start();
    Pick();
    Install();
    for (const char* operation : {"Insert", "Update", "Delete"}) {
        const std::string name = operation;
        Tick("dbo.Country", name == "Insert", name == "Update", name == "Delete");
        Execute();
        EXPECT_EQ(Ask("SELECT name FROM sys.triggers WHERE parent_id = OBJECT_ID(N'dbo.Country')"),
                  (Lines{"AUDIT_" + name + "_Country"}));
    }
}

TEST_F(MainJob, AnotherProfileTakesOverAndGivesBack) {
    const auto triggers = [&] {
        return Ask("SELECT name FROM sys.triggers WHERE parent_id = OBJECT_ID(N'dbo.Country') ORDER BY name");
    };
    home.folder.Write(
        "other.qlnx",
        "<template><header><name>n</name><scriptlanguage>VBScript</scriptlanguage></header><includes/>"
        "<templatecode><![CDATA[CREATE TRIGGER dbo.Other ON dbo.Country AFTER INSERT AS\r\n"
        "-- <TAG>QUILLON GENERATED - DO NOT REMOVE</TAG>\r\nSET NOCOUNT ON\r\nGO\r\n]]>"
        "</templatecode></template>");
    Start();
    Pick();
    Install();
    Tick("dbo.Country", true, false, true);
    Execute();
    const std::string own = g_strArchFile;
    ASSERT_TRUE(basArchitectureUtils::LoadProfile(
        adapters::FromNative((home.folder.path() / "other.qlnx").string())));
    Execute();
    EXPECT_EQ(triggers(), (Lines{"AUDIT_Delete_Country", "AUDIT_Insert_Country", "Other"}));
    EXPECT_EQ(g_objAudit->Database()->Tables()->Item(Value(std::string("dbo.Country")))->Triggers()->Count(),
              3)
        << "the model knows the triggers of every profile";
    ASSERT_TRUE(basArchitectureUtils::LoadProfile(own));
    Execute();
    EXPECT_EQ(triggers(), (Lines{"AUDIT_Delete_Country", "AUDIT_Insert_Country"}))
        << "two profiles do not log the same change twice";
}

TEST_F(MainJob, TriggersAreNotMadeWithoutTheLog) {
    Start();
    Pick();
    Tick("dbo.Country", true, false, false);
    EXPECT_NE(Execute().find("The audit structures are not installed"), std::string::npos);
    EXPECT_EQ(AskOne("SELECT COUNT(*) FROM sys.triggers WHERE parent_id = OBJECT_ID(N'dbo.Country')"), "0");
}

TEST_F(MainJob, TheScriptTellsTheFirstTableAndGoesToTheChosenWay) {
    Start();
    Pick();
    UseTemplate(NamesTable);
    settings::Write("1", settings::Editor);
    Tick("dbo.Customer", true, false, false);
    Tick("dbo.Order", true, false, false);
    frontEnd.ExpectModal("frmResults", [](Screen& screen) {
        EXPECT_EQ(static_cast<frmResults&>(screen).cdmCodeMax.Text(),
                  "-- Customer True\r\n\r\n-- Order False\r\n\r\n");
    });
    Main().Menus.mnuFileGenerateProcs.Click();
    EXPECT_EQ(Main().ProgressBar1.Value(), 0);
    EXPECT_FALSE(Main().cmdBreak.Visible());
    EXPECT_EQ(frontEnd.CurrentPointer(), Pointer::Default);
}

// The table at work is finished and stays in the file; nothing is handed on.
TEST_F(MainJob, TheStopButtonEndsTheRunBetweenTables) {
    Start();
    Pick();
    UseTemplate(NamesTable);
    Tick("dbo.Customer", true, false, false);
    Tick("dbo.Order", true, false, false);
    frontEnd.OnDoEvents = [this] {
        if (Main().ProgressBar1.Value() == 1)
            Main().cmdBreak.Click();
    };
    Main().Menus.mnuFileGenerateProcs.Click();
    frontEnd.OnDoEvents = {};
    EXPECT_EQ(Script(), "-- Customer True\r\n\r\n");
    EXPECT_FALSE(g_bolStop);
}

// A template that stops the run still gets what was made before it handed on; its own table is left out.
TEST_F(MainJob, ATemplateThatCancelsStillHandsOn) {
    Start();
    Pick();
    UseTemplate("{% If objAudit.Database.ActiveTable.Name = \"Order\" Then objAudit.Cancel %}\r\n"
                "-- {% objAudit.Print objAudit.Database.ActiveTable.Name %}\r\n");
    for (const char* table : {"dbo.Customer", "dbo.Order", "dbo.OrderLine"})
        Tick(table, true, false, false);
    EXPECT_NE(Execute().find("Running 'Audit Triggers' script..."), std::string::npos);
    EXPECT_NE(Script().find("-- Customer"), std::string::npos);
    EXPECT_EQ(Script().find("-- Order"), std::string::npos);
    EXPECT_FALSE(g_objAudit->Cancelled());
}

TEST_F(MainJob, AFailingTemplateHandsNothingOn) {
    Start();
    Pick();
    LeaveStaleScript();
    Tick("dbo.Customer", true, false, false);
    Tick("dbo.Order", true, false, false);
    for (const char* table : {"Customer", "Order"}) {
        UseTemplate("a\r\n{% If objAudit.Database.ActiveTable.Name = \"" + std::string(table) +
                    "\" Then x = 1 / 0 %}\r\n");
        frontEnd.ExpectMessage("Error Number: 11\r\nError Description: Division by zero\r\nError Line: "
                               "5\r\nError Text: If objAudit.Database.ActiveTable.Name = \"" +
                                   std::string(table) + "\" Then x = 1 / 0 ",
                               "Template Syntax Error", Icon::Warning);
        frontEnd.ExpectShow("frmTemplate");
        Main().Menus.mnuFileGenerateProcs.Click();
        // Only the first table's success does away with an older script.
        EXPECT_EQ(Script(), table == std::string("Customer") ? "-- stale\r\n" : "a\r\n\r\n") << table;
    }
}

TEST_F(MainJob, EachRefusalHasItsText) {
    Start();
    frontEnd.ExpectMessage("Please Select a Database first", "Invalid Operation", Icon::Warning);
    Main().Menus.mnuFileGenerateProcs.Click();
    Pick();
    frontEnd.ExpectMessage("At least one field must be selected for Auditing", "No Fields Selected for Audit",
                           Icon::Warning);
    Main().Menus.mnuFileGenerateProcs.Click();
    g_objAudit->Database()
        ->Tables()
        ->Item(Value(std::string("dbo.Country")))
        ->Fields()
        ->Item(Value(std::int32_t(1)))
        ->SetIsChecked(true);
    frontEnd.ExpectMessage("At least one table must be selected for Auditing", "No Fields Selected for Audit",
                           Icon::Warning);
    Main().Menus.mnuFileGenerateProcs.Click();
    Tick("dbo.Country", true, false, false);
    Main().txtTemplate.SetText(" ");
    frontEnd.ExpectMessage("A valid Architecture Profile file (*.qlnx) must be selected",
                           "Missing Architecture Profile", Icon::Warning);
    Main().Menus.mnuFileGenerateProcs.Click();
    g_strArchFile.clear();
    frontEnd.ExpectMessage("You must select a valid audit architecture file first", "Invalid Operation",
                           Icon::Warning);
    frontEnd.ExpectFile("Open Audit Profile", std::nullopt);
    Main().Menus.mnuFileGenerateProcs.Click();
}

TEST_F(MainJob, TheSelectionComesBackWithTheDatabase) {
    settings::Write("0", settings::ExcludeSysTables);
    Start();
    Pick();
    Tick("dbo.Country", true, false, true);
    Pick("master");
    Pick();
    const auto country = g_objAudit->Database()->Tables()->Item(Value(std::string("dbo.Country")));
    EXPECT_TRUE(country->Audit4Insert() && country->Audit4Delete() && !country->Audit4Update());
    EXPECT_TRUE(country->IsSelectedForAudit());
    EXPECT_EQ(home.folder.Read("app/Sales_AuditSel.apr"), "\"dbo.Country\",1,0,1\r\n");

    Pick("master");
    frontEnd.OnDoEvents = [this] { Main().Menus.mnuStop.Click(); };
    Pick(); // stopped: no tables, no ticks
    EXPECT_EQ(Main().grxTables.ItemCount(), 0);
    frontEnd.OnDoEvents = {};
    Pick();
    EXPECT_TRUE(g_objAudit->Database()->Tables()->Named("dbo.Country")->IsSelectedForAudit());
}

} // namespace
} // namespace quillon::tests
