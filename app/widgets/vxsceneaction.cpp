#include "widgets/vxsceneaction.h"

#include <vxcore/vxmainwindow.h>
#include <vxcore/vxscene.h>

VxSceneAction::VxSceneAction(const char *menu, const QString &text, const QString &description,
                             const char *accel, const char *group, Command command)
    : VxStudioAction(menu, text, description, accel, group)
    , m_command(command)
{
}

void VxSceneAction::executeAction()
{
    if (!vxScene)
        return;
    const QString message = m_command(vxScene);
    if (!message.isEmpty())
        vxShowStatusMessage(message);
}
