// Two palettes of our own, light and dark, and the fonts; what the desktop prefers decides between them
// unless the person does.
#pragma once

#include <QColor>
#include <QFont>
#include <QString>

class QApplication;

namespace quillon::desktop {

struct Theme {
    bool isDark;
    QColor window, base, alternate, text, faint, border, accent, onAccent, line, selected, mark, warning;
    QColor comment, string, number, keyword, member, tag; // of the editors

    enum class Choice { Desktop, Light, Dark };

    static const Theme& Current();
    // Gives the application its style, palette and style sheet.
    static void Apply(QApplication& application, Choice choice);
    static QFont EditorFont();
};

} // namespace quillon::desktop
