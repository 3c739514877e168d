#ifndef SHORTCUTCATALOGUE_H
#define SHORTCUTCATALOGUE_H

#include "shortcutlist.h"

class QMenuBar;
class VxActionMgr;

/// Between the shortcut editor's list and the actions.
namespace ShortcutCatalogue {

/// Every command of the menu bar, in its order, and behind them those of the action manager that
/// stand in no menu. An entry that is no action of the manager is listed only when it has a
/// shortcut of the whole window, because that shortcut is taken, and cannot be changed.
ShortcutList collect(const QMenuBar &menuBar, const VxActionMgr &actions);

/// Gives the actions what was changed in the list.
void apply(const ShortcutList &list, VxActionMgr *actions);

} // namespace ShortcutCatalogue

#endif
