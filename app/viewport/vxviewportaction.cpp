#include "viewport/vxviewportaction.h"

#include "viewport/viewportwidget.h"

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
    if (ViewportWidget *view = ViewportWidget::current())
        view->addAction(this);
}

void VxViewportAction::executeAction()
{
    if (ViewportWidget *view = ViewportWidget::current())
        perform(view);
}

void VxViewportAction::perform(ViewportWidget *) {}
