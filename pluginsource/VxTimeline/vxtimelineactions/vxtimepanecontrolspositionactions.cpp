#include "vxtimelineactions/vxtimepanecontrolspositionactions.h"

#include "vxtimeline/pane/vxtimepane.h"
#include "vxtimeline/time/vxwarning.h"

VxTimePaneControlsPositionAction::VxTimePaneControlsPositionAction(const QString &text,
                                                                   const QString &description)
    : VxAnimationAction(text, description, true)
{
}

VxTimePaneControlsPositionAction::~VxTimePaneControlsPositionAction() = default;

void VxTimePaneControlsPositionAction::init()
{
    if (VxTimePane *pane = requireTimePaneForInit(VX_HERE))
        setChecked(pane->getControlsPosition() == value());
}

QString VxTimePaneControlsPositionAction::getActionGroup() const
{
    return QStringLiteral("/Preferences/Controls Position");
}

TimePaneChoice::Family VxTimePaneControlsPositionAction::family() const
{
    return ControlsPositionFamily;
}

void VxTimePaneControlsPositionAction::executeAction()
{
    VxTimePane *pane = requireTimePane(VX_HERE);
    if (!pane)
        return;
    // A trigger has flipped the check mark already. Repeating the present choice keeps its mark.
    if (pane->getControlsPosition() == value() && !isChecked())
        setChecked(true);
    else
        pane->setControlsPosition(static_cast<VxTimePane::ControlsPosition>(value()));
}

bool VxTimePaneControlsPositionAction::isToggle() const
{
    return false;
}

VxTimePaneControlsBottomAction::VxTimePaneControlsBottomAction()
    : VxTimePaneControlsPositionAction(
          tr("Controls Bottom"),
          tr("Sets the controls of the Timeline pane to be below the dopesheet/keygraph."))
{
    completeConstruction();
}

int VxTimePaneControlsBottomAction::value() const
{
    return VxTimePane::ControlsBottom;
}

VxTimePaneControlsTopAction::VxTimePaneControlsTopAction()
    : VxTimePaneControlsPositionAction(
          tr("Controls Top"),
          tr("Sets the controls of the Timeline pane to be above the dopesheet/keygraph."))
{
    completeConstruction();
}

int VxTimePaneControlsTopAction::value() const
{
    return VxTimePane::ControlsTop;
}
