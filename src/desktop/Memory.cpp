#include "desktop/Memory.h"

#include <QGuiApplication>
#include <QRect>
#include <QScreen>
#include <QSplitter>
#include <QWidget>

namespace quillon::desktop {
namespace {

// A server's name as a key: its slashes would be read as groups.
QString ServerKey(const QString& server) {
    return "production/" + QString::fromLatin1(server.trimmed().toLower().toUtf8().toHex());
}

} // namespace

Memory::Memory()
    : m_settings(QSettings::IniFormat, QSettings::UserScope, "quillon", "desktop") {}

Memory& Memory::Instance() {
    static Memory memory;
    return memory;
}

// A window's place is told without its frame, whose size not every desktop tells in time.
void Memory::Restore(QWidget& window) {
    const QRect place = m_settings.value("window/" + window.objectName()).toRect();
    if (!place.isValid())
        return;
    window.resize(place.size().expandedTo(window.minimumSize()));
    if (QGuiApplication::screenAt(place.center()) != nullptr)
        window.move(place.topLeft());
    if (m_settings.value("maximized/" + window.objectName()).toBool())
        window.setWindowState(Qt::WindowMaximized);
}

void Memory::Keep(const QWidget& window) {
    m_settings.setValue("maximized/" + window.objectName(), window.isMaximized());
    if (!window.isMaximized())
        m_settings.setValue("window/" + window.objectName(), QRect(window.pos(), window.size()));
}

void Memory::Follow(QSplitter& splitter) {
    const QString key = "splitter/" + splitter.objectName();
    splitter.restoreState(m_settings.value(key).toByteArray());
    QObject::connect(&splitter, &QSplitter::splitterMoved,
                     [this, key, &splitter] { m_settings.setValue(key, splitter.saveState()); });
}

QList<int> Memory::Widths(const QString& table) const {
    QList<int> widths;
    for (const QVariant& width : m_settings.value("columns/" + table).toList())
        widths << width.toInt();
    return widths;
}

void Memory::SetWidths(const QString& table, const QList<int>& widths) {
    QList<QVariant> kept;
    for (const int width : widths)
        kept << width;
    m_settings.setValue("columns/" + table, kept);
}

Theme::Choice Memory::Appearance() const {
    const QString choice = m_settings.value("appearance").toString();
    return choice == "dark"    ? Theme::Choice::Dark
           : choice == "light" ? Theme::Choice::Light
                               : Theme::Choice::Desktop;
}

void Memory::SetAppearance(Theme::Choice choice) {
    m_settings.setValue("appearance", choice == Theme::Choice::Dark    ? "dark"
                                      : choice == Theme::Choice::Light ? "light"
                                                                       : "desktop");
}

bool Memory::IsProduction(const QString& server) const {
    return m_settings.value(ServerKey(server)).toBool();
}

void Memory::SetProduction(const QString& server, bool isProduction) {
    m_settings.setValue(ServerKey(server), isProduction);
}

} // namespace quillon::desktop
