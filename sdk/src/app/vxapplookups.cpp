// What menus and panes ask the current application for. Declared in their rooms, which know nothing
// of the application.

#include "menu/vxmenulookup.h"
#include "pane/vxpanesource.h"

#include <vxcore/vxactionmgr.h>
#include <vxcore/vxapp.h>
#include <vxcore/vxmainwindow.h>

VxAction *vxFindMenuAction(const QString &className)
{
    const VxMainWindow *window = vxApp ? vxApp->getInterface() : nullptr;
    return window ? window->getActionMgr()->findAction(className) : nullptr;
}

const VxPluginMgr *vxCurrentPluginMgr()
{
    return vxApp ? vxApp->getPluginMgr() : nullptr;
}
