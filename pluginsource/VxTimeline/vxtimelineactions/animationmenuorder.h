#ifndef ANIMATIONMENUORDER_H
#define ANIMATIONMENUORDER_H

#include <QtCore/QString>

// The place of an action in the menu "Animation", as VxAction::getMenuOrder() tells it: from 100
// on, a hundred a section. 0 for a class that has no place of its own there, such as one that
// stands in a sub-menu.
int animationMenuOrder(const char *className);

// The title of the sub-menu in which the action stands there, translated; empty for none. Commands
// for single rows are many and seldom needed from the bar: the dope sheet's own menu has them, too.
QString animationMenuFolder(const char *className);

#endif
