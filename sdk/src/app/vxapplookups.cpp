// Look-ups of menus and panes in the current application. Declared in their folders, which do not
// include the application.

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
