#include "desktop/DesktopFixture.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QSplitter>
#include <QTest>
#include <QToolButton>

#include "model/AuditObj.h"
#include "shell/ScreenInstances.h"
#include "shell/Session.h"
#include "shell/frmMain.h"

namespace quillon::tests {
namespace {

class MainWindow : public ServedFixture {
  protected:
    void StartOnSales() {
        Start();
        PickDatabase();
    }
    std::shared_ptr<mdTable> Model(const std::string& name) {
        return g_objAudit->Database()->Tables()->Item(Value("dbo." + name));
    }
    void CheckBoxes(const QStringList& names) {
        for (const QString& name : names)
            Click(name, Main());
    }
    Qt::CheckState All() { return Find<QCheckBox>("chkAll", Main()).checkState(); }
};

TEST_F(MainWindow, WhatNeedsADatabaseAsksForOneAndOpensTheList) {
    Start();
    auto& list = Find<QComboBox>("cboDatabase", Main());
    for (const char* entry :
         {"mnuFileGenerateProcs", "mnuInstallAuditing", "mnuSaveProfile", "mnuSelectAll"}) {
        list.hidePopup();
        windows.ExpectMessage("Please Select a Database first", "Invalid Operation");
        Choose(Main(), entry);
        EXPECT_TRUE(QTest::qWaitFor([&] { return list.view()->isVisible(); })) << entry;
    }
    list.hidePopup();
    windows.ExpectMessage("Please Select a Database first", "Invalid Operation");
    PressTool("Generate Triggers", Main());
}

TEST_F(MainWindow, APickFillsTheGridsFromTheModel) {
    StartOnSales();
    EXPECT_EQ(Main().windowTitle(), "Quillon 0.1 [Sales]");
    EXPECT_EQ(Find<QLabel>("panel2", Main()).text(), "Sales");
    EXPECT_EQ(Find<QLineEdit>("txtTemplate", Main()).text().trimmed(), "Harrowgate.qlnx");
    EXPECT_TRUE(Tables().hasFocus());
    QStringList captions;
    for (int column = 0; column < Tables().model()->columnCount(); ++column)
        captions << Tables().model()->headerData(column, Qt::Horizontal).toString();
    EXPECT_EQ(captions, (QStringList{"Table", "Owner", "Insert", "Update", "Delete", "Audited"}));
    EXPECT_EQ(Names(Tables()).size(), g_objAudit->Database()->Tables()->Count());
    // The first table is the current one, so its columns are there.
    EXPECT_EQ(Names(Fields()).size(), g_objAudit->Database()->ActiveTable()->Fields()->Count());
    ClickCell(Tables(), "Country", Name);
    EXPECT_EQ(Names(Fields()), (QStringList{"CountryCode", "CountryName", "Currency"}));
    EXPECT_EQ(CellText(Fields(), "CountryCode", 2), "char");
    EXPECT_TRUE(Names(Triggers()).isEmpty());
}

TEST_F(MainWindow, AClickTicksOneCell) {
    StartOnSales();
    ClickCell(Tables(), "Country", Update);
    EXPECT_TRUE(Model("Country")->Audit4Update());
    EXPECT_FALSE(Model("Country")->Audit4Insert());
    EXPECT_EQ(g_objAudit->Database()->ActiveTable()->Name(), "Country");
    ClickCell(Tables(), "Country", Update);
    EXPECT_FALSE(Model("Country")->Audit4Update());
    ClickCell(Fields(), "Currency", 0);
    EXPECT_TRUE(Model("Country")->Fields()->Item(Value(std::string("Currency")))->IsChecked());
    EXPECT_TRUE(IsTicked(Fields(), "Currency", 0));
    ClickCell(Fields(), "Currency", 1); // its name, not its box
    EXPECT_TRUE(IsTicked(Fields(), "Currency", 0));
}

TEST_F(MainWindow, SpaceTicksAllSelectedRows) {
    StartOnSales();
    ClickCell(Tables(), "Country", Name);
    ClickCell(Fields(), "CountryCode", 1);
    ClickCell(Fields(), "Currency", 1, Qt::ControlModifier);
    QTest::keyClick(&Fields(), Qt::Key_Space);
    EXPECT_TRUE(IsTicked(Fields(), "CountryCode", 0));
    EXPECT_FALSE(IsTicked(Fields(), "CountryName", 0));
    EXPECT_TRUE(IsTicked(Fields(), "Currency", 0));
    EXPECT_EQ(Fields().selectionModel()->selectedRows().size(), 2);
    QTest::keyClick(&Fields(), Qt::Key_Space);
    EXPECT_FALSE(IsTicked(Fields(), "CountryCode", 0) || IsTicked(Fields(), "Currency", 0));

    ClickCell(Tables(), "Customer", Delete); // ticks, and makes the column the one that space works on
    ClickCell(Tables(), "Country", Name, Qt::ControlModifier);
    Tables().selectionModel()->setCurrentIndex(Tables().currentIndex().siblingAtColumn(Delete),
                                               QItemSelectionModel::NoUpdate);
    QTest::keyClick(&Tables(), Qt::Key_Space);
    EXPECT_TRUE(Model("Customer")->Audit4Delete() && Model("Country")->Audit4Delete());
    EXPECT_FALSE(Model("Customer")->Audit4Insert() || Model("Country")->Audit4Insert());
    EXPECT_EQ(Tables().selectionModel()->selectedRows().size(), 2);
}

TEST_F(MainWindow, TheBoxesTickAllTablesAndSumUp) {
    StartOnSales();
    CheckBoxes({"chkInsert"});
    for (const QString& table : Names(Tables()))
        EXPECT_TRUE(IsTicked(Tables(), table, Insert)) << table.toStdString();
    EXPECT_EQ(All(), Qt::PartiallyChecked);
    CheckBoxes({"chkUpdate", "chkDelete"});
    EXPECT_EQ(All(), Qt::Checked);
    CheckBoxes({"chkUpdate"});
    EXPECT_EQ(All(), Qt::PartiallyChecked);
    CheckBoxes({"chkAll"}); // greyed: a click clears
    EXPECT_EQ(All(), Qt::Unchecked);
    EXPECT_FALSE(Find<QCheckBox>("chkInsert", Main()).isChecked());
    EXPECT_FALSE(IsTicked(Tables(), "Country", Delete));
}

TEST_F(MainWindow, TheSelectBoxesAreAPairAndWorkOnOneTableOrAll) {
    StartOnSales();
    const auto isTicked = [this](const char* box) { return Find<QCheckBox>(box, Main()).isChecked(); };
    ClickCell(Tables(), "Country", Name);
    CheckBoxes({"chkSelectAll"});
    EXPECT_TRUE(Model("Country")->IsOneFieldSelectedForAudit());
    EXPECT_FALSE(Model("Customer")->IsOneFieldSelectedForAudit());
    CheckBoxes({"chkUnselectAll"});
    EXPECT_TRUE(isTicked("chkUnselectAll") && !isTicked("chkSelectAll"));
    EXPECT_FALSE(Model("Country")->IsOneFieldSelectedForAudit());
    CheckBoxes({"chkAllTables", "chkSelectAll"});
    EXPECT_TRUE(Model("Customer")->IsOneFieldSelectedForAudit());
    ClickCell(Tables(), "Customer", Name);
    EXPECT_FALSE(isTicked("chkUnselectAll") || isTicked("chkSelectAll"));
}

TEST_F(MainWindow, TheFilterNarrowsWhatIsShownAndNoTick) {
    StartOnSales();
    ClickCell(Tables(), "Country", Insert);
    auto& filter = Find<QLineEdit>("tableFilter", Main());
    QTest::keyClicks(&filter, "CUSTOM");
    EXPECT_FALSE(Names(Tables()).isEmpty());
    for (const QString& table : Names(Tables()))
        EXPECT_TRUE(table.contains("custom", Qt::CaseInsensitive)) << table.toStdString();
    EXPECT_TRUE(Model("Country")->Audit4Insert());
    ClickCell(Tables(), "Customer", Update);
    EXPECT_TRUE(Model("Customer")->Audit4Update()); // the row shown, not the row of that number
    CheckBoxes({"chkDelete"});
    EXPECT_TRUE(Model("Country")->Audit4Delete()); // hidden rows are tables like all others
    filter.clear();
    EXPECT_EQ(Names(Tables()).size(), g_objAudit->Database()->Tables()->Count());
    EXPECT_TRUE(IsTicked(Tables(), "Country", Insert));
    EXPECT_TRUE(IsTicked(Tables(), "Customer", Update));
}

TEST_F(MainWindow, SortingMovesRowsAndKeepsTheCurrentTable) {
    StartOnSales();
    const QStringList original = Names(Tables());
    ClickCell(Tables(), "Customer", Insert);
    auto& header = *Tables().horizontalHeader();
    const auto clickHeading = [&](int column) {
        const QPoint place(header.sectionViewportPosition(column) + header.sectionSize(column) / 2,
                           header.height() / 2);
        QTest::mouseClick(header.viewport(), Qt::LeftButton, {}, place);
    };
    QStringList sorted = original;
    sorted.sort(Qt::CaseInsensitive);
    clickHeading(Name);
    EXPECT_EQ(Names(Tables()), sorted);
    clickHeading(Name);
    std::ranges::reverse(sorted);
    EXPECT_EQ(Names(Tables()), sorted);
    clickHeading(Name);
    EXPECT_EQ(Names(Tables()), original);
    clickHeading(Insert);
    clickHeading(Insert);
    EXPECT_EQ(Names(Tables()).front(), "Customer"); // the only one ticked
    EXPECT_EQ(Tables().currentIndex().siblingAtColumn(Name).data(), "Customer");
    EXPECT_EQ(Names(Fields()).size(), Model("Customer")->Fields()->Count());
    ClickCell(Tables(), "Country", Update);
    EXPECT_TRUE(Model("Country")->Audit4Update());
}

TEST_F(MainWindow, TheMenusAtThePointerWorkOnTheRowUnderIt) {
    StartOnSales();
    ClickCell(Tables(), "Country", Name);
    const auto rightClick = [](QTableView& grid, const QPoint& place) {
        QContextMenuEvent event(QContextMenuEvent::Mouse, place, grid.viewport()->mapToGlobal(place));
        QCoreApplication::sendEvent(grid.viewport(), &event);
    };
    const QPoint place = Fields().visualRect(Fields().model()->index(1, 1)).center();
    windows.ExpectMenu("mnuFieldsRightClick", "mnuFieldsSelectAll");
    rightClick(Fields(), place);
    EXPECT_TRUE(IsTicked(Fields(), "CountryCode", 0) && IsTicked(Fields(), "Currency", 0));
    windows.ExpectMenu("mnuFieldsRightClick", "mnuFieldsUnSelectAll");
    rightClick(Fields(), place);
    EXPECT_FALSE(IsTicked(Fields(), "CountryCode", 0) || IsTicked(Fields(), "Currency", 0));
    windows.ExpectMenu("mnuTablesRightClick", "");
    rightClick(Tables(), Tables().visualRect(Tables().model()->index(2, 0)).center());
    EXPECT_EQ(Tables().currentIndex().row(), 2);
}

TEST_F(MainWindow, EntriesWhoseScreensAreNotThereAreShownAndDisabled) {
    Start();
    for (const char* entry : {"mnuTemplateEditor", "mnuManageTriggers", "mnuUndo", "mnuReportStandard"}) {
        const auto& action = *Main().findChild<QAction*>(entry);
        EXPECT_TRUE(action.isVisible() && !action.isEnabled()) << entry;
    }
    for (const char* entry : {"mnuFileConnect", "mnuOptions", "mnuInstallAuditing", "mnuFileGenerateProcs"})
        EXPECT_TRUE(Main().findChild<QAction*>(entry)->isEnabled()) << entry;
    for (const char* button : {"btnModules.manage triggers", "btnModules.undo"})
        EXPECT_FALSE(Find(button, Main()).isEnabled()) << button;
}

TEST_F(MainWindow, TheProfileBoxOpensTheChoiceOfAProfile) {
    StartOnSales();
    windows.ExpectFile("Open Audit Profile", {});
    Click("txtTemplate", Main());
    windows.ExpectFile("Open Audit Profile", {});
    Click("cmdFindTemplate", Main());
}

TEST_F(MainWindow, PlacesAndWidthsComeBackAtTheNextStart) {
    StartOnSales();
    Main().resize(1100, 700);
    QCoreApplication::processEvents();
    auto& header = *Tables().horizontalHeader();
    const QPoint edge(header.sectionViewportPosition(Owner) + header.sectionSize(Owner) - 1, 5);
    Drag(*header.viewport(), edge, edge + QPoint(40, 0));
    const int width = Tables().columnWidth(Owner);
    auto& splitter = Find<QSplitter>("tablesAndDetails", Main());
    const int before = splitter.sizes().front();
    const QPoint grip = splitter.handle(1)->rect().center();
    Drag(*splitter.handle(1), grip, grip - QPoint(90, 0));
    const int left = splitter.sizes().front();
    EXPECT_LT(left, before);
    frontEnd.CloseAll();
    TheScreen<frmMain>().Show();
    EXPECT_EQ(Main().size(), QSize(1100, 700));
    EXPECT_EQ(Tables().columnWidth(Owner), width);
    EXPECT_NEAR(Find<QSplitter>("tablesAndDetails", Main()).sizes().front(), left, 40);
}

TEST_F(MainWindow, ClosingSavesTheSelectionAndEndsTheProgram) {
    StartOnSales();
    ClickCell(Tables(), "Country", Delete);
    Main().close();
    EXPECT_TRUE(desktop::IsEnded());
    EXPECT_TRUE(home.folder.Read("app/Sales_AuditSel.apr").find("\"dbo.Country\",0,0,1") != std::string::npos)
        << home.folder.Read("app/Sales_AuditSel.apr");
}

} // namespace
} // namespace quillon::tests
