#include "desktop/Theme.h"

#include <QApplication>
#include <QDBusConnection>
#include <QDBusInterface>
#include <QDBusReply>
#include <QDBusVariant>
#include <QFontDatabase>
#include <QPalette>
#include <QStyleFactory>

namespace quillon::desktop {
namespace {

const Theme light{false,
                  QColor("#f3f4f7"),
                  QColor("#ffffff"),
                  QColor("#f8f9fb"),
                  QColor("#1c2230"),
                  QColor("#6b7385"),
                  QColor("#cfd4de"),
                  QColor("#2f5bd0"),
                  QColor("#ffffff"),
                  QColor("#f0f4ff"),
                  QColor("#d7e3ff"),
                  QColor("#ffd9d6"),
                  QColor("#b3261e"),
                  QColor("#5d7a4f"),
                  QColor("#a1461f"),
                  QColor("#8a3fa0"),
                  QColor("#1f4fc4"),
                  QColor("#0c7584"),
                  QColor("#b3261e")};
const Theme dark{true,
                 QColor("#20232a"),
                 QColor("#171a20"),
                 QColor("#1c1f26"),
                 QColor("#e3e6ed"),
                 QColor("#99a1b3"),
                 QColor("#3b414d"),
                 QColor("#6d97ff"),
                 QColor("#0e1320"),
                 QColor("#222836"),
                 QColor("#2b3d66"),
                 QColor("#5a2a2a"),
                 QColor("#ff8a80"),
                 QColor("#8fb07f"),
                 QColor("#e5a07a"),
                 QColor("#cf9be3"),
                 QColor("#8fb2ff"),
                 QColor("#6cc9d6"),
                 QColor("#ff8a80")};
const Theme* g_current = &light;

// The colour scheme that the desktop's portal tells: 1 dark, 2 light. Where nobody answers, the lightness of
// the palette that the platform brought says it.
bool DesktopIsDark(const QPalette& platform) {
    QDBusInterface portal("org.freedesktop.portal.Desktop", "/org/freedesktop/portal/desktop",
                          "org.freedesktop.portal.Settings", QDBusConnection::sessionBus());
    if (portal.isValid()) {
        portal.setTimeout(500);
        const QDBusReply<QDBusVariant> reply =
            portal.call("Read", "org.freedesktop.appearance", "color-scheme");
        if (reply.isValid())
            return reply.value().variant().value<QDBusVariant>().variant().toUInt() == 1;
    }
    return platform.color(QPalette::Window).lightness() < 128;
}

QPalette PaletteOf(const Theme& theme) {
    QPalette palette;
    palette.setColor(QPalette::Window, theme.window);
    palette.setColor(QPalette::WindowText, theme.text);
    palette.setColor(QPalette::Base, theme.base);
    palette.setColor(QPalette::AlternateBase, theme.alternate);
    palette.setColor(QPalette::Text, theme.text);
    palette.setColor(QPalette::Button, theme.window);
    palette.setColor(QPalette::ButtonText, theme.text);
    palette.setColor(QPalette::BrightText, theme.warning);
    palette.setColor(QPalette::ToolTipBase, theme.base);
    palette.setColor(QPalette::ToolTipText, theme.text);
    palette.setColor(QPalette::PlaceholderText, theme.faint);
    palette.setColor(QPalette::Highlight, theme.accent);
    palette.setColor(QPalette::HighlightedText, theme.onAccent);
    palette.setColor(QPalette::Link, theme.accent);
    palette.setColor(QPalette::Mid, theme.border);
    palette.setColor(QPalette::Light, theme.isDark ? theme.border : theme.base);
    palette.setColor(QPalette::Midlight, theme.isDark ? theme.border : theme.line);
    palette.setColor(QPalette::Dark, theme.border);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, theme.faint);
    palette.setColor(QPalette::Disabled, QPalette::Base, theme.window);
    return palette;
}

// What a palette cannot say: room around things, and quiet borders.
QString SheetOf(const Theme& theme) {
    return QString(R"(
QToolTip { color: %1; background: %2; border: 1px solid %3; padding: 4px; }
QToolBar { border: 0; spacing: 2px; padding: 3px; background: %4; }
QToolBar#btnModules { border-right: 1px solid %3; }
QToolBar QToolButton { padding: 5px 8px; border-radius: 5px; text-align: left; }
QToolBar QToolButton:hover { background: %5; }
QToolBar QToolButton:focus { border: 1px solid %6; }
QMenuBar { background: %4; border-bottom: 1px solid %3; }
QHeaderView::section { background: %4; color: %7; border: 0; border-bottom: 1px solid %3; padding: 4px 6px; }
QTableView, QTreeView { border: 1px solid %3; border-radius: 4px; selection-background-color: %9;
    selection-color: %1; outline: 0; }
QStatusBar { border-top: 1px solid %3; }
QStatusBar::item { border: 0; }
QCheckBox::indicator, QTableView::indicator, QTreeView::indicator { width: 14px; height: 14px;
    border: 1px solid %7; border-radius: 3px; background: %2; }
QCheckBox::indicator:checked, QTableView::indicator:checked, QTreeView::indicator:checked {
    border-color: %6; background: %6; image: url(:/icons/tick-white.svg); }
QRadioButton::indicator { width: 14px; height: 14px; border: 1px solid %7; border-radius: 8px; background: %2; }
QRadioButton::indicator:checked { width: 6px; height: 6px; border: 5px solid %6; background: %2; }
QCheckBox::indicator:disabled, QRadioButton::indicator:disabled { border-color: %3; background: %4; }
QCheckBox::indicator:checked:disabled { background: %3; }
QRadioButton::indicator:checked:disabled { border-color: %3; }
QCheckBox::indicator:hover, QRadioButton::indicator:hover, QTableView::indicator:hover { border-color: %6; }
QLineEdit, QSpinBox { border: 1px solid %3; border-radius: 4px; padding: 3px 5px; background: %2; }
QLineEdit:focus, QSpinBox:focus { border-color: %6; }
QLineEdit:disabled, QSpinBox:disabled { background: %4; }
QComboBox QLineEdit, QSpinBox QLineEdit { border: 0; padding: 0; }
QSplitter::handle { background: transparent; }
QComboBox { combobox-popup: 0; }
QDialogButtonBox { dialogbuttonbox-buttons-have-icons: 0; }
QLabel#heading { font-weight: 600; }
QLabel#notice { color: %7; }
QFrame#production { background: %8; }
QFrame#production QLabel { color: %2; font-weight: 600; }
QProgressBar { border: 1px solid %3; border-radius: 4px; background: %2; max-height: 10px; }
QProgressBar::chunk { background: %6; border-radius: 3px; }
)")
        .arg(theme.text.name(), theme.base.name(), theme.border.name(), theme.window.name(),
             theme.line.name(), theme.accent.name(), theme.faint.name(), theme.warning.name(),
             theme.selected.name());
}

} // namespace

const Theme& Theme::Current() {
    return *g_current;
}

void Theme::Apply(QApplication& application, Choice choice) {
    static const QPalette platform = application.palette();
    const bool isDark = choice == Choice::Dark || (choice == Choice::Desktop && DesktopIsDark(platform));
    g_current = isDark ? &dark : &light;
    application.setStyle(QStyleFactory::create("Fusion"));
    application.setPalette(PaletteOf(*g_current));
    application.setStyleSheet(SheetOf(*g_current));
}

QFont Theme::EditorFont() {
    return QFontDatabase::systemFont(QFontDatabase::FixedFont);
}

} // namespace quillon::desktop
