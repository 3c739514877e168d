#include "vxtimeline/keys/timelinemenus.h"

#include <vxcore/vxactionmenu.h>
#include <vxcore/vxmenu.h>

void TimelineMenus::add(VxMenu *menu, ClassNames classNames)
{
    for (const char *className : classNames) {
        if (className == Line)
            menu->addSeparator();
        else
            menu->addAction(QLatin1String(className));
    }
}

void TimelineMenus::add(VxActionMenu *menu, ClassNames classNames)
{
    for (const char *className : classNames) {
        if (className == Line)
            menu->insertSeparator();
        else
            menu->insertAction(QLatin1String(className));
    }
}
