#include "vxtimelineactions/vxtimepaneoptionactions.h"

TimePaneOptionAction::TimePaneOptionAction(const QString &text, const QString &description,
                                           Getter get, Setter set, Setter changedSignal)
    : VxAnimationAction(text, description)
    , m_get(get)
    , m_set(set)
    , m_changedSignal(changedSignal)
{
    setCheckable(true);
}

void TimePaneOptionAction::init()
{
    VxTimePane *pane = requireTimePaneForInit(metaObject());
    if (!pane)
        return;
    setChecked((pane->*m_get)());
    connect(pane, m_changedSignal, this, &QAction::setChecked, Qt::UniqueConnection);
}

void TimePaneOptionAction::toggleAction(bool onOff)
{
    VxTimePane *pane = requireTimePane(metaObject(), "toggleAction");
    if (!pane)
        return;
    (pane->*m_set)(onOff);
    setChecked((pane->*m_get)());
}

VxTimePaneKeyGraphToggleAction::VxTimePaneKeyGraphToggleAction()
    : TimePaneOptionAction(
          tr("Show Key Graph"),
          tr("Toggles whether or not the Key Graph is displayed in Advanced Mode."),
          &VxTimePane::getKeyGraphOpen, &VxTimePane::setKeyGraphOpen,
          &VxTimePane::keyGraphOpenChanged)
{
}

VxTimePaneMonitorParametersPaneAction::VxTimePaneMonitorParametersPaneAction()
    : TimePaneOptionAction(
          tr("Monitor Parameters Pane"),
          tr("Toggles whether or not to monitor property selection in the Parameters pane."),
          &VxTimePane::getMonitorParametersPane, &VxTimePane::setMonitorParametersPane,
          &VxTimePane::monitorParametersPaneChanged)
{
}

VxTimePanePlayAllFramesAction::VxTimePanePlayAllFramesAction()
    : TimePaneOptionAction(
          tr("Play All Frames"),
          tr("Toggles whether or not to force all frames in the play range to cause the "
             "viewport to update or to allow updates to be skipped in order to achieve the "
             "desired Frames Per Second (FPS)."),
          &VxTimePane::getPlayAllFrames, &VxTimePane::setPlayAllFrames,
          &VxTimePane::playAllFramesChanged)
{
}
