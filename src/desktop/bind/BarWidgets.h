// A widget for each bar: status bar panels, progress bar, tool bar, menus.
#pragma once

#include <QIcon>

#include <functional>
#include <string>
#include <vector>

#include "platform/Bars.h"

class QMenu;
class QMenuBar;
class QProgressBar;
class QStatusBar;
class QToolBar;

namespace quillon::desktop {

// `widths`: of the panels in characters, in order; 0 takes what is left.
void ShowPanels(QStatusBar& widget, StatusBar& bar, const std::vector<int>& widths);
// Shows itself only while there is progress to show.
QProgressBar* NewProgressBar(ProgressBar& bar);
// A button for each item; icons by the items' icon names. `vertical` puts captions beside the icons.
QToolBar* NewToolBar(ToolBar& bar, const std::function<QIcon(const std::string&)>& iconOf,
                     bool vertical = false);
// Fills a menu bar with the menus of a screen that have no parent and are no pop-ups.
void ShowMenuBar(QMenuBar& widget, const Screen& screen);
// Opens a pop-up menu at the pointer; returns when it has closed.
void PopUp(Menu& menu, QWidget* parent);

} // namespace quillon::desktop
