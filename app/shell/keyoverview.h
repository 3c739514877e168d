#ifndef KEYOVERVIEW_H
#define KEYOVERVIEW_H

#include <QString>

class ShortcutList;

/// A page in rich text about what the mouse does where, and behind it every command that has a key
/// now, by the menu in which it stands.
QString keyOverviewPage(const ShortcutList &shortcuts);

#endif
