// What a person can do at the widgets: with the mouse, by name, and with the keyboard, wherever the focus is.
// Each act waits until what came before it has come to rest.
// What cannot be found or reached throws std::runtime_error, which fails the test.
#pragma once

#include <QString>
#include <QWidget>

#include <stdexcept>

class QAbstractButton;
class QComboBox;
class QTableView;

namespace quillon::tests {

template <class T = QWidget>
T& Find(const QString& name, const QWidget& in) {
    if (auto* found = dynamic_cast<T*>(in.findChild<QWidget*>(name)))
        return *found;
    throw std::runtime_error("no " + name.toStdString() + " in " + in.objectName().toStdString());
}

// A visible window of a screen or a dialog.
QWidget& Window(const QString& name);
// Returns when the window itself, not only one above or below it, has the keyboard.
void AwaitActive(const QWidget& window);

// --- the mouse ---
void Click(QWidget& widget);
void Click(const QString& name, const QWidget& in);
void Drag(QWidget& widget, const QPoint& from, const QPoint& to);
void DoubleClickCell(QTableView& grid, const QString& name, int column);
// The row whose first column of text says `name`.
void ClickCell(QTableView& grid, const QString& name, int column, Qt::KeyboardModifiers modifiers = {});
// Presses the button of a tool bar by its tool tip.
void PressTool(const QString& toolTip, const QWidget& in);
// An entry of a menu or a menu bar.
void Choose(const QWidget& window, const QString& entry);

// --- the keyboard ---
// Takes the place of what stands in the box.
void Type(QWidget& box, const QString& text);
// To whatever has the focus: an open menu or list, the active window.
void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = {});
void TypeHere(const QString& text);
// Tab by Tab until the widget of this name has the focus.
void TabTo(const QString& name);
// Opens the list if it is closed, goes to the entry, and takes it.
void Pick(QComboBox& box, const QString& entry);

// --- looks ---
QString CellText(const QTableView& grid, const QString& name, int column);
bool IsTicked(const QTableView& grid, const QString& name, int column);
// The first column of text of all rows shown, from top to bottom.
QStringList Names(const QTableView& grid);

} // namespace quillon::tests
