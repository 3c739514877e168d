#ifndef ANIMATIONMENUORDER_H
#define ANIMATIONMENUORDER_H

#include <QtCore/QString>

/// The value of VxAction::getMenuOrder() for an action in the menu "Animation": from 100 on, a
/// hundred a section. 0 for a class without its own position there, such as one in a sub-menu.
int animationMenuOrder(const char *className);

/// The title of the action's sub-menu there, translated; empty for none. Commands for single rows
/// are many and seldom used from the menu bar: the dope sheet's own menu has them, too.
QString animationMenuFolder(const char *className);

#endif
