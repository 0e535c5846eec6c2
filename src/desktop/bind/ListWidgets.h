// A widget for each control with entries: combo boxes, lists with columns, trees, tab strips.
#pragma once

#include <QIcon>

#include <functional>

#include "platform/ListControls.h"

class QComboBox;
class QTabBar;
class QTreeWidget;

namespace quillon::desktop {

// The picture for an icon's key; a null icon shows none.
using IconLookup = std::function<QIcon(const std::string& key)>;

QComboBox* NewComboBox(ComboBox& box);
// For a box whose text a person picks and never types, whatever the screen itself writes into it.
QComboBox* NewPickBox(ComboBox& box);
QTreeWidget* NewListView(ListView& list, IconLookup iconOf = {});
QTreeWidget* NewTreeView(TreeView& tree, IconLookup iconOf = {});
QTabBar* NewTabStrip(TabStrip& strip);

} // namespace quillon::desktop
