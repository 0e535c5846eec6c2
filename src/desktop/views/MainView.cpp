// The main screen: what is audited on the left, its columns and triggers on the right, what can be done
// around them.
#include "desktop/views/ScreenViews.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QLineEdit>
#include <QMenuBar>
#include <QProgressBar>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QSplitter>
#include <QStatusBar>
#include <QToolBar>

#include "desktop/Icons.h"
#include "desktop/Memory.h"
#include "desktop/bind/BarWidgets.h"
#include "desktop/bind/Binding.h"
#include "desktop/bind/ElidedLabel.h"
#include "desktop/bind/GridView.h"
#include "desktop/bind/ListWidgets.h"
#include "desktop/bind/SimpleWidgets.h"
#include "desktop/bind/Text.h"
#include "desktop/views/Layout.h"
#include "platform/Conversion.h"
#include "shell/Session.h"
#include "shell/frmMain.h"

namespace quillon::desktop {
namespace {

QIcon TableIcon(int number) {
    constexpr const char* names[] = {"", "table", "table-ticked", "audited"};
    return IconOf(number < 4 ? names[number] : "");
}

QIcon FieldIcon(int number) {
    constexpr const char* names[] = {"", "column", "key", "check", "dash"};
    return IconOf(number < 5 ? names[number] : "");
}

QIcon TriggerIcon(int number) {
    return IconOf(number == 3 ? "check" : "");
}

// Calls `refresh` now and whenever the control changes, as long as the widget lives.
void Follow(QWidget& widget, Control& control, const std::function<void()>& refresh) {
    const std::size_t number = control.Observe([refresh](ControlChange) { refresh(); });
    QObject::connect(&widget, &QObject::destroyed, [&control, number] { control.EndObservation(number); });
    refresh();
}

// A ribbon above everything as long as the session is on a server that the person has marked.
QFrame* NewProductionRibbon(frmMain& screen) {
    auto* ribbon = new QFrame;
    ribbon->setObjectName("production");
    auto* row = new QHBoxLayout(ribbon);
    row->setContentsMargins(12, 4, 12, 4);
    auto* text = new QLabel;
    row->addWidget(text);
    Follow(*ribbon, screen.stbStatus, [ribbon, text] {
        const QString server = Text(g_strServer);
        text->setText("Production server: " + server);
        ribbon->setVisible(Memory::Instance().IsProduction(server));
    });
    return ribbon;
}

QWidget* NewChoices(frmMain& screen) {
    auto* choices = new QWidget;
    auto* grid = new QGridLayout(choices);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(10);
    QComboBox* database = NewPickBox(screen.cboDatabase);
    QLineEdit* profile = NewTextBox(screen.txtTemplate);
    profile->setMinimumWidth(profile->fontMetrics().averageCharWidth() * 24);
    auto* databaseLabel = new QLabel("&Database:");
    databaseLabel->setBuddy(database);
    auto* profileLabel = new QLabel("Profi&le:");
    profileLabel->setBuddy(profile);
    database->setMinimumWidth(database->fontMetrics().averageCharWidth() * 30);
    grid->addWidget(databaseLabel, 0, 0);
    grid->addWidget(database, 0, 1);
    grid->addWidget(profileLabel, 0, 2);
    grid->addWidget(profile, 0, 3);
    grid->addWidget(NewButton(screen.cmdFindTemplate), 0, 4);
    grid->setColumnStretch(1, 2);
    grid->setColumnStretch(3, 3);
    return choices;
}

QHBoxLayout* NewTicks(frmMain& screen) {
    auto* row = new QHBoxLayout;
    row->addWidget(Heading("Operations, all tables:"));
    for (CheckBox* box : {&screen.chkInsert, &screen.chkUpdate, &screen.chkDelete, &screen.chkAll})
        row->addWidget(NewCheckBox(*box));
    row->addStretch();
    return row;
}

GridView* NewGrid(Grid& grid, QIcon (*iconOf)(int)) {
    auto* view = new GridView(grid, iconOf);
    const QString name = Text(grid.Name());
    view->SetWidths(Memory::Instance().Widths(name));
    view->OnWidthsChosen = [name](const QList<int>& widths) { Memory::Instance().SetWidths(name, widths); };
    return view;
}

QString CellText(Grid& grid, int row, int column) {
    return Text(conversion::ToText(grid.CellValue(row, column))).trimmed();
}

// The line above a grid, of one height whatever stands in it, so that neighbours line up.
QHBoxLayout* NewHead() {
    auto* head = new QHBoxLayout;
    head->addStrut(QLineEdit().sizeHint().height());
    return head;
}

QWidget* NewTables(frmMain& screen) {
    auto* panel = new QWidget;
    auto* column = new QVBoxLayout(panel);
    column->setContentsMargins(0, 0, 4, 0);
    GridView* view = NewGrid(screen.grxTables, TableIcon);
    auto* filter = new QLineEdit;
    filter->setObjectName("tableFilter");
    filter->setPlaceholderText("Show tables whose name or owner contains ...");
    filter->setClearButtonEnabled(true);
    QObject::connect(filter, &QLineEdit::textChanged, view,
                     [view](const QString& text) { view->Filter().SetText(text); });
    QHBoxLayout* head = NewHead();
    head->addWidget(Heading("Tables"));
    head->addWidget(filter, 1);
    column->addLayout(head);
    column->addWidget(view);
    return panel;
}

QWidget* NewFields(frmMain& screen) {
    auto* panel = new QWidget;
    auto* column = new QVBoxLayout(panel);
    column->setContentsMargins(4, 0, 0, 4);
    QHBoxLayout* head = NewHead();
    auto* heading = new ElidedLabel;
    heading->setObjectName("heading");
    Follow(*heading, screen.grxTables, [heading, &tables = screen.grxTables] {
        const int row = tables.Row();
        heading->SetFullText(row == 0
                                 ? QString("Columns")
                                 : "Columns of " + CellText(tables, row, 2) + "." + CellText(tables, row, 1));
    });
    head->addWidget(heading, 1);
    for (CheckBox* box : {&screen.chkSelectAll, &screen.chkUnselectAll, &screen.chkAllTables})
        head->addWidget(NewCheckBox(*box));
    column->addLayout(head);
    column->addWidget(NewGrid(screen.grxFields, FieldIcon));
    return panel;
}

QWidget* NewTriggers(frmMain& screen) {
    auto* panel = new QWidget;
    auto* column = new QVBoxLayout(panel);
    column->setContentsMargins(4, 4, 0, 0);
    column->addWidget(Heading("Audit triggers"));
    column->addWidget(NewGrid(screen.grxTriggers, TriggerIcon));
    return panel;
}

QSplitter* NewGrids(frmMain& screen) {
    auto* right = new QSplitter(Qt::Vertical);
    right->setObjectName("columnsAndTriggers");
    right->addWidget(NewFields(screen));
    right->addWidget(NewTriggers(screen));
    right->setStretchFactor(0, 3);
    right->setStretchFactor(1, 2);
    auto* grids = new QSplitter(Qt::Horizontal);
    grids->setObjectName("tablesAndDetails");
    grids->addWidget(NewTables(screen));
    grids->addWidget(right);
    grids->setStretchFactor(0, 1);
    grids->setStretchFactor(1, 1);
    grids->setSizes({560, 560});
    grids->setChildrenCollapsible(false);
    right->setChildrenCollapsible(false);
    Memory::Instance().Follow(*right);
    Memory::Instance().Follow(*grids);
    return grids;
}

// In a low window it scrolls; nothing of it may get out of reach.
QWidget* NewModuleBar(frmMain& screen) {
    auto* area = new QScrollArea;
    area->setObjectName("modules");
    area->setFrameShape(QFrame::NoFrame);
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area->setWidgetResizable(true);
    QToolBar* bar = NewToolBar(screen.btnModules, IconOf, true);
    area->setWidget(bar);
    area->setFixedWidth(bar->sizeHint().width() + area->verticalScrollBar()->sizeHint().width());
    return area;
}

void BuildBars(frmMain& screen, QMainWindow& window) {
    ShowMenuBar(*window.menuBar(), screen);
    QToolBar* tools = NewToolBar(screen.asxToolbar1, IconOf);
    window.addToolBar(Qt::TopToolBarArea, tools);
    window.setContextMenuPolicy(Qt::NoContextMenu);
    ShowPanels(*window.statusBar(), screen.stbStatus, {26, 22, 18, 0});
    QProgressBar* progress = NewProgressBar(screen.ProgressBar1);
    progress->setFixedWidth(160);
    window.statusBar()->addPermanentWidget(progress);
    window.statusBar()->addPermanentWidget(NewButton(screen.cmdBreak));
}

} // namespace

void BuildMainView(frmMain& screen, QMainWindow& window) {
    window.resize(1280, 800);
    BuildBars(screen, window);
    auto* content = new QWidget;
    auto* all = new QVBoxLayout(content);
    all->setContentsMargins(0, 0, 0, 0);
    all->setSpacing(0);
    all->addWidget(NewProductionRibbon(screen));
    auto* column = new QVBoxLayout;
    column->setContentsMargins(12, 10, 12, 10);
    column->setSpacing(10);
    column->addWidget(NewChoices(screen));
    column->addLayout(NewTicks(screen));
    column->addWidget(NewGrids(screen), 1);
    all->addLayout(column, 1);
    auto* beside = new QWidget;
    auto* row = new QHBoxLayout(beside);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    row->addWidget(NewModuleBar(screen));
    row->addWidget(content, 1);
    window.setCentralWidget(beside);
}

} // namespace quillon::desktop
