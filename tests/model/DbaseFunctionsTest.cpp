// Queries with retries, lists filled from them, the list of databases, the small text helpers.
#include "DataTest.h"
#include "model/basDbaseFunctions.h"

namespace quillon::tests {
namespace {

using namespace basDbaseFunctions;

class DbaseFunctionsTest : public DataTest {
  protected:
    DbaseFunctionsTest() {
        SessionConnection().Open("Initial Catalog=pubs;");
        data.Answer("q", FakeAnswer({FakeResult{{"n"}, {{"a"}, {"b"}}}}));
    }
    data::RecordsetRef Open(const char* sql) {
        data::RecordsetRef recordset;
        OpenRecordset(sql, recordset, data::CursorType::Static, data::LockType::ReadOnly);
        return recordset;
    }
    static FakeResult Rows(std::vector<std::vector<Value>> rows) {
        return {{"name", "number"}, std::move(rows)};
    }
    std::vector<std::int32_t> Numbers() const {
        std::vector<std::int32_t> numbers;
        for (const auto& item : list.Items())
            numbers.push_back(item.ItemData);
        return numbers;
    }
    static Value Number(std::int32_t number) { return Value(number); }

    Screen screen{"frmTest"};
    ComboBox list{screen, "list"};
};

TEST_F(DbaseFunctionsTest, AQueryOpensAndClearsItsNote) {
    EXPECT_EQ(GetRecordCount(*Open("q")), 2);
    EXPECT_EQ(g_objTrace->Note(), "");
}

TEST_F(DbaseFunctionsTest, ABrokenLinkIsOpenedAgainAndTheQueryRepeated) {
    for (int nth = 1; nth <= 3; ++nth)
        plan.FailAt("Recordset.Open", nth, Failure(numbers::LinkBroken, "gone"));
    EXPECT_EQ(GetRecordCount(*Open("q")), 2);
    EXPECT_EQ(plan.Calls("Recordset.Open"), 4);
    EXPECT_EQ(data.Data().Opened, (Lines(4, "Initial Catalog=pubs;")));
}

TEST_F(DbaseFunctionsTest, AFourthBreakIsReported) {
    plan.FailAlways("Recordset.Open", Failure(numbers::LinkBroken, "gone"));
    frontEnd.ExpectFailure("gone");
    const auto recordset = Open("q");
    ASSERT_NE(recordset, nullptr);
    EXPECT_EQ(recordset->State(), data::ObjectState::Closed);
    EXPECT_EQ(plan.Calls("Recordset.Open"), 4);
    EXPECT_EQ(frontEnd.Failures().back().Procedures.back(), "basDbaseFunctions OpenRecordset q");
    EXPECT_EQ(LastNote(),
              "Attempting to execute the following SQL: q\r\n"
              "Note: An error may be raised by a stored procedure, itself, that has syntax errors.  "
              "Please check the procedure, if this the case, to see that it does not have errors");
    EXPECT_TRUE(g_objTrace->Chain().empty());
}

TEST_F(DbaseFunctionsTest, AnotherFailureIsNotRepeated) {
    data.Data().Version = "2.5";
    frontEnd.ExpectFailure("no answer was prepared");
    Open("unknown");
    EXPECT_EQ(plan.Calls("Recordset.Open"), 1);
    EXPECT_NE(LastNote().find("ALERT:  ADO version must be 2.6 or greater."), std::string::npos);
}

TEST_F(DbaseFunctionsTest, AReconnectionThatFailsIsReported) {
    plan.FailAlways("Recordset.Open", Failure(numbers::LinkBroken, "gone"));
    plan.FailAlways("Connection.Open", Failure(numbers::LoginFailed, "no way back"));
    frontEnd.ExpectFailure("no way back");
    Open("q");
}

TEST_F(DbaseFunctionsTest, CountsRowsAndComesBackToTheFirst) {
    const auto recordset = Open("q");
    recordset->MoveNext();
    EXPECT_EQ(GetRecordCount(*recordset), 2);
    EXPECT_EQ(recordset->FieldAt(0).Value, Value("a"));
    data.Answer("none", FakeAnswer({FakeResult{{"n"}, {}}}));
    EXPECT_EQ(GetRecordCount(*Open("none")), 0);
}

TEST_F(DbaseFunctionsTest, AListBeginsWithAllAndTakesTheNumbers) {
    data.Answer("l", FakeAnswer({Rows({{"dbo  ", Number(1)}, {"guest", Number(2)}, {"x", "no number"}})}));
    list.AddItem("old");
    EXPECT_TRUE(pub_FillComboFromSQL(list, "l", true));
    EXPECT_EQ(Texts(list), (Lines{"{All}", "dbo", "guest", "x"}));
    EXPECT_EQ(Numbers(), (std::vector<std::int32_t>{-999, 1, 2, 0}));
    EXPECT_EQ(list.ListIndex(), 0);
}

TEST_F(DbaseFunctionsTest, ANullNameShiftsTheNumbersBehindIt) {
    data.Answer(
        "l",
        FakeAnswer({Rows({{"a", Number(1)}, {NullValue{}, Number(2)}, {"b", Number(3)}, {"c", Number(4)}})}));
    EXPECT_TRUE(pub_FillComboFromSQL(list, "l", true));
    EXPECT_EQ(Texts(list), (Lines{"{All}", "a", "b", "c"}));
    EXPECT_EQ(Numbers(), (std::vector<std::int32_t>{-999, 3, 4, 0}));
}

TEST_F(DbaseFunctionsTest, AListWithoutClearingGrows) {
    list.AddItem("old");
    EXPECT_TRUE(pub_FillComboFromSQL(list, "q", false));
    EXPECT_EQ(Texts(list), (Lines{"old", "{All}", "a", "b"}));
}

TEST_F(DbaseFunctionsTest, AQueryWithoutRowsLeavesTheListEmpty) {
    data.Answer("none", FakeAnswer({FakeResult{{"n"}, {}}}));
    list.AddItem("old");
    EXPECT_TRUE(pub_FillComboFromSQL(list, "none", true));
    EXPECT_TRUE(list.Items().empty());
    EXPECT_TRUE(pub_FillComboFromSQL(list, data::RecordsetRef(), true));
}

TEST_F(DbaseFunctionsTest, ARecordsetIsClosedBehindTheList) {
    const auto recordset = Open("q");
    EXPECT_TRUE(pub_FillComboFromSQL(list, recordset, true));
    EXPECT_EQ(recordset->State(), data::ObjectState::Closed);
    frontEnd.ExpectFailure("");
    EXPECT_FALSE(pub_FillComboFromSQL(list, recordset, true));
}

TEST_F(DbaseFunctionsTest, TheDatabasesAreListedWithOrWithoutTheServersOwn) {
    for (const char* name : {"master", "pubs", "sales"})
        catalogue.Server().AddDatabase(name, std::string(name) == "master");
    g_objSQLServer = platform.catalogue().NewServer();
    frontEnd.SetPointer(Pointer::Hourglass);
    AvailableDatabases();
    ComboBox& box = Main().cboDatabase;
    EXPECT_EQ(box.Text(), "<Select A Database>");
    EXPECT_EQ(Texts(box), (Lines{"pubs", "sales"}));
    EXPECT_EQ(box.Items().front().Key, "database");
    EXPECT_EQ(box.DropDowns(), 1);
    EXPECT_EQ(frontEnd.Focus(), "cboDatabase");
    EXPECT_EQ(frontEnd.CurrentPointer(), Pointer::Default);
    EXPECT_EQ(g_objTrace->Note(), "");
    settings.Set("ExcludeSysTables", "0");
    AvailableDatabases();
    EXPECT_EQ(Texts(box), (Lines{"master", "pubs", "sales"}));
}

TEST_F(DbaseFunctionsTest, TextsAreTrimmedAsTemplatesExpect) {
    const std::pair<const char*, const char*> types[] = {{"int", "int"},
                                                         {"int identity", "int"},
                                                         {"decimal() identity", "decimal"},
                                                         {"numeric() identity", "numeric"}};
    for (const auto& [type, trimmed] : types)
        EXPECT_EQ(Trim_Identity(type), trimmed);
    const std::pair<const char*, const char*> lists[] = {
        {" a, b, ", "a, b"}, {"a", "a"}, {",", ""}, {"", ""}, {"a,,", "a,"}};
    for (const auto& [text, cut] : lists)
        EXPECT_EQ(RemoveTrailingComma(text), cut);
}

TEST_F(DbaseFunctionsTest, OnlyTheFirstTableOfARunIsFirst) {
    g_objAudit = std::make_shared<AuditObj>();
    auto& tables = *g_objAudit->Database()->Tables();
    const auto first = tables.Add("a", "dbo", DateValue{1});
    const auto second = tables.Add("b", "dbo", DateValue{1});
    SetFirstLast(1, *first);
    EXPECT_TRUE(first->IsFirstAuditedTable());
    SetFirstLast(2, *second);
    EXPECT_FALSE(first->IsFirstAuditedTable());
    EXPECT_FALSE(second->IsFirstAuditedTable());
    second->SetIsFirstAuditedTable(true);
    SetFirstLast(3, *first);
    EXPECT_FALSE(second->IsFirstAuditedTable());
}

} // namespace
} // namespace quillon::tests
