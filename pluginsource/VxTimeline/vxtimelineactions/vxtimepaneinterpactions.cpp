#include "vxtimelineactions/vxtimepaneinterpactions.h"

#include "vxtimeline/pane/vxtimepane.h"
#include "vxtimeline/time/vxwarning.h"

VxTimePaneSetInterpAction::VxTimePaneSetInterpAction(const QString &text,
                                                     const QString &description)
    : VxAnimationAction(text, description)
{
}

VxTimePaneSetInterpAction::~VxTimePaneSetInterpAction() = default;

void VxTimePaneSetInterpAction::init()
{
    requireTimePaneForInit(VX_HERE);
}

QString VxTimePaneSetInterpAction::getActionGroup() const
{
    return QStringLiteral("/Set Key Interpolation");
}

VxTimePaneSetInterpConstantAction::VxTimePaneSetInterpConstantAction()
    : VxTimePaneSetInterpAction(
          tr("Constant"),
          tr("Sets the interpolation type on the selected key(s) to the \"Constant\" type."))
{
    completeConstruction();
}

void VxTimePaneSetInterpConstantAction::executeAction()
{
    if (VxTimePane *pane = requireTimePane(VX_HERE))
        pane->setInterpType(1);
}

VxTimePaneSetInterpLinearAction::VxTimePaneSetInterpLinearAction()
    : VxTimePaneSetInterpAction(
          tr("Linear"),
          tr("Sets the interpolation type on the selected key(s) to the \"Linear\" type."))
{
    completeConstruction();
}

void VxTimePaneSetInterpLinearAction::executeAction()
{
    if (VxTimePane *pane = requireTimePane(VX_HERE))
        pane->setInterpType(0);
}

VxTimePaneSetInterpTcbAction::VxTimePaneSetInterpTcbAction()
    : VxTimePaneSetInterpAction(
          tr("TCB"), tr("Sets the interpolation type on the selected key(s) to the \"TCB\" type."))
{
    completeConstruction();
}

void VxTimePaneSetInterpTcbAction::executeAction()
{
    if (VxTimePane *pane = requireTimePane(VX_HERE))
        pane->setInterpType(2);
}
