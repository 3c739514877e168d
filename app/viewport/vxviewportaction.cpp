#include "viewport/vxviewportaction.h"

#include "viewport/viewportwidget.h"

#include <vxcore/vxapp.h>
#include <vxcore/vxmainwindow.h>

VxViewportAction::VxViewportAction(const char *menu, const QString &text,
                                   const QString &description, const char *accel, const char *group,
                                   const char *folder, bool checkable)
    : VxStudioAction(menu, text, description, accel, group, folder, checkable)
{
    setShortcutContext(Qt::WidgetShortcut);
}

void VxViewportAction::init()
{
    VxStudioAction::init();
    if (ViewportWidget *view = viewport())
        view->addAction(this);
}

void VxViewportAction::executeAction()
{
    if (ViewportWidget *view = viewport())
        perform(view);
}

ViewportWidget *VxViewportAction::viewport()
{
    const VxMainWindow *window = vxApp ? vxApp->getInterface() : nullptr;
    return window ? window->findChild<ViewportWidget *>() : nullptr;
}

void VxViewportAction::perform(ViewportWidget *) {}
