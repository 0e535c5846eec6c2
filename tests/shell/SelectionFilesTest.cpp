// The two selection files of a database: their exact form, what comes back from them, and what they cannot
// hold.
#include "FilledSession.h"
#include "platform/FailureNumbers.h"
#include "shell/basProfile.h"

namespace quillon::tests {
namespace {

constexpr const char* Fields = "\\app\\Sales_FieldSel.apr";
constexpr const char* Audit = "\\app\\Sales_AuditSel.apr";

class SelectionFilesTest : public FilledSession {
  protected:
    void TickSome() {
        for (const char* name : {"id", "name"})
            Field("dbo.Customer", name).SetIsChecked(true);
        Table("dbo.Customer").SetAudit4Update(true);
        Table("hr.Letter").SetAudit4Insert(true);
        Table("hr.Letter").SetAudit4Delete(true);
        Field("dbo.Order", "2024").SetIsChecked(true);
    }
    void ClearAll() {
        Main().Menus.mnuUnSelectAll.Click();
        for (CheckBox::State state : {CheckBox::Ticked, CheckBox::Unticked})
            Main().chkAll.SetValue(state);
    }
    std::map<std::string, std::string>& Files() { return memoryFiles.Contents; }
};

TEST_F(SelectionFilesTest, HoldTheTicksInTheOldRecordForm) {
    TickSome();
    g_objTrace->SetNote("something of before");
    basProfile::SaveProfile();
    EXPECT_EQ(Files()[Fields],
              "\"dbo.Customer\",\"id\"\r\n\"dbo.Customer\",\"name\"\r\n\"dbo.Order\",\"2024\"\r\n");
    EXPECT_EQ(Files()[Audit], "\"dbo.Customer\",0,1,0\r\n\"hr.Letter\",1,0,1\r\n");
    EXPECT_EQ(g_objTrace->Note(), "");
    ClearAll();
    basProfile::RetrieveProfile();
    EXPECT_EQ(Ticked(), "Customer.id Customer.name Order.2024");
    EXPECT_EQ(Operations(), "-U- --- I-D");
    ClearAll();
    basProfile::SaveProfile(); // nothing ticked wipes what was stored
    EXPECT_EQ(Files()[Fields] + Files()[Audit], "");
    basProfile::RetrieveProfile(); // files of no length
    EXPECT_EQ(Ticked(), "");
}

TEST_F(SelectionFilesTest, NothingIsSavedWithoutAConnectionOrAModel) {
    g_bolConnected = false;
    basProfile::SaveProfile();
    g_bolConnected = true;
    g_objAudit.reset();
    basProfile::SaveProfile();
    EXPECT_TRUE(Files().empty());
}

// A load that was stopped or failed has no ticks; leaving it must not wipe those of last time.
TEST_F(SelectionFilesTest, AModelThatNeverGotItsTicksIsNotSavedAsItIsLeft) {
    Files()[Fields] = "old fields";
    basProfile::SaveOnLeaving();
    EXPECT_EQ(Files()[Fields], "old fields");
    plan.FailAt("Files.ReadAll", 1, Failure(numbers::PermissionDenied));
    frontEnd.ExpectFailure("Permission denied");
    basProfile::RetrieveProfile();
    basProfile::SaveOnLeaving();
    EXPECT_EQ(Files()[Fields], "old fields");
    basProfile::RetrieveProfile();
    basProfile::SaveOnLeaving();
    EXPECT_EQ(Files()[Fields], "");
}

TEST_F(SelectionFilesTest, ReadingMergesColumnsAndReplacesTheOperationsOfItsTables) {
    Field("dbo.Order", "id").SetIsChecked(true);
    Table("dbo.Order").SetAudit4Delete(true);
    Table("dbo.Customer").SetAudit4Insert(true);
    Files()[Fields] = "\"DBO.customer\",\"NAME\"\r\n";
    Files()[Audit] = "\"dbo.Customer\",0,1,0\r\n";
    const int read = Main().grxFields.Generation();
    Main().Menus.mnuRetrieve.Click();
    EXPECT_EQ(Ticked(), "Customer.name Order.id");
    EXPECT_EQ(Operations(), "-U- --D ---");
    EXPECT_GT(Main().grxFields.Generation(), read);
}

TEST_F(SelectionFilesTest, WhatHasGoneOrMakesNoSenseIsPassedOver) {
    Files()[Fields] = "\"dbo.Gone\",\"id\"\r\n\"dbo.Order\",\"gone\"\r\n\"dbo.Order\",\"9999\"\r\n"
                      "\"dbo.Customer\",\"photo\"\r\n\"dbo.Order\"\r\n\r\n,,\r\nnonsense\r\n\"\r\n"
                      "\"dbo.Order\",\"id\""; // no line end
    Files()[Audit] = "\"99999\",1,1,1\r\n\"dbo.Order\",1,1\r\n\"dbo.Order\",2,x, 1\r\n";
    basProfile::RetrieveProfile();
    EXPECT_EQ(Ticked(), "");
    EXPECT_EQ(Operations(), "--- --D ---");
    Files()[Fields] = "\"dbo.Gone\",\"id\"\n\"dbo.Order\",\"id\""; // no carriage return, no line end
    basProfile::RetrieveProfile();
    EXPECT_EQ(Ticked(), "Order.id");
    EXPECT_TRUE(frontEnd.Failures().empty());
}

TEST_F(SelectionFilesTest, OddNamesComeBackAndAQuoteIsToldOf) {
    AddTable("dbo", "a,b\r\nc", {{"x, y", "int"}, {"d\r\ne", "int"}, {"size 3\"", "int"}, {"ä", "int"}});
    AddTable("dbo", "q\"q", {{"id", "int"}});
    Main().Menus.mnuSelectAll.Click();
    frontEnd.ExpectFailure(
        "A name with a double quote cannot be kept in the selection files.  All ticks are saved "
        "but those of:\r\ndbo.a,b\r\nc, size 3\"\r\ndbo.q\"q");
    basProfile::SaveProfile();
    ClearAll();
    basProfile::RetrieveProfile();
    EXPECT_EQ(Ticked(),
              "Customer.id Customer.name Order.id Order.2024 a,b\r\nc.x, y a,b\r\nc.d\r\ne a,b\r\nc.ä");
}

TEST_F(SelectionFilesTest, ADatabaseThatCannotNameAFileIsAReportAndLosesNothing) {
    TickSome();
    for (const char* name : {"Sales/2024", "a\\b", "c:", "*", "?", "\"", "<", ">", "|"}) {
        SCOPED_TRACE(name);
        g_strDatabase = name;
        frontEnd.ExpectFailure(std::string("no file can bear the name of database ") + name);
        basProfile::SaveProfile();
        basProfile::RetrieveProfile(); // nothing is stored: no failure
        EXPECT_TRUE(Files().empty());
    }
    EXPECT_EQ(Operations(), "-U- --- I-D");
}

TEST_F(SelectionFilesTest, AFailedSaveKeepsWhatWasStored) {
    Files()[Fields] = "old fields";
    Files()[Audit] = "old operations";
    TickSome();
    for (const char* path : {Fields, Audit}) {
        plan.FailAt("Files.Replace", path == Fields ? 1 : 2, Failure(numbers::DiskFull, "Disk full"));
        frontEnd.ExpectFailure("Disk full");
        basProfile::SaveProfile();
        EXPECT_TRUE(Files()[path].starts_with("old ")) << path;
    }
}

TEST_F(SelectionFilesTest, SavingFromTheMenuSaysSo) {
    frontEnd.ExpectMessage("Profile updated", "Status", Icon::Information);
    Main().asxToolbar1.Press(2);
    EXPECT_EQ(Files().size(), 2u);
}

} // namespace
} // namespace quillon::tests
