#include "vxtimelineactions/vxtimepaneviewmodeactions.h"

#include "vxtimeline/pane/vxtimepane.h"
#include "vxtimeline/time/vxwarning.h"

VxTimePaneViewModeAction::VxTimePaneViewModeAction(const QString &text, const QString &description)
    : VxAnimationAction(text, description, true)
{
}

VxTimePaneViewModeAction::~VxTimePaneViewModeAction() = default;

void VxTimePaneViewModeAction::init()
{
    if (VxTimePane *pane = requireTimePaneForInit(VX_HERE))
        setChecked(pane->getViewMode() == value());
}

QString VxTimePaneViewModeAction::getActionGroup() const
{
    return QStringLiteral("/Preferences/View Mode");
}

TimePaneChoice::Family VxTimePaneViewModeAction::family() const
{
    return ViewModeFamily;
}

void VxTimePaneViewModeAction::executeAction()
{
    VxTimePane *pane = requireTimePane(VX_HERE);
    if (!pane)
        return;
    // A trigger has flipped the check mark already. Repeating the present choice keeps its mark.
    if (pane->getViewMode() == value() && !isChecked())
        setChecked(true);
    else
        pane->setViewMode(static_cast<VxTimePane::ViewMode>(value()));
}

bool VxTimePaneViewModeAction::isToggle() const
{
    return false;
}

VxTimePaneBasicViewAction::VxTimePaneBasicViewAction()
    : VxTimePaneViewModeAction(tr("Basic View"),
                               tr("Sets the view of the Timeline pane to \"Basic\" mode."))
{
    completeConstruction();
}

int VxTimePaneBasicViewAction::value() const
{
    return VxTimePane::BasicView;
}

VxTimePaneIntermediateViewAction::VxTimePaneIntermediateViewAction()
    : VxTimePaneViewModeAction(tr("Intermediate View"),
                               tr("Sets the view of the Timeline pane to \"Intermediate\" mode."))
{
    completeConstruction();
}

int VxTimePaneIntermediateViewAction::value() const
{
    return VxTimePane::IntermediateView;
}

VxTimePaneAdvancedViewAction::VxTimePaneAdvancedViewAction()
    : VxTimePaneViewModeAction(tr("Advanced View"),
                               tr("Sets the view of the Timeline pane to \"Advanced\" mode."))
{
    completeConstruction();
}

int VxTimePaneAdvancedViewAction::value() const
{
    return VxTimePane::AdvancedView;
}
