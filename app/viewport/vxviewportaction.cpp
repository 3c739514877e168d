#include "viewport/vxviewportaction.h"

#include "viewport/viewportwidget.h"

#include <vxcore/vxapp.h>
#include <vxcore/vxmainwindow.h>

VxViewportAction::VxViewportAction(const char *menu, const QString &text,
                                   const QString &description, const char *accel, const char *group,
                                   const char *folder, bool checkable)
    : VxAction(text, description, checkable)
    , m_menu(menu)
    , m_accel(accel)
    , m_group(group)
    , m_folder(folder)
{
    setShortcutContext(Qt::WidgetShortcut);
}

VxViewportAction::~VxViewportAction() = default;

void VxViewportAction::init()
{
    VxAction::init();
    if (ViewportWidget *view = viewport())
        view->addAction(this);
}

QString VxViewportAction::getDefaultAccel() const
{
    return QLatin1String(m_accel);
}

QString VxViewportAction::getDefaultMenuPath() const
{
    return QLatin1String(m_menu);
}

QString VxViewportAction::getActionGroup() const
{
    return QLatin1String(m_group);
}

QString VxViewportAction::getMenuFolder() const
{
    return QLatin1String(m_folder);
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
