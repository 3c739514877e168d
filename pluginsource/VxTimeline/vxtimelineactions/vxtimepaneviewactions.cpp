#include "vxtimelineactions/vxtimepaneviewactions.h"

#include "vxtimeline/pane/vxtimepane.h"
#include "vxtimeline/time/vxwarning.h"

VxTimePaneRefreshDopesheetAction::VxTimePaneRefreshDopesheetAction()
    : VxAnimationAction(
          tr("Refresh"),
          tr("Causes the data displayed in the Timeline pane dopesheet to be refreshed."))
{
    completeConstruction();
}

void VxTimePaneRefreshDopesheetAction::executeAction()
{
    if (VxTimePane *pane = requireTimePane(VX_HERE))
        pane->refreshDopesheet();
}

VxTimePaneFrameGraphKeysAction::VxTimePaneFrameGraphKeysAction()
    : VxAnimationAction(
          tr("Frame Keys"),
          tr("Causes the keys displayed in the Timeline pane key graph to be framed."))
{
    completeConstruction();
}

QString VxTimePaneFrameGraphKeysAction::getDefaultAccel() const
{
    return QStringLiteral("F");
}

void VxTimePaneFrameGraphKeysAction::executeAction()
{
    if (VxTimePane *pane = requireTimePane(VX_HERE))
        pane->frameKeyGraph();
}
