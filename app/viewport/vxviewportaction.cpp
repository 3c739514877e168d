#include "viewport/vxviewportaction.h"

#include "viewport/viewportwidget.h"

VxViewportAction::VxViewportAction(const char *menu, const QString &text,
                                   const QString &description, const char *accel, const char *group,
                                   const char *folder, const Command &command)
    : VxStudioAction(menu, text, description, accel, group, folder, !command)
    , m_command(command)
{
    setShortcutContext(Qt::WidgetShortcut);
}

void VxViewportAction::init()
{
    VxStudioAction::init();
    if (ViewportWidget *view = ViewportWidget::current())
        view->addAction(this);
}

void VxViewportAction::executeAction()
{
    ViewportWidget *view = ViewportWidget::current();
    if (view && m_command)
        m_command(view);
}
