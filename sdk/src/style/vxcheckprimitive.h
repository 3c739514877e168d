#ifndef VXCHECKPRIMITIVE_H
#define VXCHECKPRIMITIVE_H

class QPainter;
class QStyleOption;

/** The square of a check box, in dialogs, lists and menus: its frame is mixed from text and
 * background, so that an empty one is visible in a dark menu, too. On, NoChange, Enabled and
 * MouseOver count. */
void vxDrawCheckBox(const QStyleOption *option, QPainter *painter);

#endif
