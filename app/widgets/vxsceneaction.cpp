#include "widgets/vxsceneaction.h"

#include <vxcore/vxapp.h>
#include <vxcore/vxmainwindow.h>
#include <vxcore/vxscene.h>

VxSceneAction::VxSceneAction(const char *menu, const QString &text, const QString &description,
                             const char *accel, const char *group)
    : VxAction(text, description)
    , m_menu(menu)
    , m_accel(accel)
    , m_group(group)
{
}

VxSceneAction::~VxSceneAction() = default;

QString VxSceneAction::getDefaultAccel() const
{
    return QLatin1String(m_accel);
}

QString VxSceneAction::getDefaultMenuPath() const
{
    return QLatin1String(m_menu);
}

QString VxSceneAction::getActionGroup() const
{
    return QLatin1String(m_group);
}

void VxSceneAction::executeAction()
{
    if (!vxScene)
        return;
    const QString message = perform(vxScene);
    VxMainWindow *window = vxApp->getInterface();
    if (window && !message.isEmpty())
        window->showStatusMessage(message);
}
