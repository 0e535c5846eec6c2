#include "desktop/Person.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QRadioButton>
#include <QTableView>
#include <QTest>
#include <QToolButton>
#include <QWindow>

namespace quillon::tests {
namespace {

constexpr int mostWidgets = 80; // of a window that one would tab through

// A tick or a radio button is hit at its mark: the widget may be wider than it looks.
QPoint PlaceToHit(const QWidget& widget) {
    const bool isMark = dynamic_cast<const QCheckBox*>(&widget) || dynamic_cast<const QRadioButton*>(&widget);
    return isMark ? QPoint(8, widget.height() / 2) : widget.rect().center();
}

// The column of text that rows are known by.
int NameColumn(const QTableView& grid) {
    for (int column = 0; column < grid.model()->columnCount(); ++column)
        if (!grid.model()->index(0, column).flags().testFlag(Qt::ItemIsUserCheckable))
            return column;
    return 0;
}

QModelIndex CellOf(const QTableView& grid, const QString& name, int column) {
    const QStringList names = Names(grid);
    const auto row = static_cast<int>(names.indexOf(name));
    if (row < 0)
        throw std::runtime_error("no row " + name.toStdString() + " among " + names.join(" ").toStdString());
    return grid.model()->index(row, column);
}

QPoint Shown(QTableView& grid, const QModelIndex& cell) {
    QCoreApplication::processEvents();
    grid.scrollTo(cell);
    return grid.visualRect(cell).center();
}

QWindow& KeyboardWindow() {
    QCoreApplication::processEvents();
    QWindow* window = QGuiApplication::focusWindow();
    if (window == nullptr)
        throw std::runtime_error("no window has the keyboard");
    return *window;
}

} // namespace

QWidget& Window(const QString& name) {
    for (QWidget* window : QApplication::topLevelWidgets())
        if (window->objectName() == name && window->isVisible())
            return *window;
    throw std::runtime_error("no window " + name.toStdString());
}

void AwaitActive(const QWidget& window) {
    if (!QTest::qWaitFor([&window] { return QApplication::activeWindow() == &window; }))
        throw std::runtime_error(window.objectName().toStdString() + " never became active");
}

void Click(QWidget& widget) {
    QCoreApplication::processEvents();
    if (!widget.isVisible() || !widget.isEnabled())
        throw std::runtime_error(widget.objectName().toStdString() + " cannot be clicked");
    QTest::mouseClick(&widget, Qt::LeftButton, {}, PlaceToHit(widget));
}

void Click(const QString& name, const QWidget& in) {
    Click(Find(name, in));
}

// Through the window, so that the buttons count as held down meanwhile.
void Drag(QWidget& widget, const QPoint& from, const QPoint& to) {
    QWindow& window = *widget.window()->windowHandle();
    const QPoint start = widget.mapTo(widget.window(), from), end = widget.mapTo(widget.window(), to);
    QTest::mousePress(&window, Qt::LeftButton, {}, start);
    QTest::mouseMove(&window, (start + end) / 2);
    QTest::mouseMove(&window, end);
    QTest::mouseRelease(&window, Qt::LeftButton, {}, end);
}

void ClickCell(QTableView& grid, const QString& name, int column, Qt::KeyboardModifiers modifiers) {
    QTest::mouseClick(grid.viewport(), Qt::LeftButton, modifiers, Shown(grid, CellOf(grid, name, column)));
}

void DoubleClickCell(QTableView& grid, const QString& name, int column) {
    const QPoint place = Shown(grid, CellOf(grid, name, column));
    QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(grid.viewport(), Qt::LeftButton, {}, place);
}

void PressTool(const QString& toolTip, const QWidget& in) {
    for (auto* button : in.findChildren<QToolButton*>())
        if (button->toolTip() == toolTip && button->isVisible())
            return Click(*button);
    throw std::runtime_error("no tool " + toolTip.toStdString());
}

void Choose(const QWidget& window, const QString& entry) {
    auto* action = window.findChild<QAction*>(entry);
    if (action == nullptr || !action->isEnabled() || !action->isVisible())
        throw std::runtime_error(entry.toStdString() + " cannot be chosen");
    action->trigger();
}

void Type(QWidget& box, const QString& text) {
    if (!box.isEnabled())
        throw std::runtime_error(box.objectName().toStdString() + " takes no typing");
    QCoreApplication::processEvents();
    box.setFocus();
    QTest::keyClick(&box, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&box, Qt::Key_Delete);
    QTest::keyClicks(&box, text);
}

void Press(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    QTest::keyClick(&KeyboardWindow(), key, modifiers);
}

void TypeHere(const QString& text) {
    for (const QChar character : text)
        QTest::keyClick(&KeyboardWindow(), character.toLatin1());
}

void TabTo(const QString& name) {
    for (int i = 0; i < mostWidgets; ++i) {
        const QWidget* focus = QApplication::focusWidget();
        if (focus != nullptr && focus->objectName() == name)
            return;
        Press(Qt::Key_Tab);
    }
    throw std::runtime_error("the keyboard does not get to " + name.toStdString());
}

void Pick(QComboBox& box, const QString& entry) {
    const int row = box.findText(entry);
    if (row < 0)
        throw std::runtime_error("no entry " + entry.toStdString());
    if (!box.view()->isVisible())
        box.showPopup();
    QTest::keyClick(box.view(), Qt::Key_Home);
    for (int i = 0; i < row; ++i)
        QTest::keyClick(box.view(), Qt::Key_Down);
    QTest::keyClick(box.view(), Qt::Key_Return);
}

QString CellText(const QTableView& grid, const QString& name, int column) {
    return CellOf(grid, name, column).data().toString();
}

bool IsTicked(const QTableView& grid, const QString& name, int column) {
    return CellOf(grid, name, column).data(Qt::CheckStateRole).toInt() == Qt::Checked;
}

QStringList Names(const QTableView& grid) {
    QStringList names;
    const int column = NameColumn(grid);
    for (int row = 0; row < grid.model()->rowCount(); ++row)
        names << grid.model()->index(row, column).data().toString();
    return names;
}

} // namespace quillon::tests
