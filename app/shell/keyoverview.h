#ifndef KEYOVERVIEW_H
#define KEYOVERVIEW_H

#include <QString>

class ShortcutList;

/// A page in rich text about the mouse gestures of each area, followed by every command that has a
/// shortcut, by menu.
QString keyOverviewPage(const ShortcutList &shortcuts);

#endif
