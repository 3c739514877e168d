#ifndef VXTIMEPANEINTERPACTIONS_H
#define VXTIMEPANEINTERPACTIONS_H

#include "vxtimelineactions/vxanimationaction.h"

// Base of the three commands that set the interpolation type of the selected keys. The pane numbers
// the types: 0 Linear, 1 Constant, 2 TCB.
class VxTimePaneSetInterpAction : public VxAnimationAction
{
    Q_OBJECT
public:
    ~VxTimePaneSetInterpAction() override;

    void init() override;
    QString getActionGroup() const override;

protected:
    VxTimePaneSetInterpAction(const QString &text, const QString &description);
};

// The value of a key holds until the next one.
class VxTimePaneSetInterpConstantAction : public VxTimePaneSetInterpAction
{
    Q_OBJECT
public:
    VxTimePaneSetInterpConstantAction();

protected:
    void executeAction() override;
};

// Straight from key to key.
class VxTimePaneSetInterpLinearAction : public VxTimePaneSetInterpAction
{
    Q_OBJECT
public:
    VxTimePaneSetInterpLinearAction();

protected:
    void executeAction() override;
};

// A curve shaped by tension, continuity and bias.
class VxTimePaneSetInterpTcbAction : public VxTimePaneSetInterpAction
{
    Q_OBJECT
public:
    VxTimePaneSetInterpTcbAction();

protected:
    void executeAction() override;
};

#endif
