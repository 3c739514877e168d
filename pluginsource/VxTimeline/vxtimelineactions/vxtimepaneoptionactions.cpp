#include "vxtimelineactions/vxtimepaneoptionactions.h"

#include "vxtimeline/pane/vxtimepane.h"
#include "vxtimeline/time/vxwarning.h"

VxTimePaneKeyGraphToggleAction::VxTimePaneKeyGraphToggleAction()
    : VxAnimationAction(tr("Show Key Graph"),
                        tr("Toggles whether or not the Key Graph is displayed in Advanced Mode."),
                        true)
{
    completeConstruction();
}

void VxTimePaneKeyGraphToggleAction::init()
{
    VxTimePane *pane = requireTimePaneForInit(VX_HERE);
    if (!pane)
        return;
    setChecked(pane->getKeyGraphOpen());
    connect(pane, &VxTimePane::keyGraphOpenChanged, this, &QAction::setChecked,
            Qt::UniqueConnection);
}

void VxTimePaneKeyGraphToggleAction::toggleAction(bool onOff)
{
    VxTimePane *pane = requireTimePane(VX_HERE);
    if (!pane)
        return;
    pane->setKeyGraphOpen(onOff);
    setChecked(pane->getKeyGraphOpen());
}

VxTimePaneMonitorParametersPaneAction::VxTimePaneMonitorParametersPaneAction()
    : VxAnimationAction(
          tr("Monitor Parameters Pane"),
          tr("Toggles whether or not to monitor property selection in the Parameters pane."), true)
{
    completeConstruction();
}

void VxTimePaneMonitorParametersPaneAction::init()
{
    VxTimePane *pane = requireTimePaneForInit(VX_HERE);
    if (!pane)
        return;
    setChecked(pane->getMonitorParametersPane());
    connect(pane, &VxTimePane::monitorParametersPaneChanged, this, &QAction::setChecked,
            Qt::UniqueConnection);
}

void VxTimePaneMonitorParametersPaneAction::toggleAction(bool onOff)
{
    VxTimePane *pane = requireTimePane(VX_HERE);
    if (!pane)
        return;
    pane->setMonitorParametersPane(onOff);
    setChecked(pane->getMonitorParametersPane());
}

VxTimePanePlayAllFramesAction::VxTimePanePlayAllFramesAction()
    : VxAnimationAction(
          tr("Play All Frames"),
          tr("Toggles whether or not to force all frames in the play range to cause the "
             "viewport to update or to allow updates to be skipped in order to achieve the "
             "desired Frames Per Second (FPS)."),
          true)
{
    completeConstruction();
}

void VxTimePanePlayAllFramesAction::init()
{
    VxTimePane *pane = requireTimePaneForInit(VX_HERE);
    if (!pane)
        return;
    setChecked(pane->getPlayAllFrames());
    connect(pane, &VxTimePane::playAllFramesChanged, this, &QAction::setChecked,
            Qt::UniqueConnection);
}

void VxTimePanePlayAllFramesAction::toggleAction(bool onOff)
{
    VxTimePane *pane = requireTimePane(VX_HERE);
    if (!pane)
        return;
    pane->setPlayAllFrames(onOff);
    setChecked(pane->getPlayAllFrames());
}
