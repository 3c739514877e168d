#ifndef ANIMATIONMENUORDER_H
#define ANIMATIONMENUORDER_H

// The place of an action in the menu "Animation", as VxAction::getMenuOrder() tells it: from 100
// on, a hundred a section. 0 for a class that has no place of its own there, such as one that
// stands in a sub-menu.
int animationMenuOrder(const char *className);

#endif
