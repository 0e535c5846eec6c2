// What the windows remember between runs: their places, splitters and column widths, the choice of a palette,
// and which servers a person has marked as production. One file of the user's, apart from the system's
// settings.
#pragma once

#include <QSettings>

#include "desktop/Theme.h"

class QSplitter;

namespace quillon::desktop {

class Memory {
  public:
    static Memory& Instance();

    void Restore(QWidget& window);
    void Keep(const QWidget& window);
    // By object name; kept whenever a person changes them.
    void Follow(QSplitter& splitter);
    // The widths of a table's columns, empty before a person has changed one.
    QList<int> Widths(const QString& table) const;
    void SetWidths(const QString& table, const QList<int>& widths);

    Theme::Choice Appearance() const;
    void SetAppearance(Theme::Choice choice);

    bool IsProduction(const QString& server) const;
    void SetProduction(const QString& server, bool isProduction);

  private:
    Memory();

    QSettings m_settings;
};

} // namespace quillon::desktop
