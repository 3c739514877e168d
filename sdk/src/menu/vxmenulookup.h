#ifndef VXMENULOOKUP_H
#define VXMENULOOKUP_H

class QString;
class VxAction;

/// Implemented with the application, which has the manager: the action of a class in the
/// application's action manager, or null: without application, main window or such an action. Menus
/// leave out what is not there.
VxAction *vxFindMenuAction(const QString &className);

#endif
