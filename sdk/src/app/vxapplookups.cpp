// Look-ups of menus, panes and nodes in the current application. Declared in their folders, which
// do not include the application.

#include "menu/vxmenulookup.h"
#include "pane/vxpanesource.h"
#include "scene/vxnode_p.h"

#include <vxcore/vxactionmgr.h>
#include <vxcore/vxapp.h>
#include <vxcore/vxmainwindow.h>
#include <vxcore/vxstyle.h>

VxAction *vxFindMenuAction(const QString &className)
{
    const VxMainWindow *window = vxApp ? vxApp->getInterface() : nullptr;
    return window ? window->getActionMgr()->findAction(className) : nullptr;
}

const VxPluginMgr *vxCurrentPluginMgr()
{
    return vxApp ? vxApp->getPluginMgr() : nullptr;
}

QIcon vxNodeIcon(NodeIcon kind)
{
    const VxStyle *style = vxApp ? vxApp->getStyle() : nullptr;
    if (!style)
        return QIcon();
    switch (kind) {
    case NodeIcon::Bone:
        return style->icon(VxStyle::SP_VxBone);
    case NodeIcon::Skeleton:
        return style->icon(VxStyle::SP_VxSkeleton);
    default:
        return style->icon(VxStyle::SP_VxNode);
    }
}
