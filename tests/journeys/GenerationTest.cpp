// The generation run on a server: what it asks, tells and hands on, and what a person can do in between.
#include "architecture/clsQlnTemplate.h"
#include "execution/frmResults.h"
#include "journeys/Journey.h"
#include "platform/Platform.h"
#include "shell/Settings.h"

namespace quillon::tests {
namespace {

class Generation : public Journey {
  protected:
    void StartWith(std::initializer_list<const char*> ticked, const std::string& profile = NamesTable) {
        Start();
        Pick();
        g_objArch->SetTemplateText(profile);
        for (const char* table : ticked)
            Tick(table, true, false, false);
        settings::Write("1", settings::Editor);
    }
    void ExpectScript(const std::string& text) {
        frontEnd.ExpectModal("frmResults", [text](Screen& screen) {
            EXPECT_EQ(static_cast<frmResults&>(screen).cdmCodeMax.Text(), text);
        });
    }
    void Generate() { Main().Menus.mnuFileGenerateProcs.Click(); }
    // A profile file of the user's; its path in the system's form.
    std::string Profile(const std::string& name, const std::string& text) {
        home.folder.Write(name,
                          "<template><header><name>n</name><scriptlanguage>VBScript</scriptlanguage></header>"
                          "<templatecode><![CDATA[" +
                              text + "]]></templatecode></template>");
        return home.folder.SystemPath(name);
    }
    std::filesystem::path InApplication(const char* name) const { return home.folder.path() / "app" / name; }

    static constexpr const char* NamesTable = "-- {% objAudit.Print objAudit.Database.ActiveTable.Name %}";
};

TEST_F(Generation, TellsEachTableAndMovesTheBar) {
    StartWith({"dbo.Customer", "dbo.Order"});
    home.folder.Write("app/Audit_Triggers.sql", "left over");
    Lines told;
    const auto observation = Main().stbStatus.Observe([&](ControlChange) {
        const ProgressBar& bar = Main().ProgressBar1;
        told.push_back(Main().stbStatus.Panel(4) + " " + std::to_string(bar.Value()) + "/" +
                       std::to_string(bar.Maximum()));
    });
    bool canBreak = false;
    frontEnd.OnDoEvents = [&] { canBreak = Main().cmdBreak.Visible(); };
    ExpectScript("-- Customer\r\n\r\n-- Order\r\n\r\n");
    Generate();
    Main().stbStatus.EndObservation(observation);
    ASSERT_EQ(told.size(), 4u);
    EXPECT_TRUE(told[0].starts_with("Creating Triggers ..."));
    EXPECT_EQ(told[1], "Creating Trigger(s) for dbo.Customer 1/2");
    EXPECT_EQ(told[2], "Creating Trigger(s) for dbo.Order 2/2");
    EXPECT_EQ(told[3], " 0/2");
    EXPECT_TRUE(canBreak);
    EXPECT_FALSE(exists(InApplication("Audit_Triggers.sql")));
}

// Tables behind the last ticked one still give the user a turn.
TEST_F(Generation, AStopAfterTheLastTableStillHandsNothingOn) {
    StartWith({"dbo.Country"});
    frontEnd.OnDoEvents = [this] {
        if (Main().ProgressBar1.Value() == 1)
            Main().asxToolbar1.Press(8);
    };
    Generate();
    frontEnd.OnDoEvents = {};
    EXPECT_EQ(Script(), "-- Country\r\n\r\n");
    EXPECT_FALSE(g_bolStop);
    ExpectScript("-- Country\r\n\r\n");
    Generate(); // the stop is over
}

// Columns of one table and operations of another pass the check and make nothing.
TEST_F(Generation, TicksThatDoNotMeetHandOnWhatLiesThere) {
    StartWith({});
    g_objAudit->Database()->Tables()->Named("dbo.Country")->Fields()->At(1)->SetIsChecked(true);
    g_objAudit->Database()->Tables()->Named("dbo.Order")->SetAudit4Delete(true);
    home.folder.Write("app/triggers.sql", "-- stale");
    ExpectScript("-- stale");
    Generate();
    remove(InApplication("triggers.sql"));
    settings::Write("2", settings::Editor);
    frontEnd.ExpectFailure("File not found");
    Generate();
    EXPECT_FALSE(Main().cmdBreak.Visible());
}

// A template that cancels at its last table is heard by the next run.
TEST_F(Generation, ACancelAtTheLastTableEndsTheNextRunAtItsStart) {
    StartWith({"dbo.Country"});
    const auto& tables = *g_objAudit->Database()->Tables();
    const auto& last = tables.At(tables.Count());
    Tick(last->Owner() + "." + last->Name(), true, false, false);
    g_objArch->SetTemplateText("{% If objAudit.Database.ActiveTable.Name = \"" + last->Name() +
                               "\" Then objAudit.Cancelled = True %}x");
    ExpectScript("x\r\n\r\n");
    Generate();
    EXPECT_TRUE(g_objAudit->Cancelled());
    ExpectScript("x\r\n\r\n");
    Generate();
    EXPECT_FALSE(g_objAudit->Cancelled());
}

TEST_F(Generation, WithoutAProfileOneIsAskedForAndTheRunGoesOn) {
    StartWith({"dbo.Country"});
    g_strArchFile.clear();
    const std::string path = Profile("mine.qlnx", "mine");
    frontEnd.ExpectMessage("You must select a valid audit architecture file first", "Invalid Operation",
                           Icon::Warning);
    frontEnd.ExpectFile("Open Audit Profile", path);
    ExpectScript("mine\r\n\r\n");
    Generate();
    EXPECT_EQ(Main().txtTemplate.Text(), " mine.qlnx");
    EXPECT_EQ(g_strArchFile, path);
}

TEST_F(Generation, AnotherProfileBetweenRunsMakesItsOwnTriggers) {
    StartWith({"dbo.Country"});
    ExpectScript("-- Country\r\n\r\n");
    Generate();
    frontEnd.ExpectFile("Open Audit Profile",
                        Profile("other.qlnx", "other {% objAudit.Print objAudit.Author %}"));
    Main().asxToolbar1.Press(1);
    ExpectScript("other \r\n\r\n");
    Generate();
    // One that is no profile is told; the session keeps the texts of the last good one.
    frontEnd.ExpectFile("Open Audit Profile", Profile("bad.qlnx", "]]>"));
    frontEnd.ExpectFailure("The file specified was not a valid template.");
    Main().asxToolbar1.Press(1);
    ExpectScript("other \r\n\r\n");
    Generate();
}

TEST_F(Generation, MakesTheTickedOperationsAlone) {
    Start();
    Pick();
    Install();
    const struct {
        bool insert, update, deletes;
        Lines names;
    } cases[] = {
        {true, false, false, {"AUDIT_Insert_Country"}},
        {false, false, true, {"AUDIT_Delete_Country"}},
        {true, true, false, {"AUDIT_Insert_Country", "AUDIT_Update_Country"}},
        {true, true, true, {"AUDIT_Delete_Country", "AUDIT_Insert_Country", "AUDIT_Update_Country"}},
    };
    for (const auto& [insert, update, deletes, names] : cases) {
        Tick("dbo.Country", insert, update, deletes);
        Execute();
        EXPECT_EQ(
            Ask("SELECT name FROM sys.triggers WHERE parent_id = OBJECT_ID(N'dbo.Country') ORDER BY name"),
            names);
        EXPECT_EQ(g_objAudit->Database()->Tables()->Named("dbo.Country")->Triggers()->Count(),
                  static_cast<std::int32_t>(names.size()));
    }
}

// A script made of two databases would be worse than none.
TEST_F(Generation, AnotherLoginOrDatabaseDuringTheRunEndsIt) {
    settings::Write("0", settings::ExcludeSysTables);
    StartWith({"dbo.Customer", "dbo.Order"});
    frontEnd.OnDoEvents = [this] {
        if (Main().ProgressBar1.Value() == 1) {
            frontEnd.OnDoEvents = {};
            Pick("master");
        }
    };
    frontEnd.ExpectFailure("The database was changed while its triggers were made");
    Generate();
    EXPECT_EQ(g_strDatabase, "master");
}

} // namespace
} // namespace quillon::tests
