#include "vxtimelineactions/vxtimepaneinterpactions.h"

#include "vxtimeline/pane/vxtimepane.h"

VxTimePaneSetInterpAction::VxTimePaneSetInterpAction(const QString &text,
                                                     const QString &description, int interpType)
    : VxAnimationAction(text, description,
                        [interpType](VxTimePane *pane) { pane->setInterpType(interpType); })
{
}

QString VxTimePaneSetInterpAction::getActionGroup() const
{
    return QStringLiteral("/Set Key Interpolation");
}

VxTimePaneSetInterpConstantAction::VxTimePaneSetInterpConstantAction()
    : VxTimePaneSetInterpAction(
          tr("Constant"),
          tr("Sets the interpolation type on the selected key(s) to the \"Constant\" type."), 1)
{
}

VxTimePaneSetInterpLinearAction::VxTimePaneSetInterpLinearAction()
    : VxTimePaneSetInterpAction(
          tr("Linear"),
          tr("Sets the interpolation type on the selected key(s) to the \"Linear\" type."), 0)
{
}

VxTimePaneSetInterpTcbAction::VxTimePaneSetInterpTcbAction()
    : VxTimePaneSetInterpAction(
          tr("TCB"), tr("Sets the interpolation type on the selected key(s) to the \"TCB\" type."),
          2)
{
}
