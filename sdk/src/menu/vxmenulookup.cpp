#include "menu/vxmenulookup.h"

#include <vxcore/vxactionmgr.h>
#include <vxcore/vxapp.h>
#include <vxcore/vxmainwindow.h>

VxAction *vxFindMenuAction(const QString &className)
{
    const VxMainWindow *window = vxApp ? vxApp->getInterface() : nullptr;
    return window ? window->getActionMgr()->findAction(className) : nullptr;
}
