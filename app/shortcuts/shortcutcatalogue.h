#ifndef SHORTCUTCATALOGUE_H
#define SHORTCUTCATALOGUE_H

#include "shortcuts/shortcutlist.h"

class QMenuBar;
class VxActionMgr;
class VxSettings;

/// Conversion between the shortcut editor's list and the actions.
namespace ShortcutCatalogue {

/// Every command of the menu bar, in its order, followed by those of the action manager that are
/// in no menu. An entry unknown to the manager is listed only when it has a shortcut of the whole
/// window, because that shortcut is in use, and cannot be changed.
ShortcutList collect(const QMenuBar &menuBar, const VxActionMgr &actions);

/// Applies the changes of the list to the actions.
void apply(const ShortcutList &list, VxActionMgr *actions);

/// A sentence about stored shortcuts that were not set (see VxActionMgr::restoreShortcuts()): the
/// commands, their shortcuts, and the present owners. Empty when there is none.
QString refusalText(const QStringList &refused, const VxSettings &stored,
                    const VxActionMgr &actions);

} // namespace ShortcutCatalogue

#endif
