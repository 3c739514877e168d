#ifndef SHORTCUTCATALOGUE_H
#define SHORTCUTCATALOGUE_H

#include "shortcuts/shortcutlist.h"

class QMenuBar;
class VxActionMgr;
class VxSettings;

/// Between the shortcut editor's list and the actions.
namespace ShortcutCatalogue {

/// Every command of the menu bar, in its order, and behind them those of the action manager that
/// stand in no menu. An entry of which the manager does not know is listed only when it has a
/// shortcut of the whole window, because that shortcut is taken, and cannot be changed.
ShortcutList collect(const QMenuBar &menuBar, const VxActionMgr &actions);

/// Gives the actions what was changed in the list.
void apply(const ShortcutList &list, VxActionMgr *actions);

/// A sentence about stored shortcuts that were not given (see VxActionMgr::restoreShortcuts()): who
/// wanted which, and who has it. Empty when there is none.
QString refusalText(const QStringList &refused, const VxSettings &stored,
                    const VxActionMgr &actions);

} // namespace ShortcutCatalogue

#endif
