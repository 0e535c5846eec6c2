// The main window over a model of 10,000 tables: what a person waits for, and what the grid keeps in memory.
//
// The peer is the toolkit's own way: an item model that holds every cell, under the same kind of table. Each
// line is the median of several turns of both, one after the other in the same process. The bench fails when
// the first paint after the load takes longer than 200 ms.
#include <QApplication>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QMainWindow>
#include <QScrollBar>
#include <QSortFilterProxyModel>
#include <QStandardItemModel>
#include <QTableView>

#include <malloc.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <vector>

#include "desktop/QtFrontEnd.h"
#include "desktop/Theme.h"
#include "desktop/bind/GridView.h"
#include "desktop/views/ScreenViews.h"
#include "model/AuditObj.h"
#include "program/Program.h"
#include "shell/ScreenInstances.h"
#include "shell/Session.h"
#include "shell/frmMain.h"
#include "support/LargeModel.h"

namespace quillon::bench {
namespace {

constexpr int TableCount = 10000;
constexpr int ColumnCount = 20;
constexpr int Turns = 5;
constexpr double MostFirstPaint = 200; // milliseconds

double Milliseconds(const std::function<void()>& act, int turns = Turns) {
    std::vector<double> times;
    for (int turn = 0; turn < turns; ++turn) {
        QElapsedTimer timer;
        timer.start();
        act();
        times.push_back(static_cast<double>(timer.nsecsElapsed()) / 1e6);
    }
    std::ranges::sort(times);
    return times[times.size() / 2];
}

// The toolkit takes most of its memory from malloc itself.
double HeapMegabytes() {
    const struct mallinfo2 heap = mallinfo2();
    return static_cast<double>(heap.uordblks + heap.hblkhd) / (1024 * 1024);
}

double Report(const char* what, double ours, double peer, const char* unit) {
    std::printf("%-16s %9.2f %s  peer %9.2f %s  ratio %6.2f\n", what, ours, unit, peer, unit, ours / peer);
    return ours;
}

void Paint(QWidget& window) {
    QCoreApplication::processEvents();
    window.repaint();
}

// Down a page, painted, twenty times.
void Scroll(QTableView& table) {
    QScrollBar& bar = *table.verticalScrollBar();
    bar.setValue(0);
    for (int page = 0; page < 20; ++page) {
        bar.triggerAction(QAbstractSlider::SliderPageStepAdd);
        table.viewport()->repaint();
    }
}

void Sort(QTableView& table) {
    table.sortByColumn(0, Qt::DescendingOrder);
    table.viewport()->repaint();
    table.sortByColumn(-1, Qt::AscendingOrder);
}

class Peer {
  public:
    Peer() {
        m_filter.setSourceModel(&m_model);
        m_filter.setFilterKeyColumn(0);
        m_filter.setFilterCaseSensitivity(Qt::CaseInsensitive);
        table.setModel(&m_filter);
        table.resize(620, 700);
        table.show();
    }
    void Load() {
        m_model.clear();
        m_model.setColumnCount(6);
        for (const auto& each : *g_objAudit->Database()->Tables()) {
            QList<QStandardItem*> row;
            for (const std::string& text : {each->Name(), each->Owner()})
                row << new QStandardItem(QString::fromStdString(text));
            for (const bool tick : {each->Audit4Insert(), each->Audit4Update(), each->Audit4Delete()}) {
                row << new QStandardItem;
                row.back()->setCheckable(true);
                row.back()->setCheckState(tick ? Qt::Checked : Qt::Unchecked);
            }
            m_model.appendRow(row);
        }
        Paint(table);
    }
    void Filter(const QString& text) {
        m_filter.setFilterFixedString(text);
        Paint(table);
    }
    QTableView table;

  private:
    QStandardItemModel m_model;
    QSortFilterProxyModel m_filter;
};

// The main window as it stands after a login, its grids bound to the session's model.
class Ours {
  public:
    Ours() {
        m_screen.Load_GridExColumns();
        desktop::BuildMainView(m_screen, window);
        window.show();
        Paint(window);
        table = dynamic_cast<desktop::GridView*>(window.findChild<QWidget*>("grxTables"));
    }
    void Load() {
        m_screen.grxTables.SetItemCount(0);
        m_screen.m_strCurrentTable = frmMain::ResetTableName;
        m_screen.grxTables.SetItemCount(g_objAudit->Database()->Tables()->Count());
        m_screen.grxTables.Refetch();
        m_screen.grxTables_Click();
        Paint(window);
    }
    void Filter(const QString& text) {
        table->Filter().SetText(text);
        Paint(window);
    }
    void TickAll() {
        m_screen.chkAll.Click();
        Paint(window);
    }
    // Space over every row, as Ctrl+A and the space bar do it.
    void TickBySpace() {
        table->selectAll();
        QKeyEvent space(QEvent::KeyPress, Qt::Key_Space, Qt::NoModifier, " ");
        QCoreApplication::sendEvent(table, &space);
        Paint(window);
    }
    QMainWindow window;
    desktop::GridView* table = nullptr;

  private:
    frmMain& m_screen = TheScreen<frmMain>();
};

bool Measure() {
    g_objAudit = LoadModel(TableCount, ColumnCount);
    Peer peer;
    Ours ours;
    const double before = HeapMegabytes();
    ours.Load();
    const double between = HeapMegabytes();
    peer.Load();
    const double memory = between - before, peerMemory = HeapMegabytes() - between;
    const double firstPaint =
        Report("first paint", Milliseconds([&] { ours.Load(); }), Milliseconds([&] { peer.Load(); }), "ms");
    Report("20 pages", Milliseconds([&] { Scroll(*ours.table); }), Milliseconds([&] { Scroll(peer.table); }),
           "ms");
    const auto filter = [](auto& side) {
        side.Filter("99");
        side.Filter("999");
        side.Filter("");
    };
    Report("filter, 3 keys", Milliseconds([&] { filter(ours); }), Milliseconds([&] { filter(peer); }), "ms");
    Report("sort", Milliseconds([&] { Sort(*ours.table); }), Milliseconds([&] { Sort(peer.table); }), "ms");
    Report("memory", memory, peerMemory, "MB");
    std::printf("%-16s %9.2f ms\n", "tick all", Milliseconds([&] { ours.TickAll(); }));
    std::printf("%-16s %9.2f ms\n", "space, all rows", Milliseconds([&] { ours.TickBySpace(); }, 1));
    return firstPaint < MostFirstPaint;
}

} // namespace
} // namespace quillon::bench

int main(int argc, char** argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    std::string folder = (std::filesystem::temp_directory_path() / "desktop-bench-XXXXXX").string();
    if (mkdtemp(folder.data()) == nullptr)
        return 1;
    qputenv("QUILLON_HOME", folder.c_str());
    qputenv("XDG_CONFIG_HOME", folder.c_str());
    QApplication application(argc, argv);
    quillon::desktop::Theme::Apply(application, quillon::desktop::Theme::Choice::Light);
    bool isFast = false;
    {
        quillon::desktop::QtFrontEnd frontEnd;
        const quillon::Program program(frontEnd);
        isFast = quillon::bench::Measure();
    }
    std::filesystem::remove_all(folder);
    return isFast ? 0 : 1;
}
