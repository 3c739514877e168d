#ifndef VXTIMEPANEINTERPACTIONS_H
#define VXTIMEPANEINTERPACTIONS_H

#include "vxtimelineactions/vxanimationaction.h"

/// Base of the three commands that set the interpolation type of the selected keys. The pane
/// numbers the types: 0 Linear, 1 Constant, 2 TCB.
class VxTimePaneSetInterpAction : public VxAnimationAction
{
    Q_OBJECT
public:
    QString getActionGroup() const override;

protected:
    VxTimePaneSetInterpAction(const QString &text, const QString &description, int interpType);
};

/// The value of a key holds until the next one.
class VxTimePaneSetInterpConstantAction : public VxTimePaneSetInterpAction
{
    Q_OBJECT
public:
    VxTimePaneSetInterpConstantAction();
};

/// Straight from key to key.
class VxTimePaneSetInterpLinearAction : public VxTimePaneSetInterpAction
{
    Q_OBJECT
public:
    VxTimePaneSetInterpLinearAction();
};

/// A curve shaped by tension, continuity and bias.
class VxTimePaneSetInterpTcbAction : public VxTimePaneSetInterpAction
{
    Q_OBJECT
public:
    VxTimePaneSetInterpTcbAction();
};

#endif
