// Controls: setting a value from code fires the same event as a person's act, and nothing fires twice.
#include <gtest/gtest.h>

#include "platform/Failure.h"
#include "platform/FailureNumbers.h"
#include "platform/Platform.h"
#include "platform/controls.h"
#include "support/ScriptedFrontEnd.h"

namespace quillon::tests {
namespace {

class frmSample : public Screen {
  public:
    frmSample()
        : Screen("frmSample") {}

    CheckBox chkAll{*this, "chkAll"};
    ControlArray<OptionButton, 3> optEditor{*this, "optEditor"};
    OptionButton optOther{*this, "optOther"};
    ComboBox cboDatabase{*this, "cboDatabase"};
    Grid grxTables{*this, "grxTables"};
    Menu mnuFile{*this, "mnuFile", "&File"};
    Menu mnuExit{*this, "mnuExit", "&Exit", &mnuFile};

    int loads = 0;
    bool stay = false;

  protected:
    void Form_Load() override { ++loads; }
    void Form_Unload(bool& cancel) override { cancel = stay; }
};

class Controls : public testing::Test {
  protected:
    ScriptedFrontEnd frontEnd;
    Platform platform{PlatformServices{.frontEnd = &frontEnd}};
    frmSample screen;
};

TEST_F(Controls, RegisterInOrderByNameAndIndex) {
    std::string names;
    for (const Control* control : screen.Controls())
        names += control->Name() + (control->Index() < 0 ? "" : std::to_string(control->Index())) + " ";
    EXPECT_EQ(names,
              "chkAll optEditor0 optEditor1 optEditor2 optOther cboDatabase grxTables mnuFile mnuExit ");
    EXPECT_EQ(screen.FindControl("optEditor", 2), &screen.optEditor[2]);
    EXPECT_EQ(screen.FindControl("optEditor"), nullptr);
    EXPECT_EQ(screen.mnuFile.Entries().front(), &screen.mnuExit);
}

TEST_F(Controls, CheckBoxFiresOnlyOnChange) {
    int clicks = 0;
    screen.chkAll.OnClick = [&] { ++clicks; };
    screen.chkAll.SetValue(CheckBox::Ticked);
    screen.chkAll.SetValue(CheckBox::Ticked);
    EXPECT_EQ(clicks, 1);
    screen.chkAll.SetValue(CheckBox::Greyed);
    screen.chkAll.Click(); // a click on a greyed box clears it
    EXPECT_EQ(screen.chkAll.Value(), CheckBox::Unticked);
    EXPECT_EQ(clicks, 3);
    screen.chkAll.SetEnabled(false);
    screen.chkAll.Click();
    EXPECT_EQ(clicks, 3);
}

TEST_F(Controls, OptionsOfOneArrayExcludeEachOther) {
    std::string events;
    for (auto& option : screen.optEditor)
        option.OnClick = [&, index = option.Index()] { events += std::to_string(index); };
    screen.optOther.SetValue(true);
    screen.optEditor[0].SetValue(true);
    screen.optEditor[2].Click();
    screen.optEditor[2].Click();
    EXPECT_EQ(events, "02");
    EXPECT_FALSE(screen.optEditor[0].Value());
    EXPECT_TRUE(screen.optOther.Value());
}

TEST_F(Controls, ComboBoxKeepsIndexAndTextTogether) {
    int clicks = 0;
    screen.cboDatabase.OnClick = [&] { ++clicks; };
    screen.cboDatabase.AddItem("Sales", 7);
    screen.cboDatabase.AddItem("Stock");
    screen.cboDatabase.SetListIndex(1);
    screen.cboDatabase.SetListIndex(1);
    EXPECT_EQ(clicks, 1);
    EXPECT_EQ(screen.cboDatabase.Text(), "Stock");
    screen.cboDatabase.Pick(1);
    EXPECT_EQ(clicks, 2);
    screen.cboDatabase.SetText("typed");
    EXPECT_EQ(screen.cboDatabase.ListIndex(), -1);
    EXPECT_THROW(screen.cboDatabase.SetListIndex(2), Failure);
    EXPECT_EQ(screen.cboDatabase.Text(), "typed");
    screen.cboDatabase.Clear();
    EXPECT_EQ(screen.cboDatabase.Text(), "typed");
}

TEST_F(Controls, GridReadsOnDemandAndKeepsAnEditUntilTheNextRefetch) {
    int reads = 0;
    bool stored = false;
    screen.grxTables.ReadRow = [&](int row) {
        ++reads;
        return std::vector<Value>{std::int32_t(row), stored};
    };
    screen.grxTables.SetItemCount(10000);
    EXPECT_EQ(reads, 0);
    EXPECT_EQ(screen.grxTables.Row(), 1);
    EXPECT_EQ(screen.grxTables.CellValue(5000, 1), Value(std::int32_t(5000)));
    screen.grxTables.EditCell(3, 2, true); // the model refuses: nothing is stored
    EXPECT_EQ(screen.grxTables.CellValue(3, 2), Value(true));
    screen.grxTables.Refetch();
    EXPECT_EQ(screen.grxTables.CellValue(3, 2), Value(false));
    EXPECT_TRUE(screen.grxTables.CellValue(10001, 1).IsEmpty());

    int changes = 0;
    screen.grxTables.OnSelectionChange = [&] { ++changes; };
    screen.grxTables.ClickCell(4, 1);
    screen.grxTables.ClickCell(4, 1);
    EXPECT_EQ(changes, 1);
    screen.grxTables.SetItemCount(2);
    EXPECT_EQ(screen.grxTables.Row(), 2);
    screen.grxTables.SetItemCount(0);
    EXPECT_EQ(screen.grxTables.Row(), 0);
}

TEST_F(Controls, ObserversMayEndWhileTheyAreTold) {
    int told = 0;
    std::size_t number = 0;
    number = screen.chkAll.Observe([&](ControlChange) {
        ++told;
        screen.chkAll.EndObservation(number);
    });
    screen.chkAll.SetCaption("All");
    screen.chkAll.SetCaption("None");
    EXPECT_EQ(told, 1);
}

TEST_F(Controls, ScreenLoadsOnceAndStaysOpenWhenUnloadIsRefused) {
    frontEnd.ExpectModal("frmSample", [](Screen& shown) { shown.Hide(); });
    screen.ShowModal();
    frontEnd.ExpectModal("frmSample", [this](Screen& shown) {
        screen.stay = true;
        EXPECT_FALSE(shown.Unload());
        screen.stay = false;
    });
    screen.ShowModal();
    EXPECT_EQ(screen.loads, 1);
    EXPECT_FALSE(screen.IsLoaded());
    EXPECT_TRUE(Screen::OpenScreens().empty());
}

TEST(EditorControl, CountsPositionsInCharacters) {
    ScriptedFrontEnd frontEnd;
    Platform platform{PlatformServices{.frontEnd = &frontEnd}};
    frmSample screen;
    Editor editor(screen, "cdmCodeMax");
    editor.SetText("één\r\nzwei\r\n");
    EXPECT_EQ(editor.LineCount(), 3);
    EXPECT_EQ(editor.LineText(0), "één");
    editor.Select({0, 1}, {0, 2});
    EXPECT_EQ(editor.SelectedText(), "é");
    editor.ReplaceSelection("u");
    EXPECT_EQ(editor.LineText(0), "éun");
    EXPECT_TRUE(editor.Modified());
    editor.SetReadOnly(true);
    editor.Type("lost");
    EXPECT_EQ(editor.LineText(1), "zwei");
    EXPECT_THROW(editor.SetLanguage("klingon"), Failure);
}

} // namespace
} // namespace quillon::tests
