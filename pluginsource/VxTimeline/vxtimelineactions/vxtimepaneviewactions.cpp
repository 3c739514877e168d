#include "vxtimelineactions/vxtimepaneviewactions.h"

#include "vxtimeline/pane/vxtimepane.h"

VxTimePaneRefreshDopesheetAction::VxTimePaneRefreshDopesheetAction()
    : VxAnimationAction(
          tr("Refresh"),
          tr("Causes the data displayed in the Timeline pane dopesheet to be refreshed."),
          &VxTimePane::refreshDopesheet)
{
}

VxTimePaneFrameGraphKeysAction::VxTimePaneFrameGraphKeysAction()
    : VxAnimationAction(
          tr("Frame Keys"),
          tr("Causes the keys displayed in the Timeline pane key graph to be framed."),
          [](VxTimePane *pane) { pane->frameKeyGraph(); }, "F")
{
}
