// Each kind of control and the widget that shows it: what code sets is shown, what a person does arrives.
#include "desktop/DesktopFixture.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QTabBar>
#include <QTest>
#include <QToolBar>
#include <QToolButton>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <QWheelEvent>

#include "desktop/bind/BarWidgets.h"
#include "desktop/bind/Binding.h"
#include "desktop/bind/EditorWidget.h"
#include "desktop/bind/GridView.h"
#include "desktop/bind/ListWidgets.h"
#include "desktop/bind/SimpleWidgets.h"
#include "platform/Failure.h"
#include "platform/controls.h"

namespace quillon::tests {
namespace {

struct Sample : Screen {
    Sample()
        : Screen("frmSample") {}

    Label label{*this, "label"};
    Button button{*this, "button"};
    CheckBox check{*this, "check"};
    ControlArray<OptionButton, 2> options{*this, "options"};
    ControlArray<OptionButton, 2> others{*this, "others"};
    TextBox text{*this, "text"};
    UpDown spin{*this, "spin"};
    ComboBox combo{*this, "combo"};
    ListView list{*this, "list"};
    TreeView tree{*this, "tree"};
    TabStrip tabs{*this, "tabs"};
    quillon::Grid grid{*this, "grid"};
    Editor editor{*this, "editor"};
    StatusBar status{*this, "status"};
    ProgressBar progress{*this, "progress"};
    ToolBar tools{*this, "tools"};
    Menu menu{*this, "menu", "&Menu"};
    Menu entry{*this, "entry", "&Entry\tF5", &menu};
    Menu separator{*this, "separator", "-", &menu};
    Menu popUp{*this, "popUp", "Pop"};
    Menu popUpEntry{*this, "popUpEntry", "&Pop", &popUp};
};

class BindingTest : public DesktopFixture {
  protected:
    BindingTest() { window.setLayout(new QVBoxLayout); }

    // Takes the widget into the window and shows it.
    template <class Widget>
    Widget& Add(Widget* widget) {
        window.layout()->addWidget(widget);
        window.show();
        AwaitActive(window);
        QCoreApplication::processEvents();
        return *widget;
    }
    // Counts how often an event of a control fires.
    std::function<void()> Count() {
        return [this] { ++fired; };
    }

    Sample screen;
    QWidget window;
    int fired = 0;
};

TEST_F(BindingTest, AWidgetFollowsWhetherItsControlCanBeUsed) {
    screen.button.SetEnabled(false);
    screen.button.SetToolTip("Why");
    auto& button = Add(desktop::NewButton(screen.button));
    EXPECT_EQ(button.objectName(), "button");
    EXPECT_FALSE(button.isEnabled());
    EXPECT_EQ(button.toolTip(), "Why");
    screen.button.SetEnabled(true);
    screen.button.SetVisible(false);
    EXPECT_TRUE(button.isEnabled() && !button.isVisible());
    screen.button.SetVisible(true);
    EXPECT_TRUE(button.isVisible());
    screen.button.SetCaption("&Go \xC3\xA9");
    EXPECT_EQ(button.text(), QString::fromUtf8("&Go \xC3\xA9"));
    screen.button.OnClick = Count();
    Click(button);
    Press(Qt::Key_G, Qt::AltModifier); // goes down and up before it acts
    EXPECT_TRUE(QTest::qWaitFor([this] { return fired == 2; }));
}

TEST_F(BindingTest, AControlOutlivesItsWidget) {
    auto* box = new QWidget;
    box->setLayout(new QVBoxLayout);
    box->layout()->addWidget(desktop::NewTextBox(screen.text));
    EXPECT_EQ(desktop::Binding::WidgetOf(screen.text), box->findChild<QLineEdit*>());
    delete box;
    EXPECT_EQ(desktop::Binding::WidgetOf(screen.text), nullptr);
    screen.text.SetText("later");
    screen.text.SetFocus();
    EXPECT_EQ(Add(desktop::NewTextBox(screen.text)).text(), "later");
}

// The first view of a control is told of nothing once a second one has taken its place.
TEST_F(BindingTest, TheFocusIsTakenAndTold) {
    std::string told;
    screen.text.OnGotFocus = [&] { told += "+text"; };
    screen.text.OnLostFocus = [&] { told += "-text"; };
    screen.check.OnGotFocus = [&] { told += "+check"; };
    Add(desktop::NewCheckBox(screen.check));
    auto& text = Add(desktop::NewTextBox(screen.text));
    told.clear();
    screen.text.SetFocus();
    EXPECT_TRUE(text.hasFocus());
    screen.check.SetFocus();
    EXPECT_EQ(told, "+text-text+check");
}

TEST_F(BindingTest, ALabelsMnemonicLeadsToItsBox) {
    screen.label.SetCaption("&Name:");
    auto& text = Add(desktop::NewTextBox(screen.text));
    Add(desktop::NewButton(screen.button)).setFocus();
    Add(desktop::NewLabel(screen.label, &text));
    Press(Qt::Key_N, Qt::AltModifier);
    EXPECT_TRUE(text.hasFocus());
}

TEST_F(BindingTest, ACheckBoxHasThreeStatesAndAPersonTwo) {
    auto& check = Add(desktop::NewCheckBox(screen.check));
    screen.check.OnClick = Count();
    screen.check.SetValue(CheckBox::Greyed);
    EXPECT_EQ(check.checkState(), Qt::PartiallyChecked);
    Click(check);
    EXPECT_EQ(screen.check.Value(), CheckBox::Unticked);
    Click(check);
    EXPECT_EQ(screen.check.Value(), CheckBox::Ticked);
    EXPECT_EQ(check.checkState(), Qt::Checked);
    EXPECT_EQ(fired, 3);
    screen.check.OnClick = [this] { screen.check.SetValue(CheckBox::Ticked); }; // one that cannot be cleared
    Click(check);
    EXPECT_EQ(check.checkState(), Qt::Checked);
}

TEST_F(BindingTest, OptionsOfOneNameExcludeEachOther) {
    for (OptionButton& option : screen.options)
        Add(desktop::NewOption(option));
    for (OptionButton& option : screen.others)
        Add(desktop::NewOption(option));
    const auto isMarked = [this](const char* name) { return Find<QRadioButton>(name, window).isChecked(); };
    Click("options0", window);
    Click("others1", window);
    EXPECT_TRUE(isMarked("options0") && isMarked("others1"));
    Find("options0", window).setFocus();
    Press(Qt::Key_Down);
    EXPECT_TRUE(screen.options[1].Value() && isMarked("options1") && !isMarked("options0"));
    EXPECT_TRUE(isMarked("others1"));
}

TEST_F(BindingTest, ATextBoxFiltersKeysAndPassesThemOn) {
    auto& text = Add(desktop::NewTextBox(screen.text));
    screen.text.KeyFilter = [](int key) { return key >= '0' && key <= '9'; };
    screen.text.OnChange = Count();
    QTest::keyClicks(&text, "1a2");
    EXPECT_EQ(screen.text.Text(), "12");
    EXPECT_EQ(text.text(), "12");
    EXPECT_EQ(fired, 2);
    Key pressed{};
    screen.text.OnKeyDown = [&](Key key) { pressed = key; };
    QTest::keyClick(&text, Qt::Key_Return);
    EXPECT_EQ(pressed, Key::Enter);
    screen.text.OnChange = [this] { screen.text.SetText("set"); }; // the screen has the last word
    QTest::keyClicks(&text, "3");
    EXPECT_EQ(text.text(), "set");
    screen.text.SetReadOnly(true);
    screen.text.OnClick = Count();
    QTest::keyClicks(&text, "4");
    EXPECT_EQ(screen.text.Text(), "set");
    Click(text);
    EXPECT_EQ(fired, 3);
}

TEST_F(BindingTest, ASpinnerKeepsToItsRange) {
    screen.spin.SetRange(1, 5);
    auto& spin = Add(desktop::NewSpinBox(screen.spin));
    QTest::keyClick(&spin, Qt::Key_Up);
    EXPECT_EQ(screen.spin.Value(), 2);
    screen.spin.SetValue(99);
    EXPECT_EQ(spin.value(), 5);
}

TEST_F(BindingTest, AListThatOffersOnlyItsEntries) {
    screen.combo.SetDropDownList(true);
    screen.combo.AddItem("one");
    screen.combo.AddItem("two");
    screen.combo.OnClick = Count();
    auto& combo = Add(desktop::NewPickBox(screen.combo));
    EXPECT_EQ(combo.currentIndex(), -1);
    Pick(combo, "two");
    Pick(combo, "two"); // picking it again is a pick
    EXPECT_EQ(fired, 2);
    EXPECT_EQ(screen.combo.Text(), "two");
    QWheelEvent wheel(QPointF(5, 5), combo.mapToGlobal(QPointF(5, 5)), {}, {0, 120}, Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&combo, &wheel);
    EXPECT_EQ(fired, 2);
    screen.combo.SetListIndex(0);
    EXPECT_EQ(combo.currentText(), "one");
    screen.combo.DropDown();
    QCoreApplication::processEvents();
    EXPECT_TRUE(combo.view()->isVisible());
    screen.combo.Clear();
    EXPECT_EQ(combo.count(), 0);
}

TEST_F(BindingTest, AListThatTakesTyping) {
    screen.combo.AddItem("entry");
    screen.combo.OnChange = Count();
    auto& combo = Add(desktop::NewComboBox(screen.combo));
    Type(combo, "ty");
    EXPECT_EQ(screen.combo.Text(), "ty");
    EXPECT_GE(fired, 2);
    EXPECT_EQ(screen.combo.ListIndex(), -1);
    screen.combo.AddItem("more"); // typed text stays
    EXPECT_EQ(combo.currentText(), "ty");
    Pick(combo, "more");
    EXPECT_EQ(screen.combo.Text(), "more");
    screen.combo.SetText("typed by code");
    EXPECT_EQ(combo.currentText(), "typed by code");
}

TEST_F(BindingTest, AListWithColumns) {
    screen.list.SetColumns({{"First", 0}, {"Second", 1500}});
    screen.list.SetCheckBoxes(true);
    screen.list.AddRow({.Text = "b", .SubItems = {"1"}, .Icon = {}, .Key = {}, .Note = {}});
    screen.list.AddRow({.Text = "a", .SubItems = {"2"}, .Icon = {}, .Key = {}, .Note = {}, .Checked = true});
    std::size_t column = 99;
    screen.list.OnColumnClick = [&](std::size_t clicked) {
        column = clicked;
        screen.list.Sort(clicked, true);
    };
    screen.list.OnDoubleClick = Count();
    auto& list = Add(desktop::NewListView(screen.list));
    EXPECT_EQ(list.headerItem()->text(1), "Second");
    EXPECT_EQ(list.topLevelItem(1)->text(1), "2");
    EXPECT_EQ(list.topLevelItem(1)->checkState(0), Qt::Checked);
    const auto click = [&](int row, int at) {
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {},
                          list.visualItemRect(list.topLevelItem(row)).topLeft() + QPoint(at, 8));
    };
    click(0, 60);
    EXPECT_EQ(screen.list.Current(), 0);
    EXPECT_FALSE(screen.list.Rows()[0].Checked);
    list.topLevelItem(0)->setCheckState(0, Qt::Checked);
    EXPECT_TRUE(screen.list.Rows()[0].Checked);
    screen.list.SetChecked(0, false);
    EXPECT_EQ(list.topLevelItem(0)->checkState(0), Qt::Unchecked);
    click(1, 60);
    QTest::mouseDClick(list.viewport(), Qt::LeftButton, {},
                       list.visualItemRect(list.topLevelItem(1)).topLeft() + QPoint(60, 8));
    EXPECT_EQ(fired, 1);
    QTest::mouseClick(list.header()->viewport(), Qt::LeftButton, {}, {10, 8});
    EXPECT_EQ(column, 0u);
    EXPECT_EQ(list.topLevelItem(0)->text(0), "a");
    screen.list.RemoveRow(0);
    EXPECT_EQ(list.topLevelItemCount(), 1);
}

TEST_F(BindingTest, ATreeIsClickedByPosition) {
    const int root = screen.tree.Add(-1, "root", "r", "");
    const int leaf = screen.tree.Add(root, "leaf", "l", "");
    screen.tree.OnClick = Count();
    auto& tree = Add(desktop::NewTreeView(screen.tree));
    EXPECT_EQ(tree.topLevelItemCount(), 1);
    QTest::mouseClick(tree.viewport(), Qt::LeftButton, {},
                      tree.visualItemRect(tree.topLevelItem(0)->child(0)).center());
    EXPECT_EQ(screen.tree.Selected(), leaf);
    EXPECT_EQ(fired, 1);
    screen.tree.SetText(leaf, "other");
    EXPECT_EQ(tree.topLevelItem(0)->child(0)->text(0), "other");
    EXPECT_EQ(tree.currentItem()->text(0), "other");
}

TEST_F(BindingTest, TabsAreSelectedBothWays) {
    screen.tabs.SetTabs({{"One", ""}, {"Two", "Tip"}});
    screen.tabs.OnClick = Count();
    auto& tabs = Add(desktop::NewTabStrip(screen.tabs));
    QTest::mouseClick(&tabs, Qt::LeftButton, {}, tabs.tabRect(1).center());
    EXPECT_EQ(screen.tabs.Selected(), 1);
    screen.tabs.Select(0);
    EXPECT_EQ(tabs.currentIndex(), 0);
    EXPECT_EQ(fired, 2);
    EXPECT_EQ(tabs.tabToolTip(1), "Tip");
}

TEST_F(BindingTest, ToolsFollowWhatIsEnabled) {
    screen.tools.SetItems(
        {{.Caption = "Go", .Key = "go"}, {.Separator = true}, {.Caption = "Stop", .Key = "stop"}});
    std::string pressed;
    screen.tools.OnClick = [&](std::size_t position, const std::string& key) {
        pressed += key + std::to_string(position);
    };
    auto& tools = Add(desktop::NewToolBar(screen.tools, [](const std::string&) { return QIcon(); }));
    PressTool("Stop", tools);
    EXPECT_EQ(pressed, "stop3");
    screen.tools.SetItemEnabled(1, false);
    EXPECT_FALSE(Find("tools.go", tools).isEnabled());
    screen.tools.SetItemEnabled(1, true);
    PressTool("Go", tools);
    EXPECT_EQ(pressed, "stop3go1");
}

TEST_F(BindingTest, MenusFollowTheirEntries) {
    auto& bar = Add(new QMenuBar);
    screen.popUp.SetPopUp(true);
    screen.entry.OnClick = Count();
    desktop::ShowMenuBar(bar, screen);
    EXPECT_EQ(bar.actions().size(), 1);
    auto& action = *bar.findChild<QAction*>("entry");
    EXPECT_EQ(action.text(), "&Entry");
    screen.entry.SetShortcut("Ctrl+G");
    Press(Qt::Key_G, Qt::ControlModifier);
    EXPECT_EQ(fired, 1);
    screen.entry.SetTicked(true);
    EXPECT_TRUE(action.isCheckable() && action.isChecked());
    screen.entry.SetEnabled(false);
    Press(Qt::Key_G, Qt::ControlModifier);
    EXPECT_EQ(fired, 1);
    EXPECT_FALSE(action.isEnabled());
    screen.entry.SetVisible(false);
    EXPECT_FALSE(action.isVisible());

    screen.popUpEntry.OnClick = Count();
    windows.ExpectMenu("popUp", "popUpEntry");
    frontEnd.PopUpMenu(screen.popUp);
    EXPECT_EQ(fired, 2);
}

TEST_F(BindingTest, ProgressIsSeenWhileThereIsAny) {
    auto& progress = Add(desktop::NewProgressBar(screen.progress));
    EXPECT_FALSE(progress.isVisible());
    screen.progress.SetMaximum(4);
    screen.progress.SetValue(1);
    EXPECT_TRUE(progress.isVisible());
    EXPECT_EQ(progress.maximum(), 4);
    screen.progress.SetValue(0);
    EXPECT_FALSE(progress.isVisible());
}

class GridBinding : public BindingTest {
  protected:
    GridBinding() {
        screen.grid.SetColumns(
            {{.Caption = "Text", .Key = "Text"},
             {.Caption = "Number", .Key = "Number", .Sort = quillon::Grid::SortKind::Number},
             {.Caption = "Day", .Key = "Day", .Sort = quillon::Grid::SortKind::Date},
             {.Caption = "Tick", .Key = "Tick", .Kind = quillon::Grid::ColumnKind::Check}});
        screen.grid.ReadRow = [this](int row) -> std::vector<Value> {
            ++rowsRead;
            if (row == broken)
                throw Failure(13);
            return {texts.at(row - 1), numbers.at(row - 1), days.at(row - 1), bool(ticks.at(row - 1))};
        };
        screen.grid.UnboundUpdate = [this](int row, const std::vector<Value>& values) {
            ticks.at(row - 1) = values.at(3).As<bool>();
        };
        screen.grid.SetItemCount(3);
    }
    QStringList SortedBy(QTableView& view, int column) {
        view.sortByColumn(column, Qt::AscendingOrder);
        return Names(view);
    }

    std::vector<std::string> texts{"b", "a", "c"};
    std::vector<std::int32_t> numbers{10, 9, 100};
    std::vector<std::string> days{"2/1/2020", "12/1/2019", "1/15/2020"};
    std::vector<bool> ticks{false, false, false};
    int broken = 0;
    int rowsRead = 0;
};

TEST_F(GridBinding, RowsAreReadWhenTheyAreSeen) {
    texts.resize(5000, "t"), numbers.resize(5000), days.resize(5000), ticks.resize(5000);
    screen.grid.SetItemCount(5000);
    auto& view = Add(new desktop::GridView(screen.grid, {}));
    view.resize(400, 300);
    QCoreApplication::processEvents();
    rowsRead = 0;
    view.viewport()->repaint();
    EXPECT_GT(rowsRead, 0);
    EXPECT_LT(rowsRead, 100);
}

TEST_F(GridBinding, EachKindOfColumnSortsInItsOwnOrder) {
    auto& view = Add(new desktop::GridView(screen.grid, {}));
    EXPECT_EQ(Names(view), (QStringList{"b", "a", "c"}));
    EXPECT_EQ(SortedBy(view, 0), (QStringList{"a", "b", "c"}));
    EXPECT_EQ(SortedBy(view, 1), (QStringList{"a", "b", "c"}));
    EXPECT_EQ(SortedBy(view, 2), (QStringList{"a", "c", "b"}));
    ticks[1] = true;
    screen.grid.Refetch();
    EXPECT_EQ(SortedBy(view, 3).back(), "a");
    ClickCell(view, "c", 3);
    EXPECT_EQ(ticks, (std::vector<bool>{false, true, true}));
    EXPECT_EQ(screen.grid.Row(), 3); // the grid's row, not the one on the screen
}

TEST_F(GridBinding, ARefetchShowsWhatStandsThereNow) {
    auto& view = Add(new desktop::GridView(screen.grid, {}));
    texts[1] = "new";
    screen.grid.Refetch();
    EXPECT_EQ(Names(view), (QStringList{"b", "new", "c"}));
    screen.grid.SetItemCount(1);
    EXPECT_EQ(Names(view), QStringList{"b"});
    screen.grid.SetItemCount(0);
    EXPECT_TRUE(Names(view).isEmpty());
    QTest::keyClick(&view, Qt::Key_Space);
    QTest::keyClick(&view, Qt::Key_Return);
}

TEST_F(GridBinding, TheCurrentRowIsTheSameOnBothSides) {
    auto& view = Add(new desktop::GridView(screen.grid, {}));
    EXPECT_EQ(view.currentIndex().row(), 0);
    screen.grid.OnSelectionChange = Count();
    screen.grid.SetRow(3);
    EXPECT_EQ(view.currentIndex().row(), 2);
    EXPECT_EQ(fired, 1);
    view.setFocus();
    Press(Qt::Key_Up);
    EXPECT_EQ(screen.grid.Row(), 2);
    EXPECT_EQ(fired, 2);
    view.sortByColumn(0, Qt::AscendingOrder); // row 2, "a", goes to the top and stays the current one
    EXPECT_EQ(screen.grid.Row(), 2);
    EXPECT_EQ(view.currentIndex().row(), 0);
    EXPECT_EQ(fired, 2);
}

TEST_F(GridBinding, SelectedRowsAreGivenFromEitherSide) {
    screen.grid.SetMultiSelect(true);
    auto& view = Add(new desktop::GridView(screen.grid, {}));
    ClickCell(view, "a", 0);
    ClickCell(view, "c", 0, Qt::ControlModifier);
    EXPECT_EQ(screen.grid.SelectedRows(), (std::vector<int>{2, 3}));
    screen.grid.SetSelectedRows({1, 3});
    EXPECT_EQ(view.selectionModel()->selectedRows().size(), 2);
    EXPECT_TRUE(view.selectionModel()->isRowSelected(0));
    EXPECT_FALSE(view.selectionModel()->isRowSelected(1));
}

TEST_F(GridBinding, ARowThatCannotBeReadSaysSoInItsPlace) {
    broken = 2;
    auto& view = Add(new desktop::GridView(screen.grid, {}));
    EXPECT_EQ(Names(view), (QStringList{"b", "?", "c"}));
}

TEST_F(GridBinding, AnEditThatFailsIsReportedAndTheCellShowsTheTruth) {
    screen.grid.UnboundUpdate = [](int, const std::vector<Value>&) { throw Failure(5, "Not this one"); };
    auto& view = Add(new desktop::GridView(screen.grid, {}));
    windows.ExpectFailure("Not this one");
    ClickCell(view, "a", 3);
    screen.grid.Refetch();
    EXPECT_FALSE(IsTicked(view, "a", 3));
}

TEST_F(BindingTest, TheEditorKeepsPositionsInCharacters) {
    screen.editor.SetText("\xC3\xA9\xC3\xA9"
                          "x\r\nsecond");
    auto& editor = Add(new desktop::EditorWidget(screen.editor));
    screen.editor.OnSelectionChange = Count();
    screen.editor.Select({0, 2}, {0, 3});
    EXPECT_EQ(editor.selectedText(), "x");
    editor.setSelection(0, 1, 1, 3);
    EXPECT_EQ(screen.editor.SelectionStart(), (EditorPosition{0, 1}));
    EXPECT_EQ(screen.editor.SelectionEnd(), (EditorPosition{1, 3}));
    EXPECT_EQ(screen.editor.SelectedText(), "\xC3\xA9x\r\nsec");
    QTest::keyClicks(&editor, "Z");
    EXPECT_EQ(screen.editor.Text(), "\xC3\xA9Zond");
    EXPECT_TRUE(screen.editor.Modified());
    EXPECT_TRUE(QTest::qWaitFor([this] { return screen.editor.CaretLine() == 0; }));
    screen.editor.SetText("other");
    EXPECT_EQ(editor.text(), "other");
    EXPECT_FALSE(screen.editor.Modified());
    screen.editor.Select({0, 0}, {0, 5});
    screen.editor.Execute(EditorCommand::UpperCase);
    EXPECT_EQ(screen.editor.Text(), "OTHER");
}

} // namespace
} // namespace quillon::tests
