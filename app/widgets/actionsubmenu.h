#ifndef ACTIONSUBMENU_H
#define ACTIONSUBMENU_H

#include <QString>

class QMenu;

/// Adds a sub-menu with the actions that have a menu path, in the order of the action manager, such
/// as "Create"; separators divide the groups and folders of the menu bar. Null, and nothing is
/// added, without a window or without such actions.
QMenu *addActionSubMenu(QMenu *menu, const QString &title, const QString &menuPath);

#endif
