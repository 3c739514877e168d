#ifndef VXMENULOOKUP_H
#define VXMENULOOKUP_H

class QString;
class VxAction;

/// The action of a class in the application's action manager; null without application, main window
/// or such an action, which menus then leave out. Implemented with the application, which has the
/// manager.
VxAction *vxFindMenuAction(const QString &className);

#endif
