#include "widgets/actionsubmenu.h"

#include <QMenu>
#include <vxcore/vxaction.h>
#include <vxcore/vxactionmgr.h>
#include <vxcore/vxapp.h>
#include <vxcore/vxmainwindow.h>

QMenu *addActionSubMenu(QMenu *menu, const QString &title, const QString &menuPath)
{
    const VxMainWindow *window = vxApp->getInterface();
    if (!window)
        return nullptr;
    QMenu *made = nullptr;
    QString section;
    for (VxAction *action : window->getActionMgr()->getActions()) {
        if (action->getDefaultMenuPath() != menuPath)
            continue;
        const QString own = action->getActionGroup() + QLatin1Char('/') + action->getMenuFolder();
        if (!made)
            made = menu->addMenu(title);
        else if (own != section)
            made->addSeparator();
        section = own;
        made->addAction(action);
    }
    return made;
}
